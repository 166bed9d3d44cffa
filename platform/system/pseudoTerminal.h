#pragma once

#include "camera/serial.h"
#include "util/fileDescriptor.h"
#include "util/thread.h"

#include <functional>
#include <memory>
#include <mutex>
#include <span>
#include <string>

/// A serial port as a pseudo-terminal: controllers open the link to its terminal side, the camera has the other side.
class PseudoTerminal
{
public:
    /// Gets what a controller has sent. Thread: the port's receiver.
    typedef std::function<void(std::span<const BU_U8>)> Receiver;

    /// Opens a port and links it. @return nothing, with the reason in errno, when that fails
    static std::unique_ptr<PseudoTerminal> open(const std::string &strLink, const BU_CHAR *pcThread, Receiver receiver);

    /// Writes without waiting. Of what a controller does not read the oldest bytes are lost. @return 0 or -1
    BU_S32 send(std::span<const BU_U8> bytes);

    /// Sets the rate that the terminal shows. A pseudo-terminal has no line, so bytes pass at any rate.
    void setBaudrate(BU_S32 s32BitsPerSecond);

private:
    PseudoTerminal(std::string strLink, util::FileDescriptor clMaster, util::FileDescriptor clTerminal,
                   util::FileDescriptor clStop);
    void receive(const std::stop_token &stop, const Receiver &receiver);

    std::string m_strLink;
    util::FileDescriptor m_clMaster;
    util::FileDescriptor m_clTerminal; // held open, so that controllers may come and go without ending the port
    util::FileDescriptor m_clStop;
    std::mutex m_sendLock; // guards the order of messages and m_bLossLogged
    bool m_bLossLogged = false;
    util::Thread m_thread; // last: starts last, joined first
};
