// The encoder alone.
#include "baselines.h"
#include "rtspLoad.h"
#include "store/store.h"
#include "videoEncoder.h"

#include <cstdio>
#include <stdexcept>
#include <thread>

namespace
{
constexpr BU_S32 WIDTH = 1920, HEIGHT = 1080;
constexpr std::size_t PICTURES = 60, GROUP = 60;
constexpr std::chrono::microseconds FRAME(33'333);

/// The main stream of a fresh camera.
MPP_VENC_PARAM_S mainStream()
{
    MPP_VENC_PARAM_S st{};
    st.enType = MPP_VENC_FORMAT_E_H264;
    st.u32Width = WIDTH;
    st.u32Height = HEIGHT;
    st.u32FrmRate = 30;
    st.u32BitRate = 4000;
    return st;
}

SCENE_FRAME_S frameOf(std::vector<BU_U8> &vec)
{
    return {vec.data(), vec.data() + WIDTH * HEIGHT, WIDTH, WIDTH, WIDTH, HEIGHT};
}

class Encoder
{
public:
    Encoder()
    {
        CFG_STORE_Open(nullptr); // settings and view of a fresh camera
        SCENE_S *pstScene = SCENE_Open("synthetic");
        PICTURE_STATE_S stState;
        PICTURE_SETTINGS_S stSettings;
        SCENE_VIEW_S stView;
        PICTURE_ReadSettings(0, &stSettings);
        PICTURE_ReadView(&stView);
        for (std::size_t i = 0; i < PICTURES; ++i) {
            auto &vec = m_pictures.emplace_back(WIDTH * HEIGHT * 3 / 2);
            PICTURE_Render(pstScene, &stView, stSettings, stState, static_cast<BU_S64>(i) * FRAME.count(),
                           frameOf(vec));
        }
        SCENE_Close(pstScene);
        if (!m_pstEncoder) throw std::runtime_error("no encoder");
    }
    void encodeNext()
    {
        m_pstEncoder->encode(frameOf(m_pictures[m_number % PICTURES]), m_number * FRAME.count(), m_number % GROUP == 0);
        ++m_number;
    }

private:
    std::vector<std::vector<BU_U8>> m_pictures;
    std::unique_ptr<media::VideoEncoder> m_pstEncoder = media::VideoEncoder::open(mainStream(), {30, 1});
    std::size_t m_number = 0;
};
} // namespace

int encodeAlone()
{
    Encoder encoder;
    std::puts("ready 0");
    std::fflush(stdout);
    for (auto due = Clock::now();; due += FRAME) {
        std::this_thread::sleep_until(due);
        encoder.encodeNext();
    }
}

std::vector<double> encodeTimes()
{
    Encoder encoder;
    std::vector<double> times;
    for (std::size_t i = 0; i < 4 * GROUP; ++i) {
        const auto start = Clock::now();
        encoder.encodeNext();
        times.push_back(milliseconds(Clock::now() - start));
    }
    return times;
}
