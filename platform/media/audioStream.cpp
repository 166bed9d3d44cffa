/// The camera's sound as AAC in its stream cache, while somebody listens.
#include "audioTone.h"
#include "camera/sound.h"
#include "config/config.h"
#include "frameRate.h"
#include "internal.h"
#include "libav.h"
#include "streamCache.h"
#include "util/file.h"
#include "util/log.h"
#include "util/thread.h"
#include "util/time.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <fcntl.h>
#include <optional>
#include <unistd.h>

extern "C" {
#include <libavutil/channel_layout.h>
#include <libavutil/opt.h>
}

namespace
{
using namespace media;

constexpr const BU_CHAR *INPUT = "/dev/audio_in"; // raw 16-bit samples, 48 kHz stereo, from whoever writes to it

struct Holder {
    STREAM_PACKET_S stPacket;
    AvPacket packet{av_packet_alloc()};
};

/// A named pipe in the device root that stands for the audio input; without one the room is heard.
class Input
{
public:
    Input() : m_s32Fd(open(UTIL_ROOT_Path(INPUT).c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC)) {}
    ~Input()
    {
        if (m_s32Fd >= 0) close(m_s32Fd);
    }
    Input(const Input &) = delete;
    Input &operator=(const Input &) = delete;
    bool isThere() const { return m_s32Fd >= 0; }

    /// What has not come in time is silence.
    void read(std::array<float *, AUDIO_CHANNELS> out)
    {
        std::array<BU_S16, AUDIO_FRAME * AUDIO_CHANNELS> as16{};
        const ssize_t bytes = ::read(m_s32Fd, as16.data(), sizeof as16);
        static_cast<void>(bytes);
        for (std::size_t i = 0; i < as16.size(); ++i)
            out[i % AUDIO_CHANNELS][i / AUDIO_CHANNELS] = static_cast<float>(as16[i]) / 32768;
    }

private:
    const int m_s32Fd;
};

class AacEncoder
{
public:
    AacEncoder();
    bool isOpen() const { return m_bOpen; }
    STREAM_PACKET_REF encode(BU_S64 s64First);

private:
    void fill(BU_S64 s64First);

    AvContext m_context;
    AvFrame m_frame{av_frame_alloc()};
    Input m_input;
    bool m_bOpen = false;
};

AacEncoder::AacEncoder()
{
    quietLibav();
    const AVCodec *pstCodec = avcodec_find_encoder(AV_CODEC_ID_AAC);
    if (!pstCodec) return;
    m_context.reset(avcodec_alloc_context3(pstCodec));
    m_context->sample_fmt = AV_SAMPLE_FMT_FLTP;
    m_context->sample_rate = AUDIO_RATE;
    m_context->time_base = {1, AUDIO_RATE};
    m_context->bit_rate = AUDIO_BIT_RATE;
    m_context->profile = FF_PROFILE_AAC_LOW;
    av_channel_layout_default(&m_context->ch_layout, AUDIO_CHANNELS);
    av_opt_set(m_context->priv_data, "aac_coder", "fast", 0);
    if (avcodec_open2(m_context.get(), pstCodec, nullptr) < 0) return;
    m_frame->format = AV_SAMPLE_FMT_FLTP;
    m_frame->nb_samples = AUDIO_FRAME;
    m_frame->sample_rate = AUDIO_RATE;
    av_channel_layout_copy(&m_frame->ch_layout, &m_context->ch_layout);
    m_bOpen = av_frame_get_buffer(m_frame.get(), 0) == 0;
}

void AacEncoder::fill(BU_S64 s64First)
{
    BU_S32 s32Volume = 50, s32Mute = BU_FALSE;
    SYS_API_GetAudioVolume(&s32Volume, BU_FALSE);
    SYS_API_GetAudioMute(&s32Mute, BU_FALSE);
    std::array<float *, AUDIO_CHANNELS> planes{};
    for (std::size_t i = 0; i < planes.size(); ++i) planes[i] = reinterpret_cast<float *>(m_frame->data[i]);
    if (m_input.isThere())
        m_input.read(planes);
    else {
        renderTone(s64First, {planes[0], AUDIO_FRAME});
        std::copy_n(planes[0], AUDIO_FRAME, planes[1]);
    }
    const float fGain = s32Mute ? 0 : gainOf(s32Volume);
    for (float *pf : planes)
        std::transform(pf, pf + AUDIO_FRAME, pf, [=](float f) { return std::clamp(f * fGain, -1.0F, 1.0F); });
}

STREAM_PACKET_REF AacEncoder::encode(BU_S64 s64First)
{
    if (av_frame_make_writable(m_frame.get()) < 0) return nullptr;
    fill(s64First);
    m_frame->pts = s64First;
    auto pstHolder = std::make_shared<Holder>();
    AVPacket *pst = pstHolder->packet.get();
    if (avcodec_send_frame(m_context.get(), m_frame.get()) < 0 || avcodec_receive_packet(m_context.get(), pst) < 0)
        return nullptr; // the first frame only fills the encoder
    const BU_U64 u64Sample = static_cast<BU_U64>(std::max<BU_S64>(pst->pts, 0));
    pstHolder->stPacket = {pst->data, static_cast<BU_U32>(pst->size),
                           u64Sample / AUDIO_RATE * 1'000'000 + u64Sample % AUDIO_RATE * 1'000'000 / AUDIO_RATE,
                           BU_TRUE, STREAM_TYPE_AAC};
    return {pstHolder, &pstHolder->stPacket};
}

/// The thread that paces and encodes while somebody listens.
class AudioStream
{
public:
    AudioStream() { m_cache.introduce({STREAM_TYPE_AAC, 0, 0, 0, 0, AUDIO_RATE, AUDIO_CHANNELS, AUDIO_FRAME}); }
    STREAM_CACHE_S &cache() { return m_cache; }
    void start()
    {
        const std::lock_guard guard(m_lock);
        if (!m_thread) m_thread.emplace("Audio", [this](const std::stop_token &stop) { loop(stop); });
    }

private:
    void wake()
    {
        const std::lock_guard guard(m_lock);
        m_wake.notify_one();
    }
    void loop(const std::stop_token &stop);
    void listenWhileWanted(const std::stop_token &stop);

