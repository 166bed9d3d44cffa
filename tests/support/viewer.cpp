#include "viewer.h"
#include "hex.h"
#include "socket.h"

#include <algorithm>

Viewer::Viewer(int s32Port, int s32ReceiveBuffer) : m_fd(loopback(SOCK_STREAM, s32Port, ::connect, s32ReceiveBuffer))
{
    limitWaits(20);
}

Viewer::Viewer(int s32Port, const std::string &strPath, const std::string &strHeaders, int s32ReceiveBuffer)
    : Viewer(s32Port, s32ReceiveBuffer)
{
    send("GET " + strPath +
         " HTTP/1.1\r\nHost: localhost:12345\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n"
         "Sec-WebSocket-Key: dGhlIHNhbXBsZSBub25jZQ==\r\nSec-WebSocket-Version: 13\r\n" +
         strHeaders + "\r\n");
    readStatus();
}

void Viewer::limitWaits(int s32Seconds) { ::limitWaits(m_fd, s32Seconds); }

bool Viewer::settle()
{
    send(masked(0x89, "?"));
    return read(3) == "\x8A\x01?";
}

void Viewer::send(const std::string &strBytes) { ::send(m_fd, strBytes.data(), strBytes.size(), MSG_NOSIGNAL); }

std::string Viewer::read(std::size_t length)
{
    std::string str(length, 0);
    const ssize_t got = length ? recv(m_fd, str.data(), length, MSG_WAITALL) : 0;
    str.resize(static_cast<std::size_t>(std::max<ssize_t>(got, 0)));
    return str;
}

int Viewer::readStatus()
{
    std::string strHead;
    while (!strHead.ends_with("\r\n\r\n")) {
        const std::string strByte = read(1);
        if (strByte.empty()) return 0;
        strHead += strByte;
    }
    return m_s32Status = strHead.starts_with("HTTP/1.") ? std::stoi(strHead.substr(9, 3)) : 0;
}

tagFRAME_S Viewer::readFrame()
{
    for (;;) {
        const std::string strHead = read(2);
        if (strHead.size() < 2) return {};
        std::size_t length = number(strHead, 1, 1);
        if (length >= 126) length = number(read(length == 126 ? 2 : 8), 0, length == 126 ? 2 : 8);
        tagFRAME_S stFrame{static_cast<int>(number(strHead, 0, 1) & 0x0F), read(length)};
        if (stFrame.strPayload.size() < length) return {};
        if (stFrame.s32Opcode != 9 && stFrame.s32Opcode != 10) return stFrame;
    }
}

tagPICTURE_MESSAGE_S Viewer::readMessage()
{
    const auto [s32Opcode, str] = readFrame();
    if (s32Opcode != 2 || str.size() < 32 || str.substr(0, 4) != "PTZ\x01" || number(str, 6, 2) != 32) return {};
    const auto u32 = [&str](std::size_t at, std::size_t size) { return static_cast<BU_U32>(number(str, at, size)); };
    return {static_cast<int>(str[4]), str[5] == 1,   u32(8, 4), u32(12, 2), u32(14, 2), u32(24, 4), u32(28, 1),
            number(str, 16, 8),       str.substr(32)};
}

bool Viewer::isEnded()
{
    char acBytes[4096];
    ssize_t got = 0;
    do got = recv(m_fd, acBytes, sizeof(acBytes), 0);
    while (got > 0);
    return got == 0 || errno == ECONNRESET;
}

int Viewer::readCloseCode()
{
    for (;;) {
        const auto [s32Opcode, str] = readFrame();
        if (s32Opcode < 0) return 0;
        if (s32Opcode == 8) return str.size() < 2 ? 0 : static_cast<int>(number(str, 0, 2));
    }
}

std::string Viewer::masked(int s32FirstByte, const std::string &strText)
{
    constexpr char MASK[] = {0x11, 0x22, 0x33, 0x44};
    std::string str{static_cast<char>(s32FirstByte), static_cast<char>(0x80 | strText.size())};
    str.append(MASK, sizeof(MASK));
    for (std::size_t i = 0; i < strText.size(); ++i) str += static_cast<char>(strText[i] ^ MASK[i % 4]);
    return str;
}
