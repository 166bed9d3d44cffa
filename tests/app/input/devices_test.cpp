// Registration of the devices, and the switch that sets the address.
#include "inputTest.h"

#include "board/profile.h"
#include "camera/serial.h"
#include "input/input.h"
#include "support/await.h"

#include <fstream>
#include <tuple>

namespace
{
using testing::ElementsAre;

struct Devices : InputTest {
    Devices() { BSP_PROFILE_Load("TKV-MX"); }
    ~Devices() override { BSP_PROFILE_Load("TKV-MX"); }

    /// The thread sleeps a second at a time: time passes until it has ended.
    void endDipSwitch()
    {
        auto end = std::async(std::launch::async, BSP_DipSwitchIrIdDeinit);
        const auto ended = [&] { return end.wait_for(std::chrono::seconds(0)) == std::future_status::ready; };
        await([&] { return clock().advance(1000), ended(); });
        EXPECT_EQ(end.get(), 0);
    }
};

TEST_F(Devices, OneThatCannotBeWatchedIsLeftOut)
{
    journal::inject("BSP_INPUT_StartMonitorEvent", -1, 2);
    testing::internal::CaptureStdout();
    EXPECT_EQ(BSP_RegisterInputDevice(), 0);
    clock().waitForSleepers(1);
    const std::string strWarning = "Warning: BSP_INPUT_StartMonitorEvent failed\n";
    const std::string strSaid = testing::internal::GetCapturedStdout();
    EXPECT_THAT(strSaid, testing::HasSubstr(strWarning + strWarning));
    EXPECT_THAT(strSaid, testing::Not(testing::HasSubstr(strWarning + strWarning + strWarning)));
    const auto effects = journal::effects();
    for (const std::string strDevice : {"NecSr", "NecBr", "gpio-keys", "NecYm"})
        EXPECT_THAT(effects, testing::Contains("BSP_INPUT_StartMonitorEvent(\"" + strDevice + "\")"));
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
    for (const auto &[s32Switch, s32Level, s32Addr] : {std::tuple{0, 1, 3}, {1, 1, 4}, {0, 0, 2}, {1, 0, 1}}) {
        std::ofstream(root() + "/sys/gpio/IR-DIP-SWITCH" + std::to_string(s32Switch) + "/value") << s32Level << '\n';
        std::vector<std::string> set;
        await([&] { return clock().advance(1000), !(set = journal::effects()).empty(); });
        EXPECT_THAT(set, ElementsAre("IR_API_SetAddr(" + std::to_string(s32Addr) + ", 1, 1)")); // and no other one
        BU_U8 u8Addr = 0;
        EXPECT_EQ(IR_API_GetAddr(&u8Addr), 0);
        EXPECT_EQ(u8Addr, s32Addr);
        EXPECT_EQ(IR_API_SetAddr(3, BU_FALSE, IRADDR_SWITCH_E_SOFT), 0);
        journal::effects();
        for (int i = 0; i < 3; ++i) clock().waitForSleepers(1), clock().advance(1000);
    }
    endDipSwitch();
    EXPECT_THAT(journal::effects(), testing::IsEmpty());
}

TEST_F(Devices, WithoutTheSwitchTheThreadEnds)
{
    journal::inject("BSP_RequestGpioMode", -1);
    for (const auto &[pcModel, pcSaid] : {std::pair{"minimal", "call BSP_GetGpioNum failed, ret:-1 -1\n"},
                                          {"TKV-MX", "call BSP_RequestGpioMode failed, ret:0 1\n"}}) {
        BSP_PROFILE_Load(pcModel);
        testing::internal::CaptureStdout();
        EXPECT_EQ(BSP_DipSwitchIrIdInit(), 0);
        EXPECT_EQ(BSP_DipSwitchIrIdDeinit(), 0); // no time has to pass
        EXPECT_EQ(testing::internal::GetCapturedStdout(), pcSaid);
    }
    EXPECT_EQ(BSP_DipSwitchIrIdDeinit(), -1);
}
} // namespace
