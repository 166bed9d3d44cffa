// Conversion and scaling of images, and device memory.
#include "media/frame.h"
#include "util/journal.h"

#include <libyuv/convert_argb.h>
#include <libyuv/planar_functions.h>
#include <libyuv/scale.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace
{
constexpr std::size_t ALIGNMENT = 64;

bool isImage(const ImgInfo *pst)
{
    return pst && pst->iWdt > 0 && pst->iHgt > 0 &&
           std::ranges::all_of(pst->iData, [](const auto *pu8) { return pu8; }) &&
           std::ranges::all_of(pst->iStrd, [&](int s32) { return s32 >= pst->iWdt; });
}
} // namespace

BU_S32 MPP_ImageNv12ToRgbPlanar(const MPP_FRAME_INFO_S *pstFrame, ImgInfo *pstRgb)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    if (!pstFrame || !pstFrame->virt_addr || !isImage(pstRgb)) return -1;
    const int s32Width = pstRgb->iWdt, s32Height = pstRgb->iHgt;
    if (pstFrame->u32Width != static_cast<BU_U32>(s32Width) || pstFrame->u32Height != static_cast<BU_U32>(s32Height))
        return -1;
    const auto *pu8Y = static_cast<const BU_U8 *>(pstFrame->virt_addr);
    const BU_U8 *pu8Uv = pu8Y + static_cast<std::ptrdiff_t>(s32Width) * s32Height;
    constexpr int ROWS = 16; // a strip that stays in the cache between the two steps
    thread_local std::vector<BU_U8> s_vecArgb;
    s_vecArgb.resize(static_cast<std::size_t>(s32Width) * ROWS * 4);
    for (int y = 0; y < s32Height; y += ROWS) {
        const int s32Rows = std::min(ROWS, s32Height - y);
        const std::ptrdiff_t row = y;
        libyuv::NV12ToARGBMatrix(pu8Y + row * s32Width, s32Width, pu8Uv + row / 2 * s32Width, s32Width,
                                 s_vecArgb.data(), s32Width * 4, &libyuv::kYuvH709Constants, s32Width, s32Rows);
        libyuv::SplitARGBPlane(s_vecArgb.data(), s32Width * 4, pstRgb->iData[0] + row * pstRgb->iStrd[0],
                               pstRgb->iStrd[0], pstRgb->iData[1] + row * pstRgb->iStrd[1], pstRgb->iStrd[1],
                               pstRgb->iData[2] + row * pstRgb->iStrd[2], pstRgb->iStrd[2], nullptr, 0, s32Width,
                               s32Rows);
    }
    return 0;
}

BU_S32 MPP_ImageRgbPlanarResize(const ImgInfo *pstSrc, ImgInfo *pstDst)
{
    if (const auto injected = journal::ask(__func__)) return *injected;
    if (!isImage(pstSrc) || !isImage(pstDst)) return -1;
    for (int i = 0; i < 3; ++i)
        libyuv::ScalePlane(pstSrc->iData[i], pstSrc->iStrd[i], pstSrc->iWdt, pstSrc->iHgt, pstDst->iData[i],
                           pstDst->iStrd[i], pstDst->iWdt, pstDst->iHgt, libyuv::kFilterBox);
    return 0;
}

BU_S32 MPP_MEM_AllocMem(BU_U32 u32Length, BU_BOOL bCache, MPP_MMZ_MEM_S *pstMem, MPP_MEM_TYPE_E enType)
{
    if (const auto injected = journal::call(__func__, u32Length, bCache, enType)) return *injected;
    if (!pstMem) return -1;
    *pstMem = {};
    const std::size_t size = (std::max<std::size_t>(u32Length, 1) + ALIGNMENT - 1) / ALIGNMENT * ALIGNMENT;
    void *pv = std::aligned_alloc(ALIGNMENT, size);
    if (!pv) return -1;
    std::memset(pv, 0, size);
    *pstMem = {reinterpret_cast<BU_U64>(pv), pv, u32Length, bCache, enType, nullptr};
    return 0;
}

BU_S32 MPP_MEM_FreeMem(MPP_MMZ_MEM_S *pstMem)
{
    if (const auto injected = journal::call(__func__)) return *injected;
    if (!pstMem) return -1;
    std::free(pstMem->pvVirAddr);
    *pstMem = {};
    return 0;
}
