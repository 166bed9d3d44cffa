/// An input device of the machine.
#pragma once

#include "base/types.h"
#include "util/fileDescriptor.h"

#include <functional>
#include <linux/input.h>
#include <memory>
#include <string>

struct libevdev;

namespace input
{
/// An input device of the machine.
class KernelDevice
{
public:
    /// The device of that name among the event files of a folder; nothing: there is none that can be read.
    static std::unique_ptr<KernelDevice> find(const std::string &strFolder, const std::string &strName);
    ~KernelDevice();

    int fd() const { return m_clDevice; }
    /// Hands on the events that are there. Of events that the kernel lost the outcome is handed on: a key that is up by
    /// now is told as released. @return 0, or -1: the device has gone
    BU_S32 read(const std::function<void(const input_event &)> &sink);

private:
    KernelDevice(util::FileDescriptor clDevice, libevdev *pstDevice)
        : m_clDevice(std::move(clDevice)), m_pstDevice(pstDevice)
    {
    }

    util::FileDescriptor m_clDevice;
    libevdev *m_pstDevice;
};
} // namespace input
