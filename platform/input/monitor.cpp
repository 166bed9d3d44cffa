// One device: where its events come from, what is made up for, and whom they reach.
#include "monitor.h"

#include "camera/power.h"
#include "camera/serial.h"
#include "util/file.h"
#include "util/log.h"
#include "util/time.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <future>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <system_error>

namespace input
{
namespace
{
constexpr std::size_t CHUNK_RECORDS = 128;
constexpr BU_U32 LINK_GOES = IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | IN_CREATE;
constexpr BU_U32 FOLDER_GOES = IN_DELETE_SELF | IN_MOVE_SELF | IN_IGNORED | IN_Q_OVERFLOW;
constexpr BU_U32 DEVICE_COMES = IN_CREATE | IN_MOVED_TO | IN_ATTRIB; // with IN_ATTRIB it may become readable

/// Whether an event is the press of POWER, by which a remote of this camera's address ends stand-by.
bool endsStandby(const std::string &strName, const input_event &stEvent)
{
    constexpr BU_U16 POWER = 16;
    constexpr std::string_view REMOTES[] = {"NecBr", "NecYm"}; // the small remote's POWER does nothing
    if (!SYSTEM_API_IsAsleep() || stEvent.type != EV_KEY || stEvent.value != 1) return false;
    BU_S32 s32Receiver = IR_SWITCH_E_OFF;
    BU_U8 u8Address = 0;
    IR_API_GetSwitch(&s32Receiver);
    IR_API_GetAddr(&u8Address);
    return s32Receiver == IR_SWITCH_E_ON && stEvent.code == ((u8Address - 1) << KEY_BITS | POWER) &&
           std::ranges::find(REMOTES, strName) != std::end(REMOTES);
}

/// Wakes the monitors whose keys have been silent.
util::TimerQueue &silence()
{
    static auto *pclQueue = new util::TimerQueue("inputSilence");
    return *pclQueue;
}
} // namespace

std::unique_ptr<Monitor> Monitor::start(const std::string &strName, const std::string &strFolder,
                                        BSP_INPUT_EventCallBack pfEventCb)
{
    std::unique_ptr<Monitor> monitor(new Monitor);
    monitor->m_strName = strName;
    monitor->m_strFolder = strFolder;
    monitor->m_strLink = UTIL_ROOT_Path(("/dev/input/" + strName).c_str());
    monitor->m_pfEventCb = pfEventCb;
    if (!monitor->prepare()) return nullptr;
    try {
        std::promise<pid_t> thread;
        monitor->m_thread =
            util::Thread(strName.c_str(), [&thread, pclMonitor = monitor.get()](const std::stop_token &stop) {
                thread.set_value(gettid());
                pclMonitor->watch(stop);
            });
        monitor->m_s32Thread = thread.get_future().get();
    } catch (const std::system_error &error) {
        errno = error.code().value();
        return nullptr;
    }
    return monitor;
}

bool Monitor::prepare()
{
    m_wake = std::make_shared<util::FileDescriptor>(eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    m_clFolders = util::FileDescriptor(inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
    if (*m_wake < 0 || m_clFolders < 0) return false;
    m_terminal = Terminal::open(m_strLink);
    if (!m_terminal) return false;
    m_terminalNumber = m_terminal->number();
    watchFolders();
    m_kernel = KernelDevice::find(m_strFolder, m_strName);
    return true;
}

void Monitor::watchFolders()
{
    const std::string strLinks = std::filesystem::path(m_strLink).parent_path();
    inotify_add_watch(m_clFolders, strLinks.c_str(), LINK_GOES | IN_DELETE_SELF | IN_MOVE_SELF);
    if (!m_strFolder.empty()) inotify_add_watch(m_clFolders, m_strFolder.c_str(), DEVICE_COMES | IN_MASK_ADD);
}

void Monitor::watch(const std::stop_token &stop)
{
    const std::stop_callback wake(stop, [this] { eventfd_write(*m_wake, 1); });
    enum { WAKE, FOLDERS, TERMINAL, KERNEL, COUNT };
    while (!stop.stop_requested()) {
        std::array<pollfd, COUNT> astPoll{pollfd{*m_wake, POLLIN, 0}, pollfd{m_clFolders, POLLIN, 0},
                                          pollfd{m_terminal ? m_terminal->fd() : -1, POLLIN, 0},
                                          pollfd{m_kernel ? m_kernel->fd() : -1, POLLIN, 0}};
        if (poll(astPoll.data(), astPoll.size(), -1) < 0) {
            if (errno == EINTR) continue;
            LOG_ERROR("%s: %s", m_strName.c_str(), std::strerror(errno));
            return;
        }
        if (astPoll[WAKE].revents) releaseSilent();
        if (astPoll[FOLDERS].revents) onFolders();
        if (astPoll[TERMINAL].revents) readTerminal();
        if (astPoll[KERNEL].revents & POLLIN) readKernel();
        if (astPoll[KERNEL].revents & (POLLHUP | POLLERR | POLLNVAL)) closeKernel();
    }
}

void Monitor::onFolders()
{
    const auto [bLink, bDevices] = readFolders();
    if (bLink && m_terminal && !m_terminal->isLinked()) {
        LOG_WARN("%s has gone", m_strLink.c_str());
        m_reader.reset();
        releaseAll(m_heldTerminal);
        if (m_terminal->link() != 0) LOG_ERROR("%s: %s", m_strLink.c_str(), std::strerror(errno));
        watchFolders(); // the folder itself may be a new one
    }
    if (bDevices && !m_kernel) m_kernel = KernelDevice::find(m_strFolder, m_strName);
}

Monitor::Changes Monitor::readFolders()
{
    Changes changes;
    alignas(inotify_event) std::array<BU_CHAR, 4096> acEvents;
    for (ssize_t size; (size = read(m_clFolders, acEvents.data(), acEvents.size())) > 0;)
        for (ssize_t at = 0; at < size;) {
            const auto *pstEvent = reinterpret_cast<const inotify_event *>(acEvents.data() + at);
            const std::string_view name = pstEvent->len > 0 ? pstEvent->name : "";
            changes.bLink |= name == m_strName || (pstEvent->mask & FOLDER_GOES) != 0;
            changes.bDevices |= name.starts_with("event");
            at += static_cast<ssize_t>(sizeof(inotify_event) + pstEvent->len);
        }
    return changes;
}

void Monitor::readTerminal()
{
    std::array<BU_U8, CHUNK_RECORDS * sizeof(input_event)> au8Bytes;
    const BU_S32 s32Size = m_terminal->read(au8Bytes);
    if (s32Size < 0) {
        LOG_ERROR("%s has ended", m_strLink.c_str());
        m_terminal = nullptr;
        return releaseAll(m_heldTerminal);
    }
    const BU_S64 s64NowMs = UTIL_TIME_NowMs();
    m_reader.feed(std::span(au8Bytes).first(static_cast<std::size_t>(s32Size)), s64NowMs,
                  [&](const input_event &stEvent) { deliver(stEvent, m_heldTerminal, s64NowMs); });
}

void Monitor::readKernel()
{
    const BU_S64 s64NowMs = UTIL_TIME_NowMs();
    if (m_kernel->read([&](const input_event &stEvent) { deliver(stEvent, m_heldKernel, s64NowMs); }) != 0)
        closeKernel();
}

void Monitor::closeKernel()
{
    if (!m_kernel) return;
    LOG_WARN("%s has gone", m_strName.c_str());
    m_kernel = nullptr;
    releaseAll(m_heldKernel);
}

void Monitor::deliver(const input_event &stEvent, HeldKeys &held, BU_S64 s64NowMs)
{
    held.note(stEvent, s64NowMs);
    if (!m_armedMs && stEvent.type == EV_KEY && stEvent.value != 0) armSilence();
    if (endsStandby(m_strName, stEvent))
        SYSTEM_API_WakeAppService(); // the press is not the service's any more: it would put the camera to sleep again
    else
        m_pfEventCb(&stEvent);
}

/// Arms the wake-up for the key that will be silent first. One that is armed already comes earlier: a key that is heard
/// or pressed later is seen when it comes.
void Monitor::armSilence()
{
    const auto terminalMs = m_heldTerminal.dueMs(), kernelMs = m_heldKernel.dueMs();
    if (!terminalMs && !kernelMs) return;
    m_armedMs = std::min(terminalMs.value_or(INT64_MAX), kernelMs.value_or(INT64_MAX));
    silence().at(*m_armedMs, [wake = m_wake] { eventfd_write(*wake, 1); });
}

void Monitor::releaseSilent()
{
    eventfd_t wakes;
    eventfd_read(*m_wake, &wakes);
    const BU_S64 s64NowMs = UTIL_TIME_NowMs();
    for (HeldKeys *pclHeld : {&m_heldTerminal, &m_heldKernel})
        while (const auto code = pclHeld->takeSilent(s64NowMs)) {
            LOG_WARN("%s: key %d was not released, nothing heard of it", m_strName.c_str(), *code);
            const input_event stEvent = releaseOf(*code);
            m_pfEventCb(&stEvent);
        }
    if (m_armedMs && *m_armedMs > s64NowMs) return;
    m_armedMs.reset();
    armSilence();
}

void Monitor::releaseAll(HeldKeys &held)
{
    for (const BU_U16 u16Code : held.takeAll()) {
        const input_event stEvent = releaseOf(u16Code);
        m_pfEventCb(&stEvent);
    }
}
} // namespace input
