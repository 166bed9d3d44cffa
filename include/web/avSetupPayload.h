/// Payloads of the audio and video set-up pages: device settings, streaming protocols, the main encoders.
#pragma once

#include "web/payload.h"

struct tag_WEB_RPC_TKVMX_CUSTOMER_DEVICE_SETTING_PAYLOAD_S
    : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_TKVMX_CUSTOMER_DEVICE_SETTING_PAYLOAD_S> {
    BU_U32 Frequency = 0;             ///< not used
    BU_U32 HdmiOutputDecoderMode = 0; ///< not used
    BU_U32 HdmiSdiOutputFormat = 0;   ///< rate index plus 0 for 4K, 8 for 1080P, 16 for 1080I, 19 for 720P
    BU_U32 HdmiOutputChannel = 0;     ///< a number of HDMI_OUTPUT_E
    BU_U32 NDI_HB = 0;                ///< full-bandwidth NDI on
    BU_U32 E_InkPaper = 0;            ///< 0 white, 1 upright, 2 turned
    BU_U32 OnboardTally = 0;          ///< 1 lights the lamp of the camera
    BU_U32 TallyRestState = 0;        ///< 0 off, 1 white, 2 the custom colour, 3 colours in turn
    BU_U32 CustomRGBColor = 0;
    BU_U32 AudioMute = 0;
    BU_U32 AudioInGain = 0;
    BU_U32 AudioInputType = 0; ///< 0 microphone, 1 line, 2 microphone with 48 V
    BU_U32 Pip = 0;
    BU_U32 PipSource = 0;
    BU_U32 PipPosition = 0;
    BU_U32 PipSize = 0;
    BU_U32 EncodeScreensaver = 0; ///< a screen saver with the logo, else blank
    BU_U32 StreamToNetwork = 0;   ///< 0 shows the screen saver
    BU_S32 BmdAtemTally = 0;
};
WEB_FIELDS(tag_WEB_RPC_TKVMX_CUSTOMER_DEVICE_SETTING_PAYLOAD_S, WEB_FIELD(Frequency, 8),
           WEB_FIELD(HdmiOutputDecoderMode, 12), WEB_FIELD(HdmiSdiOutputFormat, 16), WEB_FIELD(HdmiOutputChannel, 20),
           WEB_FIELD(NDI_HB, 24), WEB_FIELD(E_InkPaper, 28), WEB_FIELD(OnboardTally, 32), WEB_FIELD(TallyRestState, 36),
           WEB_FIELD(CustomRGBColor, 40), WEB_FIELD(AudioMute, 44), WEB_FIELD(AudioInGain, 48),
           WEB_FIELD(AudioInputType, 52), WEB_FIELD(Pip, 56), WEB_FIELD(PipSource, 60), WEB_FIELD(PipPosition, 64),
           WEB_FIELD(PipSize, 68), WEB_FIELD(EncodeScreensaver, 72), WEB_FIELD(StreamToNetwork, 76),
           WEB_FIELD(BmdAtemTally, 80));
WEB_IMAGE_FORM(tag_WEB_RPC_TKVMX_CUSTOMER_DEVICE_SETTING_PAYLOAD_S, 88);

enum E_TKVMX_STREAM_CMD : BU_S32 {
    e_unknown_params = 0,
    e_ndi_params,
    e_srt_params,
    e_rtsp_params,
    e_rtmp_params,
    e_usb_uvc,
    e_ndi_hx3,
    e_disable
};

struct t_TKVMX_NdiParams {
    BU_CHAR StreamName[64];
    BU_CHAR StreamNameSuffix[32];
};
WEB_FIELDS(t_TKVMX_NdiParams, WEB_FIELD(StreamName, 0), WEB_FIELD(StreamNameSuffix, 64));
WEB_NESTED_FORM(t_TKVMX_NdiParams, 96);

struct t_TKVMX_SrtParams {
    BU_U32 ConnectionType; ///< 1 listens, else calls
    BU_CHAR SRTAddress[40];
    BU_U32 Port;
    BU_U32 Latency; ///< [ms]
    BU_U32 Encryption;
    BU_U32 EncryptionKeyLength; ///< 1, 2, 3: 16, 24, 32 bytes
    BU_CHAR PassPhrase[80];
    BU_CHAR StreamID[256];
    BU_CHAR ConnectionUrl[256];
};
WEB_FIELDS(t_TKVMX_SrtParams, WEB_FIELD(ConnectionType, 0), WEB_FIELD(SRTAddress, 4), WEB_FIELD(Port, 44),
           WEB_FIELD(Latency, 48), WEB_FIELD(Encryption, 52), WEB_FIELD(EncryptionKeyLength, 56),
           WEB_FIELD(PassPhrase, 60), WEB_FIELD(StreamID, 140), WEB_FIELD(ConnectionUrl, 396));
WEB_NESTED_FORM(t_TKVMX_SrtParams, 652);

struct t_TKVMX_RtspParams {
    BU_CHAR StreamName[64];
    BU_U32 Port;
    BU_U32 Authentication;
    BU_CHAR UserName[64];
    BU_CHAR Password[64];
    BU_CHAR ConnectionUrl[64];
};
WEB_FIELDS(t_TKVMX_RtspParams, WEB_FIELD(StreamName, 0), WEB_FIELD(Port, 64), WEB_FIELD(Authentication, 68),
           WEB_FIELD(UserName, 72), WEB_FIELD(Password, 136), WEB_FIELD(ConnectionUrl, 200));
