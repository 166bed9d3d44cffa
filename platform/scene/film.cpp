// Which picture of a film or device belongs to a time, and how it is decoded.
#include "film.h"

#include "util/log.h"

extern "C" {
#include <libavcodec/avcodec.h>
#include <libavdevice/version.h>
#include <libavformat/avformat.h>
#include <libavutil/imgutils.h>
#include <libswscale/swscale.h>
}

#include <dlfcn.h>

#include <algorithm>
#include <map>
#include <mutex>
#include <string>
#include <string_view>

namespace scene
{
namespace
{
template <auto Free> struct Freer {
    template <class T> void operator()(T *pst) const { Free(&pst); }
};
struct SwsFreer {
    void operator()(SwsContext *pst) const { sws_freeContext(pst); }
};
using Format = std::unique_ptr<AVFormatContext, Freer<avformat_close_input>>;
using Codec = std::unique_ptr<AVCodecContext, Freer<avcodec_free_context>>;
using Frame = std::unique_ptr<AVFrame, Freer<av_frame_free>>;
using Packet = std::unique_ptr<AVPacket, Freer<av_packet_free>>;
using Scaler = std::unique_ptr<SwsContext, SwsFreer>;

constexpr BU_S32 LARGEST = 4096; // pictures beyond it are scaled down to it
constexpr BU_S64 SEEK_US = 3'000'000;

std::string errorText(int s32Error)
{
    BU_CHAR acText[AV_ERROR_MAX_STRING_SIZE]{};
    av_strerror(s32Error, acText, sizeof acText);
    return acText;
}

/// The library of capture devices is loaded when one is asked for: linked, it would cost every start of the camera 50
/// ms and 18 MB for what it depends on. @return null: not installed
const AVInputFormat *deviceFormat()
{
    constexpr const BU_CHAR *LIBRARY = "libavdevice.so." AV_STRINGIFY(LIBAVDEVICE_VERSION_MAJOR);
    void *const pvLibrary = dlopen(LIBRARY, RTLD_LAZY);
    const auto fnRegister =
        reinterpret_cast<void (*)()>(pvLibrary ? dlsym(pvLibrary, "avdevice_register_all") : nullptr);
    if (fnRegister)
        fnRegister();
    else
        LOG_ERROR("capture devices need %s\n", LIBRARY);
    return av_find_input_format("v4l2");
}

class LibavFilm final : public Film
{
public:
    bool open(const BU_CHAR *pcName);
    BU_S32 showAt(BU_S64 s64TimeUs, const std::function<void(const SCENE_FRAME_S &)> &show) override;

private:
    bool openCodec(const BU_CHAR *pcName);
    /// Decodes the next picture into m_pstFrame. @return 0, AVERROR(EAGAIN): a device has none yet, or the error
    int next();
    bool rewind(BU_S64 s64Us);
    void takeFrame();
    BU_S64 frameUs();
    void follow(BU_S64 s64TimeUs);

