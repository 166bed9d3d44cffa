// The dispatcher: which answer a result makes, what a payload may overwrite, where answers leave, when motions end.
#include "viscaTest.h"

#include <cstring>
#include <set>

using testing::StartsWith;

namespace
{
using ViscaDispatch = ViscaTest;
Type type(int iType) { return static_cast<Type>(iType); }

TEST_F(ViscaDispatch, ATypeWithoutHandlerIsNamedAndAnsweredWithAnError)
{
    const std::set<int> none{0, 10, 47, 48, 49, 50, 51, 52, 57, 108, 109, 110, 111, 113, 123, 124, -1, 0x7FFFFFFF};
    for (int iType = 1; iType < VISCA_CMD_INQ_E_BUTT; ++iType)
        EXPECT_EQ(traceOf([=] { dispatch({type(iType)}, {}); }).starts_with("unknow visca ctrl type"),
                  none.contains(iType))
            << iType;
    effects();
    for (const int iType : none) {
        EXPECT_EQ(traceOf([=] { EXPECT_EQ(dispatch({type(iType)}, {}), -1); }),
                  "unknow visca ctrl type " + std::to_string(iType) + "\n");
        EXPECT_EQ(effects(), answered(type(iType), false));
    }
}

TEST_F(ViscaDispatch, TheResultDecidesTheAnswer)
{
    for (const BU_S32 s32Result : {0, -1, 1, 7, -2}) {
        prepare("@IR_API_GetAddr " + std::to_string(s32Result));
        EXPECT_EQ(dispatch({VISCA_INQ_E_IR_INFO, put<&Info::stIrCtrl>}, {VISCA_MSG_E_IR_ADDR}), s32Result);
        EXPECT_EQ(effects(), s32Result == 0 || s32Result == -1 ? answered(VISCA_INQ_E_IR_INFO, s32Result == 0) : "");
    }
}

TEST_F(ViscaDispatch, CommandsAndInquiriesWithoutPayloadGetTheTerminatorAlone)
{
    Info stInfo;
    std::memset(static_cast<void *>(&stInfo), 0x55, sizeof(stInfo));
    std::vector<int> listTypes{58, 108, 109, 110, 111, 113, 123, -1};
    for (int i = 1; i <= 56; ++i) listTypes.push_back(i);
    for (const int iType : listTypes) {
        tagVISCA_MSG_REQ_S stReq;
        std::memset(&stReq, 0x77, sizeof(stReq));
        EXPECT_EQ(viscaCompleteHandlerCallFunc(&stInfo, &stReq, type(iType), 3), 0);
        EXPECT_EQ(stReq.u32CmdLen, 4u) << iType;
        EXPECT_EQ(std::vector(stReq.acCmd + 2, stReq.acCmd + 5), (std::vector<BU_U8>{0x77, 0xFF, 0x77})) << iType;
    }
}

// A payload behind a long head, or a text without its end, must not reach beyond the buffer.
TEST_F(ViscaDispatch, ThePayloadIsCutAtTheEndOfTheBuffer)
{
    Info stInfo{};
    std::memset(stInfo.stIpCtrl.acIpInfoAscll, 'x', sizeof(stInfo.stIpCtrl.acIpInfoAscll));
    for (const auto enType : {VISCA_INQ_E_TKV_BLOCK_DATA, VISCA_INQ_E_IP_INFO_ASCLL, VISCA_INQ_E_IP})
        for (const BU_U32 u32Offset : {2u, 100u, 126u, 127u, 128u, 4000000000u}) {
            tagVISCA_MSG_REQ_S stReq{};
            stReq.stIpMsg.bEnable = BU_TRUE;
            EXPECT_EQ(viscaCompleteHandlerCallFunc(&stInfo, &stReq, enType, u32Offset), 0);
            ASSERT_TRUE(stReq.u32CmdLen >= 1 && stReq.u32CmdLen <= sizeof(stReq.acCmd));
            EXPECT_EQ(stReq.acCmd[stReq.u32CmdLen - 1], 0xFF);
            EXPECT_EQ(stReq.stIpMsg.bEnable, BU_TRUE);
        }
}

TEST_F(ViscaDispatch, TheEndOfAMotionAnswersItsOwnMessage)
{
    Info stInfo{};
    stInfo.stMsgPri.enMsgType = VISCA_CMD_E_PAN_TILT;
    EXPECT_EQ(VISCA_PTCtrlRet(nullptr, BU_TRUE), 0);
    EXPECT_EQ(effects(), "");
    for (const BU_BOOL bOk : {BU_TRUE, BU_FALSE}) {
        VISCA_PTCtrlRet(&stInfo, bOk);
        EXPECT_EQ(effects(), answered(VISCA_CMD_E_PAN_TILT, bOk));
    }
    journal::stop();
    journal::start();
    journal::inject("VISCA_CtrlMsgReturn", -1);
    EXPECT_EQ(VISCA_PTCtrlRet(&stInfo, BU_TRUE), -1) << "the library's result is passed on";
}

TEST_F(ViscaDispatch, StartRegistersBothMotionEndsBeforeTheReceivers)
{
    // The results of the last two are of no concern.
    prepare("@BSP_PTRegisterRetCallFunc 0, @BSP_ZFRegisterRetCallFunc 0, @VISCA_HandlerInit -1, @VISCA_HandlerExit -1");
    EXPECT_EQ(VISCA_InitProcess(), 0);
    EXPECT_EQ(VISCA_ExitProcess(), 0);
    EXPECT_THAT(journal::effects(),
                testing::ElementsAre(StartsWith("BSP_PTRegisterRetCallFunc(0, 1,"),
                                     StartsWith("BSP_ZFRegisterRetCallFunc(1,"), StartsWith("VISCA_HandlerInit("),
                                     StartsWith("VISCA_HandlerExit(")));
}

TEST_F(ViscaDispatch, AnswersLeaveTheWayTheirMessageCame)
{
    journal::stop(); // the library answers here
    journal::start();
    prepare("@CFG_SYSTEM_GetViscaNet -1, @CFG_SYSTEM_GetViscaOverIp -1"); // no endpoint listens
    ASSERT_EQ(VISCA_InitProcess(), 0);
    const std::pair<CMD_FROM_E, const char *> WAYS[] = {{CMD_FROM_E_UART_RS232, "UART_RS232DevSend"},
                                                        {CMD_FROM_E_UART_RS422, "UART_RS422DevSend"},
                                                        {CMD_FROM_E_OVER_IP_IN, "VISCA_OverIpSendMsg"},
                                                        {CMD_FROM_E_NET_UDP_IN, "VISCA_NetUdpSendMsg"},
                                                        {CMD_FROM_E_NET_TCP_IN, "VISCA_NetTcpSendMsg"},
                                                        {CMD_FROM_E_NET_IN, nullptr},
                                                        {CMD_FROM_E_NET_OUT, nullptr}};
    for (const auto &[enFrom, pcTransmitter] : WAYS) {
        Info stInfo{};
        stInfo.stMsgPri.enMsgType = VISCA_INQ_E_POWER;
        stInfo.stMsgPri.enFrom = enFrom;
        if (pcTransmitter) journal::inject(pcTransmitter, 40 + enFrom);
        EXPECT_EQ(VISCA_CtrlMsgReturn(&stInfo, BU_TRUE), pcTransmitter ? 40 + enFrom : 0) << enFrom;
    }
    VISCA_ExitProcess();
}
} // namespace