WEB_NESTED_FORM(t_TKVMX_RtspParams, 264);

struct t_TKVMX_RtmpParams {
    BU_CHAR ServerUrl[256];
    BU_CHAR StreamKey[256];
    BU_U32 AuthEnable;
    BU_CHAR Username[64];
    BU_CHAR Password[64];
};
WEB_FIELDS(t_TKVMX_RtmpParams, WEB_FIELD(ServerUrl, 0), WEB_FIELD(StreamKey, 256), WEB_FIELD(AuthEnable, 512),
           WEB_FIELD(Username, 516), WEB_FIELD(Password, 580));
WEB_NESTED_FORM(t_TKVMX_RtmpParams, 644);

union t_TKVMX_StreamParams {
    BU_U8 acRaw[652]; ///< all of it
    t_TKVMX_NdiParams ndi_params;
    t_TKVMX_SrtParams srt_params;
    t_TKVMX_RtspParams rtsp_params;
    t_TKVMX_RtmpParams rtmp_params;
};
WEB_MEMBERS(t_TKVMX_StreamParams, StreamingProtocol, WEB_MEMBER(e_ndi_params, ndi_params),
            WEB_MEMBER(e_srt_params, srt_params), WEB_MEMBER(e_rtsp_params, rtsp_params),
            WEB_MEMBER(e_rtmp_params, rtmp_params));

/// The streaming protocol of a main channel and its parameters.
struct tag_WEB_RPC_TKVMX_CUSTOMER_AVSETUP_STREAM_PAYLOAD_S
    : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_TKVMX_CUSTOMER_AVSETUP_STREAM_PAYLOAD_S> {
    BU_S32 StreamIndex = 0; ///< 1 close-up, else panorama
    E_TKVMX_STREAM_CMD StreamingProtocol{};
    t_TKVMX_StreamParams PayloadParam{};
    BU_BOOL bSwitchProtocol = BU_FALSE; ///< not used
};
WEB_FIELDS(tag_WEB_RPC_TKVMX_CUSTOMER_AVSETUP_STREAM_PAYLOAD_S, WEB_FIELD(StreamIndex, 8),
           WEB_FIELD(StreamingProtocol, 12), WEB_FIELD(PayloadParam, 16), WEB_SWITCH(bSwitchProtocol, 668));
WEB_IMAGE_FORM(tag_WEB_RPC_TKVMX_CUSTOMER_AVSETUP_STREAM_PAYLOAD_S, 672);

/// A main encoder.
struct tag_WEB_RPC_TKVMX_CUSTOMER_AVSETUP_PRIMARY_PAYLOAD_S
    : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_TKVMX_CUSTOMER_AVSETUP_PRIMARY_PAYLOAD_S> {
    BU_S32 StreamIndex = 0;      ///< 1 close-up, else panorama
    BU_U32 videoCompression = 0; ///< 0 H.264, 1 H.265
    BU_U32 videoFormat = 0;      ///< 4K, 1080P, 720P, each at 60, 59.94, 50, 30, 29.97 and 25 frames/s: 0-17
    BU_U32 Bitrate = 0;          ///< [Mbit/s]
    BU_U32 BitrateControl = 0;   ///< 1 constant, else variable
    BU_U32 GopSize = 0;
    BU_U32 Mode = 0;
    BU_U32 FrameI = 0;
    BU_U32 FrameP = 0;
};
WEB_FIELDS(tag_WEB_RPC_TKVMX_CUSTOMER_AVSETUP_PRIMARY_PAYLOAD_S, WEB_FIELD(StreamIndex, 8),
           WEB_FIELD(videoCompression, 12), WEB_FIELD(videoFormat, 16), WEB_FIELD(Bitrate, 20),
           WEB_FIELD(BitrateControl, 24), WEB_FIELD(GopSize, 28), WEB_FIELD(Mode, 32), WEB_FIELD(FrameI, 36),
           WEB_FIELD(FrameP, 40));
WEB_IMAGE_FORM(tag_WEB_RPC_TKVMX_CUSTOMER_AVSETUP_PRIMARY_PAYLOAD_S, 48);

/// The protocols that are on, per channel: bit 0 NDI, 1 SRT, 2 RTMP, 3 RTSP.
struct tag_WEB_RPC_TKVMX_CUSTOMER_STREAM_MATRIX_PAYLOAD_S
    : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_TKVMX_CUSTOMER_STREAM_MATRIX_PAYLOAD_S> {
    BU_U32 CloseupMainMatrix = 0;
    BU_U32 CloseupSubMatrix = 0; ///< not used
    BU_U32 PanoramaMainMatrix = 0;
    BU_U32 PanoramaSubMatrix = 0; ///< not used
};
WEB_FIELDS(tag_WEB_RPC_TKVMX_CUSTOMER_STREAM_MATRIX_PAYLOAD_S, WEB_FIELD(CloseupMainMatrix, 8),
           WEB_FIELD(CloseupSubMatrix, 12), WEB_FIELD(PanoramaMainMatrix, 16), WEB_FIELD(PanoramaSubMatrix, 20));
WEB_IMAGE_FORM(tag_WEB_RPC_TKVMX_CUSTOMER_STREAM_MATRIX_PAYLOAD_S, 24);
