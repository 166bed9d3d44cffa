/// The items of the menu by their keys, and the handlers of those that do more than pass a value to a setter.
#pragma once

#include "camera/menuLibrary.h"

#include <span>

/// Applies the confirmed value of an item. @return 0
typedef BU_S32 (*PFN_MENU_SET_PARAM)(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
struct MENU_PARAM_MAP_S {
    BU_CHAR acParam[32];
    PFN_MENU_SET_PARAM pFunc;
};

namespace menu
{
std::span<const MENU_PARAM_MAP_S> paramTable();

// The confirmed value in its three forms.
inline BU_S32 numberOf(const ITEM_NODE_S &stItem) { return stItem.unVal.stIntVal.s32ValSaveCur; }
/// The key of the confirmed option; "" when none is.
inline const BU_CHAR *wordOf(const ITEM_NODE_S &stItem)
{
    const TXT_VALUE_S &st = stItem.unVal.stTxtVal;
    return st.s32ValSaveCur >= 0 && st.s32ValSaveCur < MENU_OPTION_MAX ? st.acValIndex[st.s32ValSaveCur] : "";
}
inline const BU_CHAR *textOf(const ITEM_NODE_S &stItem) { return stItem.unVal.stEditableVal.acCurVal; }
} // namespace menu

BU_S32 menuParamSetSaturation(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamSetLanguage(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamSetAudioInput(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamFactoryRestore(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamRestart(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamLensCorrection(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamSetEscape(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);

// Serial ports, addresses, network.
BU_S32 menuParamSetCOMMode(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamSetIrAddr(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamSetProtocolAddrVisca(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamSetFreedCamera(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamSetIpMode(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamDnsMode(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamNdi(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
