// The lamp manager: which source wins, how a state ends, what the settings show, what a lamp's line says.
#include "board/lamp.h"

#include "camera/restore.h"
#include "camera/settingEvent.h"
#include "support/await.h"
#include "support/platformTest.h"
#include "util/mailbox.h"

#include <algorithm>
#include <atomic>
#include <fstream>

namespace
{
using namespace std::string_literals;
constexpr const BU_CHAR *NAME = "TallyLed";
constexpr BU_U32 ALL_ON = 0xFF000000;

constexpr LED_TALLY_STATE_S state(LED_WORK_MODE_E enMode, BU_U32 u32Color = 0, BU_S32 s32Flick = LED_CLOSE)
{
    return {enMode, u32Color, LED_BRIGHTNESS_80, s32Flick, 5000};
}
constexpr LED_TALLY_STATE_S hold(BU_U32 u32Color) { return state(LED_WORK_MODE_E_HOLD, u32Color); }
constexpr LED_TALLY_STATE_S OFF = state(LED_WORK_MODE_E_OFF);

// What the callbacks of the manager under test have seen; they carry no data of their own.
util::Mailbox<BU_S32> g_events;
std::atomic<bool> g_bSelfTest, g_bHoldSelfTest;
BU_S32 onEvent(LED_EVENT_FROM_E en)
{
    g_events.post(en);
    return 0;
}
BU_S32 onSelfTest(LED_EVENT_FROM_E en)
{
    EXPECT_EQ(en, LED_EVENT_FROM_E_ERR);
    g_bSelfTest = true;
    await([] { return !g_bHoldSelfTest; });
    return 0;
}

class Lamp : public PlatformTest
{
protected:
    ~Lamp() override { end(); }

