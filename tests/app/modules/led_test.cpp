// What the lamps show, read from the files they are, with an upgrade and an NDI tally as told by the test.
#include "led/led.h"

#include "camera/tracking.h"
#include "modules.h"
#include "support/await.h"
#include "support/platformTest.h"

#include <fstream>
#include <thread>

namespace
{
BU_S32 g_s32Upgrade = MSG_UPGRADE_INFO_STATE_FINSH;
BU_U8 g_u8Preview = 0, g_u8Program = 0;

class Led : public PlatformTest
{
protected:
    Led() { start(BU_TRUE, BU_FALSE, BU_FALSE, 0, 0); }
    ~Led() override { LED_UnInitDev(); }

    /// Puts the camera into a state and starts the lamps.
    void start(BU_BOOL bOnBoard, BU_BOOL bTracking, BU_BOOL bIndicator, BU_U8 u8Preview, BU_U8 u8Program)
    {
        LED_UnInitDev();
        set(bOnBoard, bTracking, bIndicator, u8Preview, u8Program);
        LED_InitDev();
        await([this] { return shown() == "flick #FFFFFF 80% 2Hz" && shown() == shown("power_led"); });
        std::jthread over([] { LED_API_AppOver(); });
        awaitEvent(10); // the end of start-up is the first event
    }
    static void set(BU_BOOL bOnBoard, BU_BOOL bTracking, BU_BOOL bIndicator, BU_U8 u8Preview, BU_U8 u8Program)
    {
        LED_API_SetTallyOnBoard("TallyLed", bOnBoard, BU_FALSE, BU_FALSE);
        ALG_API_SetEnable(bTracking, BU_FALSE, BU_FALSE);
        ALG_API_SetTallyIndicator(bIndicator, BU_FALSE, BU_FALSE);
        g_u8Preview = u8Preview;
        g_u8Program = u8Program;
    }

