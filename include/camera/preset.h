/// Presets: stored positions, special numbers, picture presets.
///
/// A preset is pan, tilt, zoom and focus under a number with a name, kept in the store. A recall moves the head at the
/// preset speed and the lens at its full speed; the focus moves only while it is manual.
///
/// Home is preset 0 when that was stored under the name "PresetHome", else pan and tilt 0 degrees at the wide end.
#pragma once

#include "camera/motion.h"

#include <functional>
#include <vector>

typedef std::function<void(void *)> FN_PRESET_INTERRUPT_CALL;
struct PRESET_INFO_S {
    BU_S32 s32PresetId;
    BU_CHAR acName[32];                                    ///< terminated
    BU_S32 s32PanPos, s32TiltPos, s32ZoomPos, s32FocusPos; ///< motor units, see camera/motion.h
};

/// Recalls a preset and returns at once. A special number runs its handler on the preset thread instead.
///
/// A recall has two ends, pan/tilt and zoom/focus, also where nothing has to move: each is reported to the callback its
/// source registered for that unit, with a copy of the data. A recall that a newer command takes over, of either unit
/// while that one still moves, has no further end; the source's PFN_PRESET_SUPERSEDED is told instead, once.
/// @param s32Preset  0...999, or -1 for home
/// @return 1: the recall runs and its ends follow; 0: nobody is to hear of the end (no data, or no callback), or a
///   special number; -1: nothing stored there, unknown source, nothing started, stand-by
/// Thread: any.
BU_S32 PRESET_API_GotoById(BU_S32 s32Preset, PT_CTRL_FROM_E enFrom, void *pvPrivate);
/// Recalls home, as PRESET_API_GotoById(-1).
BU_S32 PRESET_API_GotoHome(PT_CTRL_FROM_E enFrom, void *pvPrivate);

/// Puts the camera where it starts (PT_API_SetPowerUpPtzPos): at that preset, or at home when there is none. For the
/// start, while no controller is connected: the head stands there when the call returns. @return 0
BU_S32 PRESET_API_GotoPowerUpPosition();

/// Told on the motion thread that a recall was superseded. pvPrivate: a copy of the recall's data, of the size
/// registered for the source.
typedef void (*PFN_PRESET_SUPERSEDED)(PT_CTRL_FROM_E enFrom, const void *pvPrivate, BU_S32 s32Size);
/// Only recalls with data, of a source with a registered end callback, are told. Null ends the registration.
/// @return 0, or -1: unknown source
BU_S32 PRESET_API_RegisterSuperseded(PT_CTRL_FROM_E enFrom, PFN_PRESET_SUPERSEDED pfn);

/// Stores the position of this moment, also a position in motion.
/// @param pcName  at most 31 characters are kept; null or empty: the name it had, else "Preset" and the number
/// @return 0, or -1: a number outside 0...999, a special number, or not written
BU_S32 PRESET_API_SetCur(BU_S32 s32Preset, const BU_CHAR *pcName);
/// @return 0, also when nothing was stored there; -1: a number outside, or not written
BU_S32 PRESET_API_DeleteById(BU_S32 s32Preset);
/// @return 0, or -1: nothing stored there; the record is untouched
BU_S32 PRESET_API_QueryById(BU_S32 s32Preset, PRESET_INFO_S *pstInfo);
/// All that are stored, by number.
std::vector<PRESET_INFO_S> PRESET_API_List();
/// @return 0, or -1: not a special number
BU_S32 PRESET_API_QuerySpecialById(BU_S32 s32Preset);

/// Makes a number special: recalling it runs the handler with pvUser, on the preset thread, one after the other. A
/// position stored under the number is kept but cannot be reached. Registering again replaces the handler.
/// @return 0, or -1: an empty handler or a number outside 0...999
BU_S32 PRESET_API_RegisterIdInterrupt(BU_S32 s32Preset, const BU_CHAR *pcName, FN_PRESET_INTERRUPT_CALL fnHandler,
                                      void *pvUser);

/// Registers who hears of each preset that was stored or deleted, also by a factory restore. @return its id, > 0; -1
/// for an empty one Thread: any. The listener runs on the thread of whoever changes the preset and must return soon.
BU_S32 PRESET_API_Listen(std::function<void(BU_S32 s32Preset)> fnListener);
/// Takes a listener away. A call that runs right now may still reach it. @return 0, or -1: no such id
BU_S32 PRESET_API_Unlisten(BU_S32 s32Id);

// settings: PRESET_API_PanTilt
/// in equal steps up to the head's greatest speed: 1...24, default 20 [PresetSpeed]
BU_S32 PRESET_API_GetPresetSpeed(BU_S32 s32Dev, BU_S32 *ps32Value, BU_BOOL bReread = BU_FALSE);
BU_S32 PRESET_API_SetPresetSpeed(BU_S32 s32Dev, BU_S32 s32Value, BU_BOOL bSaveCfg, BU_BOOL bUpdate);
// end of settings

/// Applies a picture preset to the close-up pipeline; the settings it sets are saved. Returns when done.
/// @param s32Preset  0...254 stored by IMAGEPRESET_API_SetCur; built in: -250 neutral, -1 natural, -2 film, -3 vivid
/// @return 0, or -1: no such preset, or a setting was refused
BU_S32 IMAGE_PRESET_API_GotoById(BU_S32 s32Preset, PT_CTRL_FROM_E enFrom, void *pvPrivate);
/// @return 0, or -1: not there, built in, or not written
BU_S32 IMAGE_PRESET_API_DeleteById(BU_S32 s32Preset);
/// Stores picture, exposure and white-balance settings of the close-up pipeline. The name without the underscore is its
/// name. @param pcName  null or empty: "Image" and the number. @return 0, or -1: a number outside, or not written
BU_S32 IMAGEPRESET_API_SetCur(BU_S32 s32Preset, const BU_CHAR *pcName);
