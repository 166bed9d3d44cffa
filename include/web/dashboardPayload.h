/// Payloads of the dashboard (load, streams, system details) and of the page with the small general settings.
#pragma once

#include "web/payload.h"

enum E_TKVMX_CUSTOMER_KEY : BU_S32 {
    E_TKVMX_UNKNOW = 0,
    E_TKVMX_NDI_RESTART,
    E_TKVMX_PRESET_MODE,
    E_TKVMX_FAN_SWITCH,
    E_TKVMX_FAN_SPEED,
    E_TKVMX_DEVICE_TEMP, ///< [1/10000 degree Celsius]
    E_TKVMX_SENSOR_CROP
};

struct tag_WEB_RPC_TKVMX_CUSTOMER_GRNERAL_PAYLOAD_S
    : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_TKVMX_CUSTOMER_GRNERAL_PAYLOAD_S> {
    E_TKVMX_CUSTOMER_KEY key{};
    int s32value0 = 0;
    int s32value1 = 0;
    int s32value2 = 0;
    int s32value3 = 0;
    int s32value4 = 0;
};
WEB_FIELDS(tag_WEB_RPC_TKVMX_CUSTOMER_GRNERAL_PAYLOAD_S, WEB_FIELD(key, 8), WEB_FIELD(s32value0, 12),
           WEB_FIELD(s32value1, 16), WEB_FIELD(s32value2, 20), WEB_FIELD(s32value3, 24), WEB_FIELD(s32value4, 28));
WEB_IMAGE_FORM(tag_WEB_RPC_TKVMX_CUSTOMER_GRNERAL_PAYLOAD_S, 32);

struct tag_WEB_RPC_TKVMX_CUSTOMER_REALTIMEDATA_PAYLOAD_S
    : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_TKVMX_CUSTOMER_REALTIMEDATA_PAYLOAD_S> {
    BU_U32 CpuUtilization = 0;   ///< [%]
    BU_U32 NetworkBandwidth = 0; ///< [%], at least 1
    BU_U32 DeviceMode = 0;       ///< streams go to the network, as SourceStatus
    BU_U32 SourceStatus = 0;
};
WEB_FIELDS(tag_WEB_RPC_TKVMX_CUSTOMER_REALTIMEDATA_PAYLOAD_S, WEB_FIELD(CpuUtilization, 8),
           WEB_FIELD(NetworkBandwidth, 12), WEB_FIELD(DeviceMode, 16), WEB_FIELD(SourceStatus, 20));
WEB_IMAGE_FORM(tag_WEB_RPC_TKVMX_CUSTOMER_REALTIMEDATA_PAYLOAD_S, 24);

struct tag_WEB_RPC_TKVMX_CUSTOMER_DASHBOARD_STATUS_PAYLOAD_S
    : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_TKVMX_CUSTOMER_DASHBOARD_STATUS_PAYLOAD_S> {
    BU_CHAR VideoStreamName_HB[64]{};
    BU_CHAR VideoStreamName_Main[64]{};
    BU_CHAR VideoStreamName_Wide[64]{};
    BU_CHAR VideoFormat[64]{}; ///< the protocols that are on, "NDI-HX | RTSP", or "NONE"
    BU_U32 VideoFrameRate = 0; ///< not used
    BU_U32 AudioStatus = 0;    ///< 1 is mute
    BU_U32 SourceStatus = 0;   ///< not used
    BU_U32 HdmiResolution = 0; ///< rate index plus 0 for 4K, 8 for 1080P, 16 for 1080I, 19 for 720P
};
WEB_FIELDS(tag_WEB_RPC_TKVMX_CUSTOMER_DASHBOARD_STATUS_PAYLOAD_S, WEB_FIELD(VideoStreamName_HB, 8),
           WEB_FIELD(VideoStreamName_Main, 72), WEB_FIELD(VideoStreamName_Wide, 136), WEB_FIELD(VideoFormat, 200),
           WEB_FIELD(VideoFrameRate, 264), WEB_FIELD(AudioStatus, 268), WEB_FIELD(SourceStatus, 272),
           WEB_FIELD(HdmiResolution, 276));
WEB_IMAGE_FORM(tag_WEB_RPC_TKVMX_CUSTOMER_DASHBOARD_STATUS_PAYLOAD_S, 280);

