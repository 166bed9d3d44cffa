/// What keys do, as building blocks: a handler is mostly one of these with its values.
#pragma once

#include "camera/focus.h"
#include "camera/zoom.h"
#include "keyState.h"

namespace input
{
inline bool isPress(KEY_EVENT_E enEvent) { return enEvent == KEY_EVENT_E_DOWN; }

inline BU_S32 nothing(KEY_EVENT_E) { return 0; }

/// Does something on the press; the release does nothing.
template <auto Action> BU_S32 onPress(KEY_EVENT_E enEvent)
{
    if (isPress(enEvent)) Action();
    return 0;
}

/// Drives the zoom while the key is held.
template <ZOOM_ACTION_E Action, BU_U8 Speed> BU_S32 zoom(KEY_EVENT_E enEvent)
{
    PTZ_API_SetZoomAct(0, isPress(enEvent) ? Action : ZOOM_ACTION_E_STOP, Speed);
    return 0;
}

/// Focuses by hand while the key is held; the focus stays manual.
template <FOCUS_ACTION_E Action, BU_U8 Speed> BU_S32 focus(KEY_EVENT_E enEvent)
{
    AF_API_SetFocusAuto(0, BU_FALSE, BU_TRUE, BU_TRUE);
    AF_API_SetFocusAct(0, isPress(enEvent) ? Action : FOCUS_ACTION_E_STOP, Speed);
    return 0;
}

bool isMenuOpen();
bool isTracking();

// What several remotes do on a press.
void goHome();
void focusAuto();
void toggleTracking();
void trackFullBody(); ///< only in the everywhere and zone modes
void trackHalfBody();
void trackCloseUp();
void recall(BU_S32 s32Preset);
/// The number keys that follow type the preset's number.
void startCommand(PRESET_POINT_KEY_TYPE_E enCommand);
template <PRESET_POINT_KEY_TYPE_E Command> void awaitNumber() { startCommand(Command); }
/// The name a number key stores its preset under.
const BU_CHAR *presetName(BU_S32 s32Digit);
} // namespace input
