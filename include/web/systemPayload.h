/// Payloads of the system pages: clock, tally lamp, panorama on SDI, names and versions.
#pragma once

#include "web/payload.h"

struct tag_WEB_RPC_NTP_PAYLOAD_S : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_NTP_PAYLOAD_S> {
    BU_BOOL bOk = BU_FALSE; ///< of a response: done
    BU_S32 id = 0;          ///< not used
    BU_BOOL enable = BU_FALSE;
    BU_S32 time_zone = 0; ///< [min] east of UTC
    BU_CHAR ntp_main_server[32]{};
    BU_CHAR ntp_standby_server[32]{};
    BU_CHAR pstDateTime[64]{}; ///< of a response: the local time, "2026-01-31T23:59:59"
    BU_S32 ntp_interval = 0;   ///< not used
};
WEB_FIELDS(tag_WEB_RPC_NTP_PAYLOAD_S, WEB_SWITCH(bOk, 8), WEB_FIELD(id, 12), WEB_SWITCH(enable, 16),
           WEB_FIELD(time_zone, 20), WEB_FIELD(ntp_main_server, 24), WEB_FIELD(ntp_standby_server, 56),
           WEB_FIELD(pstDateTime, 88), WEB_FIELD(ntp_interval, 152));
WEB_IMAGE_FORM(tag_WEB_RPC_NTP_PAYLOAD_S, 160);

struct tag_WEB_RPC_GENERAL_TALLY_PAYLOAD_S : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_GENERAL_TALLY_PAYLOAD_S> {
    BU_BOOL bOk = BU_FALSE; ///< of a response: done
    BU_U32 mode = 0;        ///< 0 off, 1 red, 2 green
};
WEB_FIELDS(tag_WEB_RPC_GENERAL_TALLY_PAYLOAD_S, WEB_SWITCH(bOk, 8), WEB_FIELD(mode, 12));
WEB_IMAGE_FORM(tag_WEB_RPC_GENERAL_TALLY_PAYLOAD_S, 16);

struct tag_WEB_RPC_GENERAL_SDI_3G_CFG_PAYLOAD_S : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_GENERAL_SDI_3G_CFG_PAYLOAD_S> {
    BU_U32 enable = 0; ///< the panorama goes to the SDI output
    BU_U32 weight = 0; ///< of a response: what the media pipeline is able to do
};
WEB_FIELDS(tag_WEB_RPC_GENERAL_SDI_3G_CFG_PAYLOAD_S, WEB_FIELD(enable, 8), WEB_FIELD(weight, 12));
WEB_IMAGE_FORM(tag_WEB_RPC_GENERAL_SDI_3G_CFG_PAYLOAD_S, 16);

struct tag_WEB_RPC_GENERAL_SYSTEM_INFO_CFG_PAYLOAD_S
    : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_GENERAL_SYSTEM_INFO_CFG_PAYLOAD_S> {
    char device_name[128]{}; ///< the only field that a set takes
    char isp_version[64]{};
    char af_version[64]{};
    char ai_version[64]{};
    char ndi_version[64]{};
    char full_ndi_version[64]{};
    BU_BOOL ndi_status = BU_FALSE;
};
WEB_FIELDS(tag_WEB_RPC_GENERAL_SYSTEM_INFO_CFG_PAYLOAD_S, WEB_FIELD(device_name, 8), WEB_FIELD(isp_version, 136),
           WEB_FIELD(af_version, 200), WEB_FIELD(ai_version, 264), WEB_FIELD(ndi_version, 328),
           WEB_FIELD(full_ndi_version, 392), WEB_SWITCH(ndi_status, 456));
WEB_IMAGE_FORM(tag_WEB_RPC_GENERAL_SYSTEM_INFO_CFG_PAYLOAD_S, 464);
