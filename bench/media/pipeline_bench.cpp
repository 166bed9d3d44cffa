/// Cost of a 1080p picture through the pipeline. Baseline: the encoder alone on the same pictures.
#include "pipe.h"
#include "videoEncoder.h"

#include <benchmark/benchmark.h>

namespace
{
using namespace media;

constexpr FrameRate OUTPUT{60, 1}, RATE{30, 1};
constexpr BU_U32 GROUP = 60;

MPP_VENC_PARAM_S main1080p()
{
    MPP_VENC_PARAM_S st{};
    st.enType = MPP_VENC_FORMAT_E_H264;
    st.u32Width = 1920;
    st.u32Height = 1080;
    st.u32FrmRate = 30;
    st.u32BitRate = 4000;
    return st;
}

class Recorder : public PictureTaker
{
public:
    std::optional<Wish> wish(FrameRate) override { return Wish{.stSize = {1920, 1080}, .stRate = RATE}; }
    void take(const SCENE_FRAME_S &st, BU_U64) override
    {
        m_pictures.emplace_back(st.pu8Y, st.pu8Y + 1920 * 1080 * 3 / 2);
    }
    std::vector<std::vector<BU_U8>> m_pictures;
};

class Encoding : public PictureTaker
{
public:
    std::optional<Wish> wish(FrameRate) override { return Wish{.stSize = {1920, 1080}, .stRate = RATE}; }
    void take(const SCENE_FRAME_S &stFrame, BU_U64 u64TimeUs) override
    {
        benchmark::DoNotOptimize(m_pstEncoder->encode(stFrame, u64TimeUs, m_u32Number++ % GROUP == 0));
    }

private:
    std::unique_ptr<VideoEncoder> m_pstEncoder = VideoEncoder::open(main1080p(), RATE);
    BU_U32 m_u32Number = 0;
};

/// Renders a picture a turn, at full speed, on this thread.
class Stepper
{
public:
    explicit Stepper(std::shared_ptr<PictureTaker> pst) : m_pipe(PIPE_CLOSE_UP)
    {
        m_pipe.add(std::move(pst));
        for (int i = 0; i < 5; ++i) step();
    }
    void step()
    {
        m_s64Last = *m_pipe.nextFrame(OUTPUT, m_s64Last);
        m_pipe.render(OUTPUT, m_s64Last);
    }

private:
    Pipe m_pipe;
    BU_S64 m_s64Last = 6000;
};

void encoderAlone(benchmark::State &state)
{
    const auto pstRecorder = std::make_shared<Recorder>();
    Stepper stepper(pstRecorder);
    while (pstRecorder->m_pictures.size() < GROUP) stepper.step();
    Encoding encoding;
    BU_U64 u64Number = 0;
    for (auto _ : state) {
        BU_U8 *pu8 = pstRecorder->m_pictures[u64Number % GROUP].data();
        encoding.take({pu8, pu8 + 1920 * 1080, 1920, 1920, 1920, 1080}, ++u64Number * 33'333);
    }
}
BENCHMARK(encoderAlone)->Unit(benchmark::kMillisecond);

void renderAndEncode(benchmark::State &state)
{
    Stepper stepper(std::make_shared<Encoding>());
    for (auto _ : state) stepper.step();
}
BENCHMARK(renderAndEncode)->Unit(benchmark::kMillisecond);
} // namespace
