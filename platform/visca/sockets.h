/// Sockets: the commands that run, for all controllers. Every command holds one of its controller's two sockets from
/// its acknowledgement to its end, and every command ends exactly once.
#pragma once

#include "codec.h"
#include "errorLimit.h"

#include <array>
#include <atomic>
#include <mutex>
#include <optional>

namespace visca
{
/// What the library writes into the origin record of a message beside origin, kind, socket and sequence number:
/// u64IpAddr low half: IPv4 address or TCP connection; high half: the ticket of a command, the number of an inquiry's
/// row. u32Port bits 0-15: port; 16-19: the address the message was sent to (0: unknown); 20-31: the run of this
/// process.
namespace origin
{
inline BU_U32 ticketOf(const VISCA_MSG_PRI_S &stPri) { return static_cast<BU_U32>(stPri.stIpMsg.u64IpAddr >> 32); }
inline BU_U32 peerOf(const VISCA_MSG_PRI_S &stPri) { return static_cast<BU_U32>(stPri.stIpMsg.u64IpAddr); }
inline BU_U16 portOf(const VISCA_MSG_PRI_S &stPri) { return static_cast<BU_U16>(stPri.stIpMsg.u32Port); }
inline BU_U8 addressOf(const VISCA_MSG_PRI_S &stPri) { return stPri.stIpMsg.u32Port >> 16 & 0x0F; }
inline BU_U32 runOf(const VISCA_MSG_PRI_S &stPri) { return stPri.stIpMsg.u32Port >> 20; }
void setTicket(VISCA_MSG_PRI_S &stPri, BU_U32 u32Ticket);
void setAddress(VISCA_MSG_PRI_S &stPri, BU_U8 u8Address);
} // namespace origin

/// What is known of one controller.
struct Peer {
    std::array<BU_U32, 2>
        au32Ticket{};                ///< of the command that holds the socket; 0: free. Guarded by the lock of Sockets
    ErrorLimit *pstErrors = nullptr; ///< of the receiver's thread; null: no limit
};

/// A command that was taken out of its socket.
struct Ended {
    VISCA_MSG_PRI_S stPri{};
    BU_U8 u8Motors = NO_MOTOR;
};

/// How a command stands when it is about to be answered.
enum class Claim : BU_U8 {
    Ended,   ///< it has ended before; nothing more is answered
    Running, ///< the service works on it
    Waiting  ///< it waits for the end of its motion
};

class Sockets
{
public:
    /// Everything from here on belongs to another run. @param u32Run  1...4095, never that of the run before
    void begin(BU_U32 u32Run);

    /// Gives a command a socket: fills socket number, ticket and run of stPri. A drive or stop that finds both taken
    /// ends a move of the same motors (stSuperseded), or else shares the number of a socket.
    /// @return false: both are taken, or too many commands run
    bool open(Peer &peer, VISCA_MSG_PRI_S &stPri, Moves moves, Drives drives, std::optional<Ended> &superseded);

    /// The command is about to be answered: from now nobody else can end it, but its socket stays taken until close, so
    /// that no later acknowledgement overtakes the answer.
    Claim claim(BU_U32 u32Ticket);
    void close(BU_U32 u32Ticket);
    /// Ends the running command of a socket. Nothing: there is none.
    std::optional<Ended> closeSocket(Peer &peer, BU_U8 u8Socket);

    /// Whether a command of the controller runs; whether one is just being answered.
    bool isBusy(const Peer &peer);
    bool isEnding(const Peer &peer);
    /// Ends every command of a controller that is gone.
    void forget(Peer &peer);
    /// Ends every command of every controller; nobody is answered.
    void clear();
    /// The controller's place is given away: its commands go on and are answered by address.
    void detach(Peer &peer);

    /// From now the command counts as running and must end before the time. @return false: it has ended already
    bool expectBy(BU_U32 u32Ticket, BU_S64 s64DeadlineMs);
    /// Takes out one command whose time is over.
    std::optional<Ended> expired(BU_S64 s64NowMs);
    /// Gives the commands that are waited for more time.
    void extend(BU_S64 s64DeadlineMs);
    /// The nearest deadline; nothing: no command is waited for.
    std::optional<BU_S64> nextDeadline() const;

    /// Whether a record carries a ticket of this run of the process.
    bool isOfThisRun(const VISCA_MSG_PRI_S &stPri) const;
    /// Places of commands that are taken, for tests and the memory bound.
    std::size_t running() const;

    static constexpr std::size_t MAX_COMMANDS = 4095;

private:
    struct Slot {
        Peer *pstPeer = nullptr;
        VISCA_MSG_PRI_S stPri{};
        BU_U32 u32Generation = 0;
        BU_S64 s64DeadlineMs = 0; ///< 0: none
        BU_U16 u16NextFree = 0;
        BU_U8 u8Motors = NO_MOTOR;
        bool bTaken = false;
        bool bEnding = false; ///< its answer is being sent
    };
    Slot *find(BU_U32 u32Ticket);
    Slot *findRunning(BU_U32 u32Ticket);
    Ended release(Slot &slot);
    BU_U32 take(Peer *pstPeer, VISCA_MSG_PRI_S &stPri, BU_U8 u8Motors);

    mutable std::mutex m_mutex; ///< guards everything below and all Peer records
    std::array<Slot, MAX_COMMANDS + 1> m_slot{};
    BU_U16 m_u16Free = 0;    ///< first of the free list, 0: empty; slot 0 is not used
    BU_U16 m_u16Touched = 0; ///< slots that were ever taken
    std::size_t m_taken = 0;
    std::atomic<BU_U32> m_u32Run = 0; ///< records of an earlier run are told by it
};
} // namespace visca
