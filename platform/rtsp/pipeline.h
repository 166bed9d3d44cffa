/// The pipeline of a session: packets of its caches go in, RTP packets come out to all clients at once.
#pragma once

#include "track.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <vector>

typedef struct _GstElement GstElement;

namespace rtsp
{
/// Where a stream stands, in RTP terms.
struct RtpPosition {
    BU_U16 u16Sequence; ///< of the next packet
    BU_U32 u32Time;     ///< of a picture taken now
};

/// Shared by a mount, by GStreamer's objects made for it, which live as long as a client holds them, and by the calls
/// with packets. It serves one GStreamer media.
class Pipeline
{
public:
    explicit Pipeline(std::vector<Track> listTracks);
    ~Pipeline();
    Pipeline(const Pipeline &) = delete;
    Pipeline &operator=(const Pipeline &) = delete;

    /// The elements as a bin of the caller's. Thread: any. @return null: made already, or it cannot be made
    GstElement *makeElements();

    /// Takes bit and frame rate over for the next description. Thread: server.
    void update(std::size_t index, BU_S32 s32BitRate, const STREAM_PACKET_METADATA_S &stFormat);

    std::vector<Track> tracks() const; ///< thread: any

    RtpPosition position(std::size_t index) const; ///< thread: any, once the elements are made

    /// A packet on its way to the clients. Thread: the media pipeline's, for each track one at a time.
    void push(std::size_t index, const STREAM_PACKET_REF &pstPacket);

private:
    struct Input {
        STREAM_CACHE_S *pstCache = nullptr;
        BU_S32 s32EncodeType = 0;
        GstElement *pstSource = nullptr, *pstPay = nullptr;
        bool bAwaitKey = true; ///< of the thread with the packets
    };
    BU_S64 presentationTime(BU_U64 u64TimestampUs, BU_S64 s64Now);

    mutable std::mutex m_lock; ///< guards the two below
    std::vector<Track> m_listTracks;
    BU_S64 m_s64Offset = 0; ///< of the packets' clock to the pipeline's [ns], 0: not known yet
    std::atomic<bool> m_bMade{false};
    std::vector<Input> m_listInputs; ///< complete once the elements are made
};
} // namespace rtsp
