/// A client's TCP connection, as the server sees it from outside of the library.
#pragma once

#include "base/types.h"

#include <memory>

typedef struct _GSocket GSocket;

namespace rtsp
{
class Connection
{
public:
    static constexpr BU_U64 RECEIVED_PER_CHECK_MAX = 64 * 1024; ///< [bytes]

    /// Prepares the socket for packets that are not held back.
    explicit Connection(GSocket *pstSocket);
    ~Connection();
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    /// A viewer sends some hundred bytes now and then. Who has sent more than the limit since the last check is cut
    /// off, for the library gathers a request of any length.
    /// @return the connection is still there
    bool check();

    /// Ends it, as if the client had: the library notices on the client's own thread, the only one that may close it.
    void end();

private:
    struct Impl;
    std::unique_ptr<Impl> m_pstImpl;
};
} // namespace rtsp
