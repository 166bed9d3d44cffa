/// GStreamer in this process: only the plug-ins that the server needs, and no search for others.
#pragma once

namespace rtsp
{
/// Readies GStreamer, once; some 15 ms. @return false: a plug-in is missing, the reason is logged. Thread: any.
bool loadGStreamer();
} // namespace rtsp
