/// From packets to service calls and back: what every transport does with a packet, and what becomes of a message.
///
/// A receiver takes a packet in two steps. accept() decides about it and sends what must leave at once: the
/// acknowledgement, or an error. run() then calls the service, which answers through VISCA_CtrlMsgReturn. Between the
/// two a receiver accepts what else it has read, so that no acknowledgement waits for another message's work.
#pragma once

#include "sockets.h"

#include <atomic>
#include <functional>

namespace visca
{
/// A message that was accepted and waits for its work.
struct Job {
    enum Kind : BU_U8 {
        None,
        Inquiry,
        Command,
        Address, ///< broadcast address setting
        Cancel,
        Clear,
        Wake ///< power on in stand-by
    } enKind = None;
    const Row *pstRow = nullptr;
    BU_U8 u8StopMotors = NO_MOTOR;
    tagVISCA_CTRL_INFO_S stInfo;
    /// Goes before the jobs of other controllers.
    bool isStop() const { return enKind != None && pstRow && pstRow->drives.bStop; }
};

/// Whether the next packet of a controller holds a socket while it runs; only then it is accepted ahead of its turn.
bool isCommand(std::span<const BU_U8> packet);

/// @param packet  one packet as it was cut out of the stream, right or wrong
/// @param stFrom  origin, connection or address and port, and the over-IP fields
void accept(std::span<const BU_U8> packet, VISCA_MSG_PRI_S stFrom, Peer &peer, Job &job);
/// @param fnFlush  sends the answers that have been gathered
void run(Job &job, const std::function<void()> &fnFlush);
/// Answers a packet that was too long to be held.
void refuseLength(BU_U8 u8Head, VISCA_MSG_PRI_S stFrom, Peer &peer);

/// Sends an answer through the transmitter of the message's origin. @return its result; 0 where there is none
BU_S32 transmit(const VISCA_MSG_PRI_S &stPri, std::span<const BU_U8> bytes);

struct Library {
    std::array<std::atomic<PFN_VISCA_TRANS>, CMD_FROM_E_BUTT> pfnTransmit{};
    std::atomic<decltype(VISCA_CTRL_CALL_FUNC_S::pfnViscaMsgCtrl)> pfnControl{};
    std::atomic<decltype(VISCA_CTRL_CALL_FUNC_S::pfnViscaMsgComplete)> pfnComplete{};
    std::atomic<BU_U8> u8Address{1};
    Sockets sockets;
};
Library &library();

bool isSerial(const VISCA_MSG_PRI_S &stPri);
/// The camera's address in answers to a message.
BU_U8 answerAddress(const VISCA_MSG_PRI_S &stPri);
/// Answers a command that has ended without the service.
void answerEnded(const Ended &ended, Fault enFault);

/// Registers for what ends commands or changes the session: superseded recalls, stand-by.
void startWatch();
void stopWatch();
/// A command waits for the end of its motion: it is closed when nothing has moved for two minutes.
void watchCommand(const VISCA_MSG_PRI_S &stPri);
constexpr BU_S64 COMMAND_TIMEOUT_MS = 120'000;
} // namespace visca
