/// What the benchmark talks to the camera with: sockets, packets, percentiles.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

using Bytes = std::vector<std::uint8_t>;

/// A VISCA-over-IP datagram: header with the payload type and sequence number, then the packet.
Bytes overIp(std::uint16_t u16Type, std::uint32_t u32Sequence, const Bytes &packet);

/// A connected UDP socket on loopback with a time-out of one second.
class UdpPeer
{
public:
    explicit UdpPeer(int s32Port);
    ~UdpPeer();
    UdpPeer(const UdpPeer &) = delete;
    UdpPeer &operator=(const UdpPeer &) = delete;
    void send(const Bytes &data) const;
    /// @return the datagram's length; throws std::runtime_error when none comes
    std::size_t receive(std::uint8_t *pu8Buf, std::size_t size) const;
    std::size_t receive() const
    {
        std::uint8_t au8Buf[512];
        return receive(au8Buf, sizeof(au8Buf));
    }

private:
    int m_fd;
};

/// Answers every datagram with itself: the baseline. Runs in a process of its own until destroyed.
class EchoProcess
{
public:
    explicit EchoProcess(int s32PinCpu);
    ~EchoProcess();
    EchoProcess(const EchoProcess &) = delete;
    EchoProcess &operator=(const EchoProcess &) = delete;
    int port() const { return m_s32Port; }

private:
    int m_s32Port = 0;
    int m_pid = -1;
};

int connectTcp(int s32Port);

double percentile(std::vector<double> values, double dPercent);
