/// Keys of the remotes and of the front panel, how their codes become keys, and what they find their handlers by.
#pragma once

#include "base/types.h"

#include <algorithm>
#include <array>
#include <span>

struct input_event;

enum KEY_EVENT_E : BU_S32 { KEY_EVENT_E_UP = 0, KEY_EVENT_E_DOWN = 1 }; ///< any value but DOWN is a release

// clang-format off
enum KEY_TYPE_E : BU_S32 {
    KEY_TYPE_E_POWER = 0, KEY_TYPE_E_MENU, KEY_TYPE_E_ZOOM_OUT, KEY_TYPE_E_ZOOM_IN, KEY_TYPE_E_UP, KEY_TYPE_E_DOWN,
    KEY_TYPE_E_LEFT, KEY_TYPE_E_RIGHT, KEY_TYPE_E_HOME, KEY_TYPE_E_FOCUS_NEAR, KEY_TYPE_E_FOCUS_FAR,
    KEY_TYPE_E_FOCUS_AUTO, KEY_TYPE_E_FOCUS_Manual, KEY_TYPE_E_FOCUS_Adjust, KEY_TYPE_E_IRIS_ADD, KEY_TYPE_E_IRIS_SUB,
    KEY_TYPE_E_IRIS_RESET, KEY_TYPE_E_OSD_DATA, KEY_TYPE_E_BACK_LIGHT, KEY_TYPE_E_F1, KEY_TYPE_E_F2, KEY_TYPE_E_F3,
    KEY_TYPE_E_F4, KEY_TYPE_E_NUM1, KEY_TYPE_E_NUM2, KEY_TYPE_E_NUM3, KEY_TYPE_E_NUM4, KEY_TYPE_E_NUM5,
    KEY_TYPE_E_NUM6, KEY_TYPE_E_NUM7, KEY_TYPE_E_NUM8, KEY_TYPE_E_NUM9, KEY_TYPE_E_NUM0, KEY_TYPE_E_BACK,
    KEY_TYPE_E_CALL, KEY_TYPE_E_SET, KEY_TYPE_E_CLEAR, KEY_TYPE_E_CONFIRM, KEY_TYPE_E_DELETE, KEY_TYPE_E_ENTRY,
    KEY_TYPE_E_RESET, KEY_TYPE_E_TRACK, KEY_TYPE_E_TRACK_FAR, KEY_TYPE_E_TRACK_MID, KEY_TYPE_E_TRACK_NEAR,
    KEY_TYPE_E_ID1, KEY_TYPE_E_ID2, KEY_TYPE_E_ID3, KEY_TYPE_E_ID4, KEY_TYPE_E_LONG_PRESS1, KEY_TYPE_E_LONG_PRESS2,
    KEY_TYPE_E_LONG_PRESS3,
    KEY_TYPE_E_BUTT ///< no key
};
// clang-format on
static_assert(KEY_TYPE_E_F1 == 19 && KEY_TYPE_E_NUM0 == 32 && KEY_TYPE_E_RESET == 40 && KEY_TYPE_E_BUTT == 52);

struct KEY_TRANS_MAP_S {
    BU_S32 enKeyKernCode;
    KEY_TYPE_E enKeyUserCode;
};
typedef BU_S32 (*KEY_FUNC)(KEY_EVENT_E); ///< a key's handler; returns 0
struct KEY_CB_S {
    KEY_TYPE_E enKeyCode;
    KEY_FUNC pfKeyCb;
};

/// Event callbacks of the devices. Thread: the monitor of the device.
void SR_COMMON_InputEventCb(const input_event *pstEvent);     ///< small remote
void BR_COMMON_InputEventCb(const input_event *pstEvent);     ///< big remote
void YM_COMMON_InputEventCb(const input_event *pstEvent);     ///< tracking remote
void KEYPAD_COMMON_InputEventCb(const input_event *pstEvent); ///< front key

namespace input
{
/// A key event of a device, addressed to this camera.
struct KeyEvent {
    BU_S32 s32KernCode;
    KEY_EVENT_E enEvent; ///< the kernel's value: also 2, the repeat of a held key
};
inline constexpr BU_S32 KEY_REPEAT = 2;

/// Whether a remote's event is a key event for this camera: the receiver is on, and the remote has the camera's
/// address. Then it is taken apart.
bool readRemote(const input_event &stEvent, KeyEvent &stKey);

/// One key of a device: the kernel's code, the key, its handler. Null: the key is taken in silence.
struct KeyRow {
    BU_S32 s32KernCode;
    KEY_TYPE_E enKey;
    KEY_FUNC pfKeyCb;
};
struct KeyTables {
    std::span<const KEY_TRANS_MAP_S> map;
    std::span<const KEY_CB_S> handlers;
};

// The two tables that the rows of a device make.
template <const auto &ROWS>
inline constexpr auto KEY_MAP = [] {
    std::array<KEY_TRANS_MAP_S, std::size(ROWS)> map;
    std::ranges::transform(ROWS, map.begin(), [](const KeyRow &st) {
        return KEY_TRANS_MAP_S{st.s32KernCode, st.enKey};
    });
    return map;
}();
template <const auto &ROWS>
inline constexpr auto KEY_HANDLERS = [] {
    std::array<KEY_CB_S, std::size(ROWS)> handlers;
    std::ranges::transform(ROWS, handlers.begin(), [](const KeyRow &st) { return KEY_CB_S{st.enKey, st.pfKeyCb}; });
    return handlers;
}();
template <const auto &ROWS> inline constexpr KeyTables TABLES{KEY_MAP<ROWS>, KEY_HANDLERS<ROWS>};

/// Calls the handler of the event's key, if there is one.
void press(const KeyTables &stTables, const KeyEvent &stKey);
/// The same without repeats; says on standard output which key it was, or that it is none.
void pressAndTrace(const KeyTables &stTables, const KeyEvent &stKey);
} // namespace input
