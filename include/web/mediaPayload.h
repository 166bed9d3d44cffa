/// Payloads of the streaming pages: each protocol's settings of a channel, its settings for the whole camera, and the
/// screen saver. The media payloads travel in the compact form: type at byte 0, index at 8, data from byte 16.
#pragma once

#include "live/srtMode.h"
#include "web/payload.h"

enum tag_WEB_MEDIA_TYPE_E : BU_S32 {
    WEB_MEDIA_TYPE_E_ABILITY = 0,
    WEB_MEDIA_TYPE_E_RTSP,
    WEB_MEDIA_TYPE_E_RTSP_GLOBAL,
    WEB_MEDIA_TYPE_E_RTMP,
    WEB_MEDIA_TYPE_E_NDI,
    WEB_MEDIA_TYPE_E_NDI_GLOBAL,
    WEB_MEDIA_TYPE_E_SRT,
    WEB_MEDIA_TYPE_E_FULLNDI,
    WEB_MEDIA_TYPE_E_DANTE_AV_H,
    WEB_MEDIA_TYPE_E_ONVIF,
    WEB_MEDIA_TYPE_E_ERROR
};
using srt_api::SRT_AES_MODE_E;
using srt_api::SRT_WORK_MODE_E;

struct tag_MPP_MEDIA_ABILITY_DATA_S {
    BU_U8 SupportRtsp, SupportRtmp, SupportSrt, SupportNdi, SupportFullNdi;
};
WEB_FIELDS(tag_MPP_MEDIA_ABILITY_DATA_S, WEB_FIELD(SupportRtsp, 0), WEB_FIELD(SupportRtmp, 1), WEB_FIELD(SupportSrt, 2),
           WEB_FIELD(SupportNdi, 3), WEB_FIELD(SupportFullNdi, 4));
WEB_NESTED_FORM(tag_MPP_MEDIA_ABILITY_DATA_S, 5);

struct tag_MPP_MEDIA_RTSP_DATA_S {
    BU_U8 bEnable, bEnableFixed;
    BU_S32 s32Audio;
    BU_CHAR sStreamName[65];
};
WEB_FIELDS(tag_MPP_MEDIA_RTSP_DATA_S, WEB_FIELD(bEnable, 0), WEB_FIELD(bEnableFixed, 1), WEB_FIELD(s32Audio, 4),
           WEB_FIELD(sStreamName, 8));
WEB_NESTED_FORM(tag_MPP_MEDIA_RTSP_DATA_S, 76);

struct tag_MPP_MEDIA_RTMP_DATA_S {
    BU_U8 bEnable, bFixedEnable, bAuthEnable;
    BU_S32 s32Video, s32Audio;
    BU_CHAR sUrl[350], sKey[350];
    BU_CHAR sUsername[65], sPassword[65];
    BU_S32 s32Status;
};
WEB_FIELDS(tag_MPP_MEDIA_RTMP_DATA_S, WEB_FIELD(bEnable, 0), WEB_FIELD(bFixedEnable, 1), WEB_FIELD(bAuthEnable, 2),
           WEB_FIELD(s32Video, 4), WEB_FIELD(s32Audio, 8), WEB_FIELD(sUrl, 12), WEB_FIELD(sKey, 362),
           WEB_FIELD(sUsername, 712), WEB_FIELD(sPassword, 777), WEB_FIELD(s32Status, 844));
WEB_NESTED_FORM(tag_MPP_MEDIA_RTMP_DATA_S, 848);

struct tag_MPP_MEDIA_SRT_DATA_S {
    BU_U8 bEnable, bEnableFixed;
    SRT_WORK_MODE_E enWorkMode;
    BU_CHAR sStreamId[256];
    BU_CHAR sHostname[65];
    BU_S32 s32Port;
    BU_CHAR sPassword[81];
    BU_S32 s32Audio;
    BU_U8 bAesEnable;
    SRT_AES_MODE_E enAesMode;
    BU_S32 s32Latency; ///< [ms]
    BU_S32 s32Status;
};
WEB_FIELDS(tag_MPP_MEDIA_SRT_DATA_S, WEB_FIELD(bEnable, 0), WEB_FIELD(bEnableFixed, 1), WEB_FIELD(enWorkMode, 4),
           WEB_FIELD(sStreamId, 8), WEB_FIELD(sHostname, 264), WEB_FIELD(s32Port, 332), WEB_FIELD(sPassword, 336),
           WEB_FIELD(s32Audio, 420), WEB_FIELD(bAesEnable, 424), WEB_FIELD(enAesMode, 428), WEB_FIELD(s32Latency, 432),
           WEB_FIELD(s32Status, 436));
