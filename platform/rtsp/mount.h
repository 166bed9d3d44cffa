/// A session on the server.
#pragma once

#include "drain.h"
#include "pipeline.h"

#include <optional>
#include <set>

typedef struct _GstRTSPServer GstRTSPServer;
typedef struct _GstRTSPMediaFactory GstRTSPMediaFactory;
typedef struct _GstRTSPMedia GstRTSPMedia;
typedef struct _GstRTSPSessionMedia GstRTSPSessionMedia;

namespace rtsp
{
/// Keeps one pipeline ready, so that a client's first packet has no start-up behind it, and takes packets from the
/// caches while somebody watches. Thread: the server's.
class Mount
{
public:
    Mount(GstRTSPServer *pstServer, std::string strName, std::vector<Track> listTracks);
    ~Mount();
    Mount(const Mount &) = delete;
    Mount &operator=(const Mount &) = delete;

    const std::string &name() const { return m_strName; }

    /// Somebody may have begun or ended to watch: opens and closes the ways from the caches.
    /// @param pstPlayed  null, or the media that somebody began to watch: this mount's means a key frame for him
    void followViewers(const GstRTSPMedia *pstPlayed);

    /// Compares with the caches: when what was announced is not true any more, makes the pipeline anew and sends the
    /// clients away, to come again.
    void renew();
    /// What is due now and then: viewers that left without a word or do not keep up, a pipeline that failed.
    void tend();
    /// Takes bit and frame rate over from the caches.
    void updateRates();

private:
    void open();
    void close();
    void replace();
    void mute();
    void removeName();
    void retire(GstRTSPMediaFactory *pstFactory, GstRTSPMedia *pstKeeper);
    void listen(std::size_t index, bool bOn);
    bool isStale() const;
    void dismissTooSlow();

    GstRTSPServer *m_pstServer;
    std::string m_strName;
    std::vector<Track> m_listTracks; ///< as wished
    std::shared_ptr<Pipeline> m_pstPipeline;
    GstRTSPMediaFactory *m_pstFactory = nullptr;
    GstRTSPMedia *m_pstKeeper = nullptr;
    std::optional<Drain> m_drain;                    ///< of the keeper
    std::vector<std::string> m_listSinks;            ///< by track; empty: closed
    std::set<const GstRTSPSessionMedia *> m_givenUp; ///< at the last look
};
} // namespace rtsp
