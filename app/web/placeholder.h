/// Pages that are not built yet: their events are answered with zeros. A page that is built takes its names away from
/// here; with the last one the file goes.
#pragma once

#include "util/log.h"

struct WEB_PLACEHOLDER_HANDLER_S {
    template <class Req, class Res> using Handler = void (*)(Req *, Res *);
    template <class Req, class Res> static void answerZero(Req *, Res *)
    {
        LOG_INFO("a web page asked for what is not part of this build\n");
    }
    template <class Req, class Res> constexpr operator Handler<Req, Res>() const { return answerZero<Req, Res>; }
};

// System and network
inline constexpr WEB_PLACEHOLDER_HANDLER_S webRpcFactoryResetHandler, webRpcGetEthCfg, webRpcSetEthCfg, webRpcGetNtpCfg,
    webRpcSetNtpCfg, webSysGetTally, webSysSetTally, webSysGetSdi3G, webSysSetSdi3G, WEB_API_SysGetSystemInfo,
    WEB_API_SysSetSystemInfo;
// Control protocols
inline constexpr WEB_PLACEHOLDER_HANDLER_S webRpcGetVISCAControlProtocolHandler, webRpcSetVISCAControlProtocolHandler,
    webRpcGetGeneralProtocolHandler, webRpcSetGeneralProtocolHandler;
// Tracking
inline constexpr WEB_PLACEHOLDER_HANDLER_S WEB_CMD_GetTrackArea, WEB_CMD_SetTrackArea, WEB_CMD_GetTrackBasic,
    WEB_CMD_SetTrackBasic, WEB_CMD_SetTrackDesignatedTrigger, WEB_CMD_GetEverythingTracking,
    WEB_CMD_SetEverythingTracking;
// Encoders, audio, picture in picture
inline constexpr WEB_PLACEHOLDER_HANDLER_S webRpcGetMppVideo, webRpcSetMppVideo, webRpcGetMppAudio, webRpcSetMppAudio,
    webRpcGetMppPip, webRpcSetMppPip;
// Streaming protocols
inline constexpr WEB_PLACEHOLDER_HANDLER_S webRpcGetMediaProtocol, webRpcSetMediaProtocol, webRpcGetMediaProtocolGlobal,
    webRpcSetMediaProtocolGlobal, webRpcGetScreenSaver, webRpcSetScreenSaver;
// Recording
inline constexpr WEB_PLACEHOLDER_HANDLER_S webRpcGetRecordCfg, webRpcSetRecordCfg, webRpcGetRecordStatus,
    webRpcSetRecordStatus, webRpcGetRecordFileList, webRpcSetRecordFileOperation, webRpcGetRecordSnapshotCfg,
    webRpcSetRecordSnapshotCfg, webRpcGetSDCardStatus, webRpcSetSDCardStatus;
// General settings
inline constexpr WEB_PLACEHOLDER_HANDLER_S WEB_CMD_GetGeneralCfg, WEB_CMD_SetGeneralCfg;
// Dashboard
inline constexpr WEB_PLACEHOLDER_HANDLER_S WEB_CMD_GetRealtimeDataCfg, WEB_CMD_GetBoardStatusCfg,
    WEB_CMD_GetStreamInfoCfg, WEB_CMD_GetSystemDetailsCfg, WEB_CMD_GetDeviceInfoCfg;
// Addresses, NDI, Dante
inline constexpr WEB_PLACEHOLDER_HANDLER_S WEB_CMD_GetEthCfg, WEB_CMD_SetEthCfg, WEB_CMD_GetNdiCfg, WEB_CMD_SetNdiCfg,
    WEB_CMD_GetDanteCfg, WEB_CMD_SetDanteCfg;
// Audio and video set-up
inline constexpr WEB_PLACEHOLDER_HANDLER_S WEB_CMD_GetDevSettingCfg, WEB_CMD_SetDevSettingCfg,
    WEB_CMD_GetEncoderSettingCfg, WEB_CMD_SetEncoderSettingCfg, WEB_CMD_GetAVideoPrimaryCfg,
    WEB_CMD_SetAVideoPrimaryCfg, WEB_CMD_GetAVideoStreamMatrix, WEB_CMD_SetAVideoStreamMatrix;