WEB_NESTED_FORM(tag_MPP_MEDIA_SRT_DATA_S, 440);

struct tag_MPP_MEDIA_NDI_DATA_S {
    BU_U8 bEnable, bEnableFixed;
    BU_CHAR sStreamName[65];
    BU_CHAR sStreamNameSuffix[65];
};
WEB_FIELDS(tag_MPP_MEDIA_NDI_DATA_S, WEB_FIELD(bEnable, 0), WEB_FIELD(bEnableFixed, 1), WEB_FIELD(sStreamName, 2),
           WEB_FIELD(sStreamNameSuffix, 67));
WEB_NESTED_FORM(tag_MPP_MEDIA_NDI_DATA_S, 132);

/// Three protocols that these pages do not serve; what they would hold is kept as bytes.
struct tag_MPP_MEDIA_FULLNDI_DATA_S {
    BU_U8 acRaw[860];
};
struct tag_MPP_MEDIA_DANTE_AV_H_DATA_S {
    BU_U8 acRaw[4];
};
struct tag_MPP_MEDIA_ONVIF_DATA_S {
    BU_U8 acRaw[4];
};

union tag_WEB_MPP_MEDIA_DATA_U {
    BU_U8 acRaw[860]; ///< all of it
    tag_MPP_MEDIA_ABILITY_DATA_S stAbility;
    tag_MPP_MEDIA_RTSP_DATA_S stRtsp;
    tag_MPP_MEDIA_RTMP_DATA_S stRtmp;
    tag_MPP_MEDIA_SRT_DATA_S stSrt;
    tag_MPP_MEDIA_NDI_DATA_S stNdi;
    tag_MPP_MEDIA_FULLNDI_DATA_S stFullNdi;
    tag_MPP_MEDIA_DANTE_AV_H_DATA_S stDanteAvH;
    tag_MPP_MEDIA_ONVIF_DATA_S stOnvif;
};
WEB_MEMBERS(tag_WEB_MPP_MEDIA_DATA_U, eMediaType, WEB_MEMBER(WEB_MEDIA_TYPE_E_ABILITY, stAbility),
            WEB_MEMBER(WEB_MEDIA_TYPE_E_RTSP, stRtsp), WEB_MEMBER(WEB_MEDIA_TYPE_E_RTMP, stRtmp),
            WEB_MEMBER(WEB_MEDIA_TYPE_E_SRT, stSrt), WEB_MEMBER(WEB_MEDIA_TYPE_E_NDI, stNdi));
static_assert(sizeof(tag_WEB_MPP_MEDIA_DATA_U) == 860);

struct tag_MPP_MEDIA_RTSP_GLOBAL_DATA_S {
    BU_U8 bEnable, bEnableFixed;
    BU_S32 s32Port;
    BU_U8 bRtspOverHttpEnable;
    BU_S32 s32RtspOverHttpPort;
    BU_U8 bAuthEnable;
    BU_CHAR sUsername[65], sPassword[65];
};
WEB_FIELDS(tag_MPP_MEDIA_RTSP_GLOBAL_DATA_S, WEB_FIELD(bEnable, 0), WEB_FIELD(bEnableFixed, 1), WEB_FIELD(s32Port, 4),
           WEB_FIELD(bRtspOverHttpEnable, 8), WEB_FIELD(s32RtspOverHttpPort, 12), WEB_FIELD(bAuthEnable, 16),
           WEB_FIELD(sUsername, 17), WEB_FIELD(sPassword, 82));
WEB_NESTED_FORM(tag_MPP_MEDIA_RTSP_GLOBAL_DATA_S, 148);

struct tag_MPP_MEDIA_NDI_GLOBAL_DATA_S {
    BU_U8 bNdiAudio;
    BU_CHAR sGroupName[65];
    BU_S32 sTpm;
    BU_U8 bDiscoveryEnable;
    BU_CHAR sDiscoveryServer[65];
    BU_U8 bMulticastEnable;
    BU_CHAR sMulticastIp[65], sMulticastNetmask[65];
    BU_S32 sMulticastTTL;
};
WEB_FIELDS(tag_MPP_MEDIA_NDI_GLOBAL_DATA_S, WEB_FIELD(bNdiAudio, 0), WEB_FIELD(sGroupName, 1), WEB_FIELD(sTpm, 68),
           WEB_FIELD(bDiscoveryEnable, 72), WEB_FIELD(sDiscoveryServer, 73), WEB_FIELD(bMulticastEnable, 138),
           WEB_FIELD(sMulticastIp, 139), WEB_FIELD(sMulticastNetmask, 204), WEB_FIELD(sMulticastTTL, 272));
