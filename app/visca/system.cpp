// Address, video output, infrared, sound, menu and factory reset.
#include "camera/menu.h"
#include "camera/restore.h"
#include "camera/serial.h"
#include "camera/sound.h"
#include "camera/video.h"
#include "handlers.h"
#include "media/audio.h"
#include "table.h"
#include "util/log.h"
#include "vocabulary/words.h"

using namespace visca;

namespace
{
// clang-format off
typedef BU_S32 (*PFN_MENU_KEY)();
constexpr Coded<PFN_MENU_KEY> MENU_KEYS[] = {
    {VISCA_MSG_SYS_MENU_E_ON_OFF, CMD_MENU_HandleMenuBtn},
    {VISCA_MSG_SYS_MENU_E_ON,     CMD_MENU_OnlyOpenMenu},
    {VISCA_MSG_SYS_MENU_E_OFF,    CMD_MENU_OnlyCloseMenu},
    {VISCA_MSG_SYS_MENU_E_UP,     CMD_MENU_HandeUpBtn},
    {VISCA_MSG_SYS_MENU_E_DOWN,   CMD_MENU_HandeDownBtn},
    {VISCA_MSG_SYS_MENU_E_LEFT,   CMD_MENU_HandeLeftBtn},
    {VISCA_MSG_SYS_MENU_E_RIGHT,  CMD_MENU_HandeRightBtn},
    {VISCA_MSG_SYS_MENU_E_ENTER,  CMD_MENU_HandeHomeBtn},
    {VISCA_MSG_SYS_MENU_E_RETURN, OSD_MENU_ReturnMenu},
};
// clang-format on

BU_S32 otherIrSwitch()
{
    BU_S32 s32Switch = IR_SWITCH_E_ON;
    IR_API_GetSwitch(&s32Switch, BU_FALSE);
    return s32Switch != IR_SWITCH_E_ON;
}
} // namespace

BU_S32 viscaCtrlCancel(tagVISCA_CTRL_INFO_S *)
{
    UTIL_TRACE_Print("just test visca ");
    return 0;
}

BU_S32 viscaCtrlAddress(tagVISCA_CTRL_INFO_S *pstInfo)
{
    if (VISCA_API_SetAddr(pstInfo->u8Address, BU_TRUE) != 0) {
        UTIL_TRACE_Print("[%s:%d]: set addr %d error\n", __func__, __LINE__, pstInfo->u8Address);
        return -1;
    }
    TRACE("addr %d\n", pstInfo->u8Address);
    return 0;
}

BU_S32 viscaCtrlVideoResolution(tagVISCA_CTRL_INFO_S *pstInfo)
{
    TRACE("Type %d \n", pstInfo->enVideoCtrl);
    BU_S32 s32Cs = HDMI_CS_E_RGB;
    SYSTEM_API_GetHdmiCs(&s32Cs, BU_FALSE);
    const BU_S32 s32Video = cameraOf<codes::VIDEO_FORMATS>(pstInfo->enVideoCtrl);
    if (s32Video == NONE) return -1;
    const BU_CHAR *pcFormat = vocabulary::wordOf<MAP_HDMI_FORMAT>(codes::formatOf(s32Video));
    const BU_CHAR *pcFps = vocabulary::wordOf<MAP_HDMI_FPS>(codes::fpsOf(s32Video));
    const BU_S32 s32Ret = SYSTEM_API_SetHdmiCfg(pcFormat, pcFps, s32Cs, BU_TRUE);
    SYSTEM_API_SetSdiCfg(pcFormat, pcFps, s32Cs, BU_FALSE);
    TRACE("Format[%s] Fps[%s] \n", pcFormat, pcFps);
    return s32Ret;
}

BU_S32 viscaCtrlIrRecv(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto enType = pstInfo->enIrRecvCtrl;
    const BU_S32 s32On = enType == VISCA_MSG_E_IR_RECV_ON_OFF ? otherIrSwitch() : cameraOf<codes::SWITCHES>(enType);
    if (s32On == NONE) return refuseType(enType);
    const BU_S32 s32Ret = IR_API_SetSwitchByRam(sysSwitchEnum2Str(s32On));
    TRACE("Type %d\n", enType);
    return s32Ret;
}

BU_S32 viscaCtrlIrCtrl(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto [enType, u8Val] = pstInfo->stIrCtrl;
    BU_S32 s32Ret = -1;
    if (enType == VISCA_MSG_E_IR_ADDR)
        s32Ret = IR_API_SetAddr(u8Val, BU_TRUE, IRADDR_SWITCH_E_SOFT);
    else if (const BU_S32 s32On = cameraOf<codes::SWITCHES>(u8Val); s32On != NONE && enType == VISCA_MSG_E_IR_MODE)
        s32Ret = IR_API_SetSwitch(sysSwitchEnum2Str(s32On), BU_TRUE);
    TRACE("IrVal %d\n", u8Val);
    return s32Ret;
}

BU_S32 viscaCtrlAudioVol(tagVISCA_CTRL_INFO_S *pstInfo)
{
    const auto [enType, u8Direct] = pstInfo->stAudioVolCtrl;
    const BU_S32 s32Id = AUDIO_AI_GetFirstEnabledId();
    if (s32Id < 0) {
        TRACE("No AI enabled value %d\n", u8Direct);
        return 0;
    }
    tagAI_ATTR_S stAttr{}, stDefault{};
    if (const BU_S32 s32Ret = AUDIO_AI_GetAttr(s32Id, &stAttr); s32Ret != 0) return s32Ret;
    switch (enType) {
    case VISCA_MSG_E_AUDIO_VOL_RESET:
        if (const BU_S32 s32Ret = AUDIO_AI_GetDefAttr(s32Id, &stDefault); s32Ret != 0) return s32Ret;
        stAttr.s32Volume = stDefault.s32Volume;
        break;
    case VISCA_MSG_E_AUDIO_VOL_UP:
        ++stAttr.s32Volume;
        break;
    case VISCA_MSG_E_AUDIO_VOL_DOWN:
        --stAttr.s32Volume;
        break;
    case VISCA_MSG_E_AUDIO_VOL_DIRECT:
        stAttr.s32Volume = u8Direct;
        break;
    default:
        return refuseType(enType);
    }
    const BU_S32 s32Ret = AUDIO_AI_SetAttr(s32Id, &stAttr, BU_TRUE);
    UTIL_TRACE_Print("TODO -- [%s:%d] %d\n", __func__, __LINE__, stAttr.s32Volume);
    return s32Ret;
}

BU_S32 viscaCtrlAudioMute(tagVISCA_CTRL_INFO_S *pstInfo)
{
    direct<SYS_API_SetAudioMute>(pstInfo->enAudioMuteCtrl == VISCA_MSG_E_AUDIO_MUTE_ON);
    return 0;
}

BU_S32 viscaCtrlSysMenu(tagVISCA_CTRL_INFO_S *pstInfo)
{
    if (const auto *ppfnKey = find(MENU_KEYS, pstInfo->eSysMenuOpt)) (*ppfnKey)();
    TRACE("To restore factory settings \n");
    return 0;
}

BU_S32 viscaCtrlSystemFactory(tagVISCA_CTRL_INFO_S *)
{
    SYSTEM_API_FactoryRestoreConfiguration(-1);
    TRACE("To restore factory settings \n");
    return 0;
}
