// Which calls begin and end a movement, and whose page must be gone for it to be stopped.
#include "drives.h"

#include "web/events.h"

namespace web_server
{
namespace
{
typedef tag_WEB_RPC_PANEL_REQ_PAYLOAD_S Panel;

static_assert(std::ranges::all_of(WEB_EVENTS, [](const WEB_EVENT_S &st) {
    return st.u64Movements == 0 || st.stRequest.pstRecord == &web_layout::RECORD<Panel>;
}));
constexpr BU_S32 HOME = -2; // a direction that ends by itself
} // namespace

void Drives::note(const std::string &strSession, tag_WEB_RPC_EVENT_GROUP_E enEvent, const std::string &strImage)
{
    const WEB_EVENT_S *pstEvent = findWebEvent(static_cast<BU_U32>(enEvent));
    const BU_U64 u64Movements = pstEvent ? pstEvent->u64Movements : 0;
    Panel stPanel;
    if (u64Movements == 0 || strImage.size() != stPanel.getSize()) return;
    web_layout::load(stPanel, strImage.data());
    const BU_S32 s32Item = stPanel.s32EventType;
    if (s32Item < 0 || s32Item > 63 || (u64Movements & webItems(s32Item)) == 0) return;
    const bool bGoesOn = (stPanel.s32Value0 != 0 || stPanel.s32Value1 != 0) && stPanel.s32Value0 != HOME;
    auto &running = m_running[strSession];
    if (bGoesOn)
        running.insert({enEvent, s32Item});
    else
        running.erase({enEvent, s32Item});
    if (running.empty()) m_running.erase(strSession);
}

std::vector<Drives::Stop> Drives::take(const std::string &strSession)
{
    std::vector<Stop> stops;
    for (const auto &[enEvent, s32Item] : m_running[strSession]) {
        Panel stPanel;
        stPanel.s32EventType = s32Item;
        stops.push_back({enEvent, std::string(stPanel.getSize(), '\0')});
        web_layout::dump(stPanel, stops.back().strImage.data());
    }
    m_running.erase(strSession);
    return stops;
}
} // namespace web_server
