/// Payloads of the tracking pages: areas, a rectangle around any object, a target picked in the panorama.
#pragma once

#include "web/payload.h"

enum WEB_RPC_TRACK_MODE_E : BU_S32 {
    WEB_RPC_TRACK_MODE_E_EVERYWHERE_TRACKING = 0,
    WEB_RPC_TRACK_MODE_E_ZONE_TRACKING,
    WEB_RPC_TRACK_MODE_E_STAGE_TRACKING,
    WEB_RPC_TRACK_MODE_E_AUTO_FRAMING
};
/// The numbers of tagTRACK_AREA_E.
enum WEB_RPC_TRACK_AREA_E : BU_S32 {
    WEB_RPC_TRACK_AREA_E_PLATFORM = 0,
    WEB_RPC_TRACK_AREA_E_SHIELD,
    WEB_RPC_TRACK_AREA_E_PRIORITY,
    WEB_RPC_TRACK_AREA_E_PRESET,
    WEB_RPC_TRACK_AREA_E_BLACKBOARD
};

/// A rectangle in the 3840 x 2160 picture.
struct AREA_S {
    bool enable;
    int x, y, w, h;
    int workMode;
    int preset;
};
WEB_FIELDS(AREA_S, WEB_FIELD(enable, 0), WEB_FIELD(x, 4), WEB_FIELD(y, 8), WEB_FIELD(w, 12), WEB_FIELD(h, 16),
           WEB_FIELD(workMode, 20), WEB_FIELD(preset, 24));
WEB_NESTED_FORM(AREA_S, 28);

struct tag_WEB_RPC_AREA_PAYLOAD_S : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_AREA_PAYLOAD_S> {
    WEB_RPC_TRACK_MODE_E eTrackMode{}; ///< echoed, not used
    WEB_RPC_TRACK_AREA_E enType{};
    BU_S32 s32Cnt = 0; ///< areas in the list, 0-8
    AREA_S areas[8]{};
};
WEB_FIELDS(tag_WEB_RPC_AREA_PAYLOAD_S, WEB_FIELD(eTrackMode, 8), WEB_FIELD(enType, 12), WEB_FIELD(s32Cnt, 16),
           WEB_FIELD(areas, 20));
WEB_IMAGE_FORM(tag_WEB_RPC_AREA_PAYLOAD_S, 248);

/// A rectangle in the 3840 x 2160 picture, around whatever is to be followed.
struct tag_WEB_RPC_GENERAL_EVERYTHING_TRACKING_PAYLOAD_S
    : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_GENERAL_EVERYTHING_TRACKING_PAYLOAD_S> {
    BU_S32 startX = 0;
    BU_S32 startY = 0;
    BU_S32 endX = 0;
    BU_S32 endY = 0;
    BU_S32 imgWidth = 0;
    BU_S32 imgHeight = 0;
    BU_CHAR imgName[128]{};
};
WEB_FIELDS(tag_WEB_RPC_GENERAL_EVERYTHING_TRACKING_PAYLOAD_S, WEB_FIELD(startX, 8), WEB_FIELD(startY, 12),
           WEB_FIELD(endX, 16), WEB_FIELD(endY, 20), WEB_FIELD(imgWidth, 24), WEB_FIELD(imgHeight, 28),
           WEB_FIELD(imgName, 32));
WEB_IMAGE_FORM(tag_WEB_RPC_GENERAL_EVERYTHING_TRACKING_PAYLOAD_S, 160);

/// A point of the panorama picture, where the target stands.
struct tag_WEB_RPC_TKVMX_CUSTOMER_DESIGNATED_TRIGGER_PAYLOAD_S
    : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_TKVMX_CUSTOMER_DESIGNATED_TRIGGER_PAYLOAD_S> {
    float x = 0;
    float y = 0;
};
WEB_FIELDS(tag_WEB_RPC_TKVMX_CUSTOMER_DESIGNATED_TRIGGER_PAYLOAD_S, WEB_FIELD(x, 8), WEB_FIELD(y, 12));
WEB_IMAGE_FORM(tag_WEB_RPC_TKVMX_CUSTOMER_DESIGNATED_TRIGGER_PAYLOAD_S, 16);
