/// Who may connect.
#pragma once

#include "base/types.h"

#include <map>
#include <string>
#include <string_view>

namespace preview
{
/// The rule for browsers: a page may watch when it comes from the host it connects to, or from the address of the
/// camera. The host must be an address, "localhost" or this machine's name: a page whose own name was made to lead here
/// (DNS rebinding) calls by that name.
class OriginRule
{
public:
    /// @param strOwnAddress  where the camera listens, "0.0.0.0" for everywhere. @param strMachine  its host name
    OriginRule(std::string strOwnAddress, std::string_view strMachine);
    /// @param origin  the Origin header. @param host  the Host header, with or without port
    bool allows(std::string_view origin, std::string_view host) const;

private:
    bool isOwnName(const std::string &strHost) const;
    bool isCamera(const std::string &strHost) const;
    const std::string m_strOwn, m_strMachine;
};

/// Counts connections; one machine alone cannot use them up, except this one.
class Admission
{
public:
    explicit Admission(std::string strOwnAddress) : m_strOwn(std::move(strOwnAddress)) {}

    static constexpr std::size_t VIEWERS_MAX = 64;
    static constexpr std::size_t CONNECTIONS_MAX = 2 * VIEWERS_MAX; ///< viewers and those that have not said what for
    static constexpr std::size_t PER_ADDRESS_MAX = 16;              ///< of a remote address

    bool mayConnect(const std::string &strAddress) const;
    void enter(const std::string &strAddress);
    void leave(const std::string &strAddress);

private:
    const std::string m_strOwn;                       // who comes from there is on this machine
    std::map<std::string, std::size_t> m_connections; // by address
    std::size_t m_count = 0;
};

/// At most so many messages of a viewer in a second.
class MessageMeter
{
public:
    static constexpr BU_U32 PER_SECOND_MAX = 20;
    bool count(BU_S64 s64NowMs); ///< false: one too many

private:
    BU_S64 m_s64Since = 0;
    BU_U32 m_u32Count = 0;
};
} // namespace preview
