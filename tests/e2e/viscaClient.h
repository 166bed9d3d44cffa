/// A VISCA controller with a real connection: VISCA over IP, plain UDP, TCP or a serial device.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

using Bytes = std::vector<std::uint8_t>;

class ViscaClient
{
public:
    virtual ~ViscaClient() = default;
    /// Sends bytes as they are: a packet, several, or a part of one.
    virtual void send(const Bytes &bytes) = 0;
    /// The next packet up to its 0xFF; empty when none comes in time.
    Bytes next(int s32TimeoutMs = 2000);

    Bytes ask(const Bytes &bytes, int s32TimeoutMs = 2000)
    {
        send(bytes);
        return next(s32TimeoutMs);
    }

protected:
    /// Waits for more bytes and appends them. @return false: none came in time
    virtual bool read(Bytes &buffer, int s32TimeoutMs) = 0;

private:
    Bytes m_buffer;
};

std::unique_ptr<ViscaClient> connectOverIp(int s32Port, const std::string &strAddress = "127.0.0.1");
std::unique_ptr<ViscaClient> connectUdp(int s32Port, const std::string &strAddress = "127.0.0.1");
std::unique_ptr<ViscaClient> connectTcp(int s32Port, const std::string &strAddress = "127.0.0.1");
std::unique_ptr<ViscaClient> openSerial(const std::string &strDevice);

/// "90 41 FF"
std::string hex(const Bytes &bytes);
/// The other way.
Bytes bytes(const std::string &strHex);
