/// The board's hardware ability record: which chips and interfaces are there and passed their self-check. The service
/// reads of it the lens devices and their self-checks; numbers said to be the board's own are carried, never
/// interpreted.
#pragma once

#include "base/types.h"

enum DEVICE_SELFCHECK_E : BU_S32 {
    DEVICE_SELFCHECK_E_NONE = 0,
    DEVICE_SELFCHECK_E_PASS = 1,
    DEVICE_SELFCHECK_E_FAIL = 2
};

struct CHIP_INFO_S {
    BU_CHAR acChipName[16];
    BU_S32 s32PortNum;         ///< ports of the chip
    BU_S32 enDrvFormat;        ///< how its driver is loaded; the board's own number
    BU_CHAR acModuleName[32];  ///< kernel module; empty: none
    BU_CHAR acModuleParam[64]; ///< its parameters
    DEVICE_SELFCHECK_E enStatus;
};

struct INTF_INFO_S {
    CHIP_INFO_S astChipInfo[5]; ///< on the interface's own way
    BU_S32 s32ChipCnt;
    CHIP_INFO_S astDepChipInfo[5]; ///< chips that it depends on
    BU_S32 s32DepChipCnt;
    DEVICE_SELFCHECK_E enChipChain; ///< self-check of the interface's whole chip chain
};

struct HW_CAPS_LENS_S {
    BU_S32 enLensType;                  ///< the board's own number
    BU_BOOL bZoom, bFocus, bPan, bTilt; ///< what can be moved
    BU_S32 enPos;                       ///< place on the board; the board's own number
};

struct HW_CAPS_LENS_ARRAY_S {
    BU_BOOL bSupport;
    BU_S32 s32DevCnt;                                            ///< lens devices, at most 3
    INTF_INFO_S astSnsDevPub[3], astZfDevPub[3], astPtDevPub[3]; ///< sensor, zoom/focus, head of each
    HW_CAPS_LENS_S astDevPri[3];
};

/// An interface of which only presence and number are known.
struct HW_CAPS_COUNT_S {
    BU_BOOL bSupport;
    BU_S32 s32DevCnt;
};
typedef HW_CAPS_COUNT_S CHIP_INFO_ARRAY_S;
typedef HW_CAPS_COUNT_S HW_CAPS_NET_ARRAY_S;
typedef HW_CAPS_COUNT_S HW_CAPS_USB_ARRAY_S;
typedef HW_CAPS_COUNT_S HW_CAPS_SDCARD_ARRAY_S;
typedef HW_CAPS_COUNT_S HW_CAPS_HDMI_ARRAY_S;
typedef HW_CAPS_COUNT_S HW_CAPS_SDI_ARRAY_S;
typedef HW_CAPS_COUNT_S HW_CAPS_FULLNDI_ARRAY_S;
typedef HW_CAPS_COUNT_S HW_CAPS_EINK_ARRAY_S;
typedef HW_CAPS_COUNT_S HW_CAPS_UART_ARRAY_S;
typedef HW_CAPS_COUNT_S HW_CAPS_RESETKEY_S;
typedef HW_CAPS_COUNT_S HW_CAPS_IR_S;
typedef HW_CAPS_COUNT_S HW_CAPS_AUDIO_ARRAY_S;

enum HW_ABI_DATA_E : BU_S32 {
    HW_ABI_DATA_E_NONE = 0,
    HW_ABI_DATA_E_CHIP_LIST_READY = 1,
    HW_ABI_DATA_E_CHIP_DRV_LOAD_READY = 2,
    HW_ABI_DATA_E_CHIP_SELFCHECK_READY = 3,
    HW_ABI_DATA_E_INTERFACE_CHAIN_READY = 4
};

struct tagHW_ABILITY_S {
    CHIP_INFO_ARRAY_S stChipData;
    HW_CAPS_NET_ARRAY_S stNet;
    HW_CAPS_USB_ARRAY_S stUsb;
    HW_CAPS_SDCARD_ARRAY_S stSdcard;
    HW_CAPS_HDMI_ARRAY_S stHdmi;
    HW_CAPS_SDI_ARRAY_S stSdi;
    HW_CAPS_FULLNDI_ARRAY_S stFullNdi;
    HW_CAPS_EINK_ARRAY_S stEink;
    HW_CAPS_UART_ARRAY_S stUart;
    HW_CAPS_LENS_ARRAY_S stLens;
    HW_CAPS_RESETKEY_S stResetKey;
    HW_CAPS_IR_S stIr;
    HW_CAPS_AUDIO_ARRAY_S stAudio;
    HW_ABI_DATA_E enDataVaild; ///< how much of the record is filled
};
typedef tagHW_ABILITY_S HW_ABILITY_S;
