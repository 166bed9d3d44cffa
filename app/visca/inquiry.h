/// How inquiry handlers read the camera: one question a setting, mappings to the numbers of the protocol, and the
/// record's field as the place of the answer. A question that the service left unanswered leaves the field as it was
/// delivered.
#pragma once

#include "camera/focus.h"
#include "camera/image.h"
#include "camera/tracking.h"
#include "camera/video.h"
#include "config/config.h"
#include "fields.h"
#include "handlers.h"
#include "table.h"
#include <climits>

namespace visca
{
inline constexpr BU_S32 UNREAD = NONE; ///< neither has an unread setting a number

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
constexpr BU_S32 onOff(BU_S32 s32Value) { return codeOf<codes::SWITCHES>(s32Value); }

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

/// What the output's shutter has for a position, by its frame rate.
inline BU_S32 askShutterPosition(BU_S32 *ps32Position)
{
    const BU_S32 s32Shutter = ask<ISP_API_GetShutter>(), s32Fps = ask<SYSTEM_API_GetHdmiFps>();
    if (s32Shutter != UNREAD)
        *ps32Position =
            convertShutterTimeToViscaValue(static_cast<HDMI_FPS_E>(s32Fps), static_cast<SHUTTER_TIME_E>(s32Shutter));
    return 0;
}
/// A level counted from the least.
inline BU_S32 fromLeast(BU_S32 s32Value, const BU_CHAR *pcKey)
{
    return s32Value == UNREAD ? UNREAD : s32Value - rangeOf(pcKey).s32Min;
}
inline BU_S32 expCompPosition(BU_S32 s32Level) { return fromLeast(s32Level, "ExposureCompLevel"); }
} // namespace visca