    STREAM_CACHE_S m_cache{{[this] { wake(); }, [] { return 0; }, [] { return AUDIO_BIT_RATE / 1000; }}};
    std::mutex m_lock; // guards m_thread; the demand changes before it is taken
    std::condition_variable_any m_wake;
    std::optional<util::Thread> m_thread;
};

void AudioStream::loop(const std::stop_token &stop)
{
    while (!stop.stop_requested()) {
        {
            std::unique_lock guard(m_lock);
            m_wake.wait(guard, stop, [this] { return m_cache.isWanted(); });
        }
        if (!stop.stop_requested()) listenWhileWanted(stop);
    }
}

void AudioStream::listenWhileWanted(const std::stop_token &stop)
{
    constexpr BU_S64 LATE = 8; // frames behind: gives them up
    constexpr FrameRate RATE{AUDIO_RATE, AUDIO_FRAME};
    AacEncoder encoder;
    if (!encoder.isOpen()) LOG_ERROR("the AAC encoder cannot be opened: no sound\n");
    for (BU_S64 s64Frame = RATE.frameAt(UTIL_TIME_NowUs()); m_cache.isWanted() && !stop.stop_requested();) {
        const BU_S64 s64WaitUs = RATE.dueUs(s64Frame + 1) - UTIL_TIME_NowUs(); // when its last sample was heard
        if (s64WaitUs > 0) {
            std::unique_lock guard(m_lock);
            m_wake.wait_for(guard, stop, std::chrono::microseconds(s64WaitUs), [this] { return !m_cache.isWanted(); });
            continue;
        }
        if (encoder.isOpen())
            if (const STREAM_PACKET_REF pstPacket = encoder.encode(s64Frame * AUDIO_FRAME)) m_cache.write(pstPacket);
        s64Frame = std::max(s64Frame + 1, RATE.frameAt(UTIL_TIME_NowUs()) - LATE);
    }
}

AudioStream &audio()
{
    static auto *pstAudio = new AudioStream;
    return *pstAudio;
}
} // namespace

STREAM_CACHE_S *media::audioCache()
{
    CFG_FEATURE_LIST_S stList{};
    return CFG_FEATURE_GetConfiguration(&stList) == 0 && stList.stGeneral.bAudio ? &audio().cache() : nullptr;
}

void media::startAudio()
{
    if (audioCache()) audio().start();
}