/// Main is the close-up, Wide the panorama.
struct tag_WEB_RPC_TKVMX_CUSTOMER_DASHBOARD_STREAMINFO_PAYLOAD_S
    : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_TKVMX_CUSTOMER_DASHBOARD_STREAMINFO_PAYLOAD_S> {
    BU_U32 MainVideoResolution = 0; ///< 0 4K, 1 1080P, 2 another
    BU_U32 MainVideoFrameRate = 0;
    BU_CHAR MainVideoSampleRate[32]{}; ///< the chroma subsampling
    BU_U32 MainAverageBitrate = 0;     ///< [Mbit/s]
    BU_CHAR MainStreamProtocol[32]{};
    BU_U32 WideVideoResolution = 0;
    BU_U32 WideVideoFrameRate = 0;
    BU_CHAR WideVideoSampleRate[32]{};
    BU_U32 WideAverageBitrate = 0;
    BU_CHAR WideStreamProtocol[32]{};
    BU_U32 AudioChannels = 0;
    BU_U32 AudioSampleRate = 0; ///< [Hz]
    BU_U32 GenlockStatus = 0;   ///< 1 is locked to a reference
    BU_U32 NetworkMode = 0;     ///< how NDI is sent
};
WEB_FIELDS(tag_WEB_RPC_TKVMX_CUSTOMER_DASHBOARD_STREAMINFO_PAYLOAD_S, WEB_FIELD(MainVideoResolution, 8),
           WEB_FIELD(MainVideoFrameRate, 12), WEB_FIELD(MainVideoSampleRate, 16), WEB_FIELD(MainAverageBitrate, 48),
           WEB_FIELD(MainStreamProtocol, 52), WEB_FIELD(WideVideoResolution, 84), WEB_FIELD(WideVideoFrameRate, 88),
           WEB_FIELD(WideVideoSampleRate, 92), WEB_FIELD(WideAverageBitrate, 124), WEB_FIELD(WideStreamProtocol, 128),
           WEB_FIELD(AudioChannels, 160), WEB_FIELD(AudioSampleRate, 164), WEB_FIELD(GenlockStatus, 168),
           WEB_FIELD(NetworkMode, 172));
WEB_IMAGE_FORM(tag_WEB_RPC_TKVMX_CUSTOMER_DASHBOARD_STREAMINFO_PAYLOAD_S, 176);

struct tag_WEB_RPC_TKVMX_CUSTOMER_DASHBOARD_SYSTEMDETAILS_PAYLOAD_S
    : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_TKVMX_CUSTOMER_DASHBOARD_SYSTEMDETAILS_PAYLOAD_S> {
    BU_CHAR SystemName[64]{};
    BU_CHAR IpAddress[32]{};
    BU_CHAR FirmwareVersion[64]{};
    BU_CHAR McuVersion[64]{};
    BU_CHAR MacAddress[32]{};
    BU_U32 NetworkConfigMethod = 0; ///< 0 DHCP, 1 static
    BU_U32 Status = 0;              ///< 1: no protocol is on
    BU_U32 NetworkSpeed = 0;
    BU_CHAR Model[64]{};
    BU_CHAR EInkScreen[32]{}; ///< "off", "on", "invert"
};
WEB_FIELDS(tag_WEB_RPC_TKVMX_CUSTOMER_DASHBOARD_SYSTEMDETAILS_PAYLOAD_S, WEB_FIELD(SystemName, 8),
           WEB_FIELD(IpAddress, 72), WEB_FIELD(FirmwareVersion, 104), WEB_FIELD(McuVersion, 168),
           WEB_FIELD(MacAddress, 232), WEB_FIELD(NetworkConfigMethod, 264), WEB_FIELD(Status, 268),
           WEB_FIELD(NetworkSpeed, 272), WEB_FIELD(Model, 276), WEB_FIELD(EInkScreen, 340));
WEB_IMAGE_FORM(tag_WEB_RPC_TKVMX_CUSTOMER_DASHBOARD_SYSTEMDETAILS_PAYLOAD_S, 376);

struct tag_WEB_RPC_TKVMX_CUSTOMER_DEVICE_INFO_PAYLOAD_S
    : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_TKVMX_CUSTOMER_DEVICE_INFO_PAYLOAD_S> {
    char deviceType[32]{};
};
WEB_FIELDS(tag_WEB_RPC_TKVMX_CUSTOMER_DEVICE_INFO_PAYLOAD_S, WEB_FIELD(deviceType, 8));
WEB_IMAGE_FORM(tag_WEB_RPC_TKVMX_CUSTOMER_DEVICE_INFO_PAYLOAD_S, 40);
