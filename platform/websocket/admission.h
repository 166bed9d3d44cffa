/// Who may connect.
#pragma once

#include "base/types.h"

#include <map>
#include <string>
#include <string_view>

namespace preview
{
/// The rule for browsers: a page may watch when it comes from this machine or from the host it connects to.
/// @param origin  the Origin header. @param host  the Host header, with or without port
bool isOriginAllowed(std::string_view origin, std::string_view host);

/// Counts connections; one machine alone cannot use them up, except this one.
class Admission
{
public:
    static constexpr std::size_t VIEWERS_MAX = 64;
    static constexpr std::size_t CONNECTIONS_MAX = 2 * VIEWERS_MAX; ///< viewers and those that have not said what for
    static constexpr std::size_t PER_ADDRESS_MAX = 16;              ///< of a remote address

    bool mayConnect(const std::string &strAddress) const;
    void enter(const std::string &strAddress);
    void leave(const std::string &strAddress);

private:
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
