/// Setters that take a word in place of the value: the word is looked up in the table of its setting and the value
/// form's result is returned. An unknown word is refused by the value form and changes nothing.
#pragma once

#include "camera/focus.h"
#include "camera/image.h"
#include "camera/motion.h"
#include "camera/picture.h"
#include "camera/serial.h"
#include "camera/tracking.h"
#include "camera/zoom.h"
#include "vocabulary/words.h"

/// A word form beside the value form of a pipeline's or device's setter, and beside that of the whole camera.
#define BU_WORD_SETTER_DEV(fn, valueOfWord)                                                                            \
    inline BU_S32 fn(BU_S32 s32Dev, const BU_CHAR *pcWord, BU_BOOL bSaveCfg, BU_BOOL bUpdate)                          \
    {                                                                                                                  \
        return fn(s32Dev, valueOfWord(pcWord), bSaveCfg, bUpdate);                                                     \
    }
#define BU_WORD_SETTER(fn, valueOfWord)                                                                                \
    inline BU_S32 fn(const BU_CHAR *pcWord, BU_BOOL bSaveCfg, BU_BOOL bUpdate)                                         \
    {                                                                                                                  \
        return fn(valueOfWord(pcWord), bSaveCfg, bUpdate);                                                             \
    }

BU_WORD_SETTER_DEV(ISP_API_SetAeMode, ispAeModeStr2Enum)
BU_WORD_SETTER_DEV(ISP_API_SetShutter, ispShutterStr2Enum)
BU_WORD_SETTER_DEV(ISP_API_SetShutterMode, ispShutterModeStr2Enum)
BU_WORD_SETTER_DEV(ISP_API_SetIrisLevel, ispIrisStr2Enum)
BU_WORD_SETTER_DEV(ISP_API_SetAeMeterMode, ispAeMeterModeStr2Enum)
BU_WORD_SETTER_DEV(ISP_API_SetAntiFlicker, ispAntiFlickerStr2Enum)
BU_WORD_SETTER_DEV(ISP_API_SetWbMode, ispWbModeStr2Enum)
BU_WORD_SETTER_DEV(ISP_API_SetStaticMode, ispStaticWBStr2Enum)
BU_WORD_SETTER_DEV(ISP_API_SetAwbSensitivity, ispAwbSensitivityStr2Enum)
BU_WORD_SETTER_DEV(ISP_API_SetNDFilter, ispNdFilterStr2Enum)
BU_WORD_SETTER_DEV(ISP_API_SetIspBinUsage, ispBinUsageStr2Enum)
BU_WORD_SETTER_DEV(ISP_API_SetBackLight, sysSwitchStr2Enum)
BU_WORD_SETTER_DEV(ISP_API_SetDrcSwi, sysSwitchStr2Enum)
BU_WORD_SETTER_DEV(ISP_API_SetExpCompSwi, sysSwitchStr2Enum)
BU_WORD_SETTER_DEV(ISP_API_SetMonoChromeSwi, sysSwitchStr2Enum)
BU_WORD_SETTER_DEV(ISP_API_SetOnePushAwb, sysSwitchStr2Enum)
BU_WORD_SETTER_DEV(ISP_API_SetExposureFullViewFollow, sysSwitchStr2Enum)
BU_WORD_SETTER_DEV(ISP_API_SetWhiteBalanceFullViewFollow, sysSwitchStr2Enum)
BU_WORD_SETTER_DEV(ISP_API_SetAutoIrisSwi, sysSwitchStr2Enum)

BU_WORD_SETTER_DEV(PT_API_SetPtSpeedMatch, sysSwitchStr2Enum)
BU_WORD_SETTER_DEV(PT_API_SetPowerUpPtzPos, ptzPtzPosStr2Enum)
inline BU_S32 PT_API_SetSpeedAccuracy(BU_S32 s32Dev, const BU_CHAR *pcWord, BU_BOOL bSaveCfg)
{
    return PT_API_SetSpeedAccuracy(s32Dev, ptzSpeedAccuracyStr2Enum(pcWord), bSaveCfg);
}

BU_WORD_SETTER_DEV(PTZ_API_SetMaxDZoomTime, ptzDZoomTimeStr2Enum)
BU_WORD_SETTER_DEV(PTZ_API_SetDZoomMode, sysSwitchStr2Enum)
BU_WORD_SETTER_DEV(AF_API_SetFocusRange, ptzFocusRangeStr2Enum)
BU_WORD_SETTER_DEV(AF_API_SetFocusArea, ptzFocusAreaStr2Enum)
BU_WORD_SETTER_DEV(AF_API_SetPtzTrigAf, sysSwitchStr2Enum)
BU_WORD_SETTER_DEV(AF_API_SetFocusModel, ptzFocusModeStr2Enum)
BU_WORD_SETTER_DEV(AF_API_SetFaceAF, sysSwitchStr2Enum)
BU_WORD_SETTER(AF_API_SetDistortionCorrection, sysSwitchStr2Enum)

BU_WORD_SETTER(SYS_API_SetMirror, sysSwitchStr2Enum)
BU_WORD_SETTER(SYS_API_SetFlip, sysSwitchStr2Enum)
BU_WORD_SETTER(SYS_API_SetPrompt, sysSwitchStr2Enum)
BU_WORD_SETTER(SYS_API_SetSensorCrop, sysSwitchStr2Enum)
BU_WORD_SETTER(SYS_API_SetImageFreeze, sysSwitchStr2Enum)
BU_WORD_SETTER(SYS_API_SetMountMode, sysMountModeIsStrStand)
inline BU_S32 USB_API_SetMode(const BU_CHAR *pcWord, BU_BOOL bSaveCfg)
{
    return USB_API_SetMode(sysUsbModeStr2Enum(pcWord), bSaveCfg);
}

BU_WORD_SETTER(ALG_API_SetEnable, sysSwitchStr2Enum)
BU_WORD_SETTER(ALG_API_SetTrackMode, algTrackeModeStr2Enum)
BU_WORD_SETTER(ALG_API_SetTrackStrategy, algTrackeStrategyStr2Enum)
/// The track mode used under that strategy.
BU_WORD_SETTER(ALG_API_SetTrackStrategyBinocular, algTrackeModeStr2Enum)
BU_WORD_SETTER(ALG_API_SetTrackStrategyMonocular, algTrackeModeStr2Enum)

#undef BU_WORD_SETTER_DEV
#undef BU_WORD_SETTER
