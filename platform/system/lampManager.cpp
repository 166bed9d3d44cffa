// Which source decides what a lamp shows.
#include "lampManager.h"

#include "camera/settingEvent.h"
#include "lampDevice.h"
#include "util/journal.h"
#include "util/thread.h"
#include "util/time.h"

#include <algorithm>
#include <array>
#include <condition_variable>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <type_traits>
#include <vector>

namespace
{
constexpr std::size_t SOURCES = std::extent_v<decltype(LED_TALLY_INIT_ATTR_S::u32PriorityFrom)>;

bool isSource(BU_S32 enFrom) { return enFrom >= 0 && enFrom < static_cast<BU_S32>(SOURCES); }
bool endsByItself(const LED_TALLY_STATE_S &st)
{
    return st.enMode == LED_WORK_MODE_E_HOLD_DURATION || st.enMode == LED_WORK_MODE_E_FLICK_DURATION;
}

class Manager
{
public:
    explicit Manager(const LED_TALLY_INIT_ATTR_S &stAttr) : m_stAttr(stAttr) {}

    BU_S32 setState(LED_EVENT_FROM_E enFrom, const LED_TALLY_STATE_S &stState)
    {
        if (!isSource(enFrom)) return -1;
        const std::lock_guard guard(m_lock);
        m_astStates[enFrom] = stState;
        m_queue.cancel(m_aEnds[enFrom]);
        if (endsByItself(stState))
            m_aEnds[enFrom] = m_queue.at(UTIL_TIME_NowMs() + stState.s32DurationMs, [this, enFrom] { end(enFrom); });
        showWinner();
        return 0;
    }

    BU_S32 apply()
    {
        const std::lock_guard guard(m_lock);
        showWinner();
        return 0;
    }

    void post(LED_EVENT_FROM_E enFrom)
    {
        const std::lock_guard guard(m_lock);
        m_events.push_back(enFrom);
        m_event.notify_one();
    }

    void stop()
    {
        const std::lock_guard guard(m_lock);
        m_bStopped = true;
        for (BSP_LED_HANDLE pvLamp : m_stAttr.listDevices) lamp::show(pvLamp, "off");
        m_stAttr.listDevices.clear();
        m_event.notify_one();
    }

    /// The manager's thread.
    void run()
    {
        util::nameThread("ledManager");
        if (m_stAttr.fnSelfTestCallback) m_stAttr.fnSelfTestCallback(LED_EVENT_FROM_E_ERR);
        for (;;) {
            std::unique_lock guard(m_lock);
            m_event.wait(guard, [this] { return m_bStopped || !m_events.empty(); });
            if (m_bStopped) return;
            const LED_EVENT_FROM_E enFrom = m_events.front();
            m_events.pop_front();
            guard.unlock();
            if (m_stAttr.fnEventCallback) m_stAttr.fnEventCallback(enFrom);
        }
    }

private:
    /// Place in the order of priority; the base level is last.
    BU_U32 rankOf(std::size_t source) const
    {
        const BU_U32 u32Priority = m_stAttr.u32PriorityFrom[source];
        return u32Priority == LED_PRIORITY_BASE ? 0 : u32Priority;
    }

    /// The lock is held. Of two sources of one rank the later one in the enumeration wins.
    void showWinner()
    {
        LED_TALLY_STATE_S stWinner{};
        BU_U32 u32Rank = 0;
        for (std::size_t i = 0; i < SOURCES; ++i) {
            if (m_astStates[i].enMode == LED_WORK_MODE_E_OFF || rankOf(i) < u32Rank) continue;
            stWinner = m_astStates[i];
            u32Rank = rankOf(i);
        }
        const std::string strLine = lamp::describe(stWinner, m_stAttr.enWhiteMode);
        for (BSP_LED_HANDLE pvLamp : m_stAttr.listDevices) lamp::show(pvLamp, strLine);
    }

    /// A state with a duration is over, unless the source has asked for another one meanwhile.
    void end(LED_EVENT_FROM_E enFrom)
    {
        const std::lock_guard guard(m_lock);
        if (!endsByItself(m_astStates[enFrom])) return;
        m_astStates[enFrom].enMode = LED_WORK_MODE_E_OFF;
        showWinner();
    }

