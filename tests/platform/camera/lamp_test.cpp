#include "board/lamp.h"

#include "camera/settingEvent.h"
#include "camera/systemService.h"
#include "support/platformTest.h"

#include <condition_variable>
#include <fstream>
#include <memory>
#include <mutex>

using testing::ElementsAre;

namespace
{
constexpr const BU_CHAR *NAME = "TallyLed";

constexpr LED_TALLY_STATE_S hold(BU_U32 u32Color)
{
    return {LED_WORK_MODE_E_HOLD, u32Color, LED_BRIGHTNESS_80, LED_CLOSE, 0};
}
constexpr LED_TALLY_STATE_S OFF{LED_WORK_MODE_E_OFF, 0, LED_BRIGHTNESS_80, LED_CLOSE, 0};

/// The callbacks of the manager under test, which carry no data of their own.
struct tagCALLS_S {
    std::mutex lock; // guards all members
    std::condition_variable changed;
    std::vector<LED_EVENT_FROM_E> listEvents;
    bool bSelfTest = false, bHoldSelfTest = false;

    void waitForEvents(std::size_t count)
    {
        std::unique_lock guard(lock);
        ASSERT_TRUE(changed.wait_for(guard, std::chrono::seconds(5), [&] { return listEvents.size() >= count; }));
    }
};
std::shared_ptr<tagCALLS_S> g_calls; // a callback keeps its own copy until it is through
} // namespace

class Lamp : public PlatformTest
{
protected:
    void start(bool bHoldSelfTest = false)
    {
        m_stCalls.bHoldSelfTest = bHoldSelfTest;
        m_pvLamp = BSP_LED_Init("/dev/tally_led");
        LED_TALLY_INIT_ATTR_S stAttr{
            {m_pvLamp, nullptr}, {16, 4, 1, 3, 2, 16, 5, 6}, nullptr, nullptr, LED_WHITE_MODE_E_RGB};
        stAttr.fnEventCallback = [](LED_EVENT_FROM_E en) {
            const auto calls = g_calls;
            const std::lock_guard guard(calls->lock);
            calls->listEvents.push_back(en);
            calls->changed.notify_all();
            return BU_S32{0};
        };
        stAttr.fnSelfTestCallback = [](LED_EVENT_FROM_E en) {
            const auto calls = g_calls;
            std::unique_lock guard(calls->lock);
            EXPECT_EQ(en, LED_EVENT_FROM_E_ERR);
            calls->bSelfTest = true;
            calls->changed.notify_all();
            calls->changed.wait(guard, [&] { return !calls->bHoldSelfTest; });
            return BU_S32{0};
        };
        ASSERT_EQ(LED_API_InitMgr(NAME, &stAttr), 0);
        EXPECT_EQ(LED_API_InitMgr(NAME, &stAttr), -1);
    }
    void TearDown() override
    {
        if (!m_pvLamp) return;
        releaseSelfTest();
        LED_API_TriggerLedUpdateFrom(LED_EVENT_FROM_E_CFG); // its thread is through with what came before
        m_stCalls.waitForEvents(m_nEvents + 1);
        LED_API_DestroyMgr(NAME);
        EXPECT_EQ(shown(), "off");
        BSP_LED_Destroy(m_pvLamp);
    }
    void releaseSelfTest()
    {
        const std::lock_guard guard(m_stCalls.lock);
        m_stCalls.bHoldSelfTest = false;
        m_stCalls.changed.notify_all();
    }
    std::string shown()
    {
        std::ifstream in(root() + "/dev/tally_led");
        std::string strLine, strMore;
        std::getline(in, strLine);
        return std::getline(in, strMore) ? "more than a line" : strLine;
    }
    tagCALLS_S &m_stCalls = *(g_calls = std::make_shared<tagCALLS_S>());
    std::size_t m_nEvents = 0; ///< updates that the test has asked for
    BSP_LED_HANDLE m_pvLamp = nullptr;
};

