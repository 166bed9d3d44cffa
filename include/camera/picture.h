/// The whole picture: how the camera hangs, what it shows, what freezes it.
#pragma once

#include "base/setting.h"

enum HDMI_OUTPUT_E : BU_S32 { HDMI_OUTPUT_E_CLOSE_UP = 0, HDMI_OUTPUT_E_PANORAMA = 1 };

// settings: SYS_API_System SYS_API_Video
/// switch, default off; not announced, it holds from the next start on [Mirror]
BU_S32 SYS_API_GetMirror(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 SYS_API_SetMirror(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// switch, default off; not announced, it holds from the next start on [Flip]
BU_S32 SYS_API_GetFlip(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 SYS_API_SetFlip(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// 0 ceiling, 1 stand: 0...1, default 1; not announced, it holds from the next start on [MountMode]
BU_S32 SYS_API_GetMountMode(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 SYS_API_SetMountMode(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// switch, default off [ImageFreeze]
BU_S32 SYS_API_GetImageFreeze(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 SYS_API_SetImageFreeze(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// tele mode: switch, default off [SensorCrop]
BU_S32 SYS_API_GetSensorCrop(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 SYS_API_SetSensorCrop(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// status texts in the picture: switch, default on [Prompt]
BU_S32 SYS_API_GetPrompt(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 SYS_API_SetPrompt(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// switch, default off [HdrSwi]
BU_S32 SYS_API_GetHdrSwi(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 SYS_API_SetHdrSwi(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// frozen picture during a recall: switch, default off [PresetMode]
BU_S32 SYS_API_GetPresetMode(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 SYS_API_SetPresetMode(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// HDMI_OUTPUT_E: 0...1, default 0 [HdmiOutput]
BU_S32 SYS_API_GetHdmiOutput(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
inline BU_S32 SYS_API_GetHdmiOutput(HDMI_OUTPUT_E *penValue, BU_BOOL bReread = BU_FALSE)
{
    return SYS_API_GetHdmiOutput(EnumAsNumber(penValue).address(), bReread);
}
BU_S32 SYS_API_SetHdmiOutput(BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
// end of settings
