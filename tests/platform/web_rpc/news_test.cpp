#include "camera/image.h"
#include "camera/motion.h"
#include "camera/preset.h"
#include "camera/systemService.h"
#include "util/journal.h"
#include "webRpcTest.h"

namespace
{
/// A web server that the service knows of.
class Listener : public Peer
{
public:
    Listener()
    {
        call(1, SILENT, std::string(32, '\0'));
        answer();
    }
};

TEST_F(WebRpcTest, EverybodyHearsOfSettingsAndPresets)
{
    journal::start();
    journal::inject("MPP_SnapImage", -1, 2); // nobody takes pictures here
    const Listener first, second;
    ISP_API_SetGain(1, 9, BU_FALSE, BU_TRUE);
    ISP_API_SetGain(0, 3, BU_FALSE, BU_FALSE); // not announced
    PRESET_API_SetCur(5, nullptr);
    UTIL_THREAD_WaitAsync();
    PRESET_API_SetCur(12, nullptr);
    PRESET_API_DeleteById(12);
    UTIL_THREAD_WaitAsync();
    SYSTEM_API_FactoryRestoreConfiguration(SYSTEM_RESTORE_E_PRESET);
    UTIL_THREAD_WaitAsync();
    journal::stop();
    for (const Listener *pst : {&first, &second})
        for (const char *pcNews : {R"({"setting":"Gain","pipe":1,"value":9})", R"({"preset":5})", R"({"preset":12})",
                                   R"({"preset":12})", R"({"preset":5})"})
            EXPECT_EQ(pst->news(), pcNews);
}

TEST_F(WebRpcTest, WhoReadsLateGetsTheNewestOfEachAndDelaysNobody)
{
    const Listener late, prompt;
    constexpr BU_S32 TIMES = 3000;
    for (BU_S32 i = 1; i <= TIMES; ++i) {
        ISP_API_SetGain(0, i % 27, BU_FALSE, BU_TRUE);
        ISP_API_SetSaturation(0, i % 14, BU_FALSE, BU_TRUE);
        for (int n = 0; n < 2; ++n) prompt.news();
    }
    late.call(2, SUM, request(1));
    std::string strGain, strSaturation;
    const std::string strLastGain = R"({"setting":"Gain","pipe":0,"value":)" + std::to_string(TIMES % 27) + "}",
                      strLastSaturation =
                          R"({"setting":"Saturation","pipe":0,"value":)" + std::to_string(TIMES % 14) + "}";
    int s32Count = 0;
    for (bool bAnswered = false; !bAnswered || strGain != strLastGain || strSaturation != strLastSaturation;
         ++s32Count) {
        const auto st = late.receive();
        ASSERT_NE(st.enKind, web_rpc::Kind{});
        bAnswered |= st.enKind == web_rpc::Kind::ANSWER;
        if (st.strBytes.find("Gain") != std::string::npos) strGain = st.strBytes;
        if (st.strBytes.find("Saturation") != std::string::npos) strSaturation = st.strBytes;
    }
    EXPECT_LT(s32Count, 2 * TIMES) << "nothing was left out: the test shows nothing";
}

class PositionTest : public WebRpcTest
{
protected:
    PositionTest() : WebRpcTest("", Time::MANUAL)
    {
        BSP_PTProcInit(0, nullptr);
        ZF_API_StartService();
    }
    /// What the listener hears while so much time passes.
    std::vector<std::string> pass(const Listener &listener, BU_S64 s64Ms)
    {
        clock().advance(s64Ms);
        listener.call(2, SUM, request(1)); // its answer comes behind the news
        std::vector<std::string> listNews;
        for (auto st = listener.receive(); st.enKind == web_rpc::Kind::NEWS; st = listener.receive())
            listNews.push_back(st.strBytes);
        return listNews;
    }
};

TEST_F(PositionTest, IsToldAtMostFiveTimesASecondWhileItChanges)
{
    const Listener listener;
    EXPECT_THAT(pass(listener, 1000), testing::ElementsAre(R"({"position":{"pan":0.0,"tilt":0.0,"zoom":1.0}})"));
    PT_MOTION_CTRL_S stMotion{};
    stMotion.enMotionType = PT_MOTION_E_RIGHT;
    stMotion.stSpd = {1000, 0};
    stMotion.u16SpdMul = 100;
    BSP_PTCtrlMotion(PT_CTRL_E_FROM_OTHER, &stMotion, nullptr);
    EXPECT_THAT(pass(listener, 4000), testing::SizeIs(testing::AllOf(testing::Ge(18U), testing::Le(20U))));
    stMotion.enMotionType = PT_MOTION_E_STOP;
    BSP_PTCtrlMotion(PT_CTRL_E_FROM_OTHER, &stMotion, nullptr);
    pass(listener, 1000);
    EXPECT_THAT(pass(listener, 10'000), testing::IsEmpty());
}
} // namespace