WEB_NESTED_FORM(tag_MPP_MEDIA_NDI_GLOBAL_DATA_S, 276);

union tag_WEB_MPP_MEDIA_DATA_GLOBAL_U {
    BU_U8 acRaw[276]; ///< all of it
    tag_MPP_MEDIA_RTSP_GLOBAL_DATA_S stRtsp;
    tag_MPP_MEDIA_NDI_GLOBAL_DATA_S stNdi;
};
/// A get calls them by their global types, a set by their channel types.
WEB_MEMBERS(tag_WEB_MPP_MEDIA_DATA_GLOBAL_U, eMediaType, WEB_MEMBER(WEB_MEDIA_TYPE_E_RTSP_GLOBAL, stRtsp),
            WEB_MEMBER(WEB_MEDIA_TYPE_E_NDI_GLOBAL, stNdi), WEB_MEMBER(WEB_MEDIA_TYPE_E_RTSP, stRtsp),
            WEB_MEMBER(WEB_MEDIA_TYPE_E_NDI, stNdi));
static_assert(sizeof(tag_WEB_MPP_MEDIA_DATA_GLOBAL_U) == 276);

struct tag_WEB_RPC_MEDIA_REQ_PAYLOAD_S : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_MEDIA_REQ_PAYLOAD_S> {
    tag_WEB_MEDIA_TYPE_E eMediaType{}; ///< of a response: what was asked for, or WEB_MEDIA_TYPE_E_ERROR
    BU_S32 s32Index = 0;               ///< the channel, 1-4; of a response: the same, -1 on an error
};
WEB_FIELDS(tag_WEB_RPC_MEDIA_REQ_PAYLOAD_S, WEB_FIELD(eMediaType, 0), WEB_FIELD(s32Index, 8));
WEB_COMPACT_FORM(tag_WEB_RPC_MEDIA_REQ_PAYLOAD_S, 16, 16);

struct tag_WEB_RPC_MEDIA_DATA_PAYLOAD_S : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_MEDIA_DATA_PAYLOAD_S> {
    tag_WEB_MEDIA_TYPE_E eMediaType{};
    BU_S32 s32Index = 0;
    tag_WEB_MPP_MEDIA_DATA_U data{};
};
WEB_FIELDS(tag_WEB_RPC_MEDIA_DATA_PAYLOAD_S, WEB_FIELD(eMediaType, 0), WEB_FIELD(s32Index, 8), WEB_FIELD(data, 16));
WEB_COMPACT_FORM(tag_WEB_RPC_MEDIA_DATA_PAYLOAD_S, 876, 880);

/// Its image has the size of the channel's image, far more than its data.
struct tag_WEB_RPC_MEDIA_DATA_GLOBAL_PAYLOAD_S : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_MEDIA_DATA_GLOBAL_PAYLOAD_S> {
    tag_WEB_MEDIA_TYPE_E eMediaType{};
    BU_S32 s32Index = 0;
    tag_WEB_MPP_MEDIA_DATA_GLOBAL_U data{};
};
WEB_FIELDS(tag_WEB_RPC_MEDIA_DATA_GLOBAL_PAYLOAD_S, WEB_FIELD(eMediaType, 0), WEB_FIELD(s32Index, 8),
           WEB_FIELD(data, 16));
WEB_COMPACT_FORM(tag_WEB_RPC_MEDIA_DATA_GLOBAL_PAYLOAD_S, 876, 296);

/// Only bOk and enable are used.
struct tag_WEB_RPC_GENERAL_STREAM_SCREENSAVER_PAYLOAD_S
    : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_GENERAL_STREAM_SCREENSAVER_PAYLOAD_S> {
    BU_BOOL bOk = BU_FALSE; ///< of a response: done
    BU_S32 enable = 0;
    BU_S32 screensaverMode = 0;
    BU_U32 customColor = 0;
    BU_CHAR imgName[128]{};
};
WEB_FIELDS(tag_WEB_RPC_GENERAL_STREAM_SCREENSAVER_PAYLOAD_S, WEB_SWITCH(bOk, 8), WEB_FIELD(enable, 12),
           WEB_FIELD(screensaverMode, 16), WEB_FIELD(customColor, 20), WEB_FIELD(imgName, 24));
WEB_IMAGE_FORM(tag_WEB_RPC_GENERAL_STREAM_SCREENSAVER_PAYLOAD_S, 152);
