/// Video encoders of the media pipeline.
///
/// Channels 0 close-up main, 1 close-up sub, 2 panorama main, 3 panorama sub feed the stream caches 1 to 4; 4 to 7 are
/// free for others. An enabled encoder works only while its cache has a consumer, or when it has a frame function.
/// Thread: any, several at once.
#pragma once

#include "base/types.h"
#include "media/frame.h"

constexpr BU_S32 MPP_VENC_CHN_MAX = 8;

enum MPP_VENC_FORMAT_E : BU_S32 { MPP_VENC_FORMAT_E_MJPEG = 0, MPP_VENC_FORMAT_E_H264, MPP_VENC_FORMAT_E_H265 };
enum MPP_VENC_RC_MODE_E : BU_S32 { MPP_VENC_RC_MODE_CBR = 0, MPP_VENC_RC_MODE_VBR = 1 };
struct tagMPP_VENC_PARAM_S {
    MPP_VENC_FORMAT_E enType;
    BU_U32 u32Width, u32Height;  ///< 64 to 4096, 64 to 2304, even
    BU_U32 u32FrmRate;           ///< frames/s wanted, 1 to 60; 59940, 29970 and 23980 are thousandths
    BU_U32 u32RunFrmRate;        ///< what the output's rate leaves of it; only read
    BU_U32 u32BitRate;           ///< 16 to 200000 [kbit/s]
    BU_U32 u32GOP;               ///< from key frame to key frame, up to 3600; 0: two seconds
    MPP_VENC_RC_MODE_E enRcMode; ///< VBR may use twice the bit rate for a second
    BU_U32 u32Profile;           ///< H.264: 0 base, 1 main, 2 high; H.265 has one
    BU_U32 u32Quality;           ///< M-JPEG: 1 to 100, 0: 75
    BU_S32 s32SrcFps;            ///< the output's rate; only read
    BU_U32 u32QpMinI, u32QpMaxI, u32QpMinP, u32QpMaxP; ///< 0 to 51; the widest range of both holds; maximum 0: free
    BU_U32 u32BitrateProfile;                          ///< stored for the pages
    bool operator==(const tagMPP_VENC_PARAM_S &) const = default;
};
typedef tagMPP_VENC_PARAM_S MPP_VENC_PARAM_S;

/// What a channel runs with. @param bReread  what is stored for it instead
/// @return 1: enabled; 0: not, or no such channel, the record is zero then
BU_S32 MPP_GetVencChnStatus(BU_S32 s32Chn, MPP_VENC_PARAM_S &stParam, BU_BOOL bReread);
BU_S32 MPP_GetVencChnStatus(BU_S32 s32Chn, MPP_VENC_PARAM_S *pstParam, BU_BOOL bReread);

/// @return the pipe a channel takes its pictures from, MPP_PIPE_USAGE_E; MPP_PIPE_USAGE_E_BUTT (15): none
BU_S32 MPP_GetVencSource(BU_S32 s32Chn);

/// Enables a channel, or gives an enabled one new parameters.
/// @param s32Source  MPP_PIPE_USAGE_E of a pipe that is there
/// @param fnFrame    empty: its packets go to the stream cache; else they go to it, one a call, on a pipeline thread,
///                   where it must not enable or disable channels. The record is the channel's: ps32Index keeps its
///                   value from call to call (0 at first), bEnable becomes BU_FALSE during a call when the channel is
///                   being disabled
/// @return 0, or -1: no such channel or source, or parameters that no encoder takes (logged); nothing has changed then
BU_S32 MPP_EnableVenc(BU_S32 s32Source, BU_S32 s32Chn, const MPP_VENC_PARAM_S *pstParam, FN_MPP_FRAME fnFrame,
                      BU_BOOL bSaveCfg);
/// Returns after the last call of the frame function. @param bSaveCfg  it stays disabled after a restart
/// @return 0, also when it was disabled already; -1: no such channel, or not its source
BU_S32 MPP_DisableVenc(BU_S32 s32Source, BU_S32 s32Chn, BU_BOOL bSaveCfg);

/// @return the first channel without a cache that is disabled, -1: none
BU_S32 MPP_GetUnusedVencChnId();
