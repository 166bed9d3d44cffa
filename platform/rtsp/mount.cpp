#include "mount.h"

#include "media.h"
#include "util/log.h"

#include <algorithm>
#include <gst/rtsp-server/rtsp-server.h>

namespace rtsp
{
namespace
{
struct tagSEARCH_S {
    GstRTSPMedia *pstMedia;
    bool bFound;
};

bool isOf(GstRTSPSession *pstSession, GstRTSPMedia *pstMedia)
{
    tagSEARCH_S stSearch{pstMedia, false};
    gst_rtsp_session_filter(
        pstSession,
        [](GstRTSPSession *, GstRTSPSessionMedia *pstOne, gpointer pv) {
            auto &st = *static_cast<tagSEARCH_S *>(pv);
            st.bFound |= gst_rtsp_session_media_get_media(pstOne) == st.pstMedia;
            return GST_RTSP_FILTER_KEEP;
        },
        &stSearch);
    return stSearch.bFound;
}

GstRTSPFilterResult removeOf(bool bFound) { return bFound ? GST_RTSP_FILTER_REMOVE : GST_RTSP_FILTER_KEEP; }

bool watches(GstRTSPClient *pstClient, GstRTSPMedia *pstMedia)
{
    tagSEARCH_S stSearch{pstMedia, false};
    gst_rtsp_client_session_filter(
        pstClient,
        [](GstRTSPClient *, GstRTSPSession *pstSession, gpointer pv) {
            auto &st = *static_cast<tagSEARCH_S *>(pv);
            st.bFound |= isOf(pstSession, st.pstMedia);
            return GST_RTSP_FILTER_KEEP;
        },
        &stSearch);
    return stSearch.bFound;
}

/// Closes the connections of those who watch the media, and ends the sessions that have no connection.
void dismissViewers(GstRTSPServer *pstServer, GstRTSPMedia *pstMedia)
{
    gst_rtsp_server_client_filter(
        pstServer,
        [](GstRTSPServer *, GstRTSPClient *pstClient, gpointer pv) {
            return removeOf(watches(pstClient, static_cast<GstRTSPMedia *>(pv)));
        },
        pstMedia);
    GstRTSPSessionPool *pstPool = gst_rtsp_server_get_session_pool(pstServer);
    gst_rtsp_session_pool_filter(
        pstPool,
        [](GstRTSPSessionPool *, GstRTSPSession *pstSession, gpointer pv) {
            return removeOf(isOf(pstSession, static_cast<GstRTSPMedia *>(pv)));
        },
        pstMedia);
    g_object_unref(pstPool);
}

bool hasViewers(GstRTSPStream *pstStream)
{
    GList *pstList = pstStream ? gst_rtsp_stream_transport_filter(pstStream, nullptr, nullptr) : nullptr;
    const bool bAny = pstList != nullptr;
    g_list_free_full(pstList, g_object_unref);
    return bAny;
}

bool prepare(GstRTSPServer *pstServer, GstRTSPMedia *pstMedia)
{
    GstRTSPThreadPool *pstThreads = gst_rtsp_server_get_thread_pool(pstServer);
    GstRTSPThread *pstThread = gst_rtsp_thread_pool_get_thread(pstThreads, GST_RTSP_THREAD_TYPE_MEDIA, nullptr);
    g_object_unref(pstThreads);
    return gst_rtsp_media_prepare(pstMedia, pstThread);
}
} // namespace

Mount::Mount(GstRTSPServer *pstServer, std::string strName, std::vector<Track> listTracks)
    : m_pstServer(pstServer), m_strName(std::move(strName)), m_listTracks(std::move(listTracks))
{
    open();
}

Mount::~Mount() { close(); }

void Mount::open()
{
    std::vector<Track> listTracks;
    for (Track &stTrack : m_listTracks) {
        stTrack.stFormat = STREAM_getStreamCacheMetadata(stTrack.pstCache);
        if (codecOf(stTrack.stFormat.s32EncodeType)) listTracks.push_back(stTrack);
    }
    if (listTracks.empty()) {
        LOG_WARN("rtsp %s: no stream to show", m_strName.c_str());
        return;
    }
    m_listSinks.assign(listTracks.size(), "");
    m_pstPipeline = std::make_shared<Pipeline>(std::move(listTracks));
    m_pstFactory = newFactory(m_pstPipeline, m_strName);
    GstRTSPUrl *pstUrl = nullptr;
    gst_rtsp_url_parse("rtsp://camera/", &pstUrl);
    m_pstKeeper = gst_rtsp_media_factory_construct(m_pstFactory, pstUrl);
    gst_rtsp_url_free(pstUrl);
    if (!m_pstKeeper || !prepare(m_pstServer, m_pstKeeper)) LOG_ERROR("rtsp %s cannot be shown", m_strName.c_str());
    GstRTSPMountPoints *pstMounts = gst_rtsp_server_get_mount_points(m_pstServer);
    gst_rtsp_mount_points_add_factory(pstMounts, ("/" + m_strName).c_str(),
                                      GST_RTSP_MEDIA_FACTORY(g_object_ref(m_pstFactory)));
    g_object_unref(pstMounts);
}

void Mount::close()
{
    for (std::size_t i = 0; i < m_listSinks.size(); ++i) listen(i, false);
    if (!m_pstFactory) return;
    GstRTSPMountPoints *pstMounts = gst_rtsp_server_get_mount_points(m_pstServer);
    gst_rtsp_mount_points_remove_factory(pstMounts, ("/" + m_strName).c_str());
    g_object_unref(pstMounts);
    if (m_pstKeeper) {
        dismissViewers(m_pstServer, m_pstKeeper);
        gst_rtsp_media_unprepare(m_pstKeeper);
        g_clear_object(&m_pstKeeper);
    }
    g_clear_object(&m_pstFactory);
    m_pstPipeline.reset();
}

void Mount::listen(std::size_t index, bool bOn)
{
    std::string &strSink = m_listSinks[index];
    if (bOn == !strSink.empty()) return;
    const Track stTrack = m_pstPipeline->tracks()[index];
    if (bOn) {
        strSink = "rtsp/" + m_strName + "/" + stTrack.strName;
        STREAM_registerPacketSink(stTrack.pstCache, strSink.c_str(),
                                  [pstPipeline = m_pstPipeline, index](const STREAM_PACKET_REF &pstPacket) {
                                      pstPipeline->push(index, pstPacket);
                                  });
    } else {
        STREAM_unregisterPacketSink(stTrack.pstCache, strSink.c_str());
        strSink.clear();
    }
}

void Mount::followViewers(const GstRTSPMedia *pstPlayed)
{
    for (guint i = 0; i < m_listSinks.size(); ++i) {
        const bool bWatched = m_pstKeeper && hasViewers(gst_rtsp_media_get_stream(m_pstKeeper, i));
        if (bWatched && pstPlayed == m_pstKeeper && !m_listSinks[i].empty())
            STREAM_requestKeyFrame(m_pstPipeline->tracks()[i].pstCache);
        listen(i, bWatched);
    }
}

bool Mount::isStale() const
{
    if (m_pstKeeper && gst_rtsp_media_get_status(m_pstKeeper) == GST_RTSP_MEDIA_STATUS_ERROR) return true;
    return std::ranges::any_of(m_listTracks, [](const Track &stTrack) {
        return !isSameStream(stTrack.stFormat, STREAM_getStreamCacheMetadata(stTrack.pstCache));
    });
}

void Mount::renew()
{
    if (!isStale()) return;
    LOG_INFO("rtsp %s: new format, its clients have to come again", m_strName.c_str());
    close();
    open();
}

void Mount::updateRates()
{
    if (!m_pstPipeline) return;
    const std::vector<Track> listTracks = m_pstPipeline->tracks();
    for (std::size_t i = 0; i < listTracks.size(); ++i) {
        const BU_S32 s32BitRate =
            listTracks[i].s32BitRate > 0 ? STREAM_getStreamCacheBitRate(listTracks[i].pstCache) : 0;
        m_pstPipeline->update(i, s32BitRate, STREAM_getStreamCacheMetadata(listTracks[i].pstCache));
    }
}
} // namespace rtsp
