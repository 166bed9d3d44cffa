// An input device of the machine, found by its name.
#include "kernelDevice.h"

#include "util/log.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <libevdev/libevdev.h>

namespace input
{
std::unique_ptr<KernelDevice> KernelDevice::find(const std::string &strFolder, const std::string &strName)
{
    std::error_code error;
    for (const auto &entry : std::filesystem::directory_iterator(strFolder, error)) {
        if (!entry.path().filename().string().starts_with("event")) continue;
        util::FileDescriptor clDevice(open(entry.path().c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY));
        libevdev *pstDevice = nullptr;
        if (clDevice < 0 || libevdev_new_from_fd(clDevice, &pstDevice) != 0) continue;
        if (strName == libevdev_get_name(pstDevice)) {
            libevdev_grab(pstDevice, LIBEVDEV_GRAB); // its keys are the camera's; nobody else types with them
            LOG_INFO("%s is %s", strName.c_str(), entry.path().c_str());
            return std::unique_ptr<KernelDevice>(new KernelDevice(std::move(clDevice), pstDevice));
        }
        libevdev_free(pstDevice);
    }
    return nullptr;
}

KernelDevice::~KernelDevice() { libevdev_free(m_pstDevice); }

BU_S32 KernelDevice::read(const std::function<void(const input_event &)> &sink)
{
    unsigned flags = LIBEVDEV_READ_FLAG_NORMAL;
    for (;;) {
        input_event stEvent;
        const int s32Ret = libevdev_next_event(m_pstDevice, flags, &stEvent);
        if (s32Ret == LIBEVDEV_READ_STATUS_SUCCESS || s32Ret == LIBEVDEV_READ_STATUS_SYNC) {
            if (s32Ret == LIBEVDEV_READ_STATUS_SYNC) flags = LIBEVDEV_READ_FLAG_SYNC;
            sink(stEvent);
        } else if (s32Ret == -EAGAIN && flags == LIBEVDEV_READ_FLAG_SYNC)
            flags = LIBEVDEV_READ_FLAG_NORMAL;
        else
            return s32Ret == -EAGAIN || s32Ret == -EINTR ? 0 : -1;
    }
}
} // namespace input