    std::mutex m_lock; // guards all members but the callbacks of m_stAttr
    LED_TALLY_INIT_ATTR_S m_stAttr;
    std::array<LED_TALLY_STATE_S, SOURCES> m_astStates{};
    std::array<util::TimerQueue::Id, SOURCES> m_aEnds{};
    std::deque<LED_EVENT_FROM_E> m_events;
    std::condition_variable m_event;
    bool m_bStopped = false;
    util::TimerQueue m_queue{"ledDuration"}; // last: its thread ends before the rest
};

/// Managers by name. Leaked, for their threads outlive static objects.
struct Managers {
    std::mutex lock; // guards byName
    std::map<std::string, std::shared_ptr<Manager>, std::less<>> byName;
};
Managers &managers()
{
    static auto *pstManagers = new Managers;
    return *pstManagers;
}
std::shared_ptr<Manager> managerOf(const BU_CHAR *pcName)
{
    const std::lock_guard guard(managers().lock);
    const auto manager = managers().byName.find(pcName ? pcName : "");
    return manager == managers().byName.end() ? nullptr : manager->second;
}
std::vector<std::shared_ptr<Manager>> allManagers()
{
    const std::lock_guard guard(managers().lock);
    std::vector<std::shared_ptr<Manager>> list;
    for (const auto &[strName, manager] : managers().byName) list.push_back(manager);
    return list;
}

/// A lamp setting that changes by whatever way is seen at once.
void followSettings()
{
    static const BU_S32 s32Listener = CFG_SETTING_Listen([](const CFG_SETTING_EVENT_S &stEvent) {
        const std::string_view strKey = stEvent.pcKey;
        if (strKey == "TallyMode" || strKey == "TallyCustomColor") lamp::refresh();
    });
    static_cast<void>(s32Listener);
}
} // namespace

std::string journalText(const LED_TALLY_STATE_S &stState) { return lamp::describe(stState, LED_WHITE_MODE_E_SINGLE); }

void lamp::refresh()
{
    for (const auto &manager : allManagers()) manager->setState(LED_EVENT_FROM_E_CFG, restState());
}

BU_S32 lamp::triggerUpdate(LED_EVENT_FROM_E enFrom)
{
    const auto list = allManagers();
    if (list.empty() || !isSource(enFrom)) return -1;
    for (const auto &manager : list) manager->post(enFrom);
    return 0;
}

BU_S32 LED_API_InitMgr(const BU_CHAR *pcName, const LED_TALLY_INIT_ATTR_S *pstAttr)
{
    if (const auto injected = journal::call(__func__, pcName, pstAttr != nullptr)) return *injected;
    if (!pcName || !pstAttr) return -1;
    auto manager = std::make_shared<Manager>(*pstAttr);
    {
        const std::lock_guard guard(managers().lock);
        if (!managers().byName.emplace(pcName, manager).second) return -1;
    }
    followSettings();
    manager->setState(LED_EVENT_FROM_E_CFG, lamp::restState());
    // Nobody waits for its end: the self-test may block it for as long as start-up takes.
    if (util::startDetached("lamp", [manager] { manager->run(); }) == 0) return 0;
    const std::lock_guard guard(managers().lock);
    managers().byName.erase(pcName);
    return -1;
}

BU_S32 LED_API_DestroyMgr(const BU_CHAR *pcName)
{
    if (const auto injected = journal::call(__func__, pcName)) return *injected;
    const auto manager = managerOf(pcName);
    if (!manager) return -1;
    {
        const std::lock_guard guard(managers().lock);
        managers().byName.erase(pcName);
    }
    manager->stop();
    return 0;
}

BU_S32 LED_API_SetLedStateInfoFrom(const BU_CHAR *pcName, LED_EVENT_FROM_E enFrom, LED_TALLY_STATE_S stState)
{
    if (const auto injected = journal::call(__func__, pcName, enFrom, stState)) return *injected;
    const auto manager = managerOf(pcName);
    return manager ? manager->setState(enFrom, stState) : -1;
}

BU_S32 LED_API_ApplyLedStateInfo(const BU_CHAR *pcName)
{
    if (const auto injected = journal::call(__func__, pcName)) return *injected;
    const auto manager = managerOf(pcName);
    return manager ? manager->apply() : -1;
}

BU_S32 LED_API_HandleCfgUpdateEvent(const BU_CHAR *pcName)
{
    if (const auto injected = journal::call(__func__, pcName)) return *injected;
    const auto manager = managerOf(pcName);
    return manager ? manager->setState(LED_EVENT_FROM_E_CFG, lamp::restState()) : -1;
}

BU_S32 LED_API_TriggerLedUpdateFrom(LED_EVENT_FROM_E enFrom)
{
    if (const auto injected = journal::call(__func__, enFrom)) return *injected;
    return lamp::triggerUpdate(enFrom);
}
