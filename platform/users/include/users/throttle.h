/// Slows down the guessing of passwords.
#pragma once

#include "base/types.h"

#include <mutex>
#include <string>
#include <string_view>
#include <unordered_map>

namespace users
{
/// Attempts to log in. An attempt counts as failed from its beginning, so that many at once do not get through. The
/// first ones are free; then each must wait, twice as long as the one before, from the last attempt on:
/// - up to 5 minutes for an address, whichever users it tries, and for an address with one user;
/// - up to 1 minute for a user, whom many addresses may try. An address's first attempt at a user counts apart, with
///   256 free ones: strangers who guess do not lock out who knows the password.
/// A device from which the user has logged in before waits for itself in place of the user. Thread: any.
class Throttle
{
public:
    /// @return 0: go on; else how long to wait [ms], and the attempt does not count
    /// @param strDevice  what the device of a former login is known by, empty: it is not known
    BU_S64 begin(std::string_view strRemote, std::string_view strUser, BU_S64 s64NowMs,
                 std::string_view strDevice = {});
    /// The attempt went well: neither the address nor the user or device has failed.
    void succeeded(std::string_view strRemote, std::string_view strUser, std::string_view strDevice = {});

private:
    struct Failures {
        BU_U32 u32Count = 0;
        BU_S64 s64LastMs = 0;
    };
    typedef std::unordered_map<std::string, Failures> Table;

    Failures &at(const std::string &strKey, BU_S64 s64NowMs);
    void makeRoom(BU_S64 s64NowMs);

    std::mutex m_lock; // guards the table
    Table m_failures;  // "a" and the network of an address, "p" with a user, "u" and a user, "n" for new addresses,
                       // "d" and a device
};

/// What counts as one address: an IPv6 host has a whole network of them.
std::string networkOf(std::string_view strRemote);
} // namespace users