    /// @param s64StepMs  how far the clock moves at each look
    void awaitEvent(BU_S64 s64StepMs)
    {
        await([&] {
            clock().advance(s64StepMs);
            return testing::Value(journal::effects(), testing::Contains("LED_API_ApplyLedStateInfo(\"TallyLed\")"));
        });
    }
    std::string shownAfter(LED_EVENT_FROM_E enFrom)
    {
        journal::effects();
        LED_API_TriggerLedUpdateFrom(enFrom);
        awaitEvent(0);
        return shown();
    }
    std::string shown(const std::string &strLamp = "tally_led") const
    {
        std::ifstream file(root() + "/dev/" + strLamp);
        std::string strLine;
        std::getline(file, strLine);
        return strLine;
    }
};
constexpr LED_TALLY_STATE_S hold(BU_U32 u32Color)
{
    return {LED_WORK_MODE_E_HOLD, u32Color, LED_BRIGHTNESS_100, LED_CLOSE, 0};
}
constexpr LED_TALLY_STATE_S OFF{};

// clang-format off
constexpr struct { BU_BOOL bOnBoard, bTracking, bIndicator; BU_U8 u8Preview, u8Program; const char *pcNdi, *pcTracking; } STATES[] = {
    {1, 0, 0, 0, 0, "off",              "off"}, {1, 1, 0, 0, 1, "hold #FF0000 80%", "off"},
    {1, 0, 1, 1, 0, "hold #00FF00 80%", "off"}, {1, 1, 1, 1, 1, "hold #FF0000 80%", "hold #0000FF 80%"},
    {0, 1, 1, 1, 1, "off",              "hold #0000FF 80%"}};
// clang-format on

TEST_F(Led, NetworkAndTrackingHaveTheirTallyFromTheStartAndWithEachEvent)
{
    for (const auto &[bOnBoard, bTracking, bIndicator, u8Preview, u8Program, pcNdi, pcTracking] : STATES) {
        const std::string strBoth = pcNdi == std::string("off") ? pcTracking : pcNdi; // NDI goes first
        start(bOnBoard, bTracking, bIndicator, u8Preview, u8Program);
        EXPECT_EQ(shown(), strBoth);
        start(BU_TRUE, BU_FALSE, BU_FALSE, 0, 0);
        set(bOnBoard, bTracking, bIndicator, u8Preview, u8Program);
        EXPECT_EQ(shownAfter(LED_EVENT_FROM_E_ALG), pcTracking);
        EXPECT_EQ(shownAfter(LED_EVENT_FROM_E_NDI), strBoth);
    }
}

TEST_F(Led, FollowsTrackingAndItsSwitchByItself)
{
    const auto showsBlue = [this] { return shown() == "hold #0000FF 80%"; };
    ALG_API_SetTallyIndicator(BU_TRUE, BU_FALSE, BU_FALSE);
    ALG_API_SetEnable(BU_TRUE, BU_FALSE, BU_TRUE);
    await(showsBlue);
    ALG_API_SetTallyIndicator(BU_FALSE, BU_FALSE, BU_TRUE);
    await([&] { return !showsBlue(); });
    ALG_API_SetTallyIndicator(BU_TRUE, BU_FALSE, BU_TRUE);
    await(showsBlue);
    ALG_API_SetEnable(BU_FALSE, BU_FALSE, BU_TRUE);
    await([&] { return !showsBlue(); });
}

TEST_F(Led, UpgradeAndStandByShow)
{
    g_s32Upgrade = 0;
    for (const char *pcShown : {"flick #00FF00 80% 2Hz", "flick #FF0000 80% 2Hz", "hold #00FF00 80%", "off"}) {
        EXPECT_EQ(shownAfter(LED_EVENT_FROM_E_UPGRADE), pcShown);
        ++g_s32Upgrade;
    }
    g_s32Upgrade = MSG_UPGRADE_INFO_STATE_FAILED;
    shownAfter(LED_EVENT_FROM_E_UPGRADE);
    clock().advance(4999);
    EXPECT_NE(shown(), "off");
    clock().advance(1);
    EXPECT_EQ(shown(), "off");
    EXPECT_EQ(shownAfter(LED_EVENT_FROM_E_SLEEP), "hold #FFFF00 80%");
}

TEST_F(Led, SourcesGoInTheirOrder)
{
    LED_API_SetTallyMode("TallyLed", LED_TALLY_MODE_E_COLOR_W, BU_FALSE, BU_FALSE);
    constexpr LED_EVENT_FROM_E ORDER[] = {LED_EVENT_FROM_E_ERR, LED_EVENT_FROM_E_SLEEP, LED_EVENT_FROM_E_UPGRADE,
                                          LED_EVENT_FROM_E_NDI, LED_EVENT_FROM_E_ALG,   LED_EVENT_FROM_E_VISCA,
                                          LED_EVENT_FROM_E_IR};
    for (const LED_EVENT_FROM_E enFrom : ORDER)
        LED_API_SetLedStateInfoFrom("TallyLed", enFrom, hold(static_cast<BU_U32>(enFrom)));
    for (const LED_EVENT_FROM_E enFrom : ORDER) {
        EXPECT_EQ(shown(), "hold #00000" + std::to_string(enFrom) + " 100%");
        LED_API_SetLedStateInfoFrom("TallyLed", enFrom, OFF);
    }
    for (const LED_EVENT_FROM_E enFrom : {LED_EVENT_FROM_E_CFG, LED_EVENT_FROM_E_VISCA, LED_EVENT_FROM_E_IR})
        EXPECT_EQ(shownAfter(enFrom), "hold #FFFFFF 80%");
}

TEST_F(Led, HandSetNdiTallyShowsWithFixedBrightnessUnlessTheLampIsOff)
{
    EXPECT_EQ(TKV_MX_NDITally_Manual(BU_TRUE, nullptr), -1);
    TKV_MX_NDITally_Manual(BU_TRUE, hold(0x00FF00));
    EXPECT_EQ(shownAfter(LED_EVENT_FROM_E_NDI), "hold #00FF00 80%");
    set(BU_FALSE, BU_FALSE, BU_FALSE, 0, 0);
    EXPECT_EQ(shownAfter(LED_EVENT_FROM_E_NDI), "off");
    set(BU_TRUE, BU_FALSE, BU_FALSE, 0, 1);
    EXPECT_EQ(shownAfter(LED_EVENT_FROM_E_NDI), "hold #00FF00 80%");
    TKV_MX_NDITally_Manual(BU_FALSE, nullptr); // back to NDI
    EXPECT_EQ(shownAfter(LED_EVENT_FROM_E_NDI), "hold #FF0000 80%");
}
} // namespace

MSG_INFO_STATE_E MSG_AppGetUpdateTallyState() { return static_cast<MSG_INFO_STATE_E>(g_s32Upgrade); }
BU_S32 NDI_PTZ_GetTallyState(BU_U8 *pu8Preview, BU_U8 *pu8Program)
{
    *pu8Preview = g_u8Preview;
    *pu8Program = g_u8Program;
    return 0;
}
