/// The payload of the colour matrix page: hue or saturation of the six colours of one camera picture.
#pragma once

#include "web/payload.h"

struct tag_WEB_RPC_GENERAL_COLOR_MATRIX_PAYLOAD_S : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_GENERAL_COLOR_MATRIX_PAYLOAD_S> {
    BU_BOOL bOk = BU_FALSE; ///< of a response: the request was carried out
    BU_S32 id = 0;          ///< camera pipe
    BU_S32 type = 0;        ///< of a set: 0 all six colours, 1 red, 2 yellow, 3 green, 4 cyan, 5 blue, 6 magenta
    BU_S32 red = 0;
    BU_S32 yellow = 0;
    BU_S32 green = 0;
    BU_S32 cyan = 0;
    BU_S32 blue = 0;
    BU_S32 magenta = 0;
};
WEB_FIELDS(tag_WEB_RPC_GENERAL_COLOR_MATRIX_PAYLOAD_S, WEB_SWITCH(bOk, 8), WEB_FIELD(id, 12), WEB_FIELD(type, 16),
           WEB_FIELD(red, 20), WEB_FIELD(yellow, 24), WEB_FIELD(green, 28), WEB_FIELD(cyan, 32), WEB_FIELD(blue, 36),
           WEB_FIELD(magenta, 40));
WEB_IMAGE_FORM(tag_WEB_RPC_GENERAL_COLOR_MATRIX_PAYLOAD_S, 48);
