#include "viscaTest.h"

#include "visca/viscaHandlers.h"

#include <cstring>
#include <thread>

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

namespace
{
constexpr int NO_HANDLER[] = {0, 10, 47, 48, 49, 50, 51, 52, 57, 108, 109, 110, 111, 113, 123, 124, -1, 0x7FFFFFFF};

tagVISCA_CMD_INQ_TYPE_E type(int iType) { return static_cast<tagVISCA_CMD_INQ_TYPE_E>(iType); }

std::string returned(int iType, bool bOk)
{
    return "VISCA_CtrlMsgReturn(" + std::to_string(iType) + ", " + (bOk ? "1" : "0") + ")";
}

class ViscaDispatch : public ViscaTest
{
protected:
    ViscaDispatch() { gs_s32PresetFlag = 0; }
    ~ViscaDispatch() override { gs_s32PresetFlag = 0; }
};
} // namespace

TEST_F(ViscaDispatch, ATypeWithoutHandlerIsNamedAndAnsweredWithAnError)
{
    for (const int iType : NO_HANDLER) {
        INFO stInfo{};
        testing::internal::CaptureStdout();
        EXPECT_EQ(dispatch(type(iType), stInfo), -1);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), "unknow visca ctrl type " + std::to_string(iType) + "\n");
        EXPECT_THAT(journal::effects(), ElementsAre(returned(iType, false)));
    }
}

TEST_F(ViscaDispatch, TheResultDecidesTheAnswer)
{
    INFO stInfo{};
    EXPECT_EQ(dispatch(VISCA_INQ_E_POWER, stInfo), 0);
    EXPECT_THAT(journal::effects(), ElementsAre(returned(VISCA_INQ_E_POWER, true)));

    for (const BU_S32 s32Result : {0, -1, 1, 7, -2}) {
        journal::inject("IR_API_GetAddr", s32Result);
        stInfo.stIrCtrl.enIrType = VISCA_MSG_E_IR_ADDR;
        EXPECT_EQ(dispatch(VISCA_INQ_E_IR_INFO, stInfo), s32Result);
        if (s32Result == 0 || s32Result == -1)
            EXPECT_THAT(journal::effects(), ElementsAre(returned(VISCA_INQ_E_IR_INFO, s32Result == 0)));
        else
            EXPECT_THAT(journal::effects(), IsEmpty()) << s32Result;
    }
}

TEST_F(ViscaDispatch, CommandsAndInquiriesWithoutPayloadGetTheTerminatorAlone)
{
    INFO stInfo;
    std::memset(&stInfo, 0x55, sizeof(stInfo));
    std::vector<int> listTypes{58, 108, 109, 110, 111, 113, 123, -1};
    for (int i = 1; i <= 56; ++i) listTypes.push_back(i);
    for (const int iType : listTypes) {
        tagVISCA_MSG_REQ_S stReq;
        std::memset(&stReq, 0x77, sizeof(stReq));
        EXPECT_EQ(viscaCompleteHandlerCallFunc(&stInfo, &stReq, type(iType), 3), 0);
        EXPECT_EQ(stReq.u32CmdLen, 4u) << iType;
        EXPECT_EQ(stReq.acCmd[2], 0x77) << "the head is the library's";
        EXPECT_EQ(stReq.acCmd[3], 0xFF) << iType;
        EXPECT_EQ(stReq.acCmd[4], 0x77) << iType;
    }
}

// A payload behind a long head, or a text without its end, must not reach beyond the buffer.
TEST_F(ViscaDispatch, ThePayloadIsCutAtTheEndOfTheBuffer)
{
    INFO stInfo{};
    std::memset(stInfo.stIpCtrl.acIpInfoAscll, 'x', sizeof(stInfo.stIpCtrl.acIpInfoAscll));
    for (const auto enType : {VISCA_INQ_E_TKV_BLOCK_DATA, VISCA_INQ_E_IP_INFO_ASCLL, VISCA_INQ_E_IP})
        for (const BU_U32 u32Offset : {2u, 100u, 126u, 127u, 128u, 4000000000u}) {
            tagVISCA_MSG_REQ_S stReq{};
            stReq.stIpMsg.bEnable = BU_TRUE;
            EXPECT_EQ(viscaCompleteHandlerCallFunc(&stInfo, &stReq, enType, u32Offset), 0);
            ASSERT_GE(stReq.u32CmdLen, 1u);
            ASSERT_LE(stReq.u32CmdLen, sizeof(stReq.acCmd));
            EXPECT_EQ(stReq.acCmd[stReq.u32CmdLen - 1], 0xFF);
            EXPECT_EQ(stReq.stIpMsg.bEnable, BU_TRUE);
        }
}

