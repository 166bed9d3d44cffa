// Outputs that are not built yet: they say so and do nothing. An output that is built takes its lines away from here;
// with the last one the file goes.
#include "live/fullNdi.h"
#include "live_media/liveMedia.h"
#include "util/log.h"

namespace
{
BU_S32 notBuilt(const BU_CHAR *pcOutput)
{
    LOG_WARN("%s is not part of this build\n", pcOutput);
    return 0;
}
} // namespace

BU_S32 APP_LM_RTMP_Init() { return notBuilt("RTMP output"); }
BU_S32 APP_LM_RTMP_DeInit() { return notBuilt("RTMP output"); }
BU_S32 APP_LM_RTMP_SetChnCfg(CFG_LM_CHN_E, const CFG_LM_RTMP_S *) { return notBuilt("RTMP output"); }
BU_S32 APP_LM_NDI_Init() { return notBuilt("NDI output"); }
BU_S32 APP_LM_NDI_DeInit() { return notBuilt("NDI output"); }
BU_S32 APP_LM_NDI_SetChnCfg(CFG_LM_CHN_E, const CFG_LM_NDI_S *, BU_BOOL) { return notBuilt("NDI output"); }
BU_S32 APP_LM_SRT_Init() { return notBuilt("SRT output"); }
BU_S32 APP_LM_SRT_DeInit() { return notBuilt("SRT output"); }
BU_S32 APP_LM_SRT_SetChnCfg(CFG_LM_CHN_E, const CFG_LM_SRT_S *) { return notBuilt("SRT output"); }
BU_S32 BSP_FULL_NDI_SetNDIEncode(BU_BOOL) { return notBuilt("full-bandwidth NDI encoder"); }
