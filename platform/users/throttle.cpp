// How long the next attempt to log in must wait.
#include "users/throttle.h"

#include <algorithm>
#include <arpa/inet.h>
#include <array>
#include <tuple>

namespace users
{
namespace
{
constexpr BU_U32 FREE_ATTEMPTS = 4, FREE_NEW_ADDRESSES = 256;
constexpr BU_S64 FORGOTTEN_MS = 3'600'000;
constexpr BU_S64 ADDRESS_WAIT_MAX_MS = 300'000, USER_WAIT_MAX_MS = 60'000;
constexpr std::size_t ENTRIES_MAX = 4096, KEYS_PER_ATTEMPT = 3;

BU_S64 waitOf(BU_U32 u32Failures, BU_U32 u32Free, BU_S64 s64MaxMs)
{
    if (u32Failures < u32Free) return 0;
    return std::min(BU_S64{1000} << std::min(u32Failures - u32Free, 20U), s64MaxMs);
}

std::string pairOf(const std::string &strAddress, const std::string &strUser)
{
    return "p" + strAddress + " " + strUser;
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

Throttle::Failures &Throttle::at(const std::string &strKey, BU_S64 s64NowMs)
{
    Failures &st = m_failures[strKey];
    if (s64NowMs - st.s64LastMs > FORGOTTEN_MS) st = {};
    return st;
}

BU_S64 Throttle::begin(std::string_view strRemote, std::string_view strUser, BU_S64 s64NowMs,
                       std::string_view strDevice)
{
    const std::lock_guard lock(m_lock);
    if (m_failures.size() + KEYS_PER_ATTEMPT > ENTRIES_MAX) makeRoom(s64NowMs);
    const std::string strAddress = networkOf(strRemote), strName(strUser);
    Failures &stAddress = at("a" + strAddress, s64NowMs), &stPair = at(pairOf(strAddress, strName), s64NowMs);
    const bool bNew = strDevice.empty() && stPair.u32Count == 0;
    Failures &stUser = at(strDevice.empty() ? (bNew ? "n" : "u") + strName : "d" + std::string(strDevice), s64NowMs);
    BU_S64 s64WaitMs = 0;
    for (const auto &[pst, u32Free, s64MaxMs] :
         {std::tuple{&stAddress, FREE_ATTEMPTS, ADDRESS_WAIT_MAX_MS},
          {&stPair, FREE_ATTEMPTS, ADDRESS_WAIT_MAX_MS},
          {&stUser, bNew ? FREE_NEW_ADDRESSES : FREE_ATTEMPTS, USER_WAIT_MAX_MS}})
        s64WaitMs = std::max(s64WaitMs, pst->s64LastMs + waitOf(pst->u32Count, u32Free, s64MaxMs) - s64NowMs);
    if (s64WaitMs > 0) return s64WaitMs;
    for (Failures *pst : {&stAddress, &stPair, &stUser}) *pst = {pst->u32Count + 1, s64NowMs};
    return 0;
}

void Throttle::succeeded(std::string_view strRemote, std::string_view strUser, std::string_view strDevice)
{
    const std::lock_guard lock(m_lock);
    const std::string strAddress = networkOf(strRemote), strName(strUser);
    m_failures.erase("a" + strAddress);
    m_failures.erase(pairOf(strAddress, strName));
    if (!strDevice.empty()) return void(m_failures.erase("d" + std::string(strDevice)));
    for (const char *pcKind : {"u", "n"}) m_failures.erase(pcKind + strName);
}

/// Lets go of what is forgotten anyway, else of those that failed least.
void Throttle::makeRoom(BU_S64 s64NowMs)
{
    std::erase_if(m_failures, [&](const auto &entry) { return s64NowMs - entry.second.s64LastMs > FORGOTTEN_MS; });
    for (BU_U32 u32Least = 1; m_failures.size() + KEYS_PER_ATTEMPT > ENTRIES_MAX; u32Least *= 2)
        std::erase_if(m_failures, [&](const auto &entry) { return entry.second.u32Count <= u32Least; });
}
} // namespace users