TEST_F(Lamp, ShowsTheHighestSourceThatAsks)
{
    start();
    const struct {
        LED_EVENT_FROM_E enFrom;
        LED_TALLY_STATE_S stState;
        const BU_CHAR *pcShown;
    } astSteps[] = {
        {LED_EVENT_FROM_E_VISCA, hold(0x00FF00), "hold #00FF00 80%"},
        {LED_EVENT_FROM_E_CFG, hold(0xFF000000), "hold #00FF00 80%"}, // the base level is below all others
        {LED_EVENT_FROM_E_NDI, hold(0xFF0000), "hold #FF0000 80%"},
        {LED_EVENT_FROM_E_ALG, hold(0x0000FF), "hold #FF0000 80%"},
        {LED_EVENT_FROM_E_ERR,
         {LED_WORK_MODE_E_FLICK, 0xFF000000, LED_BRIGHTNESS_80, LED_MODE_FLICKER_2HZ, 0},
         "flick #FFFFFF 80% 2Hz"},
        {LED_EVENT_FROM_E_SLEEP, hold(0xFFFF00), "flick #FFFFFF 80% 2Hz"},
        {LED_EVENT_FROM_E_ERR, OFF, "hold #FFFF00 80%"},
        {LED_EVENT_FROM_E_SLEEP, OFF, "hold #FF0000 80%"},
        {LED_EVENT_FROM_E_NDI, OFF, "hold #0000FF 80%"},
        {LED_EVENT_FROM_E_ALG, OFF, "hold #00FF00 80%"},
        {LED_EVENT_FROM_E_VISCA, OFF, "hold #FFFFFF 80%"},
        {LED_EVENT_FROM_E_IR, {LED_WORK_MODE_E_RGB_CIRCLE, 0, LED_BRIGHTNESS_100, 0, 0}, "circle 100%"},
        {LED_EVENT_FROM_E_IR, OFF, "hold #FFFFFF 80%"},
        {LED_EVENT_FROM_E_CFG, OFF, "off"},
    };
    for (const auto &st : astSteps) {
        EXPECT_EQ(LED_API_SetLedStateInfoFrom(NAME, st.enFrom, st.stState), 0);
        EXPECT_EQ(shown(), st.pcShown) << "source " << st.enFrom;
    }
    EXPECT_EQ(LED_API_SetLedStateInfoFrom(NAME, static_cast<LED_EVENT_FROM_E>(8), OFF), -1);
    EXPECT_EQ(LED_API_SetLedStateInfoFrom("OtherLed", LED_EVENT_FROM_E_CFG, OFF), -1);
}

TEST_F(Lamp, AStateWithADurationEndsAndALaterOneIsNotCutShort)
{
    start();
    LED_API_SetLedStateInfoFrom(NAME, LED_EVENT_FROM_E_VISCA, hold(0x00FF00));
    const LED_TALLY_STATE_S stFailed{LED_WORK_MODE_E_FLICK_DURATION, 0xFF0000, LED_BRIGHTNESS_80, LED_MODE_FLICKER_2HZ,
                                     5000};
    LED_API_SetLedStateInfoFrom(NAME, LED_EVENT_FROM_E_UPGRADE, stFailed);
    clock().advance(4999);
    EXPECT_EQ(shown(), "flick #FF0000 80% 2Hz");
    LED_API_SetLedStateInfoFrom(NAME, LED_EVENT_FROM_E_UPGRADE, stFailed); // failed again
    clock().advance(4999);
    EXPECT_EQ(shown(), "flick #FF0000 80% 2Hz");
    clock().advance(1);
    EXPECT_EQ(shown(), "hold #00FF00 80%");
    LED_API_SetLedStateInfoFrom(NAME, LED_EVENT_FROM_E_UPGRADE, stFailed);
    LED_API_SetLedStateInfoFrom(NAME, LED_EVENT_FROM_E_UPGRADE, hold(0x0000FF));
    clock().advance(6000);
    EXPECT_EQ(shown(), "hold #0000FF 80%");
}

