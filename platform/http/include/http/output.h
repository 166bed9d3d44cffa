/// What waits to be sent on a connection.
#pragma once

#include <deque>
#include <memory>
#include <string>

struct lws;

namespace http
{
/// Pieces are shared: one event or file goes to many connections without being copied. Thread: the network thread.
class Output
{
public:
    typedef std::shared_ptr<const std::string> Piece;

    void push(Piece pstPiece);
    void push(std::string str) { push(std::make_shared<const std::string>(std::move(str))); }
    void drop(); ///< all but what is half sent
    std::size_t bytes() const { return m_bytes; }
    std::size_t pieces() const { return m_waiting.size(); }

    /// Sends what the connection takes, and has it called back as writable when that is not all.
    /// @return false: the connection is broken
    bool flush(lws *pstWsi);

private:
    struct Waiting {
        Piece pstPiece;
        std::size_t sent = 0;
    };
    std::deque<Waiting> m_waiting;
    std::size_t m_bytes = 0;
};
} // namespace http
