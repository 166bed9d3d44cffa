#include "drives.h"

#include "web/panelPayload.h"

#include <algorithm>
#include <array>

namespace web
{
namespace
{
typedef tag_WEB_RPC_PANEL_REQ_PAYLOAD_S Panel;

// Items that move the head or the lens: with both values 0 they stop it.
struct tagMOVEMENT_S {
    tag_WEB_RPC_EVENT_GROUP_E enEvent;
    BU_S32 s32Item;
};
constexpr std::array MOVEMENTS{
    tagMOVEMENT_S{WEB_RPC_EVENT_GROUP_E_SET_PT, 9},  // pan and tilt
    tagMOVEMENT_S{WEB_RPC_EVENT_GROUP_E_SET_PT, 11}, // zoom
    tagMOVEMENT_S{WEB_RPC_EVENT_GROUP_E_SET_AF, 6},  // focus
};
constexpr BU_S32 HOME = -2; // a direction that ends by itself
} // namespace

void Drives::note(const std::string &strSession, tag_WEB_RPC_EVENT_GROUP_E enEvent, const std::string &strImage)
{
    Panel stPanel;
    if (strImage.size() != stPanel.getSize()) return;
    web_layout::load(stPanel, strImage.data());
    const auto row = std::ranges::find_if(MOVEMENTS, [&](const tagMOVEMENT_S &st) {
        return st.enEvent == enEvent && st.s32Item == stPanel.s32EventType;
    });
    if (row == MOVEMENTS.end()) return;
    const bool bGoesOn = (stPanel.s32Value0 != 0 || stPanel.s32Value1 != 0) && stPanel.s32Value0 != HOME;
    auto &running = m_running[strSession];
    const auto index = static_cast<std::size_t>(row - MOVEMENTS.begin());
    if (bGoesOn)
        running.insert(index);
    else
        running.erase(index);
    if (running.empty()) m_running.erase(strSession);
}

std::vector<Drives::Stop> Drives::take(const std::string &strSession)
{
    std::vector<Stop> stops;
    for (const std::size_t index : m_running[strSession]) {
        Panel stPanel;
        stPanel.s32EventType = MOVEMENTS[index].s32Item;
        stops.push_back({MOVEMENTS[index].enEvent, std::string(stPanel.getSize(), '\0')});
        web_layout::dump(stPanel, stops.back().strImage.data());
    }
    m_running.erase(strSession);
    return stops;
}
} // namespace web
