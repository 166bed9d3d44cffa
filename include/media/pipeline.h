/// Media pipeline: bring-up and video outputs.
#pragma once

#include "base/types.h"
#include "camera/startup.h"
#include "camera/video.h"

/// What the pipeline is brought up with, from the stored configuration.
struct MPP_BUSINESS_CFG_S {
    BU_S32 s32PipeCnt;          ///< sensors: 1 close-up, 2 with panorama
    BU_S32 s32Width, s32Height; ///< of the close-up sensor, pixels
    HDMI_FORMAT_E enFormat;
    HDMI_FPS_E enFps;
    BU_BOOL bMirror, bFlip; ///< what the sensor read-out starts with
};

/// Video outputs: 0 display bridge (SDI), 1 panorama, 2 HDMI.
enum MPP_VOUT_ID : BU_S32 { MPP_VOUT_ID_0 = 0, MPP_VOUT_ID_1, MPP_VOUT_ID_2 };

struct MPP_VOUT_CFG_S {
    struct {
        BU_U32 u32Width, u32Height; ///< pixels
    } stResolution;
    BU_S32 s32Fps; ///< frames/s; fractional rates in thousandths: 59940, 29970, 23980
    BU_BOOL bInterlaced;
    BU_S32 s32OutputCs; ///< HDMI_CS_E
};

/// Outputs that an HDMI distributor chip may serve.
enum MPP_HDMI_DISTRIBUTOR_TYPE_E : BU_S32 {
    MPP_HDMI_DISTRIBUTOR_TYPE_HDMI = 0,
    MPP_HDMI_DISTRIBUTOR_TYPE_3G_SDI,
    MPP_HDMI_DISTRIBUTOR_TYPE_CA_12G_SDI,
    MPP_HDMI_DISTRIBUTOR_TYPE_YM_12G_SDI,
    MPP_HDMI_DISTRIBUTOR_TYPE_FULLNDI,
    MPP_HDMI_DISTRIBUTOR_MAX
};

/// Registers a function that MPP_InitCfg runs before it sets anything up; several run in the order of registration.
/// @return 0, or -1 on null
BU_S32 MPP_RegisterBeforeInit(BU_S32 (*pfnCb)(void *));
/// Brings the pipeline up. @return 0; -1: null, a sensor size or number that cannot be, or a function before it failed
/// Thread: the start-up's.
BU_S32 MPP_InitCfg(MPP_BUSINESS_CFG_S *pstCfg);
/// Starts the streams of a pipeline that is up. @return 0, or -1: it is not up
BU_S32 MPP_InitStream();

/// What an output shows: outputs 1 and 2 follow the HDMI format, rate and colour space, 0 those of SDI, until
/// MPP_SetVoutCfg gives an output its own. @return 0, or -1: no such output, null
/// Thread: any.
BU_S32 MPP_GetVoutCfg(MPP_VOUT_ID enOut, MPP_VOUT_CFG_S *pstCfg);
/// Gives an output a configuration of its own, until the next change of its format setting. @return 0, or -1: no such
/// output, null, or a size or rate that cannot be
BU_S32 MPP_SetVoutCfg(MPP_VOUT_ID enOut, const MPP_VOUT_CFG_S *pstCfg);
/// Video of an output on or off. @return 0, or -1: no such output
BU_S32 MPP_SwitchVoutVideo(MPP_VOUT_ID enOut, BU_BOOL bOn);

/// The chip's port that serves an output. @return the port, 255: the model has none, or no such output
BU_S32 MPP_GetHdmiDistributor(MPP_HDMI_DISTRIBUTOR_TYPE_E enType);
/// @return 1: the attached display's description changed, 0; on the PC no display is ever attached
BU_S32 MPP_IsChangeHdmiEdid();
