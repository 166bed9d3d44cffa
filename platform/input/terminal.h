/// A device as a pseudo-terminal.
#pragma once

#include "base/types.h"
#include "util/fileDescriptor.h"

#include <memory>
#include <span>
#include <string>
#include <sys/types.h>

namespace input
{
/// A device as a pseudo-terminal: remotes write event records into the terminal that the link leads to.
class Terminal
{
public:
    /// @return nothing, with the reason in errno, when it cannot be made or linked
    static std::unique_ptr<Terminal> open(const std::string &strLink);
    ~Terminal();

    int fd() const { return m_clMaster; }
    /// The number of the device that remotes open.
    dev_t number() const;
    /// @return bytes read; 0: none there now; negative: the terminal has ended
    BU_S32 read(std::span<BU_U8> bytes);

    bool isLinked() const;
    /// Links it again, in the place of whatever is there, and drops what waits to be read. @return 0 or -1
    BU_S32 link();

private:
    Terminal() = default;

    std::string m_strLink, m_strTerminal;
    util::FileDescriptor m_clMaster;
    util::FileDescriptor m_clTerminal; // held open, so that remotes may come and go without ending it
};
} // namespace input
