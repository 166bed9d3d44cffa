/// The clients on TCP. A connection is known by a number that is not used again for a long time, so an answer for a
/// client that has left never reaches the next one.
#pragma once

#include "net/listener.h"
#include "net/outbox.h"
#include "turn.h"

#include <mutex>

namespace visca
{
class TcpClients
{
public:
    static constexpr std::size_t MAX_CLIENTS = 1000;
    static constexpr std::size_t MAX_UNREAD = 16 * 1024; ///< answers that a client leaves unread before it is closed

    TcpClients();

    /// Takes new connections. Thread: network, as all but send.
    /// @return as Listener::accept
    bool acceptFrom(net::Listener &listener, int s32Epoll);
    /// Something happened on a client: reads into `buffer` and adds to the turn, sends, or closes.
    /// @return whether the buffer is in use
    bool handle(BU_U32 u32Id, BU_U32 u32Events, Turn &turn, BU_U32 u32Turn, std::span<BU_U8> buffer);
    void flush();
    void closeAll();
    std::size_t size() const { return m_size; }

    /// Sends an answer to the client of a message, or with bGather at the next flush. Thread: any, network to gather.
    /// @return 0, or -1: the client has left
    BU_S32 send(const VISCA_MSG_PRI_S &stPri, std::span<const BU_U8> bytes, bool bGather);

private:
    struct Client {
        util::FileDescriptor fd;
        BU_U32 u32Generation = 0;
        BU_U16 u16Port = 0;
        bool bDirty = false;  ///< in m_dirty
        bool bLeft = false;   ///< sends nothing more, but waits for answers
        BU_U32 u32Events = 0; ///< asked of epoll
        net::Outbox out{MAX_UNREAD};
        // Of the network thread alone:
        Splitter splitter;
        Peer peer;
        BU_U32 u32Turn = 0;
        BU_U16 u16Lane = 0;
    };
    void admit(util::FileDescriptor fd, int s32Epoll, BU_U16 u16Port);
    bool readFrom(Client &client, BU_U32 u32Id, Turn &turn, BU_U32 u32Turn, std::span<BU_U8> buffer);
    void onLeft(Client &client, BU_U32 u32Id);
    void close(Client &client);
    Client *find(BU_U32 u32Id);
    void sendOut(Client &client, BU_U32 u32Id);
    void listenFor(Client &client, BU_U32 u32Id);
    BU_U32 idOf(const Client &client) const;

    mutable std::mutex m_mutex; ///< guards the clients but for their network-thread part, and m_dirty
    std::vector<Client> m_client;
    std::vector<BU_U16> m_free;
    std::vector<BU_U32> m_dirty;
    std::size_t m_size = 0;
    int m_s32Epoll = -1;
};
} // namespace visca
