// Registration of the devices, and the switch that sets the address.
#include "inputTest.h"

#include "board/profile.h"
#include "camera/serial.h"
#include "input/input.h"
#include "support/await.h"

#include <atomic>
#include <fstream>
#include <thread>

namespace
{
using testing::ElementsAre;

class Devices : public InputTest
{
protected:
    Devices() { BSP_PROFILE_Load("TKV-MX"); }
    ~Devices() override { BSP_PROFILE_Load("TKV-MX"); }

    /// The thread sleeps a second at a time: time passes until it has ended.
    void endDipSwitch()
    {
        std::atomic<bool> bEnded = false;
        std::jthread end([&] {
            EXPECT_EQ(BSP_DipSwitchIrIdDeinit(), 0);
            bEnded = true;
        });
        await([&] { return clock().advance(1000), bEnded.load(); });
    }
    void flip(int s32Switch, int s32Level)
    {
        std::ofstream(root() + "/sys/gpio/IR-DIP-SWITCH" + std::to_string(s32Switch) + "/value") << s32Level << '\n';
    }
};

TEST_F(Devices, OneThatCannotBeWatchedIsLeftOut)
{
    journal::inject("BSP_INPUT_StartMonitorEvent", -1, 2);
    testing::internal::CaptureStdout();
    EXPECT_EQ(BSP_RegisterInputDevice(), 0);
    clock().waitForSleepers(1);
    const std::string strWarning = "Warning: BSP_INPUT_StartMonitorEvent failed\n";
    EXPECT_THAT(testing::internal::GetCapturedStdout(), testing::HasSubstr(strWarning + strWarning));
    EXPECT_THAT(journal::effects(),
                testing::IsSupersetOf(
                    {"BSP_INPUT_StartMonitorEvent(\"NecSr\")", "BSP_INPUT_StartMonitorEvent(\"NecBr\")",
                     "BSP_INPUT_StartMonitorEvent(\"gpio-keys\")", "BSP_INPUT_StartMonitorEvent(\"NecYm\")"}));
    EXPECT_EQ(BSP_UnRegisterInputDevice(), 0);
    EXPECT_THAT(journal::effects(),
                ElementsAre("BSP_INPUT_StopMonitorEvent(\"gpio-keys\")", "BSP_INPUT_StopMonitorEvent(\"NecYm\")"));
    endDipSwitch();
}

/// A fresh camera; between two changes of the switch an ID key has its say.
TEST_F(Devices, SwitchSetsTheAddressOncePerChange)
{
    BSP_DipSwitchIrIdInit();
    clock().waitForSleepers(1);
    journal::effects();
    const struct {
        int s32Switch, s32Level;
        const char *pcSet;
    } rows[] = {{0, 1, "IR_API_SetAddr(3, 1, 1)"},
                {1, 1, "IR_API_SetAddr(4, 1, 1)"},
                {0, 0, "IR_API_SetAddr(2, 1, 1)"},
                {1, 0, "IR_API_SetAddr(1, 1, 1)"}};
    for (const auto &row : rows) {
        flip(row.s32Switch, row.s32Level);
        std::vector<std::string> set;
        await([&] { return clock().advance(1000), !(set = journal::effects()).empty(); });
        EXPECT_THAT(set, ElementsAre(row.pcSet)); // and no other one since the last
        BU_U8 u8Addr = 0;
        EXPECT_EQ(IR_API_GetAddr(&u8Addr), 0);
        EXPECT_EQ(u8Addr, row.pcSet[15] - '0');
        EXPECT_EQ(IR_API_SetAddr(3, BU_FALSE, IRADDR_SWITCH_E_SOFT), 0);
        journal::effects();
        for (int i = 0; i < 3; ++i) clock().waitForSleepers(1), clock().advance(1000);
    }
    endDipSwitch();
    EXPECT_THAT(journal::effects(), testing::IsEmpty());
}

TEST_F(Devices, WithoutTheSwitchTheThreadEnds)
{
    const struct {
        const char *pcModel, *pcCall, *pcSaid;
    } rows[] = {{"minimal", nullptr, "call BSP_GetGpioNum failed, ret:-1 -1\n"},
                {"TKV-MX", "BSP_RequestGpioMode", "call BSP_RequestGpioMode failed, ret:0 1\n"}};
    for (const auto &row : rows) {
        BSP_PROFILE_Load(row.pcModel);
        if (row.pcCall) journal::inject(row.pcCall, -1);
        testing::internal::CaptureStdout();
        EXPECT_EQ(BSP_DipSwitchIrIdInit(), 0);
        EXPECT_EQ(BSP_DipSwitchIrIdDeinit(), 0); // no time has to pass
        EXPECT_EQ(testing::internal::GetCapturedStdout(), row.pcSaid);
    }
    EXPECT_EQ(BSP_DipSwitchIrIdDeinit(), -1);
}
} // namespace
