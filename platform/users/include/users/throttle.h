/// Slows down the guessing of passwords.
#pragma once

#include "base/types.h"

#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>

namespace users
{
/// Attempts to log in, by remote address and by user. An attempt counts as failed from its beginning, so that many at
/// once do not get through. The first ones are free; then each must wait, twice as long as the one before, from the
/// last attempt on: up to 5 minutes for an address, 1 minute for a user (whom a stranger could otherwise lock out).
/// Thread: any.
class Throttle
{
public:
    /// @return 0: go on; else how long to wait [ms], and the attempt does not count
    BU_S64 begin(std::string_view strRemote, std::string_view strUser, BU_S64 s64NowMs);
    /// The attempt went well: neither the address nor the user has failed.
    void succeeded(std::string_view strRemote, std::string_view strUser);

private:
    struct Failures {
        BU_U32 u32Count = 0;
        BU_S64 s64LastMs = 0;
    };
    typedef std::unordered_map<std::string, Failures> Table;

    void makeRoom(BU_S64 s64NowMs);

    std::mutex m_lock; // guards the table
    Table m_failures;  // "a" and the network of an address, "u" and a user's name
};

/// What counts as one address: an IPv6 host has a whole network of them.
std::string networkOf(std::string_view strRemote);
} // namespace users
