// Modules that are not built yet: their start functions say so and do nothing. A module that is built takes its line
// away from here; with the last line the file goes.
#include "algorithm/algorithm.h"
#include "dvip/dvip.h"
#include "event/event.h"
#include "fan/fan.h"
#include "freed/freed.h"
#include "hdmi/hdmi.h"
#include "hdmi_distributor/hdmiDistributor.h"
#include "hdmi_in/hdmiIn.h"
#include "ldc/ldc.h"
#include "media_record/mediaRecord.h"
#include "mipi_dsi/mipiDsi.h"
#include "msg_client/msgClient.h"
#include "ndi/ndiPtz.h"
#include "oled/oled.h"
#include "onvif/onvif.h"
#include "pelco/pelco.h"
#include "sdi_12g/sdi12g.h"
#include "util/log.h"
#include "webcam/webcam.h"

namespace
{
BU_S32 notBuilt(const BU_CHAR *pcModule)
{
    LOG_WARN("%s is not part of this build\n", pcModule);
    return 0;
}
} // namespace

BU_S32 MSG_AppClientInit() { return notBuilt("message-bus client"); }
BU_S32 DEV_EVENT_StartMonitor() { return notBuilt("device-event monitor"); }
BU_S32 CFG_EVENT_RegisterService() { return notBuilt("configuration events"); }
BU_S32 PELCO_InitProcess() { return notBuilt("Pelco"); }
BU_S32 FREED_InitProcess() { return notBuilt("FreeD"); }
BU_S32 DVIP_InitProcess() { return notBuilt("DVIP"); }
BU_S32 ONVIF_InitProcess() { return notBuilt("ONVIF"); }
BU_S32 BSP_StartUsbSrv() { return notBuilt("USB webcam"); }
BU_S32 MEDIA_RECORD_Init() { return notBuilt("recording"); }
BU_S32 ALG_Init() { return notBuilt("tracking engine"); }
BU_S32 ALG_RegisterInitDestroy() { return notBuilt("tracking engine restart"); }
BU_S32 APP_HdmiIn_prepare() { return notBuilt("HDMI input preparation"); }
BU_S32 APP_HdmiIn_init() { return notBuilt("HDMI input"); }
BU_S32 APP_HdmiDistributor_prepare() { return notBuilt("HDMI distributor preparation"); }
BU_S32 APP_HdmiDistributor_init() { return notBuilt("HDMI distributor"); }
BU_S32 FPGA_12GSDI_Prepare() { return notBuilt("12G-SDI board preparation"); }
BU_S32 FPGA_12GSDI_InitProcess() { return notBuilt("12G-SDI board"); }
BU_S32 APP_DSI_LT9211_Init() { return notBuilt("display bridge"); }
BU_S32 OLED_InitService() { return notBuilt("status display"); }
BU_S32 APP_FAN_init() { return notBuilt("fan"); }
BU_S32 BSP_StartHdmiSrv() { return notBuilt("HDMI audio"); }
BU_S32 LDC_Init() { return notBuilt("lens-distortion correction"); }

// What built modules ask of the others: no upgrade runs, nobody shows a tally, nothing is sent on a serial port.
MSG_INFO_STATE_E MSG_AppGetUpdateTallyState() { return MSG_UPGRADE_INFO_STATE_FINSH; }
BU_S32 NDI_PTZ_GetTallyState(BU_U8 *pu8Preview, BU_U8 *pu8Program)
{
    *pu8Preview = *pu8Program = 0;
    return 0;
}
BU_S32 FREED_UpdateSerialActivePushMsg() { return 0; }
