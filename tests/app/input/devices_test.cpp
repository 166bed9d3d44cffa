// Registration of the devices, and the switch that sets the address.
#include "inputTest.h"

#include "board/profile.h"
#include "camera/serial.h"
#include "input/input.h"

#include <atomic>
#include <fstream>
#include <thread>

namespace
{

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

class Devices : public InputTest
{
protected:
    Devices() { BSP_PROFILE_Load("TKV-MX"); }
    ~Devices() override { BSP_PROFILE_Load("TKV-MX"); }

    /// The thread sleeps a second at a time: time passes until it has ended.
    void endDipSwitch()
    {
        std::atomic<bool> bEnded = false;
        std::thread end([&] {
            EXPECT_EQ(BSP_DipSwitchIrIdDeinit(), 0);
            bEnded = true;
        });
        while (!bEnded) {
            clock().advance(1000);
            std::this_thread::yield();
        }
        end.join();
    }
    void flip(int s32Switch, int s32Level)
    {
        std::ofstream(root() + "/sys/gpio/IR-DIP-SWITCH" + std::to_string(s32Switch) + "/value") << s32Level << '\n';
    }
    /// Lets time pass until the thread has set an address; gives what it did on the way.
    Effects untilSet()
    {
        Effects all;
        while (all.empty()) {
            clock().advance(1000);
            std::this_thread::yield();
            all = journal::effects();
        }
        return all;
    }
};

TEST_F(Devices, OneThatCannotBeWatchedIsLeftOut)
{
    journal::inject("BSP_INPUT_StartMonitorEvent", -1, 2);
    testing::internal::CaptureStdout();
    EXPECT_EQ(BSP_RegisterInputDevice(), 0);
    clock().waitForSleepers(1);
    EXPECT_THAT(testing::internal::GetCapturedStdout(),
                HasSubstr("Warning: BSP_INPUT_StartMonitorEvent failed\nWarning: BSP_INPUT_StartMonitorEvent failed"));
    EXPECT_THAT(journal::effects(),
                testing::IsSupersetOf(
                    {"BSP_INPUT_StartMonitorEvent(\"NecSr\")", "BSP_INPUT_StartMonitorEvent(\"NecBr\")",
                     "BSP_INPUT_StartMonitorEvent(\"gpio-keys\")", "BSP_INPUT_StartMonitorEvent(\"NecYm\")"}));
    EXPECT_EQ(BSP_UnRegisterInputDevice(), 0);
    EXPECT_THAT(journal::effects(),
                ElementsAre("BSP_INPUT_StopMonitorEvent(\"gpio-keys\")", "BSP_INPUT_StopMonitorEvent(\"NecYm\")"));
    endDipSwitch();
}

TEST_F(Devices, SwitchSetsTheAddressOncePerChange)
{
    IR_API_SetAddrCtrl("DIPSwitch", BU_FALSE);
    BSP_DipSwitchIrIdInit();
    clock().waitForSleepers(1);
    journal::effects();
    struct {
        int s32Switch, s32Level;
        const char *pcSet;
    } const rows[] = {{0, 1, "IR_API_SetAddr(3, 1, 1)"},
                      {1, 1, "IR_API_SetAddr(4, 1, 1)"},
                      {0, 0, "IR_API_SetAddr(2, 1, 1)"},
                      {1, 0, "IR_API_SetAddr(1, 1, 1)"}};
    for (const auto &row : rows) {
        flip(row.s32Switch, row.s32Level);
        EXPECT_THAT(untilSet(), ElementsAre(row.pcSet)); // and no other one since the last
    }
    endDipSwitch();
    EXPECT_THAT(journal::effects(), IsEmpty());
}

TEST_F(Devices, WithoutTheSwitchTheThreadEnds)
{
    struct {
        const char *pcModel, *pcCall;
        const char *pcSaid;
    } const rows[] = {{"minimal", nullptr, "call BSP_GetGpioNum failed, ret:-1 -1\n"},
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
