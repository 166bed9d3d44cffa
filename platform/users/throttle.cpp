// How long the next attempt to log in must wait.
#include "users/throttle.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>

namespace users
{
namespace
{
constexpr BU_U32 FREE_ATTEMPTS = 4;
constexpr BU_S64 FORGOTTEN_MS = 3'600'000;
constexpr BU_S64 ADDRESS_WAIT_MAX_MS = 300'000, USER_WAIT_MAX_MS = 60'000;
constexpr std::size_t ENTRIES_MAX = 2048;

BU_S64 waitOf(BU_U32 u32Failures, BU_S64 s64MaxMs)
{
    if (u32Failures < FREE_ATTEMPTS) return 0;
    return std::min(BU_S64{1000} << std::min(u32Failures - FREE_ATTEMPTS, 20U), s64MaxMs);
}
} // namespace

std::string networkOf(std::string_view strRemote)
{
    std::array<unsigned char, 16> address{};
    const std::string strText(strRemote.substr(0, strRemote.find('%')));
    if (inet_pton(AF_INET6, strText.c_str(), address.data()) != 1) return strText;
    constexpr std::array<unsigned char, 12> MAPPED{0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0xFF};
    std::array<char, INET6_ADDRSTRLEN> text{};
    if (std::equal(MAPPED.begin(), MAPPED.end(), address.begin()))
        return inet_ntop(AF_INET, address.data() + MAPPED.size(), text.data(), text.size());
    std::fill(address.begin() + 8, address.end(), 0);
    return inet_ntop(AF_INET6, address.data(), text.data(), text.size());
}

BU_S64 Throttle::begin(std::string_view strRemote, std::string_view strUser, BU_S64 s64NowMs)
{
    const std::lock_guard lock(m_lock);
    if (m_failures.size() + 2 > ENTRIES_MAX) makeRoom(s64NowMs);
    Failures &stAddress = m_failures["a" + networkOf(strRemote)], &stUser = m_failures["u" + std::string(strUser)];
    BU_S64 s64WaitMs = 0;
    for (const auto &[pst, s64MaxMs] :
         {std::pair{&stAddress, ADDRESS_WAIT_MAX_MS}, std::pair{&stUser, USER_WAIT_MAX_MS}}) {
        if (s64NowMs - pst->s64LastMs > FORGOTTEN_MS) *pst = {};
        s64WaitMs = std::max(s64WaitMs, pst->s64LastMs + waitOf(pst->u32Count, s64MaxMs) - s64NowMs);
    }
    if (s64WaitMs > 0) return s64WaitMs;
    for (Failures *pst : {&stAddress, &stUser}) *pst = {pst->u32Count + 1, s64NowMs};
    return 0;
}

void Throttle::succeeded(std::string_view strRemote, std::string_view strUser)
{
    const std::lock_guard lock(m_lock);
    m_failures.erase("a" + networkOf(strRemote));
    m_failures.erase("u" + std::string(strUser));
}

/// Lets go of what is forgotten anyway, else of those that failed least.
void Throttle::makeRoom(BU_S64 s64NowMs)
{
    std::erase_if(m_failures, [&](const auto &entry) { return s64NowMs - entry.second.s64LastMs > FORGOTTEN_MS; });
    for (BU_U32 u32Least = 1; m_failures.size() + 2 > ENTRIES_MAX; u32Least *= 2)
        std::erase_if(m_failures, [&](const auto &entry) { return entry.second.u32Count <= u32Least; });
}
} // namespace users
