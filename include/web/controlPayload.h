/// Payloads of the control-protocol pages (VISCA, serial ports, infrared, Pelco, FreeD) and of the HDMI page.
/// They travel in the compact form: the type at byte 0, the data from byte 16.
#pragma once

#include "web/payload.h"

enum tag_WEB_CONTROL_TYPE_E : BU_S32 {
    WEB_CONTROL_TYPE_E_ABILITY = 0,
    WEB_CONTROL_TYPE_E_VISCA,
    WEB_CONTROL_TYPE_E_VISCA_PROXY,
    WEB_CONTROL_TYPE_E_SERIAL_IN,
    WEB_CONTROL_TYPE_E_VISCA_OVERIP,
    WEB_CONTROL_TYPE_E_SERIAL_OUT,
    WEB_CONTROL_TYPE_E_Ir,
    WEB_CONTROL_TYPE_E_PelcoPD,
    WEB_CONTROL_TYPE_E_FreeD,
    WEB_CONTROL_TYPE_E_Usb,
    WEB_CONTROL_TYPE_E_Tally,
    WEB_CONTROL_TYPE_E_ERROR
};

struct WEB_CONTROL_SUPPORT_IR_S {
    BU_S32 Ir_addrMin, Ir_addrMax, Ir_step;
};
WEB_FIELDS(WEB_CONTROL_SUPPORT_IR_S, WEB_FIELD(Ir_addrMin, 0), WEB_FIELD(Ir_addrMax, 4), WEB_FIELD(Ir_step, 8));
WEB_NESTED_FORM(WEB_CONTROL_SUPPORT_IR_S, 12);

struct WEB_CONTROL_ABILITY_S {
    WEB_CONTROL_SUPPORT_IR_S SupportIr;
};
WEB_FIELDS(WEB_CONTROL_ABILITY_S, WEB_FIELD(SupportIr, 0));
WEB_NESTED_FORM(WEB_CONTROL_ABILITY_S, 12);

struct WEB_CONTROL_USUAL_VISCA_S {
    BU_U8 Visca_addr;
};
WEB_FIELDS(WEB_CONTROL_USUAL_VISCA_S, WEB_FIELD(Visca_addr, 0));
WEB_NESTED_FORM(WEB_CONTROL_USUAL_VISCA_S, 1);

struct WEB_CONTROL_VISCA_PROXY_S {
    BU_S32 PortNum;
    BU_U8 bEnable, bProtocolType, bWorkMode;
    BU_CHAR bAddress[32];
};
WEB_FIELDS(WEB_CONTROL_VISCA_PROXY_S, WEB_FIELD(PortNum, 0), WEB_FIELD(bEnable, 4), WEB_FIELD(bProtocolType, 5),
           WEB_FIELD(bWorkMode, 6), WEB_FIELD(bAddress, 7));
WEB_NESTED_FORM(WEB_CONTROL_VISCA_PROXY_S, 40);

struct WEB_CONTROL_VISCA_OVERIP_S {
    BU_S32 PortNum;
    BU_U8 bEnable;
};
WEB_FIELDS(WEB_CONTROL_VISCA_OVERIP_S, WEB_FIELD(PortNum, 0), WEB_FIELD(bEnable, 4));
WEB_NESTED_FORM(WEB_CONTROL_VISCA_OVERIP_S, 8);

struct WEB_CONTROL_SERIAL_S {
    BU_U32 ProtocolType; ///< 0 VISCA, 1 Pelco-P, 2 Pelco-D, 3 FreeD
    BU_U32 Baudrate;     ///< 0 2400, 1 4800, 2 9600, 3 38400
    BU_U32 ComMode;      ///< the port, a number of UART_INSTANCE_TYPE
};
WEB_FIELDS(WEB_CONTROL_SERIAL_S, WEB_FIELD(ProtocolType, 0), WEB_FIELD(Baudrate, 4), WEB_FIELD(ComMode, 8));
WEB_NESTED_FORM(WEB_CONTROL_SERIAL_S, 12);

struct WEB_CONTROL_IR_S {
    BU_U8 bEnable, Ir_addr;
    BU_U8 Ir_addrCtrl; ///< the address is set 0 by software, 1 by the DIP switch
};
WEB_FIELDS(WEB_CONTROL_IR_S, WEB_FIELD(bEnable, 0), WEB_FIELD(Ir_addr, 1), WEB_FIELD(Ir_addrCtrl, 2));
WEB_NESTED_FORM(WEB_CONTROL_IR_S, 3);

struct WEB_CONTROL_PELCO_S {
    BU_U8 PelcoP_addr, PelcoD_addr;
};
WEB_FIELDS(WEB_CONTROL_PELCO_S, WEB_FIELD(PelcoP_addr, 0), WEB_FIELD(PelcoD_addr, 1));
WEB_NESTED_FORM(WEB_CONTROL_PELCO_S, 2);

struct WEB_CONTROL_FREED_S {
    BU_U8 enable;
    BU_S32 port, carema_id;
    BU_CHAR ip_addr[32];
};
WEB_FIELDS(WEB_CONTROL_FREED_S, WEB_FIELD(enable, 0), WEB_FIELD(port, 4), WEB_FIELD(carema_id, 8),
           WEB_FIELD(ip_addr, 12));
WEB_NESTED_FORM(WEB_CONTROL_FREED_S, 44);

struct WEB_CONTROL_USB_S {
    BU_S32 usb_device;
};
WEB_FIELDS(WEB_CONTROL_USB_S, WEB_FIELD(usb_device, 0));
WEB_NESTED_FORM(WEB_CONTROL_USB_S, 4);

