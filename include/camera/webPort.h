/// The web server's ports.
#pragma once

#include "base/types.h"

/// Starts the web server at these ports, before the port offset; one that is stored (see CFG_SYSTEM_GetHttpPort) stands
/// above the one given. @return 0, or -1: outside 1-65535
BU_S32 SYSTEM_API_SetHttpPort(BU_S32 s32Http, BU_S32 s32Https);
/// Stops the web server. @return 0
BU_S32 SYSTEM_API_StopHttpDaemon();

/// Ports of the web server, before the port offset; either pointer may be null. Store keys "Http/Port" and
/// "Http/SecurePort"; what is not stored is what SYSTEM_API_SetHttpPort asked for, until then 80 and 443.
BU_S32 CFG_SYSTEM_GetHttpPort(BU_S32 *ps32Http, BU_S32 *ps32Https);