    void start(LED_WHITE_MODE_E enWhiteMode = LED_WHITE_MODE_E_RGB, bool bHoldSelfTest = false)
    {
        end();
        g_events.take();
        g_bSelfTest = false;
        g_bHoldSelfTest = bHoldSelfTest;
        m_pvLamp = BSP_LED_Init("/dev/tally_led");
        const LED_TALLY_INIT_ATTR_S stAttr{
            {m_pvLamp, nullptr}, {16, 4, 1, 3, 2, 16, 5, 6}, onEvent, onSelfTest, enWhiteMode};
        ASSERT_EQ(LED_API_InitMgr(NAME, &stAttr), 0);
        EXPECT_EQ(LED_API_InitMgr(NAME, &stAttr), -1);
    }
    void end()
    {
        if (!m_pvLamp) return;
        g_bHoldSelfTest = false;
        g_events.take();
        LED_API_TriggerLedUpdateFrom(LED_EVENT_FROM_E_CFG); // its thread is through with what came before
        await([] { return !g_events.take().empty(); });
        LED_API_DestroyMgr(NAME);
        EXPECT_EQ(shown(), "off");
        BSP_LED_Destroy(m_pvLamp);
        m_pvLamp = nullptr;
    }
    std::string shown() const
    {
        std::ifstream in(root() + "/dev/tally_led");
        const std::string strAll{std::istreambuf_iterator(in), {}};
        return strAll.substr(0, strAll.size() - strAll.ends_with('\n')); // one line
    }
    std::string shownFor(const LED_TALLY_STATE_S &stState, LED_EVENT_FROM_E enFrom = LED_EVENT_FROM_E_VISCA) const
    {
        EXPECT_EQ(LED_API_SetLedStateInfoFrom(NAME, enFrom, stState), 0);
        return shown();
    }

private:
    BSP_LED_HANDLE m_pvLamp = nullptr;
};

/// The base level (CFG and IR here) is below all others; of two equal sources the later in the enumeration wins.
TEST_F(Lamp, ShowsTheHighestSourceThatAsks)
{
    start();
    constexpr LED_EVENT_FROM_E ORDER[] = {LED_EVENT_FROM_E_NDI, LED_EVENT_FROM_E_VISCA, LED_EVENT_FROM_E_IR,
                                          LED_EVENT_FROM_E_CFG};
    for (const LED_EVENT_FROM_E enFrom : ORDER) shownFor(hold(static_cast<BU_U32>(enFrom)), enFrom);
    for (const LED_EVENT_FROM_E enFrom : ORDER) {
        EXPECT_EQ(shown(), "hold #00000" + std::to_string(enFrom) + " 80%");
        shownFor(OFF, enFrom);
    }
    EXPECT_EQ(shown(), "off");
    EXPECT_EQ(LED_API_SetLedStateInfoFrom(NAME, static_cast<LED_EVENT_FROM_E>(8), OFF), -1);
    EXPECT_EQ(LED_API_SetLedStateInfoFrom("OtherLed", LED_EVENT_FROM_E_CFG, OFF), -1);
}

TEST_F(Lamp, ALineTellsModeColourBrightnessAndRate)
{
    start(LED_WHITE_MODE_E_SINGLE);
    EXPECT_EQ(shownFor(state(LED_WORK_MODE_E_RGB_CIRCLE)), "circle 80%");
    EXPECT_EQ(shownFor({LED_WORK_MODE_E_HOLD, 0x010203, LED_BRIGHTNESS_100, LED_CLOSE, 0}), "hold #010203 100%");
    EXPECT_EQ(shownFor(hold(ALL_ON)), "hold white 80%");
    BU_S32 s32Rate = LED_MODE_FLICKER_50HZ;
    for (const char *pcRate : {"50Hz", "10Hz", "5Hz", "3Hz", "2Hz", "1Hz", "0.5Hz", "1Hz"}) // the last: unknown
        EXPECT_EQ(shownFor(state(LED_WORK_MODE_E_FLICK, 0xFF0000, s32Rate++)), "flick #FF0000 80% "s + pcRate);
    start(LED_WHITE_MODE_E_RGB);
    EXPECT_EQ(shownFor(hold(ALL_ON)), "hold #FFFFFF 80%");
}

TEST_F(Lamp, AStateWithADurationEndsAndALaterOneIsNotCutShort)
{
    start();
    shownFor(hold(0x00FF00));
    for (const LED_WORK_MODE_E enMode : {LED_WORK_MODE_E_FLICK_DURATION, LED_WORK_MODE_E_HOLD_DURATION}) {
        const LED_TALLY_STATE_S stFailed = state(enMode, 0xFF0000, LED_MODE_FLICKER_2HZ);
        const std::string strFailed = shownFor(stFailed, LED_EVENT_FROM_E_UPGRADE);
        EXPECT_THAT(strFailed, testing::HasSubstr("#FF0000 80%"));
        clock().advance(4999);
        EXPECT_EQ(shown(), strFailed);
        shownFor(stFailed, LED_EVENT_FROM_E_UPGRADE); // failed again
        clock().advance(4999);
        EXPECT_EQ(shown(), strFailed);
        clock().advance(1);
        EXPECT_EQ(shown(), "hold #00FF00 80%");
        shownFor(stFailed, LED_EVENT_FROM_E_UPGRADE);
        shownFor(hold(0x0000FF), LED_EVENT_FROM_E_UPGRADE);
        clock().advance(6000);
        EXPECT_EQ(shown(), "hold #0000FF 80%");
    }
}

TEST_F(Lamp, RestStateComesFromTheSettingsWithOrWithoutAManager)
{
    EXPECT_EQ(LED_API_SetTallyMode(NAME, LED_TALLY_MODE_E_COLOR_R, BU_TRUE, BU_TRUE), 0);
    EXPECT_EQ(LED_API_TriggerLedUpdateFrom(LED_EVENT_FROM_E_CFG), -1);
    EXPECT_EQ(LED_API_ApplyLedStateInfo(NAME), -1);
    start();
    EXPECT_EQ(shown(), "hold #FF0000 80%");
    // clang-format off
    const struct { BU_S32 s32Mode, s32Result; const BU_CHAR *pcShown; } rows[] = {
        {LED_TALLY_MODE_E_COLOR_W, 0, "hold #FFFFFF 80%"}, {LED_TALLY_MODE_E_COLOR_R, 0, "hold #FF0000 80%"},
        {LED_TALLY_MODE_E_COLOR_G, 0, "hold #00FF00 80%"}, {LED_TALLY_MODE_E_COLOR_B, 0, "hold #0000FF 80%"},
        {5, -1, "hold #0000FF 80%"}, {LED_TALLY_MODE_E_COLOR_CUSTOM, 0, "hold #123456 80%"},
        {LED_TALLY_MODE_E_COLOR_RGB_CIRCLE, 0, "circle 80%"}, {LED_TALLY_MODE_E_CLOSE, 0, "off"},
        {LED_TALLY_MODE_E_COLOR_G, 0, "hold #00FF00 80%"}};
    // clang-format on
    EXPECT_EQ(LED_API_SetTallyCustomColor(NAME, 0x123456, BU_TRUE, BU_FALSE), 0);
    EXPECT_EQ(LED_API_SetTallyCustomColor(NAME, 0x1000000, BU_TRUE, BU_FALSE), -1);
    EXPECT_EQ(LED_API_GetTallyCustomColor(NAME, nullptr, BU_TRUE), -1);
    for (const auto &row : rows) {
        EXPECT_EQ(LED_API_SetTallyMode(NAME, row.s32Mode, BU_TRUE, BU_FALSE), row.s32Result);
        EXPECT_EQ(shown(), row.pcShown);
    }
    SYSTEM_API_FactoryRestoreConfiguration(SYSTEM_RESTORE_E_SYSTEM);
    EXPECT_EQ(shown(), "off");
    EXPECT_EQ(LED_API_SetTallyMode("OtherLed", 1, BU_TRUE, BU_TRUE), -1);
}

TEST_F(Lamp, UpdatesWaitForTheSelfTestAndComeInOrder)
{
    start(LED_WHITE_MODE_E_RGB, true);
    LED_API_TriggerLedUpdateFrom(LED_EVENT_FROM_E_ALG);
    LED_API_SetTallyOnBoard(NAME, BU_FALSE, BU_TRUE, BU_TRUE);              // the network's tally has to be looked at
    LED_API_SetTallyMode(NAME, LED_TALLY_MODE_E_COLOR_R, BU_TRUE, BU_TRUE); // seen at once
    EXPECT_EQ(shown(), "hold #FF0000 80%");
    await([] { return g_bSelfTest.load(); });
    EXPECT_TRUE(g_events.take().empty());
    g_bHoldSelfTest = false;
    std::vector<BU_S32> seen;
    await([&] { return std::ranges::copy(g_events.take(), std::back_inserter(seen)), seen.size() >= 3; });
    EXPECT_THAT(seen, testing::ElementsAre(LED_EVENT_FROM_E_ALG, LED_EVENT_FROM_E_NDI, LED_EVENT_FROM_E_CFG));
}
} // namespace
