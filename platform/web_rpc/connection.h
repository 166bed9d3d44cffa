/// The connection to one web server process: what goes to it, and never a wait for it.
#pragma once

#include "net/outbox.h"
#include "util/fileDescriptor.h"
#include "web_client/message.h"

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <vector>

namespace web_rpc
{
using namespace web_client; // messages, the socket file

/// Thread: any.
class Connection
{
public:
    static constexpr std::size_t OUTBOX_MAX = 1 << 20; ///< bytes; who lets more answers lie is cut off

    Connection(util::FileDescriptor fd, int s32Epoll, BU_U64 u64Number);
    Connection(const Connection &) = delete;
    Connection &operator=(const Connection &) = delete;

    /// Sends an answer, at once or when there is room.
    void answer(BU_U32 u32Id, BU_S32 s32Result, std::string_view bytes);
    /// Tells news. While there is no room only the newest of each subject is kept.
    void tell(const std::string &strSubject, std::string_view json);

    /// One thread at a time reads: the one that claims it, until it arms it for all again. @return false: another does
    bool claim();
    /// @return as recv; more than the buffer holds: the packet was longer
    ssize_t read(std::vector<BU_CHAR> &buffer) const;
    void arm();
    void flush(); ///< there is room
    void cut();   ///< ends it: the reader sees the end
    BU_U64 number() const { return m_u64Number; }

private:
    void post(const Head &stHead, std::string_view bytes);    // lock held
    bool send(std::string_view head, std::string_view bytes); // lock held; false: no room
    void watch();                                             // lock held

    const util::FileDescriptor m_fd;
    const int m_s32Epoll;
    const BU_U64 m_u64Number;
    std::mutex m_lock; // guards everything below
    bool m_bRegistered = false, m_bArmed = false, m_bCut = false;
    net::Outbox m_outbox{OUTBOX_MAX, net::Outbox::Framing::PACKETS};
    std::map<std::string, std::string> m_news; // by subject, while they wait for room
};

/// The connections there are.
class Clients
{
public:
    static constexpr std::size_t COUNT_MAX = 16;

    bool add(std::shared_ptr<Connection> pst); ///< false: too many
    std::shared_ptr<Connection> find(BU_U64 u64Number) const;
    void remove(BU_U64 u64Number);
    std::size_t count() const;
    void tell(const std::string &strSubject, std::string_view json);
    void clear();

private:
    mutable std::mutex m_lock; // guards m_connections
    std::map<BU_U64, std::shared_ptr<Connection>> m_connections;
};
} // namespace web_rpc
