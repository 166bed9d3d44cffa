/// The network outputs' settings: records and their store.
///
/// The records' own defaults are "everything off". A fresh camera differs in one point: RTSP is on for the four
/// channels that have encoders, with the session names "closeup", "closeup_sub", "panorama" and "panorama_sub"; no
/// channel is exclusive. What a camera was told to keep lies in the settings store under "LiveMedia/<channel>/..." and
/// "LiveMedia/general/...".
#pragma once

#include "base/types.h"

#include <string>

/// A channel is one encoded picture with its sound. The values index per-channel arrays, except FULL_NDI, which names
/// the separate full-bandwidth NDI encoder.
enum CFG_LM_CHN_E : BU_S32 {
    CFG_LM_CHN_E_NONE = 0,
    CFG_LM_CHN_E_CLOSEUP_MAIN,
    CFG_LM_CHN_E_CLOSEUP_SUB,
    CFG_LM_CHN_E_PANORAMA_MAIN,
    CFG_LM_CHN_E_PANORAMA_SUB,
    CFG_LM_CHN_E_CLOSEUP1_MAIN,
    CFG_LM_CHN_E_CLOSEUP1_SUB,
    CFG_LM_CHN_E_BUTT,
    CFG_LM_CHN_E_FULL_NDI
};
enum CFG_LM_PROTO_E : BU_S32 {
    CFG_LM_PROTO_E_NONE = 0,
    CFG_LM_PROTO_E_RTSP,
    CFG_LM_PROTO_E_RTMP,
    CFG_LM_PROTO_E_NDI,
    CFG_LM_PROTO_E_SRT,
    CFG_LM_PROTO_E_BUTT
};

enum CFG_LM_AUDIO_MODE_E : BU_S32 {
    CFG_LM_AUDIO_MODE_E_NONE = 0,
    CFG_LM_AUDIO_MODE_E_PCM,
    CFG_LM_AUDIO_MODE_E_AAC,
    CFG_LM_AUDIO_MODE_E_G711A,
    CFG_LM_AUDIO_MODE_E_G711U,
    CFG_LM_AUDIO_MODE_E_BUTT
};
enum CFG_LM_NDI_CONNECTION_E : BU_S32 {
    CFG_LM_NDI_CONNECTION_E_AUTO = 0,
    CFG_LM_NDI_CONNECTION_E_TCP,
    CFG_LM_NDI_CONNECTION_E_UDP,
    CFG_LM_NDI_CONNECTION_E_RUDP,
    CFG_LM_NDI_CONNECTION_E_BUTT
};

// Settings of one channel, a record per protocol. Text lengths are in bytes; no text holds control characters.
struct CFG_LM_RTSP_S {
    BU_BOOL bEnabled = BU_FALSE;
    /// Path of the channel's URL, unique among the channels; parts of letters, digits, '-', '_' and '.' joined by '/',
    /// none beginning with '.'; at most 64; not empty while enabled.
    std::string sSessionName;
    CFG_LM_AUDIO_MODE_E eAudio = CFG_LM_AUDIO_MODE_E_NONE;
};
struct CFG_LM_RTMP_S {
    BU_BOOL bEnabled = BU_FALSE;
    std::string sServer;     ///< URL, at most 349
    std::string sStreamCode; ///< stream key, appended to the URL; at most 349
    BU_BOOL bAuthEnable = BU_FALSE;
    std::string sUsername, sPassword; ///< at most 64 each
    BU_S32 s32Video = 0;              ///< kept, not used
    CFG_LM_AUDIO_MODE_E eAudio = CFG_LM_AUDIO_MODE_E_NONE;
};
struct CFG_LM_NDI_S {
    BU_BOOL bEnabled = BU_FALSE;
    std::string sStreamName; ///< at most 64
};
struct CFG_LM_SRT_S {
    BU_BOOL bEnabled = BU_FALSE;
    BU_BOOL bIsListener = BU_FALSE; ///< listener rather than caller
    std::string sStreamId;          ///< at most 256
    std::string sHostname;          ///< at most 64
    BU_S32 s32Port = 0;             ///< 0..65535
    BU_S32 s32AesMode = 0;          ///< key length in bytes: 0 (off), 16, 24, 32
    std::string sPassword;          ///< at most 80
    BU_S32 s32Latency = 0;          ///< ms, not negative
    CFG_LM_AUDIO_MODE_E eAudio = CFG_LM_AUDIO_MODE_E_NONE;
};
struct CFG_LM_GB28181_S {
};
struct CFG_LM_UDP_S {
};
struct CFG_LM_CHANNEL_S {
    BU_BOOL bProtoExclusive = BU_FALSE; ///< carries exactly one protocol at a time, the one in enProto
    CFG_LM_PROTO_E enProto = CFG_LM_PROTO_E_NONE;
    CFG_LM_RTSP_S rtsp;
    CFG_LM_RTMP_S rtmp;
    CFG_LM_NDI_S ndi;
    CFG_LM_SRT_S srt;
    CFG_LM_GB28181_S gb28181;
    CFG_LM_UDP_S udp;
};

