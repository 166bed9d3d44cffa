/// Lamps and small displays.
#pragma once

#include "base/setting.h"
#include <list>

enum LED_WORK_MODE_E : BU_S32 {
    LED_WORK_MODE_E_OFF = 0,
    LED_WORK_MODE_E_HOLD,
    LED_WORK_MODE_E_FLICK,
    LED_WORK_MODE_E_RGB_CIRCLE,
    LED_WORK_MODE_E_HOLD_DURATION,
    LED_WORK_MODE_E_FLICK_DURATION
};
enum LED_MODE_E : BU_S32 {
    LED_CLOSE = 0,
    LED_MODE_CONYINUE,
    LED_MODE_FLICKER_50HZ,
    LED_MODE_FLICKER_10HZ,
    LED_MODE_FLICKER_5HZ,
    LED_MODE_FLICKER_3HZ,
    LED_MODE_FLICKER_2HZ,
    LED_MODE_FLICKER_1HZ,
    LED_MODE_FLICKER_HALFHZ
};
enum LED_BRIGHTNESS_E : BU_S32 { LED_BRIGHTNESS_0 = 0, LED_BRIGHTNESS_80 = 80, LED_BRIGHTNESS_100 = 100 };
/// What a lamp shows.
struct LED_TALLY_STATE_S {
    LED_WORK_MODE_E enMode;
    BU_U32 u32ColorRGB;           ///< 0xRRGGBB; 0xFF000000 is all lamps on, white
    LED_BRIGHTNESS_E eBrightness; ///< percent
    BU_S32 s32FlickHz;            ///< LED_MODE_E
    BU_S32 s32DurationMs;         ///< of the modes with a duration, after which they are off
};
/// Who asks for a state of the lamp.
enum LED_EVENT_FROM_E : BU_S32 {
    LED_EVENT_FROM_E_CFG = 0,
    LED_EVENT_FROM_E_UPGRADE,
    LED_EVENT_FROM_E_VISCA,
    LED_EVENT_FROM_E_NDI,
    LED_EVENT_FROM_E_ALG,
    LED_EVENT_FROM_E_IR,
    LED_EVENT_FROM_E_SLEEP,
    LED_EVENT_FROM_E_ERR
};
enum tagLED_TALLY_MODE_E : BU_S32 {
    LED_TALLY_MODE_E_CLOSE = 0,
    LED_TALLY_MODE_E_COLOR_W,
    LED_TALLY_MODE_E_COLOR_R,
    LED_TALLY_MODE_E_COLOR_G,
    LED_TALLY_MODE_E_COLOR_B,
    LED_TALLY_MODE_E_COLOR_CUSTOM = 6,
    LED_TALLY_MODE_E_COLOR_RGB_CIRCLE = 7
};
/// How a lamp makes white: with a white light of its own, or with all three colours.
enum LED_WHITE_MODE_E : BU_S32 { LED_WHITE_MODE_E_SINGLE = 0, LED_WHITE_MODE_E_RGB = 1 };
typedef void *BSP_LED_HANDLE;
constexpr BU_U32 LED_PRIORITY_BASE = 16; ///< shown when no other source asks

struct LED_TALLY_INIT_ATTR_S {
    std::list<BSP_LED_HANDLE> listDevices; ///< all show the same; null ones are left out
    /// By source: of those whose state is not off the highest wins, and LED_PRIORITY_BASE stands below all others.
    BU_U32 u32PriorityFrom[8];
    BU_S32 (*fnEventCallback)(LED_EVENT_FROM_E);
    BU_S32 (*fnSelfTestCallback)(LED_EVENT_FROM_E);
    LED_WHITE_MODE_E enWhiteMode;
};
enum EINK_PIC_MODE_E : BU_S32 {
    EINK_PIC_MODE_E_ORIENTATION_ROTATE = 250,
    EINK_PIC_MODE_E_ORIENTATION = 251,
    EINK_PIC_MODE_E_WHITE = 255
};

/// Opens a lamp. On a PC a lamp is a file of the device root that holds what it shows as one line: "off",
/// "hold #FF0000 80%", "flick #00FF00 80% 2Hz", "circle 80%".
/// @param pcPath  "/dev/tally_led". @return its handle; null: the file cannot be made
BSP_LED_HANDLE BSP_LED_Init(const BU_CHAR *pcPath);
/// @return 0, or -1 on null. No manager may have the lamp any more.
BU_S32 BSP_LED_Destroy(BSP_LED_HANDLE pvLamp);

