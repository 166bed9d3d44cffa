/// The menu library towards the camera service: it owns pages, items, drawing and navigation, and asks the service for
/// what the menu cannot know.
///
/// Callbacks run on the library's thread, one at a time, without a lock held: they may call the library again.
#pragma once

#include "base/types.h"
#include "media/overlay.h"

enum VALUE_TYPE_E : BU_S32 {
    VALUE_TYPE_E_INT32 = 0,
    VALUE_TYPE_E_OPT_TXT,  ///< one of a list of options
    VALUE_TYPE_E_EDIT_TXT, ///< a text that the user edits
    VALUE_TYPE_E_NONE
};
struct VALUE_RANGE_S {
    BU_S32 s32Min, s32Max, s32Def, s32Step;
};
struct INT32_VALUE_S {
    VALUE_RANGE_S stValRange;
    BU_S32 s32ValTmpCur;  ///< while it is edited
    BU_S32 s32ValSaveCur; ///< confirmed
};
struct LIST_HEAD_S {
    LIST_HEAD_S *next, *prev;
};
constexpr BU_S32 MENU_OPTION_MAX = 32;
struct TXT_VALUE_S {
    BU_CHAR acValShow[MENU_OPTION_MAX][32];  ///< labels
    BU_CHAR acValIndex[MENU_OPTION_MAX][32]; ///< keys: the words of the setting
    BU_S32 s32ValTmpCur, s32ValSaveCur;      ///< index of the option being chosen, of the confirmed one
    BU_S32 s32ValCnt;
    LIST_HEAD_S astSubItemHead[MENU_OPTION_MAX];
};
struct EDITABLE_VALUE_S {
    BU_CHAR acCurVal[32]; ///< confirmed
    BU_CHAR acTmpVal[32];
};
union VALUE_U {
    INT32_VALUE_S stIntVal;
    TXT_VALUE_S stTxtVal;
    EDITABLE_VALUE_S stEditableVal;
};

struct OSD_MENU_RECT_S {
    BU_FLOAT fX, fY, fW, fH; ///< fractions of the output picture
};

/// An item of a page as the library hands it to the service, which only reads it. What describes how the library shows
/// an item is its own. Texts are terminated.
struct ITEM_NODE_S {
    BU_S32 enItemCtx;
    BU_CHAR acIconFileName[32], acSelectedIconFileName[32];
    BU_CHAR acItemName[32];  ///< label
    BU_CHAR acItemIndex[32]; ///< key
    BU_S32 enLevel;
    BU_CHAR acSubPage[32], acConfirmPage[32];
    BU_CHAR acMsgIndex[32], acMsgShow[32];
    BU_CHAR acDataZone[32]; ///< group of sections the value belongs to: "IMAGE", "WBLANCE" ...; empty: none
    VALUE_TYPE_E enValType; ///< which member of unVal holds
    VALUE_U unVal;
    BU_S32 enIconType;
    BU_BOOL bManualConfirm; ///< a stepped value counts only once it is entered
    BU_S32 enItemAttr;
    OSD_MENU_RECT_S stRect;
    BU_BOOL bItemSelected, bHasParent;
    BU_S32 enOrientation;
    BU_S32 s32ItemNumPerLine, s32ItemIndexOnLine;
    BU_BOOL bConfirmScale, bIconRefresh, bLineDraw, bTransMode, bVisible, bFootLine;
    BU_S32 stNetWork;
    LIST_HEAD_S stNode, stSortNode;
};

struct OSD_MENU_CFG_S {
    OSD_MENU_RECT_S stRect; ///< the menu's place in the output picture
    OSD_FORMAT_E enFormat;  ///< of the canvas that is shown
    BU_BOOL bSupport4K;     ///< drawn for outputs up to 3840 x 2160; else up to 1920 x 1080, larger ones get it scaled
    BU_BOOL bTkvStatus;     ///< the model with a second lens: its pages hold the items that choose one
};

/// What the library asks the service to tell in words.
enum OSD_MENU_GET_EVENT_E : BU_S32 {
    OSD_MENU_GET_AF_E_VERSION_INFO = 0,
    OSD_MENU_GET_ISP_E_VERSION_INFO,
    OSD_MENU_GET_AI_E_VERSION_INFO,
    OSD_MENU_GET_FW_E_VERSION_INFO,
    OSD_MENU_GET_DEV_E_VIDEO_INFO,
    OSD_MENU_GET_DEV_E_NAME_INFO,
    OSD_MENU_GET_SN_E_INFO,
    OSD_MENU_GET_MAC_E_INFO,
    OSD_MENU_GET_NDI_E_VERSION_INFO,
    OSD_MENU_GET_FULL_NDI_E_VERSION_INFO,
    OSD_MENU_GET_NDI_E_STATUS,
    OSD_MENU_GET_TALLY_E_CUSTOM_COLOR_INFO,
    OSD_MENU_GET_SHUTTER_E_VALUE, ///< key of the free shutter value at the present frame rate
    OSD_MENU_GET_SHUTTER_E_SPEED  ///< key of the shutter steps
};
struct OSD_MENU_CONTROL_PARAM_S {
    BU_CHAR acVersion[64];
};

/// A value was confirmed. @return 0 taken, -1 not
typedef BU_S32 (*PFN_OSD_MENU_SET_PARAM)(ITEM_NODE_S *pstItem);
/// @return the configuration section a data zone stands for now, null: none
typedef const BU_CHAR *(*PFN_OSD_MENU_DATA_ZONE)(const BU_CHAR *pcZone);
/// Fills acVersion, or leaves it as it is: no answer.
typedef void (*PFN_OSD_MENU_GET_INFO)(void *pvUser, OSD_MENU_GET_EVENT_E enEvent, OSD_MENU_CONTROL_PARAM_S *pstParam);

/// Reads the description of the menu and starts it, closed. Until then the keys open and close a menu that shows
/// nothing.
/// @param pvPage  not used
/// @return 0; -1: null, a rectangle outside the picture, or a faulty description (logged with its line); the menu then
///         stays as it was
BU_S32 OSD_MENU_InitSdkRes(const OSD_MENU_CFG_S *pstCfg, PFN_OSD_MENU_SET_PARAM pfnSetParam,
                           PFN_OSD_MENU_DATA_ZONE pfnDataZone, void *pvPage);
/// Registers who answers questions; null: nobody. @return 0
BU_S32 Osd_GetVersionCallback(PFN_OSD_MENU_GET_INFO pfnGetInfo, void *pvUser);
/// Draws the page again where a change altered what it shows. @return 0, or -1: the menu is closed
BU_S32 OSD_MENU_RefreshCurrentPage();

/// Starts the status texts in the picture (setting "Prompt"): date and time, zoom, preset, tracking. @return 0
BU_S32 OSD_PROMPT_Init();