// Settings shared by all channels.
struct CFG_LM_RTSP_GENERAL_S {
    BU_S32 s32Port = 554; ///< 1..65535
    BU_BOOL bHttpEnable = BU_TRUE;
    BU_S32 s32HttpPort = 8554; ///< 1..65535, not the RTSP port; 0: no RTSP over HTTP
    BU_BOOL bAuthEnable = BU_FALSE;
    std::string sUsername, sPassword; ///< at most 64 each; no ':' in the name; neither empty with bAuthEnable
};
struct CFG_LM_NDI_GENERAL_S {
    std::string sMachineName, sGroupName = "Public";
    BU_BOOL bMulticastEnabled = BU_FALSE;
    std::string sMulticastIp = "239.255.0.0", sMulticastNetmask = "255.255.0.0";
    BU_S32 s32MulticastTTL = 1;                              ///< 0..255
    BU_S32 s32TransmitMethod = CFG_LM_NDI_CONNECTION_E_AUTO; ///< a CFG_LM_NDI_CONNECTION_E
    BU_BOOL bDiscoveryServerEnable = BU_FALSE;
    std::string sDiscoveryServer; ///< at most 256
    std::string sStreamNameHB;    ///< stream name of the full-bandwidth encoder
    BU_BOOL bNdiHBEnable = BU_FALSE;
    BU_S32 s32HBIpMode = 0; ///< 1: DHCP
    std::string sHBIpaddr, sHBNetmask, sHBGateway, sHBDns;
    std::string sHBIpaddrFallback, sHBNetmaskFallback, sHBGatewayFallback;
    BU_BOOL bAudioEnable = BU_TRUE;
};
struct CFG_LM_DANTE_GENERAL_S {
    BU_BOOL bDanteEnable = BU_FALSE, bTryMode = BU_FALSE;
    std::string sManufacturerId, sManufacturerName, sModelId, sModelName, sDevicePrefix;
};
struct CFG_LM_GB28181_GENERAL_S {
};
struct CFG_LM_GENERAL_S {
    CFG_LM_RTSP_GENERAL_S rtsp;
    CFG_LM_NDI_GENERAL_S ndi;
    CFG_LM_DANTE_GENERAL_S dante;
    CFG_LM_GB28181_GENERAL_S gb28181;
};

/// Fills the record with what is stored, a fresh camera's values for the rest. A stored value that no longer obeys its
/// rule is passed over with a log line. @return 0, or -1: null pointer. Thread: any.
BU_S32 CFG_LM_LoadGeneralCfgAll(CFG_LM_GENERAL_S *pstCfg);

/// The same for one channel. @return 0, or -1: not one of the channels 1..6, or a null pointer; the record is untouched
BU_S32 CFG_LM_LoadAllOfChn(CFG_LM_CHN_E enChn, CFG_LM_CHANNEL_S *pstCfg);

// Setters check the whole record first and store all of it or nothing.
// @return 0 stored; -1: refused (a channel outside 1..6, a value against its rule, the store cannot be written), with
// the reason in the log. Thread: any.

/// The protocol of an exclusive channel. @param bSaveCfg  BU_FALSE only checks: the running value is the caller's
BU_S32 CFG_LM_SetStreamProtocol(CFG_LM_CHN_E enChn, CFG_LM_PROTO_E enProto, BU_BOOL bSaveCfg);
BU_S32 CFG_LM_SetRtspCfgOfChn(CFG_LM_CHN_E enChn, const CFG_LM_RTSP_S *pstCfg);
BU_S32 CFG_LM_SetRtmpCfgOfChn(CFG_LM_CHN_E enChn, const CFG_LM_RTMP_S *pstCfg);
BU_S32 CFG_LM_SetNdiCfgOfChn(CFG_LM_CHN_E enChn, const CFG_LM_NDI_S *pstCfg);
BU_S32 CFG_LM_SetSrtCfgOfChn(CFG_LM_CHN_E enChn, const CFG_LM_SRT_S *pstCfg);
BU_S32 CFG_LM_SaveRtspGeneralCfg(const CFG_LM_RTSP_GENERAL_S *pstCfg);
BU_S32 CFG_LM_SaveNdiGeneralCfg(const CFG_LM_NDI_GENERAL_S *pstCfg);
