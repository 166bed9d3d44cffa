// Overlays, from the outside: canvases and who shows them.
#include "media/overlay.h"

#include "internal.h"
#include "overlayPlanes.h"
#include "sdl.h"
#include "util/journal.h"

#include <algorithm>
#include <atomic>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

using namespace media;
using overlay::Image;
using overlay::Planes;

namespace
{
constexpr BU_S32 TARGETS = 2;

/// What a manager shows. The planes are made when a target draws an image for the first time at a size.
struct Overlay {
    BU_S32 s32Targets;
    std::shared_ptr<const Image> pstImage; // null: hidden
    struct Target {
        std::shared_ptr<const Image> pstMadeFrom;
        BU_S32 s32Width = 0, s32Height = 0;
        Planes planes;
    };
    Target astTargets[TARGETS]; // each its drawing thread's
};

struct Overlays {
    std::mutex lock;                            // guards the list, and s32Targets and pstImage of all
    std::vector<std::shared_ptr<Overlay>> list; // in order of their making: later ones lie on top
    std::atomic<BU_U32> u32Shown{0};            // targets with something to show
};
Overlays &overlays()
{
    static auto *pst = new Overlays;
    return *pst;
}

/// Lock held.
void countShown()
{
    BU_U32 u32Shown = 0;
    for (const auto &pst : overlays().list)
        if (pst->pstImage) u32Shown |= static_cast<BU_U32>(pst->s32Targets);
    overlays().u32Shown = u32Shown;
}

void show(const Overlay *pstOverlay, std::shared_ptr<const Image> pstImage)
{
    const std::lock_guard guard(overlays().lock);
    for (const auto &pst : overlays().list)
        if (pst.get() == pstOverlay) pst->pstImage = std::move(pstImage);
    countShown();
}

bool isCanvas(const OSD_MENU_CANVAS_S *pst)
{
    constexpr int SIDE_MAX = 8192;
    return pst && pst->stMenuRect.w > 0 && pst->stMenuRect.h > 0 && pst->stMenuRect.w <= SIDE_MAX &&
           pst->stMenuRect.h <= SIDE_MAX && static_cast<BU_U32>(pst->enFormat) <= OSD_FORMAT_E_ARGB8888;
}

BU_S32 allocate(OSD_MENU_CANVAS_S &st)
{
    if (st.stMenuMem.pvVirAddr) return 0;
    const BU_U32 u32PixelBytes = st.enFormat == OSD_FORMAT_E_ARGB8888 ? 4 : 2;
    return MPP_MEM_AllocMem(static_cast<BU_U32>(st.stMenuRect.w) * static_cast<BU_U32>(st.stMenuRect.h) * u32PixelBytes,
                            BU_TRUE, &st.stMenuMem, MPP_MEM_TYPE_E_UNION);
}
} // namespace

bool overlay::isShown(BU_S32 s32Target)
{
    return s32Target >= 0 && s32Target < TARGETS && (overlays().u32Shown >> s32Target & 1) != 0;
}

void overlay::blend(BU_S32 s32Target, const SCENE_FRAME_S &stFrame)
{
    if (!isShown(s32Target)) return;
    std::vector<std::pair<std::shared_ptr<Overlay>, std::shared_ptr<const Image>>> shown;
    {
        const std::lock_guard guard(overlays().lock);
        for (const auto &pst : overlays().list)
            if (pst->pstImage && (pst->s32Targets >> s32Target & 1) != 0) shown.emplace_back(pst, pst->pstImage);
    }
    for (const auto &[pstOverlay, pstImage] : shown) {
        auto &st = pstOverlay->astTargets[s32Target];
        if (st.pstMadeFrom != pstImage || st.s32Width != stFrame.s32Width || st.s32Height != stFrame.s32Height) {
            st.planes.make(*pstImage, stFrame.s32Width, stFrame.s32Height);
            st.pstMadeFrom = pstImage;
            st.s32Width = stFrame.s32Width;
            st.s32Height = stFrame.s32Height;
        }
        st.planes.blend(stFrame);
    }
}