    std::mutex m_lock; // guards everything below: close-up and panorama share a film
    bool m_bLive = false, m_bEnded = false, m_bUntimed = false;
    int m_s32Stream = -1;
    BU_S64 m_s64DurationUs = 0, m_s64ShownUs = -1, m_s64PendingUs = -1;
    Format m_pstFormat;
    Codec m_pstCodec;
    Frame m_pstFrame;
    Packet m_pstPacket;
    Scaler m_pstScaler;
    int m_as32ScalerIn[3]{};
    std::vector<BU_U8> m_vecNv12;
    SCENE_FRAME_S m_stPicture{};
};

bool LibavFilm::open(const BU_CHAR *pcName)
{
    av_log_set_level(AV_LOG_ERROR);
    m_bLive = std::string_view(pcName).starts_with("/dev/");
    const AVInputFormat *pstInput = nullptr;
    if (m_bLive && !(pstInput = deviceFormat())) return false;
    AVFormatContext *pst = avformat_alloc_context();
    if (!pst) return false;
    if (m_bLive) pst->flags |= AVFMT_FLAG_NONBLOCK;
    if (const int s32Error = avformat_open_input(&pst, pcName, pstInput, nullptr); s32Error < 0) {
        LOG_ERROR("scene %s cannot be opened: %s\n", pcName, errorText(s32Error).c_str());
        return false;
    }
    m_pstFormat.reset(pst);
    if (!openCodec(pcName)) return false;
    const int s32Error = next();
    if (s32Error == 0) m_s64PendingUs = frameUs();
    if (s32Error == 0 || (m_bLive && s32Error == AVERROR(EAGAIN))) return true;
    LOG_ERROR("scene %s has no picture: %s\n", pcName, errorText(s32Error).c_str());
    return false;
}

bool LibavFilm::openCodec(const BU_CHAR *pcName)
{
    const AVCodec *pstDecoder = nullptr;
    int s32Error = avformat_find_stream_info(m_pstFormat.get(), nullptr);
    if (s32Error >= 0)
        s32Error = m_s32Stream = av_find_best_stream(m_pstFormat.get(), AVMEDIA_TYPE_VIDEO, -1, -1, &pstDecoder, 0);
    if (s32Error >= 0) {
        m_pstCodec.reset(avcodec_alloc_context3(pstDecoder));
        m_pstFrame.reset(av_frame_alloc());
        m_pstPacket.reset(av_packet_alloc());
        s32Error = m_pstCodec && m_pstFrame && m_pstPacket ? 0 : AVERROR(ENOMEM);
    }
    if (s32Error >= 0)
        s32Error = avcodec_parameters_to_context(m_pstCodec.get(), m_pstFormat->streams[m_s32Stream]->codecpar);
    if (s32Error >= 0) {
        m_pstCodec->thread_count = 1;
        s32Error = avcodec_open2(m_pstCodec.get(), pstDecoder, nullptr);
    }
    if (s32Error < 0) {
        LOG_ERROR("scene %s is not a video: %s\n", pcName, errorText(s32Error).c_str());
        return false;
    }
    for (unsigned i = 0; i < m_pstFormat->nb_streams; ++i)
        if (static_cast<int>(i) != m_s32Stream) m_pstFormat->streams[i]->discard = AVDISCARD_ALL;
    m_s64DurationUs = m_pstFormat->duration > 0 ? m_pstFormat->duration : 0;
    return true;
}

int LibavFilm::next()
{
    for (;;) {
        int s32Error = avcodec_receive_frame(m_pstCodec.get(), m_pstFrame.get());
        if (s32Error != AVERROR(EAGAIN)) return s32Error;
        s32Error = av_read_frame(m_pstFormat.get(), m_pstPacket.get());
        if (s32Error == AVERROR_EOF)
            avcodec_send_packet(m_pstCodec.get(), nullptr); // what the decoder still holds comes out
        else if (s32Error < 0)
            return s32Error;
        else if (m_pstPacket->stream_index == m_s32Stream)
            avcodec_send_packet(m_pstCodec.get(), m_pstPacket.get()); // a damaged packet is passed over
        av_packet_unref(m_pstPacket.get());
    }
}

bool LibavFilm::rewind(BU_S64 s64Us)
{
    const BU_S64 s64Start = m_pstFormat->start_time == AV_NOPTS_VALUE ? 0 : m_pstFormat->start_time;
    if (m_bUntimed || av_seek_frame(m_pstFormat.get(), -1, s64Start + s64Us, AVSEEK_FLAG_BACKWARD) < 0)
        if (av_seek_frame(m_pstFormat.get(), -1, 0, AVSEEK_FLAG_BYTE) < 0) return false;
    avcodec_flush_buffers(m_pstCodec.get());
    m_s64PendingUs = m_s64ShownUs = -1;
    if (next() != 0) return false;
    m_s64PendingUs = frameUs();
    return true;
}

/// Time of the decoded picture from the start. Streams without times count their pictures.
BU_S64 LibavFilm::frameUs()
{
    const AVStream *pst = m_pstFormat->streams[m_s32Stream];
    const BU_S64 s64Start = pst->start_time == AV_NOPTS_VALUE ? 0 : pst->start_time;
    m_bUntimed = m_pstFrame->best_effort_timestamp == AV_NOPTS_VALUE;
    if (!m_bUntimed) return av_rescale_q(m_pstFrame->best_effort_timestamp - s64Start, pst->time_base, {1, 1'000'000});
    const AVRational stRate = pst->avg_frame_rate.num > 0 ? pst->avg_frame_rate : AVRational{25, 1};
    return m_s64PendingUs < 0 ? 0 : m_s64PendingUs + av_rescale(1'000'000, stRate.den, stRate.num);
}

/// Takes the decoded picture over as the one to show.
void LibavFilm::takeFrame()
{
    const AVFrame &st = *m_pstFrame;
    const int s32Shrink = std::max({1, (st.width + LARGEST - 1) / LARGEST, (st.height + LARGEST - 1) / LARGEST});
    const int s32Width = std::max(st.width / s32Shrink & ~1, 16), s32Height = std::max(st.height / s32Shrink & ~1, 16);
    const int as32In[3] = {st.width, st.height, st.format};
    if (!m_pstScaler || !std::ranges::equal(as32In, m_as32ScalerIn)) { // the size may change within a stream
        m_pstScaler.reset(sws_getContext(st.width, st.height, static_cast<AVPixelFormat>(st.format), s32Width,
                                         s32Height, AV_PIX_FMT_NV12, SWS_FAST_BILINEAR, nullptr, nullptr, nullptr));
        std::ranges::copy(as32In, m_as32ScalerIn);
        if (!m_pstScaler) return;
        m_vecNv12.resize(static_cast<std::size_t>(s32Width) * static_cast<std::size_t>(s32Height) * 3 / 2);
        m_stPicture = {m_vecNv12.data(), m_vecNv12.data() + s32Width * s32Height, s32Width, s32Width, s32Width,
                       s32Height};
    }
    BU_U8 *apu8Out[4] = {m_stPicture.pu8Y, m_stPicture.pu8Uv};
    const int as32Stride[4] = {m_stPicture.s32StrideY, m_stPicture.s32StrideUv};
    sws_scale(m_pstScaler.get(), st.data, st.linesize, 0, st.height, apu8Out, as32Stride);
    m_s64ShownUs = m_s64PendingUs;
}

/// Moves on to the picture of a file that is shown at the time. Few pictures are passed over: a file is asked for at
/// about its own rate.
void LibavFilm::follow(BU_S64 s64TimeUs)
{
    const BU_S64 s64Want = m_s64DurationUs > 0 ? s64TimeUs % m_s64DurationUs : s64TimeUs;
    const bool bBack = s64Want < m_s64ShownUs, bFar = !m_bUntimed && s64Want > m_s64PendingUs + SEEK_US;
    if (bBack || (bFar && !m_bEnded && m_s64DurationUs > SEEK_US)) m_bEnded = !rewind(s64Want);
    while (!m_bEnded && (m_s64PendingUs <= s64Want || m_s64ShownUs < 0)) {
        takeFrame();
        if (next() == 0) {
            m_s64PendingUs = frameUs();
            continue;
        }
        m_bEnded = true; // the last picture stays until the loop begins again
        if (m_s64DurationUs <= 0) m_s64DurationUs = m_s64ShownUs + 40'000;
    }
    m_s64ShownUs = std::min(m_s64ShownUs, s64Want); // also when the first picture comes later
}

BU_S32 LibavFilm::showAt(BU_S64 s64TimeUs, const std::function<void(const SCENE_FRAME_S &)> &show)
{
    const std::lock_guard guard(m_lock);
    if (!m_bLive)
        follow(s64TimeUs);
    else
        for (int i = 0; i < 8 && next() == 0; ++i) takeFrame(); // the newest of those that wait
    if (!m_stPicture.pu8Y) return -1;
    show(m_stPicture);
    return 0;
}
} // namespace

std::shared_ptr<Film> Film::open(const BU_CHAR *pcName)
{
    static std::mutex &lock = *new std::mutex; // guards the list of open films
    static auto &mapFilms = *new std::map<std::string, std::weak_ptr<Film>>;
    const std::lock_guard guard(lock);
    if (auto pst = mapFilms[pcName].lock()) return pst;
    auto pst = std::make_shared<LibavFilm>();
    if (!pst->open(pcName)) return nullptr;
    mapFilms[pcName] = pst;
    return pst;
}
} // namespace scene
