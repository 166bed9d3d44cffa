// When the status line and messages show, and what they say.
#include "prompt.h"

#include "camera/motion.h"
#include "camera/picture.h"
#include "camera/tracking.h"
#include "camera/zoom.h"
#include "store/store.h"
#include "vocabulary/tables.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <iterator>

namespace menu
{
namespace
{
constexpr BU_S32 POLL_MS = 250, POLLS_A_SECOND = 4, MESSAGE_MS = 5000;
constexpr BU_S32 LINES_PER_HEIGHT = 32; // a line is so much of the picture's height
constexpr BU_S32 PRESET_TOLERANCE = 4;  // motor units and zoom steps that count as the same place

std::optional<BU_S32> presetHere()
{
    PT_POS_S stPos{};
    BU_S32 s32Zoom = 0;
    BSP_PTGetCurPos(0, &stPos, PT_DEV_TYPE_PAN_TILE_E);
    PTZ_API_GetZoomPos(0, &s32Zoom);
    const auto isNear = [](BU_S64 s64Left, BU_S64 s64Right) {
        return std::llabs(s64Left - s64Right) <= PRESET_TOLERANCE;
    };
    for (const CFG_PRESET_S &st : CFG_STORE_ListPresets())
        if (isNear(st.s32PanPos, static_cast<BU_S32>(stPos.u32PanPos)) &&
            isNear(st.s32TiltPos, static_cast<BU_S32>(stPos.u32TiltPos)) && isNear(st.s32ZoomPos, s32Zoom))
            return st.s32Id;
    return std::nullopt;
}

std::string trackingNow()
{
    BU_S32 s32On = BU_FALSE, s32Mode = 0;
    ALG_API_GetEnable(&s32On);
    ALG_API_GetTrackMode(&s32Mode);
    if (!s32On) return "";
    std::string strMode = sysEnum2Str(MAP_TRACK_MODE, std::size(MAP_TRACK_MODE), s32Mode);
    if (const auto tail = strMode.find("Tracking"); tail != strMode.npos) strMode.resize(tail);
    return strMode;
}

bool isPromptOn()
{
    BU_S32 s32On = BU_FALSE;
    return SYS_API_GetPrompt(&s32On) == 0 && s32On;
}
} // namespace

std::string statusLine(const std::tm &stTime, const Status &status)
{
    BU_CHAR acTime[32]{}, acZoom[32];
    std::strftime(acTime, sizeof(acTime), "%Y-%m-%d %H:%M:%S", &stTime);
    std::snprintf(acZoom, sizeof(acZoom), "   %.1fx", static_cast<double>(status.fZoom));
    std::string strLine = std::string(acTime) + acZoom;
    if (status.preset) strLine += "   Preset " + std::to_string(*status.preset);
    if (!status.strTracking.empty()) strLine += "   Tracking: " + status.strTracking;
    return strLine;
}

void Prompts::startStatus()
{
    m_queue.cancel(m_pollId);
    m_strShown.clear();
    m_s32Polls = 0;
    poll();
}

Status Prompts::readStatus()
{
    Status status;
    PTZ_API_GetZoomTime(0, &status.fZoom);
    if (m_s32Polls++ % POLLS_A_SECOND == 0) m_preset = presetHere();
    status.preset = m_preset;
    status.strTracking = trackingNow();
    return status;
}

void Prompts::poll()
{
    m_pollId = m_queue.at(UTIL_TIME_NowMs() + POLL_MS, [this] { poll(); });
    if (!isPromptOn()) {
        m_status.hide();
        m_strShown.clear();
        return;
    }
    const std::time_t now = std::time(nullptr);
    std::tm stTime{};
    localtime_r(&now, &stTime);
    showStatus(statusLine(stTime, readStatus()));
}

/// In the lower left corner.
void Prompts::showStatus(const std::string &strLine)
{
    const Box video = videoSize(true);
    if (strLine == m_strShown && video == m_shownFor) return;
    m_strShown = strLine;
    m_shownFor = video;
    const BU_S32 h = (video.h / LINES_PER_HEIGHT) & ~1, s32Gap = h / 2;
    const Surface surface = paintLine(strLine, h, video.w - 2 * s32Gap);
    if (surface)
        m_status.show(surface.get(), {s32Gap, video.h - s32Gap - h, widthOf(*surface), h}, video,
                      OSD_FORMAT_E_ARGB4444);
}

/// In the middle, at three quarters of the height.
void Prompts::say(const std::string &strText)
{
    const Box video = videoSize(true);
    const BU_S32 h = (video.h / LINES_PER_HEIGHT * 2) & ~1;
    const Surface surface = paintLine(strText, h, video.w * 9 / 10);
    if (!surface) return;
    const BU_S32 w = widthOf(*surface);
    m_message.show(surface.get(), {(video.w - w) / 2, video.h * 3 / 4, w, h}, video, OSD_FORMAT_E_ARGB4444);
    m_queue.cancel(m_messageId);
    m_messageId = m_queue.at(UTIL_TIME_NowMs() + MESSAGE_MS, [this] { m_message.hide(); });
}
} // namespace menu
