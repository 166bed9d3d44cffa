/// How inquiry handlers read the camera: one question a setting, mappings to the numbers of the protocol, and the
/// record's field as the place of the answer. A question that the service left unanswered leaves the field as it was
/// delivered.
#pragma once

#include "board/lamp.h"
#include "camera/focus.h"
#include "camera/image.h"
#include "camera/tracking.h"
#include "config/config.h"
#include "visca/viscaFields.h"
#include "visca/viscaHandlers.h"

#include <climits>

namespace visca
{
inline constexpr BU_S32 UNREAD = INT_MIN;
inline constexpr BU_S32 ON = 2, OFF = 3;

typedef BU_S32 (*PFN_GET_DEV)(BU_S32, BU_S32 *, BU_BOOL);
typedef BU_S32 (*PFN_GET)(BU_S32 *, BU_BOOL);
typedef BU_S32 (*PFN_QUESTION)(BU_S32 *ps32Value);

/// A getter as a question: pipeline and device 0.
template <PFN_GET_DEV Get, BU_BOOL bReread = BU_FALSE> BU_S32 question(BU_S32 *ps32Value)
{
    return Get(0, ps32Value, bReread);
}
template <PFN_GET Get, BU_BOOL bReread = BU_FALSE> BU_S32 question(BU_S32 *ps32Value)
{
    return Get(ps32Value, bReread);
}

/// The answer; s32Unread when there is none.
template <PFN_GET_DEV Get, BU_BOOL bReread = BU_FALSE> BU_S32 ask(BU_S32 s32Unread = UNREAD)
{
    Get(0, &s32Unread, bReread);
    return s32Unread;
}
template <PFN_GET Get, BU_BOOL bReread = BU_FALSE> BU_S32 ask(BU_S32 s32Unread = UNREAD)
{
    Get(&s32Unread, bReread);
    return s32Unread;
}

// Conversions of an answer to the number of the protocol; UNREAD stays UNREAD.
typedef BU_S32 (*PFN_CONVERT)(BU_S32 s32Value);
constexpr BU_S32 asRead(BU_S32 s32Value) { return s32Value; }
constexpr BU_S32 onOff(BU_S32 s32Value) { return s32Value == UNREAD ? UNREAD : s32Value ? ON : OFF; }

template <class Target> BU_S32 store(I *pstInfo, BU_S32 s32Value)
{
    if (s32Value != UNREAD) Target::set(*pstInfo, s32Value);
    return 0;
}
template <class Target> BU_S32 storeOnOff(I *pstInfo, BU_S32 s32Value)
{
    return store<Target>(pstInfo, onOff(s32Value));
}

/// The range of a setting; all 0 for an unknown key.
inline CFG_VALUE_INT_S rangeOf(const BU_CHAR *pcKey)
{
    CFG_VALUE_INT_S stRange{};
    CFG_COM_GetIntParams(pcKey, &stRange);
    return stRange;
}

/// A setting's value and the number that stands for it in the protocol.
struct tagVISCA_MAP_S {
    BU_S32 s32Camera, s32Visca;
};
/// @return UNREAD for a value that the protocol has no number for
template <const auto &astMap> constexpr BU_S32 mapped(BU_S32 s32Camera)
{
    for (const auto &stRow : astMap)
        if (stRow.s32Camera == s32Camera) return stRow.s32Visca;
    return UNREAD;
}
/// One number for every value outside the table.
template <const auto &astMap, BU_S32 s32Other> constexpr BU_S32 mappedOr(BU_S32 s32Camera)
{
    const BU_S32 s32Visca = mapped<astMap>(s32Camera);
    return s32Visca != UNREAD || s32Camera == UNREAD ? s32Visca : s32Other;
}

inline constexpr tagVISCA_MAP_S WB_MODES[] = {
    {WB_MODE_E_AUTO, VISCA_MSG_E_WB_AUTO},       {WB_MODE_E_INDOOR, VISCA_MSG_E_WB_INDOOR},
    {WB_MODE_E_OUTDOOR, VISCA_MSG_E_WB_OUTDOOR}, {WB_MODE_E_ONE_PUSH, VISCA_MSG_E_WB_ONE_PUSH_WB},
    {WB_MODE_E_MANUAL, VISCA_MSG_E_WB_MANUAL},   {WB_MODE_E_STATIC, VISCA_MSG_E_WB_COLOR_TEMPERATURE}};
inline constexpr tagVISCA_MAP_S AE_MODES[] = {{AE_MODE_E_AUTO, VISCA_MSG_E_AE_FULL_AUTO},
                                              {AE_MODE_E_MANUAL, VISCA_MSG_E_AE_NANUAL},
                                              {AE_MODE_E_SHUTTER, VISCA_MSG_E_AE_SHUTTER_PRIORITY},
                                              {AE_MODE_E_IRIS, VISCA_MSG_E_AE_IRIS_PRIORITY},
                                              {AE_MODE_E_BRIGHT, VISCA_MSG_E_AE_BRIGHT}};
inline constexpr tagVISCA_MAP_S TALLY_MODES[] = {
    {LED_TALLY_MODE_E_CLOSE, VISCA_MSG_TKV_NORMAL_TALLY_OFF},
    {LED_TALLY_MODE_E_COLOR_W, VISCA_MSG_TKV_NORMAL_TALLY_WHITE},
    {LED_TALLY_MODE_E_COLOR_CUSTOM, VISCA_MSG_TKV_NORMAL_TALLY_CUSTOM},
    {LED_TALLY_MODE_E_COLOR_RGB_CIRCLE, VISCA_MSG_TKV_NORMAL_TALLY_RGBCYCLE}};
inline constexpr tagVISCA_MAP_S ANTI_FLICKERS[] = {
    {FREQ_MODE_E_50HZ, 1}, {FREQ_MODE_E_60HZ, 2}, {FREQ_MODE_E_OUTDOOR, 0}};
inline constexpr tagVISCA_MAP_S PLACEMENTS[] = {{TRACK_PEOPLE_POS_CENTER, VISCA_MSG_E_PLACEMENT_CENTER},
                                                {TRACK_PEOPLE_POS_RIGHT, VISCA_MSG_E_PLACEMENT_RIGHT}};
} // namespace visca
