/// Network endpoint of the VISCA protocol, as stored.
#pragma once

#include "base/types.h"

struct tagCFG_VISCA_NET_S {
    BU_U8 bEnable;       ///< 0: this endpoint listens nowhere
    BU_U8 bProtocolType; ///< plain endpoint only: 0 UDP, 1 TCP, 2 both
    BU_S32 PortNum;      ///< port before the port offset, 1...65535; 0, not stored: any free one. Plain endpoint with
                         ///< both protocols: 1259 and 5678 stand for the usual pair, UDP 1259 and TCP 5678; any other
                         ///< number is the port of both
    BU_U8 bWorkMode;     ///< 0 listens, the only mode of this platform
    BU_CHAR IpAddr[64];  ///< address to listen on, empty: the platform's
};
typedef tagCFG_VISCA_NET_S CFG_VISCA_NET_S;

/// The plain VISCA endpoint: UDP on PortNum, default 1259, and TCP, which always has 5678. Store keys below
/// "ViscaNet/": Enable, ProtocolType, PortNum, WorkMode (numbers), IpAddr (text).
BU_S32 CFG_SYSTEM_GetViscaNet(tagCFG_VISCA_NET_S *pstCfg);
/// The VISCA over IP endpoint, UDP 52381 by default. Store keys below "ViscaOverIp/", the same names.
BU_S32 CFG_SYSTEM_GetViscaOverIp(tagCFG_VISCA_NET_S *pstCfg);
