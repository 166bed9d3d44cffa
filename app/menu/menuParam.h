/// The handlers of menu items, and the templates of those that only pass a value to a setter.
#pragma once

#include "camera/menuLibrary.h"

#include <span>

/// Applies the confirmed value of an item. @return 0
typedef BU_S32 (*PFN_MENU_SET_PARAM)(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
struct MENU_PARAM_MAP_S {
    BU_CHAR acParam[32];
    PFN_MENU_SET_PARAM pFunc;
};
std::span<const MENU_PARAM_MAP_S> menuParamTable();

// The confirmed value in its three forms.
inline BU_S32 menuInt(const ITEM_NODE_S &stItem) { return stItem.unVal.stIntVal.s32ValSaveCur; }
/// The key of the confirmed option; "" when none is.
const BU_CHAR *menuOption(const ITEM_NODE_S &stItem);
inline const BU_CHAR *menuText(const ITEM_NODE_S &stItem) { return stItem.unVal.stEditableVal.acCurVal; }

/// One line on standard output: the key and the value.
void menuTraceInt(const ITEM_NODE_S &stItem);
void menuTraceOption(const ITEM_NODE_S &stItem);
void menuTraceText(const ITEM_NODE_S &stItem);

enum class MenuSave { AS_ASKED, ALWAYS };
constexpr BU_BOOL menuSave(MenuSave enSave, BU_BOOL bSaveCfg)
{
    return enSave == MenuSave::ALWAYS ? BU_TRUE : bSaveCfg;
}

constexpr BU_S32 menuDevice0() { return 0; }

// Setter forms. The second template argument answers the pipeline or device at the time of the call.
typedef BU_S32 (*PFN_MENU_ID)();
typedef BU_S32 (*PFN_SET_INT_DEV)(BU_S32, BU_S32, BU_BOOL, BU_BOOL);
typedef BU_S32 (*PFN_SET_WORD_DEV)(BU_S32, const BU_CHAR *, BU_BOOL, BU_BOOL);
typedef BU_S32 (*PFN_SET_WORD_DEV_STORE)(BU_S32, const BU_CHAR *, BU_BOOL);
typedef BU_S32 (*PFN_SET_WORD)(const BU_CHAR *, BU_BOOL, BU_BOOL);
typedef BU_S32 (*PFN_SET_WORD_STORE)(const BU_CHAR *, BU_BOOL);
typedef BU_S32 (*PFN_SET_CARD_TEXT)(const BU_CHAR *, const BU_CHAR *);

template <PFN_SET_INT_DEV Set, PFN_MENU_ID Id> BU_S32 menuIntOf(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    menuTraceInt(*pstItem);
    Set(Id(), menuInt(*pstItem), bSaveCfg, BU_TRUE);
    return 0;
}

template <PFN_SET_WORD_DEV Set, PFN_MENU_ID Id, MenuSave Save = MenuSave::AS_ASKED>
BU_S32 menuOptionOf(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    menuTraceOption(*pstItem);
    Set(Id(), menuOption(*pstItem), menuSave(Save, bSaveCfg), BU_TRUE);
    return 0;
}

template <PFN_SET_WORD_DEV_STORE Set, PFN_MENU_ID Id> BU_S32 menuOptionOf(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    menuTraceOption(*pstItem);
    Set(Id(), menuOption(*pstItem), bSaveCfg);
    return 0;
}

/// A setting of the whole camera. @tparam Update  BU_FALSE: it counts from the next start on
template <PFN_SET_WORD Set, BU_BOOL Update = BU_TRUE, MenuSave Save = MenuSave::AS_ASKED>
BU_S32 menuCameraOption(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    menuTraceOption(*pstItem);
    Set(menuOption(*pstItem), menuSave(Save, bSaveCfg), Update);
    return 0;
}

template <PFN_SET_WORD_STORE Set, MenuSave Save = MenuSave::AS_ASKED>
BU_S32 menuStoredOption(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg)
{
    menuTraceOption(*pstItem);
    Set(menuOption(*pstItem), menuSave(Save, bSaveCfg));
    return 0;
}

template <PFN_SET_CARD_TEXT Set> BU_S32 menuCardText(ITEM_NODE_S *pstItem, BU_BOOL)
{
    menuTraceText(*pstItem);
    Set("NetCard0", menuText(*pstItem));
    return 0;
}

// Handlers that do more than pass a value on.
BU_S32 menuParamSetSaturation(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamSetLensImage(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamSetLensWB(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamSetLensExposure(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamSetLanguage(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamSetAudioInput(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamFactoryRestore(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamRestart(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamLensCorrection(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamSetEscape(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamModeSwitch(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamSetTally(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);

// Serial ports, addresses, network.
BU_S32 menuParamSetRs232ProtocolType(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamSetRs422ProtocolType(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamSetRs232Baudrate(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamSetRs422Baudrate(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamSetCOMMode(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamSetIrAddr(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamSetProtocolAddrVisca(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamSetProtocolAddrPelcoP(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamSetProtocolAddrPelcoD(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamSetFreedCamera(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamSetIpMode(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamDnsMode(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
BU_S32 menuParamNdi(ITEM_NODE_S *pstItem, BU_BOOL bSaveCfg);
