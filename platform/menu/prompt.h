/// Texts in the picture beside the menu: the status line and messages for a moment.
#pragma once

#include "overlayCanvas.h"

#include "util/time.h"

#include <ctime>
#include <optional>
#include <string>

namespace menu
{
struct Status {
    BU_FLOAT fZoom = 1;
    std::optional<BU_S32> preset; ///< the stored position the camera stands at
    std::string strTracking;      ///< the mode; empty: off
    bool operator==(const Status &) const = default;
};
/// "2025-06-18 14:05:09   4.0x   Preset 5   Tracking: Stage"
std::string statusLine(const std::tm &stTime, const Status &status);

/// Both live on the menu's thread and are only used there.
class Prompts
{
public:
    explicit Prompts(util::TimerQueue &queue) : m_queue(queue) {}

    void startStatus();
    void say(const std::string &strText);

private:
    void poll();
    void showStatus(const std::string &strLine);
    Status readStatus();

    util::TimerQueue &m_queue;
    OverlayCanvas m_status, m_message;
    util::TimerQueue::Id m_pollId = 0, m_messageId = 0;
    std::string m_strShown;
    Box m_shownFor;
    std::optional<BU_S32> m_preset; // looked up once a second
    BU_S32 m_s32Polls = 0;
};
} // namespace menu