struct WEB_CONTROL_TALLY_S {
    BU_S32 ndi_tally, track_tally, tally_reset_status, custom_rgb;
};
WEB_FIELDS(WEB_CONTROL_TALLY_S, WEB_FIELD(ndi_tally, 0), WEB_FIELD(track_tally, 4), WEB_FIELD(tally_reset_status, 8),
           WEB_FIELD(custom_rgb, 12));
WEB_NESTED_FORM(WEB_CONTROL_TALLY_S, 16);

union tag_WEB_MPP_CONTROL_DATA_U {
    BU_U8 acRaw[44]; ///< all of it
    WEB_CONTROL_ABILITY_S ability;
    WEB_CONTROL_USUAL_VISCA_S stUsualVisca;
    WEB_CONTROL_VISCA_PROXY_S stVisca;
    WEB_CONTROL_VISCA_OVERIP_S stViscaOverIp;
    WEB_CONTROL_SERIAL_S stSerialIn, stSerialOut;
    WEB_CONTROL_IR_S stIr;
    WEB_CONTROL_PELCO_S stPelcoPD;
    WEB_CONTROL_FREED_S stFreeD;
    WEB_CONTROL_USB_S stUsb;
    WEB_CONTROL_TALLY_S stTally;
};
WEB_MEMBERS(tag_WEB_MPP_CONTROL_DATA_U, eControlType, WEB_MEMBER(WEB_CONTROL_TYPE_E_ABILITY, ability),
            WEB_MEMBER(WEB_CONTROL_TYPE_E_VISCA, stUsualVisca), WEB_MEMBER(WEB_CONTROL_TYPE_E_VISCA_PROXY, stVisca),
            WEB_MEMBER(WEB_CONTROL_TYPE_E_SERIAL_IN, stSerialIn),
            WEB_MEMBER(WEB_CONTROL_TYPE_E_VISCA_OVERIP, stViscaOverIp),
            WEB_MEMBER(WEB_CONTROL_TYPE_E_SERIAL_OUT, stSerialOut), WEB_MEMBER(WEB_CONTROL_TYPE_E_Ir, stIr),
            WEB_MEMBER(WEB_CONTROL_TYPE_E_PelcoPD, stPelcoPD), WEB_MEMBER(WEB_CONTROL_TYPE_E_FreeD, stFreeD),
            WEB_MEMBER(WEB_CONTROL_TYPE_E_Usb, stUsb), WEB_MEMBER(WEB_CONTROL_TYPE_E_Tally, stTally));
static_assert(sizeof(tag_WEB_MPP_CONTROL_DATA_U) == 44);

struct tag_WEB_RPC_CONTROL_REQ_PAYLOAD_S : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_CONTROL_REQ_PAYLOAD_S> {
    tag_WEB_CONTROL_TYPE_E eControlType{};
};
WEB_FIELDS(tag_WEB_RPC_CONTROL_REQ_PAYLOAD_S, WEB_FIELD(eControlType, 0));
WEB_COMPACT_FORM(tag_WEB_RPC_CONTROL_REQ_PAYLOAD_S, 16, 16);

struct tag_WEB_RPC_CONTROL_DATA_PAYLOAD_S : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_CONTROL_DATA_PAYLOAD_S> {
    tag_WEB_CONTROL_TYPE_E eControlType{}; ///< 0 in every response: the request's type says what data holds
    tag_WEB_MPP_CONTROL_DATA_U data{};
};
WEB_FIELDS(tag_WEB_RPC_CONTROL_DATA_PAYLOAD_S, WEB_FIELD(eControlType, 0), WEB_FIELD(data, 16));
WEB_COMPACT_FORM(tag_WEB_RPC_CONTROL_DATA_PAYLOAD_S, 60, 56);

enum tag_WEB_GENERAL_TYPE_E : BU_S32 { WEB_GENERAL_TYPE_E_HDMI = 0 };

struct WEB_GENERAL_HDMI_S {
    BU_S32 s32Output; ///< HDMI_OUTPUT_E
    BU_S32 s32Format; ///< HDMI_FORMAT_E
    BU_S32 s32Fps;    ///< HDMI_FPS_E
    BU_S32 s32Cs;     ///< HDMI_CS_E
};
WEB_FIELDS(WEB_GENERAL_HDMI_S, WEB_FIELD(s32Output, 0), WEB_FIELD(s32Format, 4), WEB_FIELD(s32Fps, 8),
           WEB_FIELD(s32Cs, 12));
WEB_NESTED_FORM(WEB_GENERAL_HDMI_S, 16);

union tag_WEB_MPP_GENERAL_DATA_U {
    WEB_GENERAL_HDMI_S stHdmi;
};
WEB_MEMBERS(tag_WEB_MPP_GENERAL_DATA_U, eControlType, WEB_MEMBER(WEB_GENERAL_TYPE_E_HDMI, stHdmi));
static_assert(sizeof(tag_WEB_MPP_GENERAL_DATA_U) == 16);

struct tag_WEB_RPC_GENERAL_PAYLOAD_S : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_GENERAL_PAYLOAD_S> {
    tag_WEB_GENERAL_TYPE_E eControlType{};
    tag_WEB_MPP_GENERAL_DATA_U data{};
};
WEB_FIELDS(tag_WEB_RPC_GENERAL_PAYLOAD_S, WEB_FIELD(eControlType, 0), WEB_FIELD(data, 16));
WEB_COMPACT_FORM(tag_WEB_RPC_GENERAL_PAYLOAD_S, 32, 32);
