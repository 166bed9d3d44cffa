// Which passwords will do, their hashes, and random secrets.
#include "users/password.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <sodium.h>

namespace users
{
namespace
{
constexpr std::size_t PASSWORD_CHARACTERS_MIN = 8;
constexpr std::size_t TOKEN_BYTES = 32, TOKEN_CHARACTERS = 43;

/// Every use of the library goes through here: it picks its random source and its fastest code once.
void prepare()
{
    static const int s32Ready = sodium_init();
    if (s32Ready < 0) std::abort(); // without random numbers nothing here is safe
}

bool isUtf8(std::string_view strText)
try {
    return !nlohmann::json(strText).dump().empty();
} catch (const nlohmann::json::type_error &) {
    return false;
}

std::string asText(const std::array<unsigned char, TOKEN_BYTES> &bytes)
{
    std::array<char, TOKEN_CHARACTERS + 1> text{};
    sodium_bin2base64(text.data(), text.size(), bytes.data(), bytes.size(), sodium_base64_VARIANT_URLSAFE_NO_PADDING);
    return text.data();
}
} // namespace

std::string passwordFault(std::string_view strPassword, std::string_view strUser)
{
    const auto isFirstByte = [](char c) { return (static_cast<unsigned char>(c) & 0xC0) != 0x80; };
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; };
    if (std::count_if(strPassword.begin(), strPassword.end(), isFirstByte) <
        static_cast<std::ptrdiff_t>(PASSWORD_CHARACTERS_MIN))
        return "the password must have at least 8 characters";
    if (strPassword.size() > PASSWORD_BYTES_MAX) return "the password is too long";
    if (std::any_of(strPassword.begin(), strPassword.end(), isControl))
        return "the password must not contain control characters";
    if (!isUtf8(strPassword)) return "the password must be UTF-8";
    if (strPassword == strUser) return "the password must not be the user's name";
    return {};
}

std::string hashPassword(std::string_view strPassword)
{
    prepare();
    std::array<char, crypto_pwhash_STRBYTES> text{};
    if (crypto_pwhash_str_alg(text.data(), strPassword.data(), strPassword.size(), crypto_pwhash_OPSLIMIT_INTERACTIVE,
                              crypto_pwhash_MEMLIMIT_INTERACTIVE, crypto_pwhash_ALG_ARGON2ID13) != 0)
        return {};
    return text.data();
}

bool isPassword(std::string_view strPassword, const std::string &strHash)
{
    prepare();
    // Of a password that nobody knows, with the parameters of hashPassword.
    static const std::string strNobody =
        "$argon2id$v=19$m=65536,t=2,p=1$c29tZSBvdGhlciBzYWx0IQ$S1uzQQxPMLzJsvnCXv5LgH0qEfDPG0gNcYLTPNvnzMo";
    const std::string &strAgainst = strHash.empty() ? strNobody : strHash;
    const bool bFits = crypto_pwhash_str_verify(strAgainst.c_str(), strPassword.data(), strPassword.size()) == 0;
    return bFits && !strHash.empty();
}

std::string makeToken()
{
    prepare();
    std::array<unsigned char, TOKEN_BYTES> bytes{};
    randombytes_buf(bytes.data(), bytes.size());
    return asText(bytes);
}

bool isToken(std::string_view strToken)
{
    const auto isPlain = [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
    };
    return strToken.size() == TOKEN_CHARACTERS && std::all_of(strToken.begin(), strToken.end(), isPlain);
}

std::string digest(std::string_view strToken, std::string_view strKey)
{
    prepare();
    std::array<unsigned char, TOKEN_BYTES> bytes{};
    crypto_generichash(bytes.data(), bytes.size(), reinterpret_cast<const unsigned char *>(strToken.data()),
                       strToken.size(), reinterpret_cast<const unsigned char *>(strKey.data()), strKey.size());
    return asText(bytes);
}
} // namespace users