TEST_F(Lamp, RestStateComesFromTheSettings)
{
    start();
    const struct {
        BU_S32 s32Mode, s32Result;
        const BU_CHAR *pcShown;
    } astCases[] = {
        {LED_TALLY_MODE_E_COLOR_W, 0, "hold #FFFFFF 80%"},
        {LED_TALLY_MODE_E_COLOR_R, 0, "hold #FF0000 80%"},
        {LED_TALLY_MODE_E_COLOR_G, 0, "hold #00FF00 80%"},
        {LED_TALLY_MODE_E_COLOR_B, 0, "hold #0000FF 80%"},
        {5, -1, "hold #0000FF 80%"},
        {LED_TALLY_MODE_E_COLOR_CUSTOM, 0, "hold #123456 80%"},
        {LED_TALLY_MODE_E_COLOR_RGB_CIRCLE, 0, "circle 80%"},
        {LED_TALLY_MODE_E_CLOSE, 0, "off"},
        {LED_TALLY_MODE_E_COLOR_G, 0, "hold #00FF00 80%"},
    };
    EXPECT_EQ(LED_API_SetTallyCustomColor(NAME, 0x123456, BU_TRUE, BU_FALSE), 0);
    EXPECT_EQ(LED_API_SetTallyCustomColor(NAME, 0x1000000, BU_TRUE, BU_FALSE), -1);
    for (const auto &st : astCases) {
        EXPECT_EQ(LED_API_SetTallyMode(NAME, st.s32Mode, BU_TRUE, BU_FALSE), st.s32Result);
        EXPECT_EQ(shown(), st.pcShown);
    }
    SYSTEM_API_FactoryRestoreConfiguration(SYSTEM_RESTORE_E_SYSTEM);
    EXPECT_EQ(shown(), "off");
    EXPECT_EQ(LED_API_SetTallyMode("OtherLed", 1, BU_TRUE, BU_TRUE), -1);
}

TEST_F(Lamp, UpdatesWaitForTheSelfTestAndComeInOrder)
{
    start(true);
    LED_API_TriggerLedUpdateFrom(LED_EVENT_FROM_E_ALG);
    LED_API_SetTallyOnBoard(NAME, BU_FALSE, BU_TRUE, BU_TRUE);              // the network's tally has to be looked at
    LED_API_SetTallyMode(NAME, LED_TALLY_MODE_E_COLOR_R, BU_TRUE, BU_TRUE); // seen at once
    EXPECT_EQ(shown(), "hold #FF0000 80%");
    {
        std::unique_lock guard(m_stCalls.lock);
        m_stCalls.changed.wait(guard, [this] { return m_stCalls.bSelfTest; });
        EXPECT_TRUE(m_stCalls.listEvents.empty());
    }
    releaseSelfTest();
    m_nEvents = 3;
    m_stCalls.waitForEvents(m_nEvents);
    EXPECT_THAT(m_stCalls.listEvents, ElementsAre(LED_EVENT_FROM_E_ALG, LED_EVENT_FROM_E_NDI, LED_EVENT_FROM_E_CFG));
}

TEST_F(Lamp, SettingsWorkOnABoardWithoutLamps)
{
    EXPECT_EQ(LED_API_SetTallyMode(NAME, LED_TALLY_MODE_E_COLOR_R, BU_TRUE, BU_TRUE), 0);
    EXPECT_EQ(LED_API_TriggerLedUpdateFrom(LED_EVENT_FROM_E_CFG), -1);
    EXPECT_EQ(LED_API_ApplyLedStateInfo(NAME), -1);
    BU_S32 s32Mode = 0;
    EXPECT_EQ(LED_API_GetTallyMode(NAME, &s32Mode, BU_TRUE), 0);
    EXPECT_EQ(s32Mode, LED_TALLY_MODE_E_COLOR_R);
}
