/// Base of the tests of the VISCA library: a service of the test's own behind it, and transmitters that keep what is
/// sent as text.
#pragma once

#include "net.h"
#include "support/await.h"
#include "support/hex.h"
#include "support/platformTest.h"
#include "turn.h"

#include "board/profile.h"
#include "camera/motion.h"

/// Whether a message moves motors to a target.
inline bool isMove(tagVISCA_CMD_INQ_TYPE_E enType, const tagVISCA_CTRL_INFO_S &stInfo)
{
    tagVISCA_CTRL_INFO_S stRead;
    const visca::Row *row = visca::decode(visca::encode(enType, stInfo).bytes(), stRead);
    return row && row->moves.motors != visca::NO_MOTOR;
}

/// Answers like the camera service: 0 at once, -1 refused, anything else later or never.
struct Service {
    static inline std::mutex mutex; // guards all of it
    static inline std::function<BU_S32(tagVISCA_CMD_INQ_TYPE_E, tagVISCA_CTRL_INFO_S &)> fnHandle;
    static inline std::vector<tagVISCA_CTRL_INFO_S> listSeen;
    static inline Bytes payload;

    static void reset()
    {
        const std::lock_guard lock(mutex);
        fnHandle = [](auto, auto &) { return 0; };
        listSeen.clear();
        payload.clear();
    }
    static BU_S32 control(tagVISCA_CMD_INQ_TYPE_E enType, tagVISCA_CTRL_INFO_S *pstInfo)
    {
        std::unique_lock lock(mutex);
        listSeen.push_back(*pstInfo);
        const auto fn = fnHandle;
        lock.unlock();
        const BU_S32 s32Ret = fn(enType, *pstInfo);
        if (s32Ret == 0 || s32Ret == -1) VISCA_CtrlMsgReturn(pstInfo, s32Ret == 0);
        return s32Ret;
    }
    static BU_S32 complete(tagVISCA_CTRL_INFO_S *, tagVISCA_MSG_REQ_S *pstReq, tagVISCA_CMD_INQ_TYPE_E enType,
                           BU_U32 u32Offset)
    {
        const std::lock_guard lock(mutex);
        if (enType > VISCA_INQ_E_NONE)
            for (const BU_U8 u8 : payload) pstReq->acCmd[u32Offset++] = u8;
        pstReq->acCmd[u32Offset] = 0xFF;
        pstReq->u32CmdLen = u32Offset + 1;
        return 0;
    }
    static tagVISCA_CTRL_INFO_S seen(std::size_t i)
    {
        await([&] { return (std::lock_guard(mutex), listSeen.size() > i); });
        const std::lock_guard lock(mutex);
        return listSeen.at(i);
    }
};

class ViscaLibTest : public PlatformTest
{
protected:
    ViscaLibTest()
    {
        BSP_PROFILE_Load("TKV-MX");
        BSP_PTProcInit(0, nullptr);
        Service::reset();
        s_listSent.clear();
        start({}, {}, captured());
        journal::effects();
    }
    ~ViscaLibTest() override { VISCA_HandlerExit(); }

    static VISCA_TRAN_CALL_FUNC_S captured()
    {
        VISCA_TRAN_CALL_FUNC_S stTrans{7, {}, nullptr};
        for (BU_S32 i = 0; i < 7; ++i) stTrans.stViscaTransHandlers[i] = {static_cast<CMD_FROM_E>(i), capture};
        return stTrans;
    }
    static void start(const tagCFG_VISCA_NET_S &stNet, const tagCFG_VISCA_NET_S &stOverIp,
                      const VISCA_TRAN_CALL_FUNC_S &stTrans)
    {
        const VISCA_CTRL_CALL_FUNC_S stCtrl{Service::control, Service::complete};
        VISCA_HandlerInit(&stTrans, &stCtrl, &stNet, &stOverIp);
    }

    /// Gives a controller's bytes to the library, as its receiver would, and returns what was sent meanwhile.
    std::vector<std::string> feed(const std::string &strHex, CMD_FROM_E enFrom = CMD_FROM_E_NET_TCP_IN,
                                  BU_U32 u32Peer = 1)
    {
        const Bytes data = bytes(strHex);
        VISCA_MSG_PRI_S stFrom{};
        stFrom.enFrom = enFrom;
        stFrom.stIpMsg.u64IpAddr = u32Peer;
        m_turn.begin();
        m_turn.addStream(m_turn.addLane(m_peer[u32Peer]), stFrom, data, &m_splitter[u32Peer]);
        m_turn.process();
        return sent();
    }
    static std::vector<std::string> sent()
    {
        const std::lock_guard lock(s_mutexSent);
        return std::exchange(s_listSent, {});
    }
    /// Commands of these kinds run until finish().
    static void pend(std::initializer_list<tagVISCA_CMD_INQ_TYPE_E> list)
    {
        Service::fnHandle = [kinds = std::vector(list)](auto enType, auto &) {
            return std::ranges::find(kinds, enType) != kinds.end() ? 1 : 0;
        };
    }
    static BU_S32 finish(std::size_t i, BU_BOOL bOk = BU_TRUE)
    {
        tagVISCA_CTRL_INFO_S stCopy = Service::seen(i);
        return VISCA_CtrlMsgReturn(&stCopy, bOk);
    }

    std::map<BU_U32, visca::Peer> m_peer;
    std::map<BU_U32, visca::Splitter> m_splitter;

private:
    static BU_S32 capture(BU_U8 *pu8Buf, BU_U32 u32Len, void *, void *)
    {
        const std::lock_guard lock(s_mutexSent);
        s_listSent.push_back(hex({pu8Buf, u32Len}));
        return 0;
    }
    static inline std::mutex s_mutexSent; // guards s_listSent
    static inline std::vector<std::string> s_listSent;
    visca::Turn m_turn{[] {}, [] {}};
};
