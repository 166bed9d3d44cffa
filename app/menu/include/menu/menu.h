/// The on-screen menu: what the service answers to the menu library. The library calls on its own thread.
#pragma once

#include "camera/menuLibrary.h"

/// Starts the menu library with the callbacks below. @return 0, or negative: the menu stays off
BU_S32 OSD_MENU_RegisterModule();
BU_S32 OSD_MENU_UnRegisterModule(); ///< @return 0

/// Applies the confirmed value of an item. @return 0, or -1: unknown key, or its handler failed
BU_S32 OSD_MENU_SetParam(ITEM_NODE_S *pstItem);
/// @return the configuration section of a data zone for the lens that is selected now, null: none
const BU_CHAR *OSD_MENU_DataZoneGetSection(const BU_CHAR *pcZone);
/// Answers a question in acVersion; an unknown one leaves it as it is.
void OSD_MENU_EventHandler(void *pvOpaq, OSD_MENU_GET_EVENT_E ePtzEvent, OSD_MENU_CONTROL_PARAM_S *pstPtzParam);
