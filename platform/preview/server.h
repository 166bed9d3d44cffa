/// The WebSocket server: one port, one service thread.
#pragma once

#include "base/types.h"

#include <memory>
#include <string>

namespace preview
{
class Inbox;

class Server
{
public:
    /// @param s32Port  0: any free one. @return null: the port is taken, or nobody may listen there
    static std::unique_ptr<Server> open(const std::string &strAddress, BU_S32 s32Port);
    virtual ~Server() = default; ///< disconnects everybody and closes the port
    virtual BU_S32 port() const = 0;
    virtual std::shared_ptr<Inbox> inbox() const = 0;
};

/// Port of the running service, 0: none.
BU_S32 servicePort();

/// How long a connection may take to say what it wants.
constexpr BU_S64 HANDSHAKE_MS = 5000;
} // namespace preview
