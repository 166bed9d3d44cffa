/// The kinds of GStreamer objects behind a session.
#pragma once

#include "pipeline.h"

typedef struct _GstRTSPMediaFactory GstRTSPMediaFactory;
typedef struct _GstRTSPMedia GstRTSPMedia;
typedef struct _GstRTSPMessage GstRTSPMessage;

namespace rtsp
{
/// Name of the role that may watch; a server without credentials gives it to everybody.
inline constexpr const BU_CHAR *VIEWER = "viewer";

/// A factory whose one media is the pipeline, shared by all clients, whatever port and query their URL has.
/// @return the caller's reference
GstRTSPMediaFactory *newFactory(std::shared_ptr<Pipeline> pstPipeline, const std::string &strSession);

/// Puts the present position of the streams into the answer to PLAY. By itself the library tells where they stood when
/// the last packet passed, which may be long ago.
void tellPosition(GstRTSPMedia *pstMedia, GstRTSPMessage *pstAnswer);
} // namespace rtsp
