// What a command makes of zoom and focus, and where sharpness is.
#include "lens.h"

#include "camera/focus.h"
#include "camera/zoom.h"

#include <algorithm>
#include <cmath>

namespace motion
{
namespace
{
// The fastest zoom crosses the lens in 2.5 s, the slowest in 20 s; the fastest focus crosses its range in 1.75 s.
constexpr double ZOOM_SPEED_STEP = ZOOM_OPTICAL_END / 20.0;
constexpr double ZOOM_ACCEL = 2.0 * ZOOM_OPTICAL_END;
constexpr double FOCUS_SPEED_STEP = (FOCUS_NEAR_END - FOCUS_FAR_END) / 14.0;
constexpr double FOCUS_ACCEL = 4.0 * (FOCUS_NEAR_END - FOCUS_FAR_END);
constexpr double SEARCH_STEP = 150; // focus units between two frames that are compared

Drive zoomDrive(BU_U8 u8Speed) { return {ZOOM_SPEED_STEP * (std::min(u8Speed, ZOOM_SPEED_MAX) + 1), ZOOM_ACCEL}; }
Drive focusDrive(BU_U8 u8Speed)
{
    return {FOCUS_SPEED_STEP * std::clamp<BU_U8>(u8Speed, 1, FOCUS_SPEED_MAX), FOCUS_ACCEL};
}
} // namespace

LensSettings lensSettings()
{
    BU_S32 s32Limit = 1, s32Digital = BU_FALSE, s32Auto = BU_FALSE;
    PTZ_API_GetMaxDZoomTime(0, &s32Limit);
    PTZ_API_GetDZoomMode(0, &s32Digital);
    AF_API_GetFocusAuto(0, &s32Auto);
    return {s32Digital ? motion::zoomEnd(s32Limit) : ZOOM_OPTICAL_END, s32Auto != BU_FALSE};
}

void Lens::place(BU_S32 s32Zoom, BU_S32 s32Focus)
{
    m_zoom = AxisPath(std::clamp(s32Zoom, 0, m_stSettings.s32ZoomEnd));
    m_bFollows = m_stSettings.bAuto;
    m_focus = AxisPath(m_bFollows ? 0 : std::clamp(s32Focus, FOCUS_FAR_END, FOCUS_NEAR_END));
}

bool Lens::adopt(BU_S64 s64NowUs, const LensSettings &stSettings)
{
    const bool bTakesOver = stSettings.bAuto && !m_stSettings.bAuto;
    if (bTakesOver) follow(s64NowUs);
    if (!stSettings.bAuto && m_bFollows) hold(s64NowUs);
    m_stSettings = stSettings;
    if (m_zoom.at(s64NowUs).dPos > stSettings.s32ZoomEnd) m_zoom = AxisPath(stSettings.s32ZoomEnd);
    return bTakesOver;
}

BU_S32 Lens::zoomAt(BU_S64 s64NowUs) const { return static_cast<BU_S32>(std::lround(m_zoom.at(s64NowUs).dPos)); }

BU_S32 Lens::focusAt(BU_S64 s64NowUs) const
{
    return std::clamp(static_cast<BU_S32>(std::lround(focusPos(s64NowUs))), FOCUS_FAR_END, FOCUS_NEAR_END);
}

Drive Lens::searchDrive() const { return {SEARCH_STEP * m_s32Fps, FOCUS_ACCEL}; }

/// From where it stands to the sharp position, and along with that from then on.
void Lens::follow(BU_S64 s64NowUs)
{
    const double dRest = focusPos(s64NowUs) - sharpAt(s64NowUs);
    m_bFollows = true;
    m_focus = AxisPath::move(s64NowUs, {dRest, 0}, 0, searchDrive());
}

/// Stays where it is.
void Lens::hold(BU_S64 s64NowUs)
{
    m_focus = AxisPath(std::clamp(focusPos(s64NowUs), double{FOCUS_FAR_END}, double{FOCUS_NEAR_END}));
    m_bFollows = false;
}

/// A zoom command: an automatic focus follows again after a command of its own, focusing after an earlier zoom is off.
void Lens::resume(BU_S64 s64NowUs)
{
    if (m_stSettings.bAuto && !m_bFollows) follow(s64NowUs);
    if (!m_bFollows && m_focus.startUs() > s64NowUs) hold(s64NowUs);
}

BU_S64 Lens::zoomTo(BU_S64 s64NowUs, BU_S32 s32Target, BU_U8 u8Speed)
{
    const BU_S32 s32Reachable = std::clamp(s32Target, 0, m_stSettings.s32ZoomEnd);
    resume(s64NowUs);
    m_zoom = AxisPath::move(s64NowUs, m_zoom.at(s64NowUs), s32Reachable, zoomDrive(u8Speed));
    return m_zoom.endUs();
}

void Lens::zoomStop(BU_S64 s64NowUs)
{
    if (!m_bFollows && m_focus.startUs() > s64NowUs) hold(s64NowUs);
    m_zoom = AxisPath::brake(s64NowUs, m_zoom.at(s64NowUs), 2 * ZOOM_ACCEL);
}

BU_S64 Lens::focusTo(BU_S64 s64NowUs, BU_S32 s32Target, BU_U8 u8Speed)
{
    if (m_bFollows) hold(s64NowUs);
    m_focus = AxisPath::move(s64NowUs, m_focus.at(s64NowUs), std::clamp(s32Target, FOCUS_FAR_END, FOCUS_NEAR_END),
                             focusDrive(u8Speed));
    return m_focus.endUs();
}

void Lens::focusStop(BU_S64 s64NowUs)
{
    if (!m_bFollows) m_focus = AxisPath::brake(s64NowUs, m_focus.at(s64NowUs), 2 * FOCUS_ACCEL);
}

void Lens::focusOnce(BU_S64 s64NowUs, BU_S64 s64StartUs)
{
    if (m_stSettings.bAuto) {
        if (!m_bFollows) follow(s64NowUs);
        return;
    }
    m_focus = AxisPath::move(s64StartUs, {m_focus.at(s64NowUs).dPos, 0}, sharpAt(s64StartUs), searchDrive());
}

void Lens::setScene(BU_S64 s64NowUs, BU_S32 s32DistanceCm)
{
    if (s32DistanceCm == m_s32DistanceCm) return;
    const double dPos = focusPos(s64NowUs);
    m_s32DistanceCm = s32DistanceCm;
    if (m_bFollows)
        m_focus = AxisPath::move(s64NowUs, {dPos - sharpAt(s64NowUs), m_focus.at(s64NowUs).dSpeed}, 0, searchDrive());
}

void Lens::setFrameRate(BU_S32 s32Fps) { m_s32Fps = s32Fps; }
} // namespace motion
