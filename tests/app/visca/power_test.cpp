// Power off and on: the record is kept over the restart, and answered after it.
#include "viscaTest.h"

#include <fstream>

using testing::HasSubstr;

namespace
{
const Message POWER{VISCA_CMD_E_POWER, put<&Info::enPowerCtrl>};

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
    std::string runAnswer()
    {
        viscaCtrlPowerReturnMsg();
        clock().waitForSleepers(1);
        effects();
        clock().advance(4999);
        EXPECT_EQ(effects(), "");
        clock().advance(1);
        UTIL_THREAD_WaitAsync();
        EXPECT_FALSE(std::filesystem::exists(powerOnFile()));
        return effects();
    }
    static std::string image(const Info &stInfo) { return {reinterpret_cast<const char *>(&stInfo), sizeof(stInfo)}; }
};

TEST_F(ViscaPower, OffKeepsItsRecordThenSleepsAndIsNotAnsweredYet)
{
    EXPECT_EQ(dispatch(POWER, {VISCA_MSG_E_POWER_ON}), 0);
    EXPECT_EQ(effects(), answered(POWER.enType)) << "on is done at once";

    std::filesystem::create_directories(root() + "/var");
    Info stInfo{};
    stInfo.stMsgPri.enFrom = CMD_FROM_E_OVER_IP_IN;
    stInfo.stMsgPri.stIpMsg.u32SnNum = 0xFFFFFFFE;
    EXPECT_EQ(dispatch(POWER, {VISCA_MSG_E_POWER_OFF}, "@SYSTEM_API_SleepAppService 0", &stInfo), 1);
    std::ifstream file(root() + "/var/ViscaCtrlPowerOff", std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), image(stInfo));
    EXPECT_EQ(effects(), "SYSTEM_API_SleepAppService(); ");
}

TEST_F(ViscaPower, ThePowerOffIsAnsweredFiveSecondsAfterTheNextStart)
{
    Info stInfo{};
    stInfo.enPowerCtrl = VISCA_MSG_E_POWER_OFF;
    stInfo.stMsgPri.enMsgType = POWER.enType;
    const std::string strImage = image(stInfo);
    ASSERT_EQ(strImage.size(), 872u);
    for (const auto &[strFile, bAnswered] : {std::pair{strImage.substr(0, 871), false}, std::pair{strImage, true},
                                             std::pair{strImage + "more", true}, std::pair{std::string(), false}}) {
        writePowerOnFile(strFile);
        EXPECT_EQ(runAnswer().find(answered(POWER.enType)) != std::string::npos, bAnswered) << strFile.size();
    }
    writePowerOnFile("");
    std::filesystem::resize_file(powerOnFile(), 65 << 20); // larger than a file may be
    const std::string strTrace =
        traceOf([this] { EXPECT_EQ(runAnswer().find("VISCA_CtrlMsgReturn("), std::string::npos); });
    EXPECT_THAT(strTrace, HasSubstr("] bspReadFileToBuf error\n"));
}

TEST_F(ViscaPower, WithoutAFileNothingHappens)
{
    viscaCtrlPowerReturnMsg();
    UTIL_THREAD_WaitAsync(); // no time passes: a sleeper would never come back
    EXPECT_EQ(effects().find("UTIL_CMD_RunSafe("), std::string::npos);
}
} // namespace
