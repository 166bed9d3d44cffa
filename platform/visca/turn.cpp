// The order in which a turn accepts, runs and answers.
#include "turn.h"

#include <algorithm>

namespace visca
{
Turn::Turn(std::function<void()> fnFlush, std::function<void()> fnMore)
    : m_fnFlush(std::move(fnFlush)), m_fnMore(std::move(fnMore)), m_source(MAX_SOURCES), m_lane(MAX_SOURCES)
{
}

BU_U32 Turn::begin()
{
    m_sources = m_lanes = 0;
    return ++m_u32Turn;
}

BU_U16 Turn::addLane(Peer &peer)
{
    Lane &lane = m_lane[m_lanes];
    lane.pstPeer = &peer;
    lane.u16First = lane.u16Last = NONE;
    lane.packet = {};
    return static_cast<BU_U16>(m_lanes++);
}

void Turn::addStream(BU_U16 u16Lane, const VISCA_MSG_PRI_S &stFrom, std::span<const BU_U8> bytes, Splitter *pstSplitter)
{
    add(u16Lane, {stFrom, bytes, pstSplitter, {}, false, NONE});
}

void Turn::addPacket(BU_U16 u16Lane, const VISCA_MSG_PRI_S &stFrom, std::span<const BU_U8> packet)
{
    add(u16Lane, {stFrom, packet, nullptr, {}, true, NONE});
}

void Turn::add(BU_U16 u16Lane, const Source &source)
{
    if (isFull()) return;
    const auto u16Source = static_cast<BU_U16>(m_sources++);
    m_source[u16Source] = source;
    Lane &lane = m_lane[u16Lane];
    (lane.u16First == NONE ? lane.u16First : m_source[lane.u16Last].u16Next) = u16Source;
    lane.u16Last = u16Source;
}

bool Turn::fetchFrom(Lane &lane, Source &source)
{
    lane.stFrom = source.stFrom;
    lane.bTooLong = false;
    if (source.bWhole) {
        lane.packet = std::exchange(source.bytes, {});
        return !lane.packet.empty();
    }
    Splitter &splitter = source.pstSplitter ? *source.pstSplitter : source.own;
    if (const auto result = splitter.next(source.bytes)) {
        lane.packet = result->packet;
        lane.bTooLong = result->bTooLong;
        return true;
    }
    if (source.pstSplitter || !source.own.isInside()) return false;
    lane.packet = source.own.cutOff(); // a datagram that ends inside a packet
    return true;
}

bool Turn::fetch(Lane &lane)
{
    while (lane.packet.empty() && lane.u16First != NONE) {
        Source &source = m_source[lane.u16First];
        if (fetchFrom(lane, source)) break;
        lane.u16First = source.u16Next;
        if (lane.pstPeer->pstErrors) lane.pstPeer->pstErrors->endDatagram();
    }
    return !lane.packet.empty();
}

void Turn::acceptNext(Lane &lane)
{
    lane.job.enKind = Job::None;
    if (lane.bTooLong)
        refuseLength(lane.packet[0], lane.stFrom, *lane.pstPeer);
    else
        accept(lane.packet, lane.stFrom, *lane.pstPeer, lane.job);
    lane.packet = {};
}

bool Turn::acceptCommands()
{
    bool bAny = false;
    for (Lane &lane : std::span(m_lane.data(), m_lanes)) {
        lane.job.enKind = Job::None;
        if (!fetch(lane) || !isCommand(lane.packet)) continue;
        acceptNext(lane);
        bAny = true;
    }
    if (bAny) m_fnFlush();
    return bAny;
}

void Turn::runCommands(bool bStops)
{
    for (Lane &lane : std::span(m_lane.data(), m_lanes)) {
        if (lane.job.enKind == Job::None || lane.job.isStop() != bStops) continue;
        run(lane.job, m_fnFlush);
        lane.job.enKind = Job::None;
        m_fnFlush();
    }
}

void Turn::answerInquiries()
{
    for (Lane &lane : std::span(m_lane.data(), m_lanes))
        while (fetch(lane) && !isCommand(lane.packet)) {
            acceptNext(lane);
            run(lane.job, m_fnFlush);
            lane.job.enKind = Job::None;
        }
    m_fnFlush();
}

void Turn::process()
{
    const auto lanes = [this] { return std::span(m_lane.data(), m_lanes); };
    while (std::ranges::any_of(lanes(), [this](Lane &lane) { return fetch(lane); })) {
        const bool bCommands = acceptCommands();
        runCommands(true);
        runCommands(false);
        answerInquiries();
        if (bCommands) m_fnMore();
    }
}
} // namespace visca
