/// Passwords and random secrets. Thread: any.
#pragma once

#include <string>
#include <string_view>

namespace users
{
constexpr std::size_t PASSWORD_BYTES_MAX = 256;

/// Why a password will not do, a sentence; empty: it will. 8 characters or more, no control characters, not the name.
std::string passwordFault(std::string_view strPassword, std::string_view strUser);

/// The Argon2id text of a password, with a salt of its own. Takes 50 to 100 ms and 64 MiB. Empty: out of memory.
std::string hashPassword(std::string_view strPassword);
/// @param strHash  of hashPassword; an empty one, of a user that does not exist, takes as long and never fits
bool isPassword(std::string_view strPassword, const std::string &strHash);

/// 256 random bits as 43 characters, all of which may stand in a cookie.
std::string makeToken();
bool isToken(std::string_view strToken);
/// What is kept of a token: it can be found again, but not made into the token.
/// @param strKey  64 bytes at most; without it nobody else can make the digest. Empty: everybody can
std::string digest(std::string_view strToken, std::string_view strKey = {});
} // namespace users
