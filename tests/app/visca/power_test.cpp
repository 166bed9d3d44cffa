#include "viscaTest.h"

#include "visca/viscaHandlers.h"

#include <cstring>
#include <fstream>

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace
{
class ViscaPower : public ViscaTest
{
protected:
    void writePowerOnFile(const std::string &strBytes)
    {
        std::filesystem::create_directories(root() + "/app");
        std::ofstream(powerOnFile(), std::ios::binary) << strBytes;
    }
    std::string powerOnFile() const { return root() + "/app/ViscaCtrlPowerOn"; }

    /// Starts the answer, which waits for 5 seconds, and gives what it did.
    std::vector<std::string> runAnswer()
    {
        viscaCtrlPowerReturnMsg();
        clock().waitForSleepers(1);
        journal::effects();
        clock().advance(4999);
        EXPECT_THAT(journal::effects(), IsEmpty());
        clock().advance(1);
        UTIL_THREAD_WaitAsync();
        return journal::effects();
    }

    static std::string image(const INFO &stInfo) { return {reinterpret_cast<const char *>(&stInfo), sizeof(stInfo)}; }
};
} // namespace

TEST_F(ViscaPower, OnIsDoneAtOnce)
{
    INFO stInfo{};
    stInfo.enPowerCtrl = VISCA_MSG_E_POWER_ON;
    EXPECT_EQ(dispatch(VISCA_CMD_E_POWER, stInfo), 0);
    EXPECT_THAT(journal::effects(), ElementsAre("VISCA_CtrlMsgReturn(3, 1)"));
}

TEST_F(ViscaPower, OffKeepsItsRecordThenSleepsAndIsNotAnsweredYet)
{
    std::filesystem::create_directories(root() + "/var");
    INFO stInfo{};
    stInfo.enPowerCtrl = VISCA_MSG_E_POWER_OFF;
    stInfo.stMsgPri.enFrom = CMD_FROM_E_OVER_IP_IN;
    stInfo.stMsgPri.stIpMsg.u32SnNum = 0xFFFFFFFE;
    journal::inject("SYSTEM_API_SleepAppService", 0);
    EXPECT_EQ(dispatch(VISCA_CMD_E_POWER, stInfo), 1);

    std::ifstream file(root() + "/var/ViscaCtrlPowerOff", std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), image(stInfo));
    const auto listEffects = journal::effects();
    EXPECT_THAT(listEffects, Contains(StartsWith("SYSTEM_API_SleepAppService(")));
    EXPECT_THAT(listEffects, Not(Contains(StartsWith("VISCA_CtrlMsgReturn("))));
}

TEST_F(ViscaPower, ThePowerOffIsAnsweredFiveSecondsAfterTheNextStart)
{
    INFO stInfo{};
    stInfo.enPowerCtrl = VISCA_MSG_E_POWER_OFF;
    stInfo.stMsgPri.enMsgType = VISCA_CMD_E_POWER;
    const std::string strImage = image(stInfo);
    ASSERT_EQ(strImage.size(), 872u);
    for (const auto &[strFile, bAnswered] : {std::pair{strImage.substr(0, 871), false}, std::pair{strImage, true},
                                             std::pair{strImage + "more", true}, std::pair{std::string(), false}}) {
        writePowerOnFile(strFile);
        const auto listEffects = runAnswer();
        EXPECT_EQ(std::ranges::count(listEffects, "VISCA_CtrlMsgReturn(3, 1)"), bAnswered) << strFile.size();
        EXPECT_FALSE(std::filesystem::exists(powerOnFile())) << strFile.size();
    }
}

TEST_F(ViscaPower, AFileThatCannotBeReadIsRemovedWithoutAnAnswer)
{
    writePowerOnFile("");
    std::filesystem::resize_file(powerOnFile(), 65 << 20); // larger than a file may be
    testing::internal::CaptureStdout();
    const auto listEffects = runAnswer();
    EXPECT_THAT(testing::internal::GetCapturedStdout(), testing::HasSubstr("] bspReadFileToBuf error\n"));
    EXPECT_THAT(listEffects, Not(Contains(StartsWith("VISCA_CtrlMsgReturn("))));
    EXPECT_FALSE(std::filesystem::exists(powerOnFile()));
}

TEST_F(ViscaPower, WithoutAFileNothingHappens)
{
    viscaCtrlPowerReturnMsg();
    UTIL_THREAD_WaitAsync(); // no time passes: a sleeper would never come back
    EXPECT_THAT(journal::effects(), Not(Contains(StartsWith("UTIL_CMD_RunSafe("))));
}
