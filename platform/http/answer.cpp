// How an answer is written.
#include "http/answer.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <openssl/evp.h>
#include <openssl/sha.h>

namespace
{
struct Reason {
    BU_U32 u32Status;
    const char *pcReason;
};
constexpr Reason REASONS[] = {
    {200, "OK"},
    {201, "Created"},
    {204, "No Content"},
    {304, "Not Modified"},
    {400, "Bad Request"},
    {401, "Unauthorized"},
    {403, "Forbidden"},
    {404, "Not Found"},
    {405, "Method Not Allowed"},
    {408, "Request Timeout"},
    {409, "Conflict"},
    {411, "Length Required"},
    {413, "Content Too Large"},
    {414, "URI Too Long"},
    {415, "Unsupported Media Type"},
    {421, "Misdirected Request"},
    {422, "Unprocessable Content"},
    {426, "Upgrade Required"},
    {429, "Too Many Requests"},
    {431, "Request Header Fields Too Large"},
    {500, "Internal Server Error"},
    {502, "Bad Gateway"},
    {503, "Service Unavailable"},
    {504, "Gateway Timeout"},
    {505, "HTTP Version Not Supported"},
};

const char *reasonOf(BU_U32 u32Status)
{
    const auto *pst = std::ranges::find(REASONS, u32Status, &Reason::u32Status);
    return pst == std::end(REASONS) ? "Answer" : pst->pcReason;
}

void put(std::string &strOut, std::string_view name, std::string_view value)
{
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; };
    if (std::ranges::any_of(name, isControl) || std::ranges::any_of(value, isControl)) return;
    strOut.append(name).append(": ").append(value).append("\r\n");
}

std::string dateOf(BU_S64 s64Unix)
{
    const std::time_t time = s64Unix;
    std::tm stTime{};
    gmtime_r(&time, &stTime);
    std::array<char, 40> acText{};
    return {acText.data(), std::strftime(acText.data(), acText.size(), "%a, %d %b %Y %H:%M:%S GMT", &stTime)};
}
} // namespace

namespace http
{
std::string answerHead(const AnswerHead &stHead, const std::vector<std::pair<std::string, std::string>> &headers,
                       std::span<const Header> always)
{
    std::string str = "HTTP/1.1 " + std::to_string(stHead.u32Status) + ' ' + reasonOf(stHead.u32Status) + "\r\n";
    put(str, "Date", dateOf(stHead.s64Unix));
    if (!stHead.type.empty()) put(str, "Content-Type", stHead.type);
    const bool bNoBody = stHead.u32Status == 204 || stHead.u32Status == 304;
    if (stHead.length && !bNoBody) put(str, "Content-Length", std::to_string(*stHead.length));
    put(str, "Connection", stHead.bKeepAlive ? "keep-alive" : "close");
    for (const auto &[strName, strValue] : headers) put(str, strName, strValue);
    for (const auto &[pcName, pcValue] : always) put(str, pcName, pcValue);
    return str += "\r\n";
}

std::string switchingHead(std::string_view key, std::span<const Header> always)
{
    const std::string strText = std::string(key) + "258EAFA5-E914-47DA-95CA-C5AB0DC85B11";
    std::array<unsigned char, SHA_DIGEST_LENGTH> aDigest{};
    SHA1(reinterpret_cast<const unsigned char *>(strText.data()), strText.size(), aDigest.data());
    std::array<unsigned char, 32> aAccept{};
    EVP_EncodeBlock(aAccept.data(), aDigest.data(), static_cast<int>(aDigest.size()));
    std::string str = "HTTP/1.1 101 Switching Protocols\r\nUpgrade: websocket\r\nConnection: Upgrade\r\n";
    put(str, "Sec-WebSocket-Accept", reinterpret_cast<const char *>(aAccept.data()));
    for (const auto &[pcName, pcValue] : always) put(str, pcName, pcValue);
    return str += "\r\n";
}

std::string closeFrame(BU_U32 u32Code, std::string_view reason)
{
    reason = reason.substr(0, 123);
    std::string str{static_cast<char>(0x88), static_cast<char>(reason.size() + 2), static_cast<char>(u32Code >> 8),
                    static_cast<char>(u32Code & 0xFF)};
    return str.append(reason);
}
} // namespace http
