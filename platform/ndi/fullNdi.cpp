// The full-bandwidth NDI encoder: not built yet, its calls say so.
#include "live/fullNdi.h"

#include "util/journal.h"
#include "util/log.h"

BU_S32 BSP_FULL_NDI_SetNDIEncode(BU_BOOL bEnable)
{
    if (const auto injected = journal::call(__func__, bEnable)) return *injected;
    LOG_WARN("full-bandwidth NDI encoder is not part of this build\n");
    return 0;
}
