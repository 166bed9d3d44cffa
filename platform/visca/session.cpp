// What is accepted, what is refused and what a message does.
#include "session.h"

#include "camera/menu.h"
#include "camera/motion.h"
#include "camera/power.h"
#include "util/time.h"

#include <algorithm>

namespace visca
{
namespace
{
constexpr std::array<BU_U8, 3> CLEAR = {0x01, 0x00, 0x01};
constexpr BU_U8 SILENT = 0;

bool isDatagram(const VISCA_MSG_PRI_S &stPri)
{
    return stPri.enFrom == CMD_FROM_E_OVER_IP_IN || stPri.enFrom == CMD_FROM_E_NET_UDP_IN;
}

void refuse(const VISCA_MSG_PRI_S &stPri, BU_U8 u8Socket, Fault enFault)
{
    transmit(stPri, faultOf(answerAddress(stPri), u8Socket, enFault).bytes());
}

/// Answers a packet that means nothing, unless its controller has been told of too many. @return false
bool refusePacket(const VISCA_MSG_PRI_S &stPri, Peer &peer, Fault enFault)
{
    if (!peer.pstErrors || peer.pstErrors->takeOfMany(UTIL_TIME_NowMs())) refuse(stPri, 0, enFault);
    return false;
}

/// Checks head and framing; answers what is wrong. @return whether the packet is for this camera and whole
bool isForUs(std::span<const BU_U8> packet, VISCA_MSG_PRI_S &stFrom, Peer &peer)
{
    const BU_U8 u8Address = packet.empty() ? SILENT : addressOf(packet[0]);
    const bool bHead = !packet.empty() && (packet[0] & 0xF0) == 0x80 && u8Address >= 1 && u8Address <= 8;
    if (isSerial(stFrom) && (!bHead || (u8Address != 8 && u8Address != library().u8Address))) return false;
    if (!bHead) return refusePacket(stFrom, peer, Fault::Syntax);
    origin::setAddress(stFrom, u8Address);
    if (packet.size() < MIN_PACKET || packet.size() > MAX_PACKET) return refusePacket(stFrom, peer, Fault::Length);
    if (std::ranges::find(packet, TERMINATOR) != packet.end() - 1) return refusePacket(stFrom, peer, Fault::Syntax);
    return true;
}

void acceptClear(std::span<const BU_U8> packet, const VISCA_MSG_PRI_S &stFrom, Peer &peer, Job &job)
{
    for (BU_U8 u8Socket = 1; u8Socket <= 2; ++u8Socket)
        if (const auto ended = library().sockets.closeSocket(peer, u8Socket)) job.u8StopMotors |= ended->u8Motors;
    job.enKind = Job::Clear;
    const BU_U8 au8Done[] = {replyHead(answerAddress(stFrom)), 0x50, TERMINATOR};
    if (packet[0] != BROADCAST)
        transmit(stFrom, au8Done);
    else if (!isDatagram(stFrom)) // another camera would take its answer, which is the same packet, for a command
        transmit(stFrom, packet);
}

void acceptCancel(const VISCA_MSG_PRI_S &stFrom, Peer &peer, Job &job)
{
    const BU_U8 u8Socket = job.stInfo.stCancelCtrl.u8Cancel;
    const auto ended = library().sockets.closeSocket(peer, u8Socket);
    refuse(stFrom, u8Socket, ended ? Fault::Cancelled : Fault::NoSocket);
    if (!ended) return;
    job.enKind = Job::Cancel;
    job.u8StopMotors = ended->u8Motors;
    job.stInfo.stCancelCtrl.enMsgType = ended->stPri.enMsgType;
}

/// The broadcast that numbers the cameras of a serial chain. A camera on the network keeps its address.
void acceptAddress(std::span<const BU_U8> packet, const VISCA_MSG_PRI_S &stFrom, Job &job)
{
    if (isSerial(stFrom)) {
        job.enKind = Job::Address;
        return;
    }
    const BU_U8 au8Next[] = {BROADCAST, 0x30, static_cast<BU_U8>(packet[2] + 1), TERMINATOR};
    transmit(stFrom, au8Next);
}

/// In stand-by the platform tells it; the service knows of no power but on.
void acceptInquiry(VISCA_MSG_PRI_S &stFrom, Job &job)
{
    if (stFrom.enMsgType != VISCA_INQ_E_POWER || !SYSTEM_API_IsAsleep()) {
        origin::setTicket(stFrom, numberOf(*job.pstRow)); // its answer has the form of the row
        job.enKind = Job::Inquiry;
        return;
    }
    const BU_U8 au8Off[] = {replyHead(answerAddress(stFrom)), 0x50, VISCA_MSG_E_POWER_OFF, TERMINATOR};
    transmit(stFrom, au8Off);
}

void acceptCommand(VISCA_MSG_PRI_S &stFrom, Peer &peer, Job &job)
{
    const bool bPowerAsleep = job.pstRow->enType == VISCA_CMD_E_POWER && SYSTEM_API_IsAsleep();
    if (bPowerAsleep && job.stInfo.enPowerCtrl != VISCA_MSG_E_POWER_ON) return refuse(stFrom, 1, Fault::NotNow);
    std::optional<Ended> superseded;
    const bool bOpen = library().sockets.open(peer, stFrom, job.pstRow->moves, job.pstRow->drives, superseded);
    if (superseded) answerEnded(*superseded, Fault::Cancelled);
    if (!bOpen) return refuse(stFrom, 0, Fault::BufferFull);
    transmit(stFrom, ackOf(answerAddress(stFrom), stFrom.u8SocketNum).bytes());
    job.enKind = bPowerAsleep ? Job::Wake : Job::Command;
}

void stopMotors(BU_U8 u8Motors)
{
    PT_MOTION_CTRL_S stPanTilt{};
    stPanTilt.enMotionType = PT_MOTION_E_STOP;
    if (u8Motors & PAN_TILT) BSP_PTCtrlMotion(PT_CTRL_E_FROM_VISCA, &stPanTilt, nullptr);
    ZF_MOTION_CTRL_S stLens{};
    stLens.enMotionType = ZF_E_ZOOM_STOP;
    if (u8Motors & ZOOM) BSP_ZFCtrlMotion(ZF_CTRL_E_FROM_VISCA, &stLens, nullptr);
    stLens.enMotionType = ZF_E_FOCUS_STOP;
    if (u8Motors & FOCUS) BSP_ZFCtrlMotion(ZF_CTRL_E_FROM_VISCA, &stLens, nullptr);
}

BU_U16 movedBy(BU_U32 u32Current, BU_U16 u16Offset)
{
    const BU_S32 s32Target = static_cast<BU_S16>(u32Current) + static_cast<BU_S16>(u16Offset);
    return static_cast<BU_U16>(std::clamp<BU_S32>(s32Target, INT16_MIN, INT16_MAX));
}

/// The service moves to the positions of the record also for a relative command: make them the target.
void resolveRelative(tagVISCA_CTRL_INFO_S &stInfo)
{
    auto &stPanTilt = stInfo.stPTCtlr;
    PT_POS_S stPos{};
    if (stPanTilt.enPanTiltType != VISCA_MSG_E_PT_REL_POS) return;
    if (BSP_PTGetCurPos(0, &stPos, PT_DEV_TYPE_PAN_TILE_E) || BSP_PTPosToVisca(0, &stPos)) return;
    stPanTilt.u16PanPos = movedBy(stPos.u32PanPos, stPanTilt.u16PanPos);
    stPanTilt.u16TiltPos = movedBy(stPos.u32TiltPos, stPanTilt.u16TiltPos);
}

BU_S32 callService(Job &job)
{
    const auto pfnControl = library().pfnControl.load(std::memory_order_acquire);
    return pfnControl ? pfnControl(job.pstRow->enType, &job.stInfo) : -2;
}

/// The service has answered when it is done or refuses. A command may be on its way; any other result is a failure that
/// is answered here.
void runService(Job &job)
{
    if (job.pstRow->enType == VISCA_CMD_E_PAN_TILT) resolveRelative(job.stInfo);
    const VISCA_MSG_PRI_S stPri = job.stInfo.stMsgPri;
    const BU_S32 s32Ret = callService(job);
    if (s32Ret == 0 || s32Ret == -1) return;
    if (s32Ret > 0 && !job.pstRow->isInquiry()) return watchCommand(stPri);
    job.stInfo.stMsgPri = stPri;
    VISCA_CtrlMsgReturn(&job.stInfo, BU_FALSE);
}

/// The camera restarts; the power-off command that sent it to stand-by is answered after the start.
void runWake(Job &job, const std::function<void()> &fnFlush)
{
    VISCA_CtrlMsgReturn(&job.stInfo, BU_TRUE);
    fnFlush();
    SYSTEM_API_WakeAppService();
}
} // namespace

Library &library()
{
    static Library *s_pstLibrary = new Library;
    return *s_pstLibrary;
}

bool isSerial(const VISCA_MSG_PRI_S &stPri) { return stPri.enFrom <= CMD_FROM_E_UART_RS422; }

BU_U8 answerAddress(const VISCA_MSG_PRI_S &stPri)
{
    const BU_U8 u8Address = origin::addressOf(stPri);
    if (u8Address >= 1 && u8Address <= 7) return u8Address;
    return isSerial(stPri) ? library().u8Address.load() : BU_U8{1};
}

BU_S32 transmit(const VISCA_MSG_PRI_S &stPri, std::span<const BU_U8> bytes)
{
    if (stPri.enFrom < 0 || stPri.enFrom >= CMD_FROM_E_BUTT) return -1;
    const auto pfnTransmit = library().pfnTransmit[stPri.enFrom].load(std::memory_order_acquire);
    if (!pfnTransmit) return 0;
    VISCA_MSG_PRI_S stCopy = stPri;
    return pfnTransmit(const_cast<BU_U8 *>(bytes.data()), static_cast<BU_U32>(bytes.size()), &stCopy, nullptr);
}

void answerEnded(const Ended &ended, Fault enFault) { refuse(ended.stPri, ended.stPri.u8SocketNum, enFault); }

bool isCommand(std::span<const BU_U8> packet) { return packet.size() > 1 && packet[1] != 0x09; }

void accept(std::span<const BU_U8> packet, VISCA_MSG_PRI_S stFrom, Peer &peer, Job &job)
{
    job.enKind = Job::None;
    job.u8StopMotors = NO_MOTOR;
    if (!isForUs(packet, stFrom, peer)) return;
    if (std::ranges::equal(packet.subspan(1, packet.size() - 2), CLEAR)) return acceptClear(packet, stFrom, peer, job);
    job.pstRow = decode(packet, job.stInfo);
    if (!job.pstRow) {
        refusePacket(stFrom, peer, Fault::Syntax);
        return;
    }
    stFrom.enMsgType = job.pstRow->enType;
    if (job.pstRow->isInquiry())
        acceptInquiry(stFrom, job);
    else if (job.pstRow->pattern.bBroadcast)
        acceptAddress(packet, stFrom, job);
    else if (job.pstRow->enType == VISCA_CMD_E_CANCEL)
        acceptCancel(stFrom, peer, job);
    else
        acceptCommand(stFrom, peer, job);
    job.stInfo.stMsgPri = stFrom;
}

void refuseLength(BU_U8 u8Head, VISCA_MSG_PRI_S stFrom, Peer &peer)
{
    const std::array<BU_U8, MAX_PACKET + 1> au8TooLong{u8Head};
    isForUs(au8TooLong, stFrom, peer);
}

void run(Job &job, const std::function<void()> &fnFlush)
{
    if (job.u8StopMotors) stopMotors(job.u8StopMotors);
    switch (job.enKind) {
    case Job::Inquiry:
    case Job::Command:
        return runService(job);
    case Job::Wake:
        return runWake(job, fnFlush);
    case Job::Address: // answered whatever the service says
    case Job::Cancel:
        callService(job);
        return;
    case Job::Clear:
    case Job::None:
        return;
    }
}
} // namespace visca
