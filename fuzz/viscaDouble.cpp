#include "viscaDouble.h"

#include "camera/menu.h"
#include "camera/motion.h"
#include "camera/power.h"
#include "camera/preset.h"
#include "camera/zoom.h"
#include "store/store.h"
#include "system/serialPort.h"

#include <cstdlib>

namespace
{
std::deque<tagVISCA_CTRL_INFO_S> g_listRunning;

BU_S32 control(tagVISCA_CMD_INQ_TYPE_E enType, tagVISCA_CTRL_INFO_S *pstInfo)
{
    if (enType <= VISCA_CMD_E_NONE || enType == VISCA_INQ_E_NONE || enType >= VISCA_CMD_INQ_E_BUTT) std::abort();
    tagVISCA_CTRL_INFO_S stRead;
    const visca::Row *row = visca::decode(visca::encode(enType, *pstInfo).bytes(), stRead);
    if (row && row->moves.motors) {
        g_listRunning.push_back(*pstInfo);
        if (g_listRunning.size() > 64) g_listRunning.pop_front(); // never ends
        return 1;
    }
    if (enType % 11 == 3) return -2;
    VISCA_CtrlMsgReturn(pstInfo, enType % 7 != 5);
    return enType % 7 != 5 ? 0 : -1;
}

BU_S32 complete(tagVISCA_CTRL_INFO_S *pstInfo, tagVISCA_MSG_REQ_S *pstReq, tagVISCA_CMD_INQ_TYPE_E enType,
                BU_U32 u32Offset)
{
    const BU_U32 u32Payload =
        enType > VISCA_INQ_E_NONE ? (enType == VISCA_INQ_E_TKV_BLOCK_DATA ? 92u : enType % 9u) : 0;
    for (BU_U32 i = 0; i < u32Payload; ++i) pstReq->acCmd[u32Offset++] = pstInfo->u8Address & 0x0F;
    pstReq->acCmd[u32Offset++] = 0xFF;
    pstReq->u32CmdLen = u32Offset;
    return 0;
}

/// An answer has a head, a kind and one terminator, at its end; a control answer of VISCA over IP has its two forms.
BU_S32 transmit(BU_U8 *pu8Buf, BU_U32 u32Len, void *pvPrivate, void *)
{
    const auto &stIpMsg = static_cast<const VISCA_MSG_PRI_S *>(pvPrivate)->stIpMsg;
    if (stIpMsg.enMsgType == OVER_IP_MSG_E_CTRL_CMD) {
        if (u32Len < 1 || u32Len > 2) std::abort();
        return 0;
    }
    if (u32Len < 3 || u32Len > sizeof(tagVISCA_MSG_REQ_S::acCmd) || pu8Buf[u32Len - 1] != 0xFF) std::abort();
    for (BU_U32 i = 0; i + 1 < u32Len; ++i)
        if (pu8Buf[i] == 0xFF) std::abort();
    if (pu8Buf[0] != 0x88 && (pu8Buf[0] < 0x90 || pu8Buf[0] & 0x0F)) std::abort();
    return 0;
}
} // namespace

/// Before the first input.
extern "C" int LLVMFuzzerInitialize(int *, char ***)
{
    setenv("CAMERA_LOG", "0", 1);
    CFG_STORE_Open(nullptr);
    VISCA_TRAN_CALL_FUNC_S stTrans{7, {}, nullptr};
    for (BU_S32 i = 0; i < 7; ++i) stTrans.stViscaTransHandlers[i] = {static_cast<CMD_FROM_E>(i), transmit};
    const VISCA_CTRL_CALL_FUNC_S stCtrl{control, complete};
    const tagCFG_VISCA_NET_S stOff{};
    return VISCA_HandlerInit(&stTrans, &stCtrl, &stOff, &stOff);
}

void fuzz::endOldest(bool bOk)
{
    if (g_listRunning.empty()) return;
    VISCA_CtrlMsgReturn(&g_listRunning.front(), bOk);
    g_listRunning.pop_front();
}

void fuzz::reset()
{
    g_listRunning.clear();
    visca::library().sockets.clear();
    visca::library().u8Address = 1;
}

BU_U8 fuzz::Input::byte()
{
    const auto one = chunk(1);
    return one.empty() ? BU_U8{0} : one[0];
}

std::span<const BU_U8> fuzz::Input::chunk(std::size_t size)
{
    const auto taken = m_rest.first(std::min(size, m_rest.size()));
    m_rest = m_rest.subspan(taken.size());
    return taken;
}

// What the library asks of the rest of the platform.
BU_S32 BSP_PTCtrlMotion(PT_CTRL_FROM_E, const PT_MOTION_CTRL_S *, void *) { return 0; }
BU_S32 BSP_ZFCtrlMotion(ZF_CTRL_FROM_E, const ZF_MOTION_CTRL_S *, void *) { return 0; }
BU_S32 BSP_PTGetCurPos(BU_S32, PT_POS_S *, PT_DEV_TYPE_E) { return 0; }
BU_S32 BSP_PTPosToVisca(BU_S32, PT_POS_S *) { return 0; }
BU_S32 PTZ_API_GetZoomPos(BU_S32, BU_S32 *) { return 0; }
BU_S32 PRESET_API_RegisterSuperseded(PT_CTRL_FROM_E, PFN_PRESET_SUPERSEDED) { return 0; }
BU_S32 SYSTEM_API_WakeAppService() { return 0; }
BU_BOOL SYSTEM_API_IsAsleep() { return BU_FALSE; }
BU_S32 UART_RegisterReceiver(tagRS_PROTO_E, FN_UART_RECEIVER) { return 0; }
