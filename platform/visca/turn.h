/// One turn of a receiver: everything it has read is handled fairly and in each controller's own order.
///
/// Each controller has a lane. In a round every lane whose next packet is a command gets its acknowledgement; these
/// leave together. Then the commands run, stops first, each completion leaving at once; then inquiries are answered, up
/// to the next command of each lane. So no acknowledgement waits for another controller's work, no stop for another's
/// command, and no controller's own messages change places.
#pragma once

#include "session.h"

#include <functional>
#include <vector>

namespace visca
{
class Turn
{
public:
    static constexpr std::size_t MAX_SOURCES = 96;

    /// @param fnFlush  sends what the transmitters have gathered
    /// @param fnMore   after a round of commands: adds what has arrived meanwhile
    Turn(std::function<void()> fnFlush, std::function<void()> fnMore);
    /// Starts over. @return the number of the turn, for callers that remember the lane of a controller
    BU_U32 begin();
    BU_U16 addLane(Peer &peer);
    /// Bytes of a lane's controller, which stay valid until process() ends. With a splitter they continue its stream;
    /// without one they are whole packets by themselves.
    void addStream(BU_U16 u16Lane, const VISCA_MSG_PRI_S &stFrom, std::span<const BU_U8> bytes, Splitter *pstSplitter);
    /// One packet as it stands, right or wrong.
    void addPacket(BU_U16 u16Lane, const VISCA_MSG_PRI_S &stFrom, std::span<const BU_U8> packet);
    bool isFull() const { return m_sources == MAX_SOURCES; }
    void process();

private:
    static constexpr BU_U16 NONE = 0xFFFF;
    struct Source {
        VISCA_MSG_PRI_S stFrom;
        std::span<const BU_U8> bytes;
        Splitter *pstSplitter;
        Splitter own; ///< of a datagram
        bool bWhole;
        BU_U16 u16Next;
    };
    struct Lane {
        Peer *pstPeer;
        BU_U16 u16First, u16Last;
        VISCA_MSG_PRI_S stFrom;        ///< of `packet`
        std::span<const BU_U8> packet; ///< the next one; empty: none left
        bool bTooLong;
        Job job;
    };
    void add(BU_U16 u16Lane, const Source &source);
    bool fetch(Lane &lane);
    bool fetchFrom(Lane &lane, Source &source);
    void acceptNext(Lane &lane);
    bool acceptCommands();
    void runCommands(bool bStops);
    void answerInquiries();

    std::function<void()> m_fnFlush, m_fnMore;
    std::vector<Source> m_source;
    std::vector<Lane> m_lane;
    std::size_t m_sources = 0, m_lanes = 0;
    BU_U32 m_u32Turn = 0;
};
} // namespace visca
