#include "viewers.h"

#include "drain.h"

#include <gst/rtsp-server/rtsp-server.h>

namespace rtsp
{
namespace
{
constexpr const BU_CHAR *VISIT = "camera-visit"; // name of object data

typedef std::function<bool(GstRTSPSessionMedia *)> FnSuch;

struct tagSEARCH_S {
    const FnSuch &fnSuch;
    bool bFound = false;
};

/// Goes through all parts of a session, whatever the answers.
bool hasSuch(GstRTSPSession *pstSession, const FnSuch &fnSuch)
{
    tagSEARCH_S stSearch{fnSuch};
    gst_rtsp_session_filter(
        pstSession,
        [](GstRTSPSession *, GstRTSPSessionMedia *pstPart, gpointer pv) {
            auto &st = *static_cast<tagSEARCH_S *>(pv);
            st.bFound |= st.fnSuch(pstPart);
            return GST_RTSP_FILTER_KEEP;
        },
        &stSearch);
    return stSearch.bFound;
}

bool hasSuch(GstRTSPClient *pstClient, const FnSuch &fnSuch)
{
    tagSEARCH_S stSearch{fnSuch};
    gst_rtsp_client_session_filter(
        pstClient,
        [](GstRTSPClient *, GstRTSPSession *pstSession, gpointer pv) {
            auto &st = *static_cast<tagSEARCH_S *>(pv);
            st.bFound |= hasSuch(pstSession, st.fnSuch);
            return GST_RTSP_FILTER_KEEP;
        },
        &stSearch);
    return stSearch.bFound;
}

void forEachPart(GstRTSPServer *pstServer, const std::function<void(GstRTSPSessionMedia *)> &fn)
{
    const FnSuch fnEach = [&fn](GstRTSPSessionMedia *pstPart) {
        fn(pstPart);
        return false;
    };
    GstRTSPSessionPool *pstPool = gst_rtsp_server_get_session_pool(pstServer);
    gst_rtsp_session_pool_filter(
        pstPool,
        [](GstRTSPSessionPool *, GstRTSPSession *pstSession, gpointer pv) {
            hasSuch(pstSession, *static_cast<const FnSuch *>(pv));
            return GST_RTSP_FILTER_KEEP;
        },
        const_cast<FnSuch *>(&fnEach));
    g_object_unref(pstPool);
}

std::set<const GstRTSPStreamTransport *> transportsOf(GstRTSPMedia *pstMedia)
{
    std::set<const GstRTSPStreamTransport *> set;
    for (guint i = 0; i < gst_rtsp_media_n_streams(pstMedia); ++i) {
        GList *pstList = gst_rtsp_stream_transport_filter(gst_rtsp_media_get_stream(pstMedia, i), nullptr, nullptr);
        for (const GList *pst = pstList; pst; pst = pst->next)
            set.insert(static_cast<const GstRTSPStreamTransport *>(pst->data));
        g_list_free_full(pstList, g_object_unref);
    }
    return set;
}
} // namespace

bool hasViewers(GstRTSPMedia *pstMedia, unsigned stream)
{
    GstRTSPStream *pstStream = gst_rtsp_media_get_stream(pstMedia, stream);
    const auto isViewer = [](GstRTSPStream *, GstRTSPStreamTransport *pst, gpointer) {
        return isDrain(pst) ? GST_RTSP_FILTER_KEEP : GST_RTSP_FILTER_REF;
    };
    GList *pstList = pstStream ? gst_rtsp_stream_transport_filter(pstStream, isViewer, nullptr) : nullptr;
    const bool bAny = pstList != nullptr;
    g_list_free_full(pstList, g_object_unref);
    return bAny;
}

void keepVisit(GstRTSPClient *pstClient, Visit stVisit)
{
    g_object_set_data_full(G_OBJECT(pstClient), VISIT, new Visit(std::move(stVisit)),
                           [](gpointer pv) { delete static_cast<Visit *>(pv); });
}

Visit &visitOf(GstRTSPClient *pstClient)
{
    return *static_cast<Visit *>(g_object_get_data(G_OBJECT(pstClient), VISIT));
}

unsigned countSessions(GstRTSPClient *pstClient)
{
    GList *pstList = gst_rtsp_client_session_filter(pstClient, nullptr, nullptr);
    const guint count = g_list_length(pstList);
    g_list_free_full(pstList, g_object_unref);
    return count;
}

void dismissClients(GstRTSPServer *pstServer, const std::function<bool(GstRTSPClient *)> &fnSuch)
{
    gst_rtsp_server_client_filter(
        pstServer,
        [](GstRTSPServer *, GstRTSPClient *pstClient, gpointer pv) {
            if ((*static_cast<const std::function<bool(GstRTSPClient *)> *>(pv))(pstClient))
                visitOf(pstClient).pstConnection->end();
            return GST_RTSP_FILTER_KEEP;
        },
        const_cast<std::function<bool(GstRTSPClient *)> *>(&fnSuch));
}

void dismissViewers(GstRTSPServer *pstServer, const FnSuch &fnSuch)
{
    dismissClients(pstServer, [&](GstRTSPClient *pstClient) { return hasSuch(pstClient, fnSuch); });
}

std::set<const GstRTSPSessionMedia *> findGivenUp(GstRTSPServer *pstServer, GstRTSPMedia *pstMedia)
{
    std::set<const GstRTSPSessionMedia *> set;
    const auto active = transportsOf(pstMedia);
    forEachPart(pstServer, [&](GstRTSPSessionMedia *pstPart) {
        if (gst_rtsp_session_media_get_media(pstPart) != pstMedia ||
            gst_rtsp_session_media_get_rtsp_state(pstPart) != GST_RTSP_STATE_PLAYING)
            return;
        for (guint i = 0; i < gst_rtsp_media_n_streams(pstMedia); ++i)
            if (const auto *pst = gst_rtsp_session_media_get_transport(pstPart, i); pst && !active.contains(pst))
                set.insert(pstPart);
    });
    return set;
}
} // namespace rtsp
