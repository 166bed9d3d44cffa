/// Cost of a 1080p picture through the pipeline, and of handing a packet to a hundred. Baselines: the encoder alone on
/// the same pictures; a hundred threads that a bare broadcast wakes.
#include "../../platform/media/pipe.h"
#include "../../platform/media/streamCache.h"
#include "../../platform/media/videoEncoder.h"

#include <benchmark/benchmark.h>

namespace
{
using namespace media;

constexpr FrameRate OUTPUT{60, 1}, RATE{30, 1};
constexpr BU_U32 GROUP = 60, CLIENTS = 100;

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

STREAM_PACKET_REF packet(BU_U64 u64Number)
{
    static const BU_U8 s_au8Data[16'000] = {};
    return std::make_shared<const STREAM_PACKET_S>(
        STREAM_PACKET_S{s_au8Data, sizeof s_au8Data, u64Number * 33'333, u64Number % GROUP == 0, STREAM_TYPE_H264});
}

/// Processor time of the whole process for a packet: at 30 packets a second, 333 us are one percent of a core.
void handToSinks(benchmark::State &state)
{
    STREAM_CACHE_S cache({[] {}, [] { return 0; }, [] { return 0; }});
    std::atomic<BU_U64> u64Got = 0;
    for (BU_U32 i = 0; i < CLIENTS; ++i) cache.addSink(std::to_string(i), [&](const auto &) { ++u64Got; });
    BU_U64 u64Number = 0;
    for (auto _ : state) cache.write(packet(u64Number++));
    if (u64Got != CLIENTS * u64Number) state.SkipWithError("lost packets");
}
BENCHMARK(handToSinks)->Unit(benchmark::kMicrosecond)->MeasureProcessCPUTime();

/// A hundred threads, each woken by each packet; the writer waits for them so that every packet wakes all.
template <class Wait, class Wake> void wakeAll(benchmark::State &state, Wait fnWait, Wake fnWake)
{
    std::atomic<BU_U32> u32Got = 0;
    std::vector<std::jthread> threads;
    for (BU_U32 i = 0; i < CLIENTS; ++i)
        threads.emplace_back([&](std::stop_token stop) {
            for (auto fnNext = fnWait(); fnNext() && !stop.stop_requested();) {
                ++u32Got;
                u32Got.notify_one();
            }
        });
    BU_U64 u64Number = 0;
    const auto round = [&] {
        u32Got = 0;
        fnWake(u64Number++);
        for (BU_U32 u32 = u32Got; u32 < CLIENTS; u32 = u32Got) u32Got.wait(u32);
    };
    std::this_thread::sleep_for(std::chrono::milliseconds(200)); // all of them wait
    for (auto _ : state) round();
    for (auto &thread : threads) thread.request_stop();
    fnWake(u64Number);
}

void handToReaders(benchmark::State &state)
{
    STREAM_CACHE_S cache({[] {}, [] { return 0; }, [] { return 0; }});
    wakeAll(
        state, [&] { return [&, stPlace = cache.join()]() mutable { return cache.read(stPlace, -1) != nullptr; }; },
        [&](BU_U64 u64Number) { cache.write(packet(u64Number)); });
}
BENCHMARK(handToReaders)->Unit(benchmark::kMicrosecond)->MeasureProcessCPUTime();

void bareBroadcast(benchmark::State &state)
{
    std::atomic<BU_U32> u32Number = 0;
    wakeAll(
        state,
        [&] {
            return [&, u32Seen = BU_U32{0}]() mutable {
                u32Number.wait(u32Seen);
                u32Seen = u32Number;
                return true;
            };
        },
        [&](BU_U64) {
            ++u32Number;
            u32Number.notify_all();
        });
}
BENCHMARK(bareBroadcast)->Unit(benchmark::kMicrosecond)->MeasureProcessCPUTime();
} // namespace

BENCHMARK_MAIN();