BU_S32 MPP_OSD_OneToManyCreate(OSD_ONE_TO_MANY_S *pstManager, BU_S32 s32Targets)
{
    if (const auto injected = journal::call(__func__, s32Targets)) return *injected;
    if (!pstManager || s32Targets < 1 || s32Targets >= 1 << TARGETS) return -1;
    auto pst = std::make_shared<Overlay>();
    pst->s32Targets = s32Targets;
    pstManager->priv = pst.get();
    const std::lock_guard guard(overlays().lock);
    overlays().list.push_back(std::move(pst));
    return 0;
}

BU_S32 MPP_OSD_OneToManyInitCanvas(OSD_ONE_TO_MANY_S *pstManager, OSD_MENU_CANVAS_S *pstCanvas, void *)
{
    if (const auto injected = journal::call(__func__)) return *injected;
    if (!pstManager || !pstManager->priv || !isCanvas(pstCanvas)) return -1;
    return allocate(*pstCanvas);
}

BU_S32 MPP_OSD_OneToManyUpdateAllTarget(OSD_ONE_TO_MANY_S *pstManager, BU_BOOL bShow, OSD_MENU_CANVAS_S *pstCanvas)
{
    if (const auto injected = journal::call(__func__, bShow)) return *injected;
    if (!pstManager || !pstManager->priv) return -1;
    const auto *pst = static_cast<const Overlay *>(pstManager->priv);
    if (!bShow) return show(pst, nullptr), 0;
    if (!isCanvas(pstCanvas) || !pstCanvas->stMenuMem.pvVirAddr) return -1;
    show(pst, std::make_shared<const Image>(*pstCanvas));
    return 0;
}

BU_S32 MPP_OSD_OneToManyDestroy(OSD_ONE_TO_MANY_S *pstManager)
{
    if (const auto injected = journal::call(__func__)) return *injected;
    if (!pstManager) return -1;
    const std::lock_guard guard(overlays().lock);
    std::erase_if(overlays().list, [&](const auto &pst) { return pst.get() == pstManager->priv; });
    countShown();
    pstManager->priv = nullptr;
    return 0;
}

SDL_Surface *OSD_COMM_CreateSurface(OSD_MENU_CANVAS_S *pstCanvas)
{
    if (!isCanvas(pstCanvas) || allocate(*pstCanvas) != 0) return nullptr;
    return sdl::surfaceOver(pstCanvas->stMenuMem.pvVirAddr, pstCanvas->stMenuRect.w, pstCanvas->stMenuRect.h,
                            pstCanvas->enFormat);
}

BU_S32 OSD_COMM_DrawRect(SDL_Surface *pstSurface, SDL_Rect stRect, BU_S32 s32LineWidth, BU_U32 u32Argb)
{
    if (const auto injected = journal::call(__func__, stRect.x, stRect.y, stRect.w, stRect.h, s32LineWidth, u32Argb))
        return *injected;
    if (!pstSurface || s32LineWidth < 1 || stRect.w < 0 || stRect.h < 0) return -1;
    const int w = stRect.w, h = stRect.h, s32Across = std::min(s32LineWidth, w), s32Down = std::min(s32LineWidth, h);
    const SDL_Rect astSides[] = {{stRect.x, stRect.y, w, s32Down},
                                 {stRect.x, stRect.y + h - s32Down, w, s32Down},
                                 {stRect.x, stRect.y, s32Across, h},
                                 {stRect.x + w - s32Across, stRect.y, s32Across, h}};
    for (const auto &[x, y, s32Width, s32Height] : astSides)
        if (!sdl::fill(pstSurface, x, y, s32Width, s32Height, u32Argb)) return -1;
    return 0;
}

BU_S32 OSD_COMM_DestroySurface(OSD_MENU_CANVAS_S *pstCanvas, SDL_Surface **ppstSurface)
{
    if (const auto injected = journal::call(__func__)) return *injected;
    if (!pstCanvas || !ppstSurface) return -1;
    sdl::freeSurface(*ppstSurface);
    *ppstSurface = nullptr;
    return MPP_MEM_FreeMem(&pstCanvas->stMenuMem);
}
