/// The lens: zoom and focus. Plain state with the time handed in; the caller holds the lock.
#pragma once

#include "axis.h"
#include "position.h"

namespace motion
{
/// What the settings ask of the lens, read before the lock is taken.
struct LensSettings {
    BU_S32 s32ZoomEnd;
    bool bAuto; ///< automatic focus
};
LensSettings lensSettings();

constexpr BU_U8 ZOOM_SPEED_MAX = 7, FOCUS_SPEED_MAX = 8;

/// While the focus follows, it stands at the sharp position of the zoom and the scene at every moment, plus a rest that
/// runs to zero whenever one of the two jumps. Otherwise it stands where it was sent.
class Lens
{
public:
    /// @param s32Focus  of a manual focus
    void place(BU_S32 s32Zoom, BU_S32 s32Focus);
    /// Takes over the present settings; first call of every command and question.
    /// @return true: the focus has just become automatic and took over from a command of its own
    bool adopt(BU_S64 s64NowUs, const LensSettings &stSettings);

    BU_S32 zoomAt(BU_S64 s64NowUs) const;
    BU_S32 focusAt(BU_S64 s64NowUs) const;
    BU_S32 zoomEnd() const { return m_stSettings.s32ZoomEnd; }
    bool isAuto() const { return m_stSettings.bAuto; }

    /// @return when the target is reached
    BU_S64 zoomTo(BU_S64 s64NowUs, BU_S32 s32Target, BU_U8 u8Speed);
    void zoomStop(BU_S64 s64NowUs);
    BU_S64 focusTo(BU_S64 s64NowUs, BU_S32 s32Target, BU_U8 u8Speed);
    void focusStop(BU_S64 s64NowUs);
    /// Focuses once, from s64StartUs on; an automatic focus follows again.
    void focusOnce(BU_S64 s64NowUs, BU_S64 s64StartUs);

    void setScene(BU_S64 s64NowUs, BU_S32 s32DistanceCm);
    void setFrameRate(BU_S32 s32Fps);

private:
    double sharpAt(BU_S64 s64Us) const { return sharpFocus(m_zoom.at(s64Us).dPos, m_s32DistanceCm); }
    double focusPos(BU_S64 s64Us) const { return m_focus.at(s64Us).dPos + (m_bFollows ? sharpAt(s64Us) : 0); }
    void follow(BU_S64 s64NowUs);
    void hold(BU_S64 s64NowUs);
    void resume(BU_S64 s64NowUs);
    Drive searchDrive() const;

    LensSettings m_stSettings{ZOOM_OPTICAL_END, false};
    AxisPath m_zoom;
    AxisPath m_focus{FOCUS_FAR_END}; // while the focus follows: the rest; else the position
    bool m_bFollows = false;
    BU_S32 m_s32DistanceCm = 500, m_s32Fps = 60;
};
} // namespace motion
