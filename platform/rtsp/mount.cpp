#include "mount.h"

#include "media.h"
#include "util/log.h"
#include "viewers.h"

#include <algorithm>
#include <gst/rtsp-server/rtsp-server.h>
#include <utility>

namespace rtsp
{
namespace
{
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
    if (m_pstKeeper && prepare(m_pstServer, m_pstKeeper))
        m_drain.emplace(m_pstKeeper);
    else
        LOG_ERROR("rtsp %s cannot be shown", m_strName.c_str());
    GstRTSPMountPoints *pstMounts = gst_rtsp_server_get_mount_points(m_pstServer);
    gst_rtsp_mount_points_add_factory(pstMounts, ("/" + m_strName).c_str(),
                                      GST_RTSP_MEDIA_FACTORY(g_object_ref(m_pstFactory)));
    g_object_unref(pstMounts);
}

void Mount::close()
{
    mute();
    removeName();
    retire(std::exchange(m_pstFactory, nullptr), std::exchange(m_pstKeeper, nullptr));
    m_pstPipeline.reset();
}

/// The name leads to the new pipeline before anybody is sent away: who comes back at once finds it.
void Mount::replace()
{
    mute();
    GstRTSPMediaFactory *pstFactory = std::exchange(m_pstFactory, nullptr);
    GstRTSPMedia *pstKeeper = std::exchange(m_pstKeeper, nullptr);
    open();
    if (!m_pstFactory) removeName();
    retire(pstFactory, pstKeeper);
    // Who has asked for the description, but not yet for a session, has been told of the old one.
    dismissClients(m_pstServer, [](GstRTSPClient *pstClient) { return countSessions(pstClient) == 0; });
}

void Mount::mute()
{
    for (std::size_t i = 0; i < m_listSinks.size(); ++i) listen(i, false);
    m_listSinks.clear();
    m_givenUp.clear();
    m_drain.reset();
}

void Mount::removeName()
{
    GstRTSPMountPoints *pstMounts = gst_rtsp_server_get_mount_points(m_pstServer);
    gst_rtsp_mount_points_remove_factory(pstMounts, ("/" + m_strName).c_str());
    g_object_unref(pstMounts);
}

void Mount::retire(GstRTSPMediaFactory *pstFactory, GstRTSPMedia *pstKeeper)
{
    if (pstKeeper) {
        dismissViewers(m_pstServer, [pstKeeper](GstRTSPSessionMedia *pstPart) {
            return gst_rtsp_session_media_get_media(pstPart) == pstKeeper;
        });
        gst_rtsp_media_unprepare(pstKeeper);
        g_object_unref(pstKeeper);
    }
    if (pstFactory) g_object_unref(pstFactory);
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
        const bool bWatched = m_pstKeeper && hasViewers(m_pstKeeper, i);
        if (bWatched && pstPlayed == m_pstKeeper && !m_listSinks[i].empty())
            STREAM_requestKeyFrame(m_pstPipeline->tracks()[i].pstCache);
        listen(i, bWatched);
    }
}

bool Mount::isStale() const
{
    return std::ranges::any_of(m_listTracks, [](const Track &stTrack) {
        return !isSameStream(stTrack.stFormat, STREAM_getStreamCacheMetadata(stTrack.pstCache));
    });
}

void Mount::renew()
{
    if (!isStale()) return;
    LOG_INFO("rtsp %s: new format, its clients have to come again", m_strName.c_str());
    replace();
}

void Mount::tend()
{
    followViewers(nullptr);
    if (!m_pstKeeper) return;
    if (gst_rtsp_media_get_status(m_pstKeeper) == GST_RTSP_MEDIA_STATUS_ERROR) {
        LOG_ERROR("rtsp %s: its pipeline failed and is made anew", m_strName.c_str());
        replace();
        return;
    }
    dismissTooSlow();
}

/// Seen once, a session may just be about to pause or to end.
void Mount::dismissTooSlow()
{
    const auto seenBefore = std::exchange(m_givenUp, findGivenUp(m_pstServer, m_pstKeeper));
    const auto isTooSlow = [&](const GstRTSPSessionMedia *pst) {
        return m_givenUp.contains(pst) && seenBefore.contains(pst);
    };
    if (std::ranges::none_of(m_givenUp, isTooSlow)) return;
    LOG_INFO("rtsp %s: a client that does not keep up is sent away", m_strName.c_str());
    dismissViewers(m_pstServer, isTooSlow);
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
