// What modules that are not built answer: their starts say so and do nothing, questions get what an idle camera says.
#include "modules.h"
#include "util/log.h"

#define ABSENT(step, condition, function, name)                                                                        \
    BU_S32 function()                                                                                                  \
    {                                                                                                                  \
        LOG_WARN("%s is not part of this build\n", name);                                                              \
        return 0;                                                                                                      \
    }
ABSENT(, , MSG_AppClientInit, "message-bus client")
#include "modules.def"

// No upgrade runs, nobody shows a tally, nothing is sent on a serial port.
MSG_INFO_STATE_E MSG_AppGetUpdateTallyState() { return MSG_UPGRADE_INFO_STATE_FINSH; }
BU_S32 NDI_PTZ_GetTallyState(BU_U8 *pu8Preview, BU_U8 *pu8Program)
{
    *pu8Preview = *pu8Program = 0;
    return 0;
}
BU_S32 FREED_UpdateSerialActivePushMsg() { return 0; }
