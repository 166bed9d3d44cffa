// The table of running commands and the tickets by which records find them again.
#include "sockets.h"

#include <algorithm>
#include <utility>

namespace visca
{
namespace
{
constexpr BU_U32 INDEX_BITS = 12;
constexpr BU_U32 INDEX_MASK = (1u << INDEX_BITS) - 1;
} // namespace

void origin::setTicket(VISCA_MSG_PRI_S &stPri, BU_U32 u32Ticket)
{
    stPri.stIpMsg.u64IpAddr = static_cast<BU_U64>(u32Ticket) << 32 | peerOf(stPri);
}

void origin::setAddress(VISCA_MSG_PRI_S &stPri, BU_U8 u8Address)
{
    stPri.stIpMsg.u32Port = (stPri.stIpMsg.u32Port & ~0xF0000u) | static_cast<BU_U32>(u8Address & 0x0F) << 16;
}

void Sockets::begin(BU_U32 u32Run)
{
    clear();
    m_u32Run = u32Run;
}

bool Sockets::open(Peer &peer, VISCA_MSG_PRI_S &stPri, Moves moves, Drives drives, std::optional<Ended> &superseded)
{
    const std::lock_guard lock(m_mutex);
    auto socket = std::ranges::find(peer.au32Ticket, 0u);
    const bool bShares = socket == peer.au32Ticket.end();
    if (bShares) {
        if (!drives.motors) return false;
        socket = std::ranges::find_if(peer.au32Ticket, [&](BU_U32 u32Ticket) {
            const Slot *slot = findRunning(u32Ticket);
            return slot && slot->u8Motors & drives.motors;
        });
        if (socket != peer.au32Ticket.end()) {
            superseded = release(*find(*socket));
        } else {
            socket = peer.au32Ticket.begin();
        }
    }
    const bool bHolds = *socket == 0;
    stPri.u8SocketNum = static_cast<BU_U8>(1 + (socket - peer.au32Ticket.begin()));
    const BU_U32 u32Ticket = take(bHolds ? &peer : nullptr, stPri, moves.motors);
    if (u32Ticket && bHolds) *socket = u32Ticket;
    return u32Ticket != 0;
}

BU_U32 Sockets::take(Peer *pstPeer, VISCA_MSG_PRI_S &stPri, BU_U8 u8Motors)
{
    BU_U16 u16Index = m_u16Free;
    if (u16Index)
        m_u16Free = m_slot[u16Index].u16NextFree;
    else if (m_u16Touched < MAX_COMMANDS)
        u16Index = ++m_u16Touched;
    else
        return 0;
    Slot &slot = m_slot[u16Index];
    slot.u32Generation = (slot.u32Generation + 1) & (0xFFFFFFFFu >> INDEX_BITS);
    const BU_U32 u32Ticket = slot.u32Generation << INDEX_BITS | u16Index;
    origin::setTicket(stPri, u32Ticket);
    stPri.stIpMsg.u32Port = (stPri.stIpMsg.u32Port & 0xFFFFF) | m_u32Run << 20;
    slot.pstPeer = pstPeer;
    slot.stPri = stPri;
    slot.s64DeadlineMs = 0;
    slot.u8Motors = u8Motors;
    slot.bTaken = true;
    slot.bEnding = false;
    ++m_taken;
    return u32Ticket;
}

Sockets::Slot *Sockets::find(BU_U32 u32Ticket)
{
    Slot &slot = m_slot[u32Ticket & INDEX_MASK];
    return slot.bTaken && slot.u32Generation == u32Ticket >> INDEX_BITS ? &slot : nullptr;
}

Sockets::Slot *Sockets::findRunning(BU_U32 u32Ticket)
{
    Slot *slot = find(u32Ticket);
    return slot && !slot->bEnding ? slot : nullptr;
}

Ended Sockets::release(Slot &slot)
{
    const Ended ended{slot.stPri, slot.u8Motors};
    if (slot.pstPeer) slot.pstPeer->au32Ticket[slot.stPri.u8SocketNum - 1] = 0;
    slot.bTaken = false;
    slot.u16NextFree = m_u16Free;
    m_u16Free = static_cast<BU_U16>(&slot - m_slot.data());
    --m_taken;
    return ended;
}

Claim Sockets::claim(BU_U32 u32Ticket)
{
    const std::lock_guard lock(m_mutex);
    Slot *slot = findRunning(u32Ticket);
    if (!slot) return Claim::Ended;
    slot->bEnding = true;
    return slot->s64DeadlineMs ? Claim::Waiting : Claim::Running;
}

void Sockets::close(BU_U32 u32Ticket)
{
    const std::lock_guard lock(m_mutex);
    if (Slot *slot = find(u32Ticket)) release(*slot);
}

std::optional<Ended> Sockets::closeSocket(Peer &peer, BU_U8 u8Socket)
{
    const std::lock_guard lock(m_mutex);
    if (u8Socket < 1 || u8Socket > peer.au32Ticket.size()) return std::nullopt;
    Slot *slot = findRunning(peer.au32Ticket[u8Socket - 1]);
    return slot ? std::optional(release(*slot)) : std::nullopt;
}

bool Sockets::isBusy(const Peer &peer)
{
    const std::lock_guard lock(m_mutex);
    return std::ranges::any_of(peer.au32Ticket, [this](BU_U32 u32Ticket) { return findRunning(u32Ticket); });
}

bool Sockets::isEnding(const Peer &peer)
{
    const std::lock_guard lock(m_mutex);
    return std::ranges::any_of(peer.au32Ticket, [this](BU_U32 u32Ticket) {
        const Slot *slot = find(u32Ticket);
        return slot && slot->bEnding;
    });
}

void Sockets::forget(Peer &peer)
{
    const std::lock_guard lock(m_mutex);
    for (const BU_U32 u32Ticket : peer.au32Ticket)
        if (Slot *slot = find(u32Ticket)) release(*slot);
}

void Sockets::clear()
{
    const std::lock_guard lock(m_mutex);
    for (Slot &slot : std::span(m_slot).subspan(1, m_u16Touched))
        if (slot.bTaken) release(slot);
}

void Sockets::detach(Peer &peer)
{
    const std::lock_guard lock(m_mutex);
    for (const BU_U32 u32Ticket : std::exchange(peer.au32Ticket, {}))
        if (Slot *slot = find(u32Ticket)) slot->pstPeer = nullptr;
}

bool Sockets::expectBy(BU_U32 u32Ticket, BU_S64 s64DeadlineMs)
{
    const std::lock_guard lock(m_mutex);
    Slot *slot = findRunning(u32Ticket);
    if (slot) slot->s64DeadlineMs = s64DeadlineMs;
    return slot != nullptr;
}

std::optional<Ended> Sockets::expired(BU_S64 s64NowMs)
{
    const std::lock_guard lock(m_mutex);
    for (Slot &slot : std::span(m_slot).subspan(1, m_u16Touched))
        if (slot.bTaken && !slot.bEnding && slot.s64DeadlineMs && slot.s64DeadlineMs <= s64NowMs) return release(slot);
    return std::nullopt;
}

void Sockets::extend(BU_S64 s64DeadlineMs)
{
    const std::lock_guard lock(m_mutex);
    for (Slot &slot : std::span(m_slot).subspan(1, m_u16Touched))
        if (slot.bTaken && slot.s64DeadlineMs) slot.s64DeadlineMs = s64DeadlineMs;
}

std::optional<BU_S64> Sockets::nextDeadline() const
{
    const std::lock_guard lock(m_mutex);
    std::optional<BU_S64> next;
    for (const Slot &slot : std::span(m_slot).subspan(1, m_u16Touched))
        if (slot.bTaken && slot.s64DeadlineMs) next = std::min(next.value_or(slot.s64DeadlineMs), slot.s64DeadlineMs);
    return next;
}

bool Sockets::isOfThisRun(const VISCA_MSG_PRI_S &stPri) const { return origin::runOf(stPri) == m_u32Run; }

std::size_t Sockets::running() const
{
    const std::lock_guard lock(m_mutex);
    return m_taken;
}
} // namespace visca
