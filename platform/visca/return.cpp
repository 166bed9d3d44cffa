// Answers: their form, which of them are still due, and commands that never end.
#include "session.h"

#include "camera/preset.h"
#include "camera/zoom.h"
#include "util/journal.h"
#include "util/log.h"
#include "util/time.h"

#include <cstring>

namespace visca
{
namespace
{
/// Where pan, tilt and zoom stand. While it changes, commands that wait for the end of a motion may still get it.
struct Whereabouts {
    PT_POS_S stPos{};
    BU_S32 s32Zoom = 0;
    static Whereabouts now()
    {
        Whereabouts here;
        BSP_PTGetCurPos(0, &here.stPos, PT_DEV_TYPE_PAN_TILE_E);
        PTZ_API_GetZoomPos(0, &here.s32Zoom);
        return here;
    }
    bool operator==(const Whereabouts &other) const
    {
        return stPos.u32PanPos == other.stPos.u32PanPos && stPos.u32TiltPos == other.stPos.u32TiltPos &&
               s32Zoom == other.s32Zoom;
    }
};

struct Watch {
    std::atomic<bool> bArmed{false};
    BU_TIMER_DATA_S stTimer{};
    std::mutex mutex; // guards last
    Whereabouts last;
};
Watch &watch()
{
    static Watch *s_pstWatch = new Watch;
    return *s_pstWatch;
}

BU_S32 onWatchTimer(void *);

void armWatch()
{
    const auto next = library().sockets.nextDeadline();
    if (!next || watch().bArmed.exchange(true)) return;
    const BU_S64 s64WaitMs = std::max<BU_S64>(1, *next - UTIL_TIME_NowMs());
    UTIL_TIMER_Start(BU_TIMER_E_ONCE, static_cast<BU_S32>(s64WaitMs), onWatchTimer, nullptr, &watch().stTimer);
}

BU_S32 onWatchTimer(void *)
{
    watch().bArmed = false;
    const BU_S64 s64NowMs = UTIL_TIME_NowMs();
    const Whereabouts here = Whereabouts::now();
    {
        const std::lock_guard lock(watch().mutex);
        if (!(std::exchange(watch().last, here) == here)) library().sockets.extend(s64NowMs + COMMAND_TIMEOUT_MS);
    }
    while (const auto ended = library().sockets.expired(s64NowMs)) {
        LOG_WARN("VISCA command %d never ended\n", ended->stPri.enMsgType);
        answerEnded(*ended, Fault::NotNow);
    }
    armWatch();
    return 0;
}

/// A recall that another motion took over has no end of its own.
void onSuperseded(PT_CTRL_FROM_E, const void *pvPrivate, BU_S32 s32Size)
{
    tagVISCA_CTRL_INFO_S stInfo;
    if (!pvPrivate || s32Size < static_cast<BU_S32>(sizeof stInfo)) return;
    std::memcpy(static_cast<void *>(&stInfo), pvPrivate, sizeof stInfo);
    const VISCA_MSG_PRI_S &stPri = stInfo.stMsgPri;
    if (!library().sockets.isOfThisRun(stPri)) return;
    if (library().sockets.claim(origin::ticketOf(stPri)) == Claim::Ended) return;
    answerEnded({stPri, NO_MOTOR}, Fault::Cancelled);
    library().sockets.close(origin::ticketOf(stPri));
}

/// The form that the row of an inquiry gives its answer.
Shape shapeOf(const VISCA_MSG_PRI_S &stPri)
{
    const Row *row = stPri.enMsgType > VISCA_INQ_E_NONE ? rowOf(origin::ticketOf(stPri)) : nullptr;
    return row && row->enType == stPri.enMsgType ? row->reply.enShape : Shape::AsWritten;
}

void shape(tagVISCA_MSG_REQ_S &stReq, BU_U32 u32Payload, Shape enShape)
{
    if (enShape == Shape::OnOff && stReq.u32CmdLen == u32Payload + 2)
        stReq.acCmd[u32Payload] = stReq.acCmd[u32Payload] ? 0x02 : 0x03;
}

BU_S32 answerDone(tagVISCA_CTRL_INFO_S &stInfo)
{
    const VISCA_MSG_PRI_S stPri = stInfo.stMsgPri;
    const Shape enShape = shapeOf(stPri);
    const bool bTellsAddress =
        stPri.enMsgType == VISCA_INQ_E_GET_ADDRESS && stInfo.u8Address >= 1 && stInfo.u8Address <= 7;
    tagVISCA_MSG_REQ_S stReq;
    stReq.enFrom = stPri.enFrom;
    stReq.stIpMsg = stPri.stIpMsg;
    stReq.acCmd[0] = replyHead(bTellsAddress ? stInfo.u8Address : answerAddress(stPri));
    stReq.acCmd[1] = 0x50 | (stPri.u8SocketNum & 0x0F);
    BU_U32 u32Payload = 2;
    if (enShape == Shape::TwoZeros) {
        stReq.acCmd[u32Payload++] = 0;
        stReq.acCmd[u32Payload++] = 0;
    }
    stReq.acCmd[u32Payload] = TERMINATOR;
    stReq.u32CmdLen = u32Payload + 1;
    if (const auto pfnComplete = library().pfnComplete.load(std::memory_order_acquire))
        pfnComplete(&stInfo, &stReq, stPri.enMsgType, u32Payload);
    shape(stReq, u32Payload, enShape);
    return transmit(stPri, {stReq.acCmd, std::min<std::size_t>(stReq.u32CmdLen, sizeof stReq.acCmd)});
}

/// @param enFault  what a failure is
BU_S32 answer(tagVISCA_CTRL_INFO_S &stInfo, BU_BOOL bOk, Fault enFault)
{
    const VISCA_MSG_PRI_S stPri = stInfo.stMsgPri;
    if (!bOk) return transmit(stPri, faultOf(answerAddress(stPri), stPri.u8SocketNum & 0x0F, enFault).bytes());
    if (stPri.enMsgType == VISCA_CMD_E_SET_ADDRESS && origin::addressOf(stPri) == 8) {
        const BU_U8 au8Next[] = {BROADCAST, 0x30, static_cast<BU_U8>(stInfo.u8Address + 1), TERMINATOR};
        return transmit(stPri, au8Next);
    }
    return answerDone(stInfo);
}
} // namespace

void startWatch() { PRESET_API_RegisterSuperseded(PT_CTRL_E_FROM_VISCA, onSuperseded); }

void stopWatch()
{
    PRESET_API_RegisterSuperseded(PT_CTRL_E_FROM_VISCA, nullptr);
    UTIL_TIMER_Stop(&watch().stTimer);
    watch().bArmed = false;
}

void watchCommand(const VISCA_MSG_PRI_S &stPri)
{
    if (stPri.enMsgType == VISCA_CMD_E_POWER) return; // answered after the next start
    if (!library().sockets.expectBy(origin::ticketOf(stPri), UTIL_TIME_NowMs() + COMMAND_TIMEOUT_MS)) return;
    if (!watch().bArmed) {
        const Whereabouts here = Whereabouts::now();
        const std::lock_guard lock(watch().mutex);
        watch().last = here;
    }
    armWatch();
}
} // namespace visca

BU_S32 VISCA_CtrlMsgReturn(tagVISCA_CTRL_INFO_S *pstInfo, BU_BOOL bOk)
{
    using namespace visca;
    if (!pstInfo) return -1;
    if (const auto injected = journal::call(__func__, pstInfo->stMsgPri.enMsgType, bOk)) return *injected;
    const VISCA_MSG_PRI_S stPri = pstInfo->stMsgPri;
    if (stPri.enMsgType == VISCA_CMD_E_CANCEL) return 0; // its answer names the cancelled command and has been sent
    if (stPri.enMsgType > VISCA_INQ_E_NONE || !library().sockets.isOfThisRun(stPri))
        return answer(*pstInfo, bOk, Fault::NotNow);
    const BU_U32 u32Ticket = origin::ticketOf(stPri);
    const Claim enClaim = library().sockets.claim(u32Ticket);
    if (enClaim == Claim::Ended) return 0;
    // Refused while it runs; a failure that comes later is a motion that another command took over.
    const BU_S32 s32Ret = answer(*pstInfo, bOk, enClaim == Claim::Waiting ? Fault::Cancelled : Fault::NotNow);
    library().sockets.close(u32Ticket);
    return s32Ret;
}
