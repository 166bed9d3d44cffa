#pragma once

#include <unistd.h>
#include <utility>

namespace util
{
/// An open file, socket or device, closed at its end.
class FileDescriptor
{
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int s32Fd) : m_s32Fd(s32Fd) {}
    FileDescriptor(FileDescriptor &&clOther) noexcept : m_s32Fd(std::exchange(clOther.m_s32Fd, -1)) {}
    FileDescriptor &operator=(FileDescriptor &&clOther) noexcept
    {
        std::swap(m_s32Fd, clOther.m_s32Fd);
        return *this;
    }
    ~FileDescriptor()
    {
        if (m_s32Fd >= 0) close(m_s32Fd);
    }
    operator int() const { return m_s32Fd; } ///< negative: none

private:
    int m_s32Fd = -1;
};
} // namespace util