namespace
{
INFO recallRecord()
{
    INFO stInfo{};
    stInfo.stMsgPri.enMsgType = VISCA_CMD_E_MEMORY;
    stInfo.stMemoryCtrl.enMemoryType = VISCA_MSG_E_MEMORY_RECALL;
    return stInfo;
}
} // namespace

TEST_F(ViscaDispatch, TheEndOfAMotionAnswersItsOwnMessage)
{
    EXPECT_EQ(VISCA_PTCtrlRet(nullptr, BU_TRUE), 0);
    EXPECT_THAT(journal::effects(), IsEmpty());

    INFO stInfo{};
    stInfo.stMsgPri.enMsgType = VISCA_CMD_E_PAN_TILT;
    gs_s32PresetFlag = 2; // a recall under way is not touched
    VISCA_PTCtrlRet(&stInfo, BU_TRUE);
    VISCA_PTCtrlRet(&stInfo, BU_FALSE);
    EXPECT_THAT(journal::effects(),
                ElementsAre(returned(VISCA_CMD_E_PAN_TILT, true), returned(VISCA_CMD_E_PAN_TILT, false)));
    EXPECT_EQ(gs_s32PresetFlag, 2);

    journal::stop();
    journal::start();
    journal::inject("VISCA_CtrlMsgReturn", -1);
    EXPECT_EQ(VISCA_PTCtrlRet(&stInfo, BU_TRUE), -1) << "the library's result is passed on";
}

TEST_F(ViscaDispatch, APresetRecallIsAnsweredByItsLastEnd)
{
    struct tagENDS_S {
        BU_BOOL bFirst, bLast;
    };
    for (const auto &[bFirst, bLast] : {tagENDS_S{1, 1}, tagENDS_S{0, 1}, tagENDS_S{1, 0}}) {
        INFO stPan = recallRecord(), stZoom = recallRecord();
        gs_s32PresetFlag = 2;
        EXPECT_EQ(VISCA_PTCtrlRet(&stPan, bFirst), 0);
        EXPECT_THAT(journal::effects(), IsEmpty());
        EXPECT_EQ(VISCA_PTCtrlRet(&stZoom, bLast), 0);
        EXPECT_THAT(journal::effects(), ElementsAre(returned(VISCA_CMD_E_MEMORY, bLast)));
    }
    INFO stStray = recallRecord(); // nobody waits: still answered
    VISCA_PTCtrlRet(&stStray, BU_TRUE);
    EXPECT_THAT(journal::effects(), ElementsAre(returned(VISCA_CMD_E_MEMORY, true)));
}

TEST_F(ViscaDispatch, TwoEndsAtOnceAnswerOnce)
{
    for (int i = 0; i < 200; ++i) {
        gs_s32PresetFlag = 2;
        INFO stPan = recallRecord(), stZoom = recallRecord();
        std::jthread pan([&] { VISCA_PTCtrlRet(&stPan, BU_TRUE); });
        VISCA_PTCtrlRet(&stZoom, BU_TRUE);
        pan.join();
        ASSERT_EQ(journal::effects().size(), 1u);
    }
}

TEST_F(ViscaDispatch, StartRegistersBothMotionEndsBeforeTheReceivers)
{
    journal::inject("BSP_PTRegisterRetCallFunc", 0);
    journal::inject("BSP_ZFRegisterRetCallFunc", 0);
    journal::inject("VISCA_HandlerInit", -1); // its result is of no concern
    journal::inject("VISCA_HandlerExit", -1);
    EXPECT_EQ(VISCA_InitProcess(), 0);
    EXPECT_EQ(VISCA_ExitProcess(), 0);
    EXPECT_THAT(journal::effects(),
                ElementsAre(StartsWith("BSP_PTRegisterRetCallFunc(0, 1,"), StartsWith("BSP_ZFRegisterRetCallFunc(1,"),
                            StartsWith("VISCA_HandlerInit("), StartsWith("VISCA_HandlerExit(")));
}
