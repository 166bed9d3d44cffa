/// The web service: registers what the camera answers to its web pages and has the web server started.
///
/// A handler gets a request and a response whose fields are all zero, and writes what it has to say; it runs on threads
/// of the web calls, several at once.
#pragma once

#include "base/types.h"

/// Registers every event, then listens, then sets the ports of the web server. Once, at the start. @return 0, whatever
/// came of it
BU_S32 BSP_StartHttpService();
/// Stops the web server, the web calls and the virtual remote. @return 0
BU_S32 BSP_StopHttpService();
