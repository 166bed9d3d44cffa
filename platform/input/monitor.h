/// The monitor of one device.
#pragma once

#include "board/input.h"
#include "eventReader.h"
#include "heldKeys.h"
#include "kernelDevice.h"
#include "terminal.h"
#include "util/thread.h"

#include <optional>
#include <sys/types.h>

namespace input
{
/// Watches one device on a thread of its own and hands its events to a callback.
class Monitor
{
public:
    /// @param strFolder  where the machine has its input devices
    /// @return nothing, with the reason in errno, when the terminal or the thread cannot be made
    static std::unique_ptr<Monitor> start(const std::string &strName, const std::string &strFolder,
                                          BSP_INPUT_EventCallBack pfEventCb);

    pid_t thread() const { return m_s32Thread; }
    const std::string &name() const { return m_strName; }
    const std::string &link() const { return m_strLink; }
    dev_t terminal() const { return m_terminalNumber; }

private:
    Monitor() = default;
    bool prepare();
    void watch(const std::stop_token &stop);
    void watchFolders();
    void onFolders();
    struct Changes {
        bool bLink = false, bDevices = false;
    };
    Changes readFolders();
    void readTerminal();
    void readKernel();
    void closeKernel();
    void deliver(const input_event &stEvent, HeldKeys &held, BU_S64 s64NowMs);
    void releaseSilent();
    void releaseAll(HeldKeys &held);
    void armSilence();

    std::string m_strName, m_strFolder, m_strLink;
    BSP_INPUT_EventCallBack m_pfEventCb = nullptr;
    std::unique_ptr<Terminal> m_terminal;
    dev_t m_terminalNumber = 0;
    std::unique_ptr<KernelDevice> m_kernel; // none: the machine has no such device now
    EventReader m_reader;                   // of the terminal
    HeldKeys m_heldTerminal, m_heldKernel;
    util::FileDescriptor m_clFolders;             // inotify on the folders of the link and of the machine's devices
    std::shared_ptr<util::FileDescriptor> m_wake; // eventfd: asked to stop, or a key has been silent for too long
    std::optional<BU_S64> m_armedMs;              // when m_wake tells of a silent key
    pid_t m_s32Thread = 0;
    util::Thread m_thread; // last: starts last, joined first
};
} // namespace input
