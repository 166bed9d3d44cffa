/// Tables of panel items: a row says how an item is read and how it is set.
#pragma once

#include "page.h"

#include <algorithm>

namespace web
{
typedef tag_WEB_RPC_PANEL_REQ_PAYLOAD_S Request;
typedef tag_WEB_RPC_PANEL_RES_PAYLOAD_S Response;
typedef BU_S32 (*Get)(BU_S32 s32Dev, BU_S32 *ps32Value, BU_BOOL bReread);
typedef BU_S32 (*Set)(BU_S32 s32Dev, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
typedef void (*Act)(BU_S32 s32Dev, const Request &req, Response &res);

struct Item {
    BU_S32 s32Item;
    Get pfnGet = nullptr; ///< null: value 0
    Act pfnAct = nullptr; ///< null: a set does nothing
    BU_U64 u64SideEffects = 0;
    BU_BOOL bReread = BU_FALSE; ///< of the get
};

/// Sets the item to the request's value, and has it stored and told.
template <Set Value> void set(BU_S32 s32Dev, const Request &req, Response &)
{
    Value(s32Dev, req.s32Value0, BU_TRUE, BU_TRUE);
}

// A setting of the whole camera, as one of a device.
template <BU_S32 (*Value)(BU_S32 *, BU_BOOL)> BU_S32 cameraGet(BU_S32, BU_S32 *ps32Value, BU_BOOL bReread)
{
    return Value(ps32Value, bReread);
}
template <BU_S32 (*Value)(BU_S32, BU_BOOL, BU_BOOL)> void cameraSet(BU_S32, const Request &req, Response &)
{
    Value(req.s32Value0, BU_TRUE, BU_TRUE);
}

inline const Item *find(std::span<const Item> table, BU_S32 s32Item)
{
    const auto row = std::ranges::find(table, s32Item, &Item::s32Item);
    return row == table.end() ? nullptr : &*row;
}

inline void answerGet(const Item *pstItem, BU_S32 s32Dev, Response &res)
{
    if (pstItem && pstItem->pfnGet) pstItem->pfnGet(s32Dev, &res.s32Value, pstItem->bReread);
}

/// The side effects are those of the row, when it has some; else what the page has put there before.
inline void answerSet(const Item *pstItem, BU_S32 s32Dev, const Request &req, Response &res)
{
    if (!pstItem || !pstItem->pfnAct) return;
    if (pstItem->u64SideEffects) res.s32SideEffectBitmap = pstItem->u64SideEffects;
    pstItem->pfnAct(s32Dev, req, res);
}
} // namespace web
