// What a changed menu page costs at 720p, 1080p and 4K: painting it, handing it over, and making it ready for the main
// and the sub stream. Baseline: a copy of the canvas.
#include <SDL2/SDL_surface.h>

#include "internal.h"
#include "media/overlay.h"
#include "painter.h"

#include <benchmark/benchmark.h>
#include <cstring>
#include <vector>

namespace
{
struct tagSIZE_S {
    int w, h;
};
tagSIZE_S videoOf(const benchmark::State &state)
{
    const int h = static_cast<int>(state.range(0));
    return {h * 16 / 9, h};
}
tagSIZE_S canvasOf(const benchmark::State &state)
{
    const auto [w, h] = videoOf(state);
    return {w / 5, h / 3};
}

/// Two pages that differ in the selected row, as after a key.
menu::View page(bool bOdd)
{
    menu::View view{"Exposure", "◄ ► change", {}, 0, 14};
    for (int i = 0; i < 8; ++i) {
        menu::Row row;
        row.strLabel = "Wide dynamic range";
        row.strValue = std::to_string(i * 1000);
        row.bSelected = i == 3 + bOdd;
        row.bLess = row.bMore = row.bSelected;
        view.listRows.push_back(row);
    }
    return view;
}

void copyOfCanvas(benchmark::State &state)
{
    const auto [w, h] = canvasOf(state);
    std::vector<BU_U32> from(static_cast<std::size_t>(w * h), 1), to(from.size());
    for (auto _ : state) {
        std::memcpy(to.data(), from.data(), from.size() * sizeof(BU_U32));
        benchmark::DoNotOptimize(to.data());
        benchmark::ClobberMemory();
    }
}

void paint(benchmark::State &state)
{
    const auto [w, h] = canvasOf(state);
    bool bOdd = false;
    for (auto _ : state) benchmark::DoNotOptimize(menu::paintPage(page(bOdd = !bOdd), w, h));
}

/// A canvas with a page on it, and pictures of the main stream's size and a third of it.
class Shown
{
public:
    explicit Shown(const benchmark::State &state) : m_stVideo(videoOf(state))
    {
        const auto [w, h] = canvasOf(state);
        m_stCanvas.stMenuRect = {0, 0, w, h};
        m_stCanvas.stVideoRect = {0, 0, m_stVideo.w, m_stVideo.h};
        m_stCanvas.enFormat = OSD_FORMAT_E_ARGB4444;
        m_pstSurface = OSD_COMM_CreateSurface(&m_stCanvas);
        MPP_OSD_OneToManyCreate(&m_stManager, 3);
        for (const bool bOdd : {false, true}) m_pages[bOdd] = menu::paintPage(page(bOdd), w, h);
        m_picture.assign(static_cast<std::size_t>(m_stVideo.w * m_stVideo.h * 3 / 2), 128);
    }
    ~Shown()
    {
        MPP_OSD_OneToManyDestroy(&m_stManager);
        OSD_COMM_DestroySurface(&m_stCanvas, &m_pstSurface);
    }
    void handOver()
    {
        menu::copyPixels(m_pages[m_bOdd = !m_bOdd].get(), m_pstSurface);
        MPP_OSD_OneToManyUpdateAllTarget(&m_stManager, BU_TRUE, &m_stCanvas);
    }
    void blend(BU_S32 s32Target)
    {
        const int w = s32Target == 0 ? m_stVideo.w : m_stVideo.w / 6 * 2,
                  h = s32Target == 0 ? m_stVideo.h : m_stVideo.h / 6 * 2;
        media::overlay::blend(s32Target, {m_picture.data(), m_picture.data() + w * h, w, w, w, h});
    }

private:
    tagSIZE_S m_stVideo;
    OSD_ONE_TO_MANY_S m_stManager{};
    OSD_MENU_CANVAS_S m_stCanvas{};
    SDL_Surface *m_pstSurface = nullptr;
    std::array<menu::Surface, 2> m_pages;
    bool m_bOdd = false;
    std::vector<BU_U8> m_picture;
};

/// On the menu's thread.
void handOver(benchmark::State &state)
{
    Shown shown(state);
    for (auto _ : state) shown.handOver();
}

/// On the drawing thread of a stream: its first picture with the new page. Range 1: the stream.
void firstPicture(benchmark::State &state)
{
    Shown shown(state);
    for (auto _ : state) {
        state.PauseTiming();
        shown.handOver();
        state.ResumeTiming();
        shown.blend(static_cast<BU_S32>(state.range(1)));
    }
}

void furtherPictures(benchmark::State &state)
{
    Shown shown(state);
    shown.handOver();
    for (auto _ : state) shown.blend(static_cast<BU_S32>(state.range(1)));
}

BENCHMARK(copyOfCanvas)->Arg(720)->Arg(1080)->Arg(2160)->Unit(benchmark::kMicrosecond);
BENCHMARK(paint)->Arg(720)->Arg(1080)->Arg(2160)->Unit(benchmark::kMicrosecond);
BENCHMARK(handOver)->Arg(720)->Arg(1080)->Arg(2160)->Unit(benchmark::kMicrosecond);
BENCHMARK(firstPicture)->ArgsProduct({{720, 1080, 2160}, {0, 1}})->Unit(benchmark::kMicrosecond);
BENCHMARK(furtherPictures)->ArgsProduct({{720, 1080, 2160}, {0, 1}})->Unit(benchmark::kMicrosecond);
} // namespace
