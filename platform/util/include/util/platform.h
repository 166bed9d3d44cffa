/// The process: how it is reached, and what it tells when start-up is over.
#pragma once

#include "base/types.h"

#include <string>

/// Tells the platform of one way to reach the camera ("udp://127.0.0.1:52381 VISCA over IP"); printed after
/// "camera ready", later ones at once. Thread: any; a module calls it when its port is open.
void PLATFORM_AddEndpoint(const std::string &strEndpoint);

/// Start-up is over: prints "camera ready" and the endpoints, one a line, on standard output, and notifies systemd when
/// it runs under it (NOTIFY_SOCKET).
void PLATFORM_Ready();

/// Address to listen on: CAMERA_BIND, default 127.0.0.1, also when that is no IPv4 address. Thread: any.
std::string PLATFORM_BindAddress();
/// A port plus CAMERA_PORT_OFFSET; 0 stays 0. An offset that leads beyond 1...65535 is logged and left out. Thread:
/// any.
BU_S32 PLATFORM_Port(BU_S32 s32Port);
