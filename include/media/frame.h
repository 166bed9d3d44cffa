/// Raw frames, images, device memory, stills.
#pragma once

#include "base/types.h"

#include <functional>

/// A way into a pipe's pictures. The first two name the pipes: close-up and panorama.
enum MPP_PIPE_USAGE_E : BU_S32 {
    MPP_PIPE_USAGE_E_CLOSEUP_FULL = 0,
    MPP_PIPE_USAGE_E_PANORAMA_CROP0 = 5,
    MPP_PIPE_USAGE_E_TRACK_ALG_CLOSEUP = 11,
    MPP_PIPE_USAGE_E_TRACK_ALG_PANORAMA = 12,
    MPP_PIPE_USAGE_E_BUTT = 15
};

enum MPP_MEM_TYPE_E : BU_S32 { MPP_MEM_TYPE_E_UNION = 0, MPP_MEM_TYPE_E_CV = 1 };
struct MPP_MMZ_MEM_S {
    BU_U64 u64PhyAddr;
    void *pvVirAddr; ///< null: nothing is allocated
    BU_U32 u32MemLen;
    BU_BOOL bCache;
    MPP_MEM_TYPE_E enType;
    void *priv;
};

enum MPP_YUV_FORMAT_E : BU_S32 { MPP_YUV_FORMAT_E_YUV = 0, MPP_YUV_FORMAT_E_NV12 = 1 };
struct MPP_YUV_PARAM_S {
    MPP_YUV_FORMAT_E enType;    ///< YUV: YUY2, 2 bytes a pixel; NV12: 1.5
    BU_U32 u32Width, u32Height; ///< 16 to 8192, even
    BU_U32 u32FrmRate;          ///< as in MPP_VENC_PARAM_S; at most the output's
    MPP_MEM_TYPE_E enOutMemType;
};

/// A raw frame, its planes one after the other without gaps, or an encoded one. Valid during the call.
struct MPP_FRAME_INFO_S {
    void *virt_addr;
    BU_U32 u32Length;  ///< [bytes]
    BU_BOOL bEnable;   ///< BU_FALSE: the stream is being stopped
    BU_S32 *ps32Index; ///< the receiver's, kept from frame to frame; 0 at first
    BU_U64 u64Pts;     ///< as of the stream caches [us]
    BU_U32 u32Width, u32Height;
};
typedef std::function<BU_S32(MPP_FRAME_INFO_S *)> FN_MPP_FRAME;

/// A planar picture: R, G, B.
struct ImgInfo {
    int iWdt, iHgt;
    int iStrd[3]; ///< bytes from row to row
    unsigned char *iData[3];
};

struct SDL_RWops;

/// Starts a stream of raw frames, one for each usage. fnFrame is called for each frame on a thread of the stream; while
/// it works, frames are left out. Its result is ignored.
/// @return 0; -1: usage without a pipe, running already, or parameters that cannot be
BU_S32 MPP_StartYuvStream(BU_S32 s32Usage, const MPP_YUV_PARAM_S *pstParam, FN_MPP_FRAME fnFrame);
/// Stops it. @param bWait  returns only after the last call; without, a running call may still end (from fnFrame itself
/// it never waits). @return 0, also for a stream that is not running; -1: no such usage
BU_S32 MPP_StopYuvStream(BU_S32 s32Usage, BU_BOOL bWait);

/// Converts an NV12 frame into an image of the same size. @return 0, or -1: null, or sizes that differ
BU_S32 MPP_ImageNv12ToRgbPlanar(const MPP_FRAME_INFO_S *pstFrame, ImgInfo *pstRgb);
/// Scales an image to the size of another. @return 0, or -1: null, or an empty size
BU_S32 MPP_ImageRgbPlanarResize(const ImgInfo *pstSrc, ImgInfo *pstDst);

/// Device memory. @return 0, or -1: null, or none left; the record is empty then
BU_S32 MPP_MEM_AllocMem(BU_U32 u32Length, BU_BOOL bCache, MPP_MMZ_MEM_S *pstMem, MPP_MEM_TYPE_E enType);
/// Frees it and empties the record. @return 0, also for an empty one; -1: null
BU_S32 MPP_MEM_FreeMem(MPP_MMZ_MEM_S *pstMem);

/// Takes the pipe's next picture and writes it as a JPEG into an open stream. Blocks.
/// @param u32Quality  1 to 100  @param s32TimeoutMs  for the picture
/// @return 0; -1: no such pipe or size, null, no picture in time, or not written
BU_S32 MPP_SnapImage(MPP_PIPE_USAGE_E enUsage, BU_U32 u32Width, BU_U32 u32Height, BU_U32 u32Quality, SDL_RWops *pstFile,
                     BU_S32 s32TimeoutMs);

/// The time of the scene (see media/scene.h) in a picture with that time stamp; sound beeps when its second begins.
BU_S64 MPP_GetSceneTimeUs(BU_U64 u64Pts);
