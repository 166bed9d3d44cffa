// Dante is not supported: each call says so.
#include "live_media/liveMedia.h"
#include "util/log.h"

BU_S32 APP_LM_DANTE_Init()
{
    TRACE("oops dante not support\n");
    return 0;
}

BU_S32 APP_LM_DANTE_DeInit()
{
    TRACE("oops dante not support\n");
    return 0;
}

BU_S32 APP_LM_DANTE_GetEnable(BU_BOOL *)
{
    TRACE("oops dante not support\n");
    return 0;
}

BU_S32 APP_LM_DANTE_SetEnable(BU_BOOL)
{
    TRACE("oops dante not support\n");
    return 0;
}
