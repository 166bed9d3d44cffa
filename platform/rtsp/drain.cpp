#include "drain.h"

#include "base/types.h"

#include <gst/rtsp-server/rtsp-server.h>

namespace rtsp
{
namespace
{
constexpr const BU_CHAR *DRAIN = "camera-drain"; // name of object data

GstRTSPStreamTransport *newTransport(GstRTSPStream *pstStream)
{
    GstRTSPTransport *pst = nullptr;
    gst_rtsp_transport_new(&pst);
    pst->trans = GST_RTSP_TRANS_RTP;
    pst->lower_transport = GST_RTSP_LOWER_TRANS_TCP;
    pst->destination = g_strdup("nowhere");
    GstRTSPStreamTransport *pstTransport = gst_rtsp_stream_transport_new(pstStream, pst);
    const auto drop = +[](GstBuffer *, guint8, gpointer) -> gboolean { return TRUE; };
    const auto dropList = +[](GstBufferList *, guint8, gpointer) -> gboolean { return TRUE; };
    gst_rtsp_stream_transport_set_callbacks(pstTransport, drop, drop, nullptr, nullptr);
    gst_rtsp_stream_transport_set_list_callbacks(pstTransport, dropList, dropList, nullptr, nullptr);
    g_object_set_data(G_OBJECT(pstTransport), DRAIN, pstTransport);
    return pstTransport;
}
} // namespace

Drain::Drain(GstRTSPMedia *pstMedia)
{
    for (guint i = 0; i < gst_rtsp_media_n_streams(pstMedia); ++i) {
        GstRTSPStreamTransport *pst = newTransport(gst_rtsp_media_get_stream(pstMedia, i));
        gst_rtsp_stream_transport_set_active(pst, TRUE);
        m_listTransports.push_back(pst);
    }
}

Drain::~Drain()
{
    for (GstRTSPStreamTransport *pst : m_listTransports) {
        gst_rtsp_stream_transport_set_active(pst, FALSE);
        g_object_unref(pst);
    }
}

bool isDrain(GstRTSPStreamTransport *pstTransport)
{
    return g_object_get_data(G_OBJECT(pstTransport), DRAIN) != nullptr;
}
} // namespace rtsp
