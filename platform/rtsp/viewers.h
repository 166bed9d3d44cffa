/// Those who watch: GStreamer's clients, their sessions and the ways that packets take to them. Thread: any.
#pragma once

#include "connection.h"

#include <functional>
#include <set>
#include <string>
#include <vector>

typedef struct _GstRTSPClient GstRTSPClient;
typedef struct _GstRTSPServer GstRTSPServer;
typedef struct _GstRTSPMedia GstRTSPMedia;
typedef struct _GstRTSPSessionMedia GstRTSPSessionMedia;

namespace rtsp
{
/// Whether packets of a stream have somewhere to go.
bool hasViewers(GstRTSPMedia *pstMedia, unsigned stream);

/// What the server keeps about a client, with the client. Its sessions belong to the client's thread.
struct Visit {
    BU_S64 s64SinceMs;
    std::shared_ptr<Connection> pstConnection;
    std::vector<std::string> listSessions;
};
void keepVisit(GstRTSPClient *pstClient, Visit stVisit);
Visit &visitOf(GstRTSPClient *pstClient);

unsigned countSessions(GstRTSPClient *pstClient);

/// Sends such clients away, or those who watch such a thing.
void dismissClients(GstRTSPServer *pstServer, const std::function<bool(GstRTSPClient *)> &fnSuch);
void dismissViewers(GstRTSPServer *pstServer, const std::function<bool(GstRTSPSessionMedia *)> &fnSuch);

/// Sessions of the media that play, but get nothing any more: the library stops sending to a client that has ten
/// seconds to catch up, and leaves it at that. Told by address, to be compared only.
std::set<const GstRTSPSessionMedia *> findGivenUp(GstRTSPServer *pstServer, GstRTSPMedia *pstMedia);
} // namespace rtsp
