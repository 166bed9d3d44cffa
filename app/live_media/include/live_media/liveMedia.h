/// The live-media manager: which network output runs for which channel.
///
/// On "TKV-MX" and "QLS-500" the service runs every output itself; on any other model the media pipeline does and the
/// modules here stay idle. Settings reach the store first, then the running record, then the output. Thread: any.
#pragma once

#include "base/types.h"
#include "config/liveMedia.h"

#include <string>

/// Loads the live-media configuration and starts the outputs. @return 0
BU_S32 APP_LM_Init();
BU_S32 APP_LM_DeInit(); ///< @return 0
BU_S32 APP_LM_InitFromBusiness();
BU_S32 APP_LM_DeinitBusiness();

/// @return 1 when the protocol is on for the channel: of an exclusive channel its own one, of any other those whose
/// settings enable them; 0 otherwise and for a channel outside 0..6
BU_S32 APP_LM_GetProtocolEnable(CFG_LM_CHN_E enChn, CFG_LM_PROTO_E enProto);

/// Switches one protocol of one channel and starts or stops its output.
/// @return the output module's result; 0 for a protocol outside 1..4; -1 for a channel outside 0..6
BU_S32 APP_LM_SetProtocolEnable(CFG_LM_CHN_E enChn, CFG_LM_PROTO_E enProto, BU_BOOL bEnable);

/// The protocol kept for the channel, exclusive or not. @return 0, or -1: no such channel, null pointer
BU_S32 APP_LM_GetProtocol(CFG_LM_CHN_E enChn, CFG_LM_PROTO_E *penProto);

/// Moves an exclusive channel to another protocol; on any other channel nothing happens.
/// @return 0, or -1: refused by the store or no such channel; nothing changes then
BU_S32 APP_LM_SetProtocol(CFG_LM_CHN_E enChn, CFG_LM_PROTO_E enProto);

/// Restarts every running output. @return 0
BU_S32 APP_LM_Restart();

/// Rebuilds the servers that all channels share, if a setting changed since they were built. @return 0
BU_S32 APP_LM_RestartAllSingletonProtocolIfNeed();

// RTSP: one server for all channels, rebuilt when a setting changes. A setter without bApply only marks it.
BU_S32 APP_LM_RTSP_Init();   ///< @return 0
BU_S32 APP_LM_RTSP_DeInit(); ///< @return 0
BU_S32 APP_LM_RTSP_CreateService();
BU_S32 APP_LM_RTSP_DestroyService();
BU_S32 APP_LM_RTSP_RestartIfNeed(); ///< @return 0
/// @return 0, or -1: nothing to stream for the channel
BU_S32 APP_LM_RTSP_CreateMediaSession(CFG_LM_CHN_E enChn, const CFG_LM_RTSP_S *pstCfg);
/// Called when an encoder's format changed: adapts the running sessions. Skipped during a rebuild. @return 0
BU_S32 APP_LM_RTSP_ValidateStreamEncoder();
BU_S32 APP_LM_RTSP_GetGeneralCfg(CFG_LM_RTSP_GENERAL_S *pstCfg);                       ///< @return 0 or -1
BU_S32 APP_LM_RTSP_GetChnCfg(CFG_LM_CHN_E enChn, CFG_LM_RTSP_S *pstCfg);               ///< @return 0 or -1
BU_S32 APP_LM_RTSP_SetGeneralCfg(const CFG_LM_RTSP_GENERAL_S *pstCfg, BU_BOOL bApply); ///< @return 0 or the store's
BU_S32 APP_LM_RTSP_SetChnCfg(CFG_LM_CHN_E enChn, const CFG_LM_RTSP_S *pstCfg, BU_BOOL bApply); ///< the same

/// Further credentials that the RTSP server accepts, by the subsystem that owns them. They count from the next rebuild,
/// which a change here makes due. Without bAuthEnable and without any of these, everybody is let in.
enum APP_LM_RTSP_EXTRA_AUTH_FROM_E : BU_S32 {
    APP_LM_RTSP_EXTRA_AUTH_FROM_E_ONVIF = 0,
    APP_LM_RTSP_EXTRA_AUTH_FROM_E_BUTT
};
struct APP_LM_RTSP_EXTRA_AUTH {
    APP_LM_RTSP_EXTRA_AUTH_FROM_E enFrom = APP_LM_RTSP_EXTRA_AUTH_FROM_E_ONVIF;
    std::string sUserName, sPassword;
};
/// Adds a credential, or gives a known user of the same owner the new password. @return 0
BU_S32 APP_LM_RTSP_AddExtraAuth(const APP_LM_RTSP_EXTRA_AUTH &stAuth);
/// Removes every credential of an owner. @return 0
BU_S32 APP_LM_RTSP_RemoveExtraAuth(APP_LM_RTSP_EXTRA_AUTH_FROM_E enFrom);

// The browser preview. @return 0, or the preview service's result
BU_S32 APP_LM_WS_Init();
BU_S32 APP_LM_WS_DeInit();

// Dante is not supported: each call says so and returns 0; the output of GetEnable stays untouched.
BU_S32 APP_LM_DANTE_Init();
BU_S32 APP_LM_DANTE_DeInit();
BU_S32 APP_LM_DANTE_GetEnable(BU_BOOL *pbEnable);
BU_S32 APP_LM_DANTE_SetEnable(BU_BOOL bEnable);
