#include "pipeline.h"

#include "util/log.h"

#include <algorithm>
#include <gst/app/gstappsrc.h>

namespace rtsp
{
namespace
{
/// More than this waiting means that the machine has stood still; the clients go on at the next key frame.
constexpr guint64 PACKETS_WAITING_MAX = 60;
/// A clock that is off by more has been set anew.
constexpr BU_S64 JUMP_NS = GST_SECOND;

/// What comes out of the payloader, before a packet has told it more. Thread: the one that will send the packets on.
void announceFormat(GstElement *pstSource, const Codec &stCodec)
{
    GstPad *pstOut = gst_element_get_static_pad(pstSource, "src");
    GstPad *pstNext = gst_pad_get_peer(pstOut);
    GstElement *pstPay = gst_pad_get_parent_element(pstNext);
    GstPad *pstRtp = gst_element_get_static_pad(pstPay, "src");
    GstCaps *pstCaps = gst_pad_get_current_caps(pstRtp);
    if (!pstCaps) {
        guint u32Ssrc = 0;
        g_object_get(pstPay, "ssrc", &u32Ssrc, nullptr);
        pstCaps = gst_caps_from_string(stCodec.pcRtpCaps);
        gst_caps_set_simple(pstCaps, "ssrc", G_TYPE_UINT, u32Ssrc, nullptr);
        gst_pad_push_event(pstRtp, gst_event_new_caps(pstCaps));
    }
    gst_caps_unref(pstCaps);
    gst_object_unref(pstRtp);
    gst_object_unref(pstPay);
    gst_object_unref(pstNext);
    gst_object_unref(pstOut);
}

/// Without a packet the server cannot tell that the pipeline is ready for clients: this says, once, that none is there
/// yet.
void sayNothingYet(GstAppSrc *pstSource, guint, gpointer pvCodec)
{
    GstAppSrcCallbacks stNone{};
    gst_app_src_set_callbacks(pstSource, &stNone, nullptr, nullptr);
    announceFormat(GST_ELEMENT(pstSource), *static_cast<const Codec *>(pvCodec));
    gst_element_send_event(GST_ELEMENT(pstSource), gst_event_new_gap(0, GST_CLOCK_TIME_NONE));
}

GstElement *makeSource(const Track &stTrack, const Codec &stCodec, std::size_t index)
{
    GstElement *pstSource = gst_element_factory_make("appsrc", ("source" + std::to_string(index)).c_str());
    if (!pstSource) return nullptr;
    GstCaps *pstCaps = gst_caps_from_string(capsOf(stTrack.stFormat).c_str());
    g_object_set(pstSource, "is-live", TRUE, "format", GST_FORMAT_TIME, "caps", pstCaps, "max-buffers", guint64{0},
                 "max-bytes", guint64{0}, "emit-signals", FALSE, nullptr);
    gst_caps_unref(pstCaps);
    GstAppSrcCallbacks stCallbacks{};
    stCallbacks.need_data = sayNothingYet;
    gst_app_src_set_callbacks(GST_APP_SRC(pstSource), &stCallbacks, const_cast<Codec *>(&stCodec), nullptr);
    return pstSource;
}

GstElement *makePayloader(const Codec &stCodec, std::size_t index)
{
    GstElement *pstPay = gst_element_factory_make(stCodec.pcPayloader, ("pay" + std::to_string(index)).c_str());
    if (!pstPay) return nullptr;
    g_object_set(pstPay, "pt", stCodec.u32PayloadType, "ssrc", g_random_int(), nullptr);
    // A key frame of a cache carries its parameter sets. Left to add them, the payloader does so for each slice.
    if (stCodec.s32EncodeType != STREAM_TYPE_AAC)
        gst_util_set_object_arg(G_OBJECT(pstPay), "aggregate-mode", "zero-latency");
    return pstPay;
}

void giveBack(gpointer pvRef) { delete static_cast<STREAM_PACKET_REF *>(pvRef); }

/// The packet as a buffer without a copy; the reference keeps it alive.
GstBuffer *wrap(const STREAM_PACKET_REF &pstPacket)
{
    return gst_buffer_new_wrapped_full(GST_MEMORY_FLAG_READONLY, const_cast<BU_U8 *>(pstPacket->pu8Data),
                                       pstPacket->u32Length, 0, pstPacket->u32Length, new STREAM_PACKET_REF(pstPacket),
                                       giveBack);
}
} // namespace

Pipeline::Pipeline(std::vector<Track> listTracks)
    : m_listTracks(std::move(listTracks)), m_listInputs(m_listTracks.size())
{
}

Pipeline::~Pipeline()
{
    for (const Input &stInput : m_listInputs)
        for (GstElement *pst : {stInput.pstSource, stInput.pstPay})
            if (pst) gst_object_unref(pst);
}

GstElement *Pipeline::makeElements()
{
    if (m_bMade.exchange(true)) return nullptr;
    const std::vector<Track> listTracks = tracks();
    GstElement *pstBin = gst_bin_new(nullptr);
    for (std::size_t i = 0; i < listTracks.size(); ++i) {
        m_listInputs[i].pstCache = listTracks[i].pstCache;
        m_listInputs[i].s32EncodeType = listTracks[i].stFormat.s32EncodeType;
        const Codec &stCodec = *codecOf(listTracks[i].stFormat.s32EncodeType);
        GstElement *pstSource = makeSource(listTracks[i], stCodec, i);
        GstElement *pstPay = makePayloader(stCodec, i);
        if (!pstSource || !pstPay) {
            LOG_ERROR("no RTSP for %s: an element is missing", listTracks[i].strName.c_str());
            gst_object_unref(pstBin);
            return nullptr;
        }
        gst_bin_add_many(GST_BIN(pstBin), pstSource, pstPay, nullptr);
        gst_element_link(pstSource, pstPay);
        m_listInputs[i].pstSource = GST_ELEMENT(gst_object_ref(pstSource));
        m_listInputs[i].pstPay = GST_ELEMENT(gst_object_ref(pstPay));
    }
    return pstBin;
}

void Pipeline::update(std::size_t index, BU_S32 s32BitRate, const STREAM_PACKET_METADATA_S &stFormat)
{
    const std::lock_guard guard(m_lock);
    m_listTracks[index].s32BitRate = s32BitRate;
    m_listTracks[index].stFormat.s32FrameRateNum = stFormat.s32FrameRateNum;
    m_listTracks[index].stFormat.s32FrameRateDen = stFormat.s32FrameRateDen;
}

std::vector<Track> Pipeline::tracks() const
{
    const std::lock_guard guard(m_lock);
    return m_listTracks;
}

RtpPosition Pipeline::position(std::size_t index) const
{
    const Input &stInput = m_listInputs[index];
    GstStructure *pstStats = nullptr;
    guint u32Rate = 0, u32Sequence = 0, u32TimeOffset = 0;
    guint64 u64LastTime = 0;
    g_object_get(stInput.pstPay, "stats", &pstStats, nullptr);
    gst_structure_get(pstStats, "clock-rate", G_TYPE_UINT, &u32Rate, "seqnum", G_TYPE_UINT, &u32Sequence,
                      "timestamp-offset", G_TYPE_UINT, &u32TimeOffset, "running-time", G_TYPE_UINT64, &u64LastTime,
                      nullptr);
    gst_structure_free(pstStats);
    if (u64LastTime != GST_CLOCK_TIME_NONE) ++u32Sequence; // else no packet has passed
    const GstClockTime now = gst_element_get_current_running_time(stInput.pstSource);
    return {static_cast<BU_U16>(u32Sequence),
            u32TimeOffset + static_cast<BU_U32>(gst_util_uint64_scale(now, u32Rate, GST_SECOND))};
}

/// Packets keep the distances that their clock gives them, also between picture and sound. None lies in the future,
/// where the pipeline would hold it back, nor before the pipeline's time.
BU_S64 Pipeline::presentationTime(BU_U64 u64TimestampUs, BU_S64 s64Now)
{
    const BU_S64 s64Packet = static_cast<BU_S64>(u64TimestampUs) * 1000;
    const std::lock_guard guard(m_lock);
    const BU_S64 s64Age = s64Now - (s64Packet + m_s64Offset);
    if (m_s64Offset == 0 || s64Age < 0 || s64Age > JUMP_NS) m_s64Offset = s64Now - s64Packet;
    return std::max<BU_S64>(s64Packet + m_s64Offset, 0);
}

void Pipeline::push(std::size_t index, const STREAM_PACKET_REF &pstPacket)
{
    Input &stInput = m_listInputs[index];
    if (pstPacket->s32EncodeType != stInput.s32EncodeType) return; // of a new format, before the pipeline is replaced
    GstAppSrc *pstSource = GST_APP_SRC(stInput.pstSource);
    const GstClockTime now = gst_element_get_current_running_time(stInput.pstSource);
    if (now == GST_CLOCK_TIME_NONE) return;
    if (gst_app_src_get_current_level_buffers(pstSource) > PACKETS_WAITING_MAX) {
        stInput.bAwaitKey = true;
        return;
    }
    if (stInput.bAwaitKey && !pstPacket->bKeyFrame) {
        STREAM_requestKeyFrame(stInput.pstCache);
        return;
    }
    stInput.bAwaitKey = false;
    GstBuffer *pstBuffer = wrap(pstPacket);
    GST_BUFFER_PTS(pstBuffer) =
        static_cast<GstClockTime>(presentationTime(pstPacket->u64Timestamp, static_cast<BU_S64>(now)));
    if (!pstPacket->bKeyFrame) GST_BUFFER_FLAG_SET(pstBuffer, GST_BUFFER_FLAG_DELTA_UNIT);
    gst_app_src_push_buffer(pstSource, pstBuffer);
}
} // namespace rtsp
