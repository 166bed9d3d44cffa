/// What is stored of the encoder channels.
#pragma once

#include "media/encoder.h"

namespace media
{
struct tagVENC_STORED_S {
    bool bEnabled;
    MPP_VENC_PARAM_S stParam;
};
/// The stored parameters of a channel, or its default where something is missing or cannot be.
tagVENC_STORED_S loadVenc(BU_S32 s32Chn);
/// @return 0 or -1, as the store
BU_S32 storeVenc(BU_S32 s32Chn, const MPP_VENC_PARAM_S &stParam);
BU_S32 storeVencEnabled(BU_S32 s32Chn, bool bEnabled);
} // namespace media
