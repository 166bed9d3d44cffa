/// The payloads that the panels of the page share: one item of a group, read or set.
#pragma once

#include "web/payload.h"

struct tag_WEB_RPC_PANEL_REQ_PAYLOAD_S : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_PANEL_REQ_PAYLOAD_S> {
    BU_S32 s32EventType = 0; ///< the item within the group
    BU_S32 s32Id = 0;        ///< camera pipe, or the index of a virtual key device
    BU_S32 s32Value0 = 0;
    BU_S32 s32Value1 = 0;
    BU_S32 s32Value2 = 0;
    BU_S32 s32Value3 = 0;
};
WEB_FIELDS(tag_WEB_RPC_PANEL_REQ_PAYLOAD_S, WEB_FIELD(s32EventType, 8), WEB_FIELD(s32Id, 12), WEB_FIELD(s32Value0, 16),
           WEB_FIELD(s32Value1, 20), WEB_FIELD(s32Value2, 24), WEB_FIELD(s32Value3, 28));
WEB_IMAGE_FORM(tag_WEB_RPC_PANEL_REQ_PAYLOAD_S, 32);

/// The set of items first...last of a group as a bitmap: bit n is item n.
constexpr BU_U64 webItems(BU_S32 s32First, BU_S32 s32Last)
{
    return (~BU_U64{0} >> (63 - s32Last)) & (~BU_U64{0} << s32First);
}
constexpr BU_U64 webItems(BU_S32 s32Item) { return webItems(s32Item, s32Item); }

struct tag_WEB_RPC_PANEL_RES_PAYLOAD_S : WEB_RPC_LISTED_PAYLOAD<tag_WEB_RPC_PANEL_RES_PAYLOAD_S> {
    BU_BOOL bEnabled = BU_FALSE; ///< the item can be operated now
    BU_BOOL bVisible = BU_FALSE; ///< the item is to be shown
    BU_S32 s32Value = 0;
    BU_U64 s32SideEffectBitmap = 0; ///< of a set: bit n, item n of the group is to be read again
};
WEB_FIELDS(tag_WEB_RPC_PANEL_RES_PAYLOAD_S, WEB_SWITCH(bEnabled, 8), WEB_SWITCH(bVisible, 12), WEB_FIELD(s32Value, 16),
           WEB_FIELD(s32SideEffectBitmap, 24));
WEB_IMAGE_FORM(tag_WEB_RPC_PANEL_RES_PAYLOAD_S, 32);
