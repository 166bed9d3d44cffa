/// The feature list: which modules of the camera are brought up. The service starts a module when its flag is set; what
/// it does not start it never calls.
#pragma once

#include "base/types.h"

struct tagCFG_FEATURE_CONTROL_S {
    BU_BOOL bViscaEtherSupport, bOnvifSupport, bWebUiSupport, bOsdMenuSupport, bFreeDSupport, bAiSupport, bDvipSupport;
};
typedef tagCFG_FEATURE_CONTROL_S CFG_FEATURE_CONTROL_S;

enum CFG_FEATURE_DATA_DIR_E : BU_S32 {
    CFG_FEATURE_DATA_DIR_E_IN = 0,
    CFG_FEATURE_DATA_DIR_E_OUT = 1,
    CFG_FEATURE_DATA_DIR_E_INOUT = 2,
    CFG_FEATURE_DATA_DIR_E_BUTT = 3
};

/// A connector of an interface. Carried for tools and pages; the bring-up reads bSupport of the interface alone.
struct CFG_FEATURE_AV_PUB_S {
    BU_BOOL bIntfSupport, bVideoSupport, bAudioSupport; ///< it is there; it carries pictures; sound
    CFG_FEATURE_DATA_DIR_E enDataDir;                   ///< as seen from the camera
};

/// One audio/video interface with its connectors.
struct tagCFG_FEATURE_AV_INTF_S {
    CFG_FEATURE_AV_PUB_S astPub[4];
    BU_BOOL bSupport;
    BU_S32 s32NodeCnt; ///< used entries of astPub
};
typedef tagCFG_FEATURE_AV_INTF_S CFG_FEATURE_AV_HDMI_S;
typedef tagCFG_FEATURE_AV_INTF_S CFG_FEATURE_AV_HDBASET_S;
typedef tagCFG_FEATURE_AV_INTF_S CFG_FEATURE_AV_SDI_S;
typedef tagCFG_FEATURE_AV_INTF_S CFG_FEATURE_AV_USB_S;
typedef tagCFG_FEATURE_AV_INTF_S CFG_FEATURE_AV_NDI_S;
typedef tagCFG_FEATURE_AV_INTF_S CFG_FEATURE_AV_RTSP_S;
typedef tagCFG_FEATURE_AV_INTF_S CFG_FEATURE_AV_RTMP_S;
typedef tagCFG_FEATURE_AV_INTF_S CFG_FEATURE_AV_SRT_S;
typedef tagCFG_FEATURE_AV_INTF_S CFG_FEATURE_AV_DANTE_S;

struct tagCFG_FEATURE_AV_S {
    CFG_FEATURE_AV_HDMI_S stHdmi;
    CFG_FEATURE_AV_HDBASET_S stHdBaseT;
    CFG_FEATURE_AV_SDI_S stSdi;
    CFG_FEATURE_AV_USB_S stUsb;
    CFG_FEATURE_AV_NDI_S stNdi;
    CFG_FEATURE_AV_RTSP_S stRtsp;
    CFG_FEATURE_AV_RTMP_S stRtmp;
    CFG_FEATURE_AV_SRT_S stSrt;
    CFG_FEATURE_AV_DANTE_S stDante;
};
typedef tagCFG_FEATURE_AV_S CFG_FEATURE_AV_S;

struct tagCFG_FEATURE_DISPLAY_S {
    BU_BOOL bEinkSupport, bOledSupport, bLedSupport;
};
typedef tagCFG_FEATURE_DISPLAY_S CFG_FEATURE_DISPLAY_S;

struct CFG_FEATURE_SERIAL_NODE_S {
    BU_BOOL bSupport;
    BU_CHAR acDeviceName[32]; ///< device file, in the device root
};

struct CFG_FEATURE_SERIAL_S {
    BU_BOOL bSupport;    ///< serial ports, and with them VISCA and Pelco, are brought up
    BU_BOOL bDaisyChain; ///< cameras may be chained
    CFG_FEATURE_SERIAL_NODE_S astNode[4];
    BU_S32 s32NodeCnt; ///< used entries of astNode
};

struct tagCFG_FEATURE_GENERAL_S {
    BU_BOOL bEthernet, bPt; ///< network port; motors of the head
    BU_BOOL bAf, bNtp;      ///< zoom and focus service; clock from the network, with bEthernet
    BU_BOOL bRstKey;        ///< reset key present
    BU_BOOL bIr;            ///< infrared receiver present
    BU_BOOL bAudio;
    CFG_FEATURE_SERIAL_S stSerial;
};
typedef tagCFG_FEATURE_GENERAL_S CFG_FEATURE_GENERAL_S;

struct tagCFG_FEATURE_LIST_S {
    CFG_FEATURE_CONTROL_S stControl;
    CFG_FEATURE_AV_S stAv;
    CFG_FEATURE_DISPLAY_S stDisplay;
    CFG_FEATURE_GENERAL_S stGeneral;
    BU_BOOL bDataInited; ///< the list has been filled
};
typedef tagCFG_FEATURE_LIST_S CFG_FEATURE_LIST_S;
