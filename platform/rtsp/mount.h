/// A session on the server.
#pragma once

#include "pipeline.h"

typedef struct _GstRTSPServer GstRTSPServer;
typedef struct _GstRTSPMediaFactory GstRTSPMediaFactory;
typedef struct _GstRTSPMedia GstRTSPMedia;

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
    /// Takes bit and frame rate over from the caches.
    void updateRates();

private:
    void open();
    void close();
    void listen(std::size_t index, bool bOn);
    bool isStale() const;

    GstRTSPServer *m_pstServer;
    std::string m_strName;
    std::vector<Track> m_listTracks; ///< as wished
    std::shared_ptr<Pipeline> m_pstPipeline;
    GstRTSPMediaFactory *m_pstFactory = nullptr;
    GstRTSPMedia *m_pstKeeper = nullptr;
    std::vector<std::string> m_listSinks; ///< by track; empty: closed
};
} // namespace rtsp
