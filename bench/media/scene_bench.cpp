/// Cost of a picture of the virtual camera. Baseline: a plain copy of a picture of the same size.
#include "scene/scene.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <functional>

namespace
{
constexpr BU_S64 FRAME_US = 33'333;

struct Case {
    const char *pcName;
    bool bMoving;
    std::function<void(SCENE_VIEW_S &, PICTURE_SETTINGS_S &)> change;
};
const Case g_astCases[] = {
    {"still", false, [](auto &, auto &) {}},
    {"moving", true, [](auto &, auto &) {}},
    {"zoomed in on a person", false,
     [](auto &stView, auto &) {
         stView.fPan = -23.4F;
         stView.fMagnification = 20;
     }},
    {"out of focus", false, [](auto &stView, auto &) { stView.fDefocus = 1; }},
    {"tone", false,
     [](auto &, auto &st) {
         st.fBrightness = 0.3F;
         st.fGamma = 0.5F;
     }},
    {"colour", false,
     [](auto &, auto &st) {
         st.fHue = 0.3F;
         st.enWbMode = WB_MODE_E_INDOOR;
     }},
    {"sharpness", false, [](auto &, auto &st) { st.fSharpness = 0.5F; }},
    {"all settings", false,
     [](auto &, auto &st) {
         st.fBrightness = st.fContrast = st.fHue = st.fSharpness = st.afColourHue[0] = 0.3F;
         st.enWbMode = WB_MODE_E_INDOOR;
         st.enAeMode = AE_MODE_E_MANUAL;
         st.fShutterS = 1.0F / 1000;
         st.fGainDb = 24;
         st.bMirror = BU_TRUE;
     }},
};

SCENE_FRAME_S frameIn(std::vector<BU_U8> &vec, BU_S32 s32Height)
{
    const BU_S32 s32Width = s32Height * 16 / 9;
    vec.resize(static_cast<std::size_t>(s32Width) * static_cast<std::size_t>(s32Height) * 3 / 2);
    return {vec.data(), vec.data() + s32Width * s32Height, s32Width, s32Width, s32Width, s32Height};
}

void closeUp(benchmark::State &state)
{
    const Case &st = g_astCases[state.range(1)];
    std::vector<BU_U8> vec;
    const SCENE_FRAME_S stFrame = frameIn(vec, static_cast<BU_S32>(state.range(0)));
    SCENE_S *pstScene = SCENE_Open("synthetic");
    SCENE_VIEW_S stView;
    PICTURE_SETTINGS_S stSettings;
    PICTURE_STATE_S stState;
    st.change(stView, stSettings);
    BU_S64 s64Us = 0;
    for (int i = 0; i < 3; ++i) PICTURE_Render(pstScene, &stView, stSettings, stState, s64Us += FRAME_US, stFrame);
    for (auto _ : state) {
        if (st.bMoving) stView.fPan += 0.05F;
        PICTURE_Render(pstScene, &stView, stSettings, stState, s64Us += FRAME_US, stFrame);
    }
    SCENE_Close(pstScene);
    state.SetLabel(st.pcName);
}
BENCHMARK(closeUp)
    ->ArgsProduct({{1080, 720, 360}, benchmark::CreateDenseRange(0, std::size(g_astCases) - 1, 1)})
    ->Unit(benchmark::kMillisecond);

void panorama(benchmark::State &state)
{
    std::vector<BU_U8> vec;
    const SCENE_FRAME_S stFrame = frameIn(vec, 720);
    SCENE_S *pstScene = SCENE_Open("synthetic");
    BU_S64 s64Us = 0;
    for (auto _ : state) SCENE_RenderPanorama(pstScene, s64Us += FRAME_US, stFrame);
    SCENE_Close(pstScene);
}
BENCHMARK(panorama)->Unit(benchmark::kMillisecond);

/// From nothing to the first picture.
void firstPicture(benchmark::State &state)
{
    std::vector<BU_U8> vec;
    const SCENE_FRAME_S stFrame = frameIn(vec, 1080);
    for (auto _ : state) {
        SCENE_S *pstScene = SCENE_Open("synthetic");
        SCENE_RenderCloseUp(pstScene, {}, 0, stFrame);
        SCENE_Close(pstScene);
    }
}
BENCHMARK(firstPicture)->Unit(benchmark::kMillisecond);

void baselineCopy(benchmark::State &state)
{
    std::vector<BU_U8> vec, vecTo;
    frameIn(vec, static_cast<BU_S32>(state.range(0)));
    vecTo.resize(vec.size());
    for (auto _ : state) {
        std::memcpy(vecTo.data(), vec.data(), vec.size());
        benchmark::DoNotOptimize(vecTo.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(baselineCopy)->Arg(1080)->Arg(720)->Arg(360)->Unit(benchmark::kMillisecond);

void readSettings(benchmark::State &state)
{
    PICTURE_SETTINGS_S st;
    for (auto _ : state) PICTURE_ReadSettings(0, &st);
}
BENCHMARK(readSettings)->Unit(benchmark::kMicrosecond);
} // namespace
