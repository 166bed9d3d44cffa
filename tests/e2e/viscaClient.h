/// A VISCA controller with a real connection: VISCA over IP, plain UDP, TCP or a serial device. Packets are text: "90
/// 41 FF".
#pragma once

#include "support/cameraProcess.h"
#include "support/hex.h"
#include "util/fileDescriptor.h"

inline const std::string POWER_INQ = "81 09 04 00 FF", POSITION_INQ = "81 09 06 12 FF", ON = "90 50 02 FF";

enum class Transport { OverIp, Udp, Tcp, Rs232, Rs422 };

class ViscaClient
{
public:
    explicit ViscaClient(const CameraProcess &camera, Transport enTransport = Transport::Tcp,
                         const char *pcAddress = "127.0.0.1");
    void send(const std::string &strHex);
    /// The next packet up to its FF; empty when none comes in time.
    std::string next(int s32TimeoutMs = 2000);
    std::string ask(const std::string &strHex, int s32TimeoutMs = 2000)
    {
        send(strHex);
        return next(s32TimeoutMs);
    }
    /// Sends a command and waits. @return whether it is acknowledged at once, and done in time, with one socket
    bool isDone(const std::string &strCommand, int s32TimeoutMs = 2000);

private:
    util::FileDescriptor m_fd;
    const bool m_bHeader;
    BU_U32 m_u32Sequence = 0xFFFFFFF0; // wraps in the middle of a test
    Bytes m_buffer;
};
