#include "media.h"

#include "util/platform.h"

#include <cstdlib>
#include <gst/rtsp-server/rtsp-server.h>
#include <sstream>

namespace rtsp
{
namespace
{
constexpr const BU_CHAR *PIPELINE = "camera-pipeline", *SESSION = "camera-session"; // names of object data
constexpr guint UDP_BUFFER = 512 * 1024;                                            // a key frame leaves in one burst

typedef std::shared_ptr<Pipeline> PipelineRef;

PipelineRef pipelineOf(gpointer pvObject)
{
    return *static_cast<PipelineRef *>(g_object_get_data(G_OBJECT(pvObject), PIPELINE));
}

void attach(gpointer pvObject, PipelineRef pstPipeline, const BU_CHAR *pcSession)
{
    g_object_set_data_full(G_OBJECT(pvObject), PIPELINE, new PipelineRef(std::move(pstPipeline)),
                           [](gpointer pv) { delete static_cast<PipelineRef *>(pv); });
    g_object_set_data_full(G_OBJECT(pvObject), SESSION, g_strdup(pcSession), g_free);
}

/// @return null: the stream is not ready
GstCaps *rtpCapsOf(GstRTSPStream *pstStream, const Track &stTrack)
{
    GstCaps *pstCaps = gst_rtsp_stream_get_caps(pstStream);
    if (!pstCaps) return nullptr;
    pstCaps = gst_caps_make_writable(pstCaps);
    if (const std::string strRate = frameRateOf(stTrack.stFormat); !strRate.empty())
        gst_caps_set_simple(pstCaps, "a-framerate", G_TYPE_STRING, strRate.c_str(), nullptr);
    return pstCaps;
}

gboolean describe(GstRTSPMedia *pstMedia, GstSDPMessage *pstSdp, GstSDPInfo *pstInfo)
{
    gst_sdp_message_set_session_name(pstSdp,
                                     static_cast<const gchar *>(g_object_get_data(G_OBJECT(pstMedia), SESSION)));
    gst_sdp_message_set_information(pstSdp, "live");
    gst_sdp_message_add_attribute(pstSdp, "range", "npt=now-");
    const std::vector<Track> listTracks = pipelineOf(pstMedia)->tracks();
    for (guint i = 0; i < listTracks.size(); ++i) {
        GstRTSPStream *pstStream = gst_rtsp_media_get_stream(pstMedia, i);
        GstCaps *pstCaps = pstStream ? rtpCapsOf(pstStream, listTracks[i]) : nullptr;
        if (!pstCaps) return FALSE;
        const gboolean bOk = gst_rtsp_sdp_make_media(pstSdp, pstInfo, pstStream, pstCaps, GST_RTSP_PROFILE_AVP);
        gst_caps_unref(pstCaps);
        if (!bOk) return FALSE;
        if (listTracks[i].s32BitRate <= 0) continue;
        const guint last = gst_sdp_message_medias_len(pstSdp) - 1;
        gst_sdp_media_add_bandwidth(const_cast<GstSDPMedia *>(gst_sdp_message_get_media(pstSdp, last)),
                                    GST_SDP_BWTYPE_AS, static_cast<guint>(listTracks[i].s32BitRate));
    }
    return TRUE;
}

template <auto Init, class Instance, class Class> GType derive(GType parent, const BU_CHAR *pcName)
{
    return g_type_register_static_simple(
        parent, pcName, sizeof(Class), [](gpointer pvClass, gpointer) { Init(static_cast<Class *>(pvClass)); },
        sizeof(Instance), nullptr, GTypeFlags{});
}

void initMedia(GstRTSPMediaClass *pstClass) { pstClass->setup_sdp = describe; }

void initFactory(GstRTSPMediaFactoryClass *pstClass)
{
    pstClass->gen_key = [](GstRTSPMediaFactory *, const GstRTSPUrl *) { return g_strdup("the one"); };
    pstClass->create_element = [](GstRTSPMediaFactory *pstFactory, const GstRTSPUrl *) {
        return pipelineOf(pstFactory)->makeElements();
    };
    pstClass->media_configure = [](GstRTSPMediaFactory *pstFactory, GstRTSPMedia *pstMedia) {
        attach(pstMedia, pipelineOf(pstFactory),
               static_cast<const gchar *>(g_object_get_data(G_OBJECT(pstFactory), SESSION)));
    };
}

GType mediaType()
{
    static const GType type =
        derive<initMedia, GstRTSPMedia, GstRTSPMediaClass>(GST_TYPE_RTSP_MEDIA, "CameraRtspMedia");
    return type;
}

GType factoryType()
{
    static const GType type = derive<initFactory, GstRTSPMediaFactory, GstRTSPMediaFactoryClass>(
        GST_TYPE_RTSP_MEDIA_FACTORY, "CameraRtspFactory");
    return type;
}

/// Left alone, the library sends and receives UDP on all addresses.
void bindUdp(GstRTSPMediaFactory *pstFactory)
{
    const std::string strAddress = PLATFORM_BindAddress();
    if (strAddress == "0.0.0.0") return;
    GstRTSPAddressPool *pstPool = gst_rtsp_address_pool_new();
    gst_rtsp_address_pool_add_range(pstPool, strAddress.c_str(), strAddress.c_str(), 40000, 49999, 0);
    gst_rtsp_media_factory_set_address_pool(pstFactory, pstPool);
    g_object_unref(pstPool);
}
} // namespace

GstRTSPMediaFactory *newFactory(std::shared_ptr<Pipeline> pstPipeline, const std::string &strSession)
{
    auto *pstFactory = static_cast<GstRTSPMediaFactory *>(g_object_new(factoryType(), nullptr));
    attach(pstFactory, std::move(pstPipeline), strSession.c_str());
    gst_rtsp_media_factory_set_media_gtype(pstFactory, mediaType());
    gst_rtsp_media_factory_set_shared(pstFactory, TRUE);
    gst_rtsp_media_factory_set_protocols(
        pstFactory, static_cast<GstRTSPLowerTrans>(GST_RTSP_LOWER_TRANS_UDP | GST_RTSP_LOWER_TRANS_TCP));
    gst_rtsp_media_factory_set_buffer_size(pstFactory, UDP_BUFFER);
    gst_rtsp_media_factory_add_role(pstFactory, VIEWER, GST_RTSP_PERM_MEDIA_FACTORY_ACCESS, G_TYPE_BOOLEAN, TRUE,
                                    GST_RTSP_PERM_MEDIA_FACTORY_CONSTRUCT, G_TYPE_BOOLEAN, TRUE, nullptr);
    bindUdp(pstFactory);
    return pstFactory;
}

void tellPosition(GstRTSPMedia *pstMedia, GstRTSPMessage *pstAnswer)
{
    gchar *pcTold = nullptr;
    if (gst_rtsp_message_get_header(pstAnswer, GST_RTSP_HDR_RTP_INFO, &pcTold, 0) != GST_RTSP_OK) return;
    const PipelineRef pstPipeline = pipelineOf(pstMedia);
    const std::size_t tracks = pstPipeline->tracks().size();
    std::string strTold;
    std::istringstream stEntries(pcTold);
    for (std::string strEntry; std::getline(stEntries, strEntry, ',');) {
        const std::string strUrl = strEntry.substr(0, strEntry.find(';'));
        const auto number = strUrl.rfind('=') + 1; // "...stream=1"
        const auto index = static_cast<std::size_t>(std::strtoul(strUrl.c_str() + number, nullptr, 10));
        if (index >= tracks) return;
        const RtpPosition stPosition = pstPipeline->position(index);
        strTold += (strTold.empty() ? "" : ",") + strUrl + ";seq=" + std::to_string(stPosition.u16Sequence) +
                   ";rtptime=" + std::to_string(stPosition.u32Time);
    }
    gst_rtsp_message_remove_header(pstAnswer, GST_RTSP_HDR_RTP_INFO, -1);
    gst_rtsp_message_add_header(pstAnswer, GST_RTSP_HDR_RTP_INFO, strTold.c_str());
}
} // namespace rtsp
