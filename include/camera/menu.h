/// Menu keys: what remotes, the web pad and protocols press. Thread: any.
///
/// Up and down choose an item, left and right step its value, enter opens a page, starts an action or confirms a value.
/// A key returns at once: what it changes is applied and drawn on the menu's thread, in the order of the keys.
/// While the menu is closed every key but those that open it is refused with -1; a key of an open menu returns 0.
#pragma once

#include "base/types.h"

BU_S32 CMD_MENU_GetMenuStatus();         ///< 1 while the menu is shown, else 0
BU_S32 CMD_MENU_HandleMenuBtn();         ///< opens the menu or leaves it
BU_S32 CMD_MENU_HandleAdvancedMenuBtn(); ///< the same with the advanced pages
BU_S32 CMD_MENU_OnlyOpenMenu();          ///< an open one stays open
BU_S32 CMD_MENU_OnlyCloseMenu();         ///< a closed one stays closed
BU_S32 CMD_MENU_OnlyReturnMenu();        ///< a page back, or out of a text; from the first page the menu closes
BU_S32 CMD_MENU_HandeHomeBtn();          ///< enter
BU_S32 CMD_MENU_HandeUpBtn();
BU_S32 CMD_MENU_HandeDownBtn();
BU_S32 CMD_MENU_HandeLeftBtn();
BU_S32 CMD_MENU_HandeRightBtn();
BU_S32 CMD_MENU_HandeUpLeftBtn(); ///< a diagonal counts as its up or down
BU_S32 CMD_MENU_HandeUpRightBtn();
BU_S32 CMD_MENU_HandeDownLeftBtn();
BU_S32 CMD_MENU_HandeDownRightBtn();
BU_S32 CMD_MENU_HandeLeftUpdateParam();  ///< a held key steps the value down, shown but not applied
BU_S32 CMD_MENU_HandeRightUpdateParam(); ///< or up
BU_S32 CMD_MENU_HandeSetParam();         ///< applies the value stepped so

/// Starts a move of the head at the configured speed, from the remote. @param s32Arg  0. @return as BSP_PTCtrlMotion
BU_S32 CMD_PT_HandeUpBtn(BU_S32 s32Arg);
BU_S32 CMD_PT_HandeDownBtn(BU_S32 s32Arg);
BU_S32 CMD_PT_HandeLeftBtn(BU_S32 s32Arg);
BU_S32 CMD_PT_HandeRightBtn(BU_S32 s32Arg);
BU_S32 CMD_PT_StopMove();

BU_S32 OSD_MENU_GetMenuStatus(); ///< 1 while the menu is shown, else 0
BU_S32 OSD_MENU_ReturnMenu();    ///< as CMD_MENU_OnlyReturnMenu
/// Loads what the menu draws with: its fonts. Once, at the start.
/// @return 0, also when it is loaded; -1: a font is not there (logged)
BU_S32 OSD_MENU_InitOpensourceRes();
/// Whether enter on the selected item of an open menu leads to a page of its own: 1, else 0.
BU_S32 OSD_Menu_HasSubPage();

/// Shows the user something in the picture for five seconds, when the "Prompt" setting is on; logged as well.
/// @param pcIp  the camera's address. @return 0, or -1: off, or null
BU_S32 PROMPT_API_ShowIpaddr(const BU_CHAR *pcIp);
BU_S32 PROMPT_API_ShowHdmiInfo(); ///< format and rate of the HDMI output

/// The menu's language: "Chinese" or "English", default English [Language]. @return 0, or -1: another word, or not
/// stored
BU_S32 SYSTEM_API_SetLanguage(const BU_CHAR *pcWord, BU_BOOL bSaveCfg);