// The lamp manager of a name; "TallyLed" is the camera's. It shows the winning state of its sources.

/// Sets a manager up and starts its thread, which first runs fnSelfTestCallback with LED_EVENT_FROM_E_ERR (it may block
/// until start-up is over), then fnEventCallback for each source that asks for an update.
/// @return 0, or -1: null, or a manager of the name is there
BU_S32 LED_API_InitMgr(const BU_CHAR *pcName, const LED_TALLY_INIT_ATTR_S *pstAttr);
/// Ends a manager: its lamps go off, no callback begins any more. Does not wait for a running one. @return 0 or -1
BU_S32 LED_API_DestroyMgr(const BU_CHAR *pcName);
/// Records the state that a source asks for and shows the winning one. @return 0, or -1: no such manager or source
BU_S32 LED_API_SetLedStateInfoFrom(const BU_CHAR *pcName, LED_EVENT_FROM_E enFrom, LED_TALLY_STATE_S stState);
/// Shows the winning state. @return 0 or -1
BU_S32 LED_API_ApplyLedStateInfo(const BU_CHAR *pcName);
/// Takes the state of LED_EVENT_FROM_E_CFG from the settings below and shows the winning one. @return 0 or -1
BU_S32 LED_API_HandleCfgUpdateEvent(const BU_CHAR *pcName);
/// Makes every manager call its fnEventCallback, on its own thread. @return 0, or -1: there is no manager
BU_S32 LED_API_TriggerLedUpdateFrom(LED_EVENT_FROM_E enFrom);

// Settings of the camera's lamp, with or without a manager. The key in brackets names the setting in the store and in
// range questions. bUpdate also asks the manager for an update. @return 0, or -1: another name, or as every setting
/// Tally of the network on the lamp: switch, default on [TallyOnBoard].
BU_S32 LED_API_GetTallyOnBoard(const BU_CHAR *pcName, BU_BOOL *pbOn, BU_BOOL bReread = BU_FALSE);
BU_S32 LED_API_SetTallyOnBoard(const BU_CHAR *pcName, BU_BOOL bOn, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// What it shows at rest: tagLED_TALLY_MODE_E, default off [TallyMode].
BU_S32 LED_API_GetTallyMode(const BU_CHAR *pcName, BU_S32 *ps32Mode, BU_BOOL bReread = BU_FALSE);
BU_S32 LED_API_SetTallyMode(const BU_CHAR *pcName, BU_S32 s32Mode, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
/// The colour of LED_TALLY_MODE_E_COLOR_CUSTOM: 0xRRGGBB, default 0xFF8000 [TallyCustomColor].
BU_S32 LED_API_GetTallyCustomColor(const BU_CHAR *pcName, BU_U32 *pu32Rgb, BU_BOOL bReread = BU_FALSE);
BU_S32 LED_API_SetTallyCustomColor(const BU_CHAR *pcName, BU_U32 u32Rgb, BU_BOOL bSaveCfg, BU_BOOL bUpdate);

// Displays. On a PC they are text files of the device root, /dev/eink and /dev/oled. @return 0, or -1: not drawn
/// Draws name, address and output format in the mode of the setting.
BU_S32 EINK_API_RefreshScreen();
// settings: EINK_API_System
/// EINK_PIC_MODE_E: 250...255, default 251; only those that have a word [EinkMode]
BU_S32 EINK_API_GetMode(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
inline BU_S32 EINK_API_GetMode(EINK_PIC_MODE_E *penValue, BU_BOOL bReread = BU_FALSE)
{
    return EINK_API_GetMode(EnumAsNumber(penValue).address(), bReread);
}
// end of settings
BU_S32 EINK_API_SetModeAndRefreshScreen(BU_S32 s32Mode, BU_BOOL bSaveCfg);
/// @param pcText  up to 32 characters, longer ones are cut
BU_S32 OLED_API_RefreshScreen(const BU_CHAR *pcText);

// settings: SYS_API_ATEMSwi
/// tally from a switcher over the network: switch, default off [AtemTally]
BU_S32 SYS_API_GetATEMSwi(BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
// end of settings
/// Tells the listeners.
BU_S32 SYS_API_SetATEMSwi(BU_BOOL bOn, BU_BOOL bSaveCfg);
