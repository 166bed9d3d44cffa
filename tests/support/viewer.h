/// A WebSocket client made of bytes.
#pragma once

#include "base/types.h"
#include "util/fileDescriptor.h"

#include <string>

struct tagFRAME_S {
    int s32Opcode = -1; ///< -1: the connection has ended
    std::string strPayload;
};

struct tagPICTURE_MESSAGE_S {
    int s32Codec = 0; ///< 0: no message
    bool bKeyFrame = false;
    BU_U32 u32Sequence = 0, u32Width = 0, u32Height = 0, u32SampleRate = 0, u32Channels = 0;
    BU_U64 u64Timestamp = 0;
    std::string strPacket;
};

/// Every wait ends after a limit, 20 seconds at first, with what an ended connection gives.
class Viewer
{
public:
    /// @param s32ReceiveBuffer  [bytes]; 0: the system's own
    explicit Viewer(int s32Port, int s32ReceiveBuffer = 0);
    /// Connects and asks for a channel. settle() tells when the service sends to it.
    Viewer(int s32Port, const std::string &strPath, const std::string &strHeaders = "", int s32ReceiveBuffer = 0);

    void limitWaits(int s32Seconds);
    int status() const { return m_s32Status; } ///< of the HTTP answer, 0: none
    bool settle();                             ///< the service has answered a ping
    void send(const std::string &strBytes);
    void sendText(const std::string &strText) { send(masked(0x81, strText)); }
    int readStatus();
    tagFRAME_S readFrame(); ///< pings and pongs are left out
    tagPICTURE_MESSAGE_S readMessage();
    bool isEnded();      ///< waits for the end of the connection
    int readCloseCode(); ///< of the close frame that ends it; 0: it ended without one
    static std::string masked(int s32FirstByte, const std::string &strText);

private:
    std::string read(std::size_t length); ///< shorter: the connection has ended
    util::FileDescriptor m_fd;
    int m_s32Status = 0;
};
