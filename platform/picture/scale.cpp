// A picture in another size.
#include "picture/picture.h"

#include <libyuv/planar_functions.h>
#include <libyuv/scale.h>

#include <algorithm>

namespace
{
/// The chroma goes through separate planes: libyuv's own scaling of pairs darkens them by a step or two.
void scale(const SCENE_FRAME_S &stIn, const SCENE_FRAME_S &stOut)
{
    const BU_S32 s32InW = stIn.s32Width / 2, s32InH = stIn.s32Height / 2, s32OutW = stOut.s32Width / 2,
                 s32OutH = stOut.s32Height / 2;
    const std::ptrdiff_t sIn = static_cast<std::ptrdiff_t>(s32InW) * s32InH,
                         sOut = static_cast<std::ptrdiff_t>(s32OutW) * s32OutH;
    thread_local std::vector<BU_U8> s_vec; // kept for its memory
    s_vec.resize(std::max(s_vec.size(), static_cast<std::size_t>(2 * (sIn + sOut))));
    BU_U8 *const apu8In[2] = {s_vec.data(), s_vec.data() + sIn}, *const apu8Out[2] = {apu8In[1] + sIn,
                                                                                      apu8In[1] + sIn + sOut};

    libyuv::ScalePlane(stIn.pu8Y, stIn.s32StrideY, stIn.s32Width, stIn.s32Height, stOut.pu8Y, stOut.s32StrideY,
                       stOut.s32Width, stOut.s32Height, libyuv::kFilterBox);
    libyuv::SplitUVPlane(stIn.pu8Uv, stIn.s32StrideUv, apu8In[0], s32InW, apu8In[1], s32InW, s32InW, s32InH);
    for (int i = 0; i < 2; ++i)
        libyuv::ScalePlane(apu8In[i], s32InW, s32InW, s32InH, apu8Out[i], s32OutW, s32OutW, s32OutH,
                           libyuv::kFilterBox);
    libyuv::MergeUVPlane(apu8Out[0], s32OutW, apu8Out[1], s32OutW, stOut.pu8Uv, stOut.s32StrideUv, s32OutW, s32OutH);
}
} // namespace

BU_S32 SCENE_Scale(const SCENE_FRAME_S &stIn, const SCENE_FRAME_S &stOut)
{
    if (!draw::isFrame(stIn) || !draw::isFrame(stOut)) return -1;
    scale(stIn, stOut);
    return 0;
}
