// What the tally lamp shows, read from the lamp's device file.
#include "led/led.h"

#include "camera/tracking.h"
#include "support/platformTest.h"

#include <algorithm>
#include <thread>

namespace
{
class Led : public PlatformTest
{
protected:
    Led()
    {
        LED_InitDev();
        std::thread over([] { LED_API_AppOver(); });
        effectsOfEvent(10); // the end of start-up is the first event
        over.join();
    }
    ~Led() override { LED_UnInitDev(); }

    /// What has happened up to the end of the manager's next event.
    /// @param s64StepMs  how far the clock moves at each look
    std::vector<std::string> effectsOfEvent(BU_S64 s64StepMs)
    {
        std::vector<std::string> all;
        while (!std::count(all.begin(), all.end(), "LED_API_ApplyLedStateInfo(\"TallyLed\")")) {
            clock().advance(s64StepMs);
            std::this_thread::yield();
            for (std::string &str : journal::effects()) all.push_back(std::move(str));
        }
        return all;
    }

    /// The states that the manager records when a source asks for an update.
    std::vector<std::string> statesAfter(LED_EVENT_FROM_E enFrom)
    {
        LED_API_TriggerLedUpdateFrom(enFrom);
        std::vector<std::string> states;
        for (const std::string &str : effectsOfEvent(0))
            if (str.starts_with("LED_API_SetLedStateInfoFrom")) states.push_back(str);
        return states;
    }
};
constexpr LED_TALLY_STATE_S HAND_SET{LED_WORK_MODE_E_HOLD, 0x00FF00, LED_BRIGHTNESS_100, LED_CLOSE, 0};

TEST_F(Led, TrackingShowsBlueOnlyWithBothSwitches)
{
    struct {
        BU_BOOL bEnable, bIndicator;
        const char *pcState;
    } const rows[] = {{BU_TRUE, BU_TRUE, "hold #0000FF"}, {BU_TRUE, BU_FALSE, "off)"}, {BU_FALSE, BU_TRUE, "off)"}};
    for (const auto &row : rows) {
        ALG_API_SetEnable(row.bEnable, BU_FALSE, BU_FALSE);
        ALG_API_SetTallyIndicator(row.bIndicator, BU_FALSE, BU_FALSE);
        const auto states = statesAfter(LED_EVENT_FROM_E_ALG);
        ASSERT_FALSE(states.empty());
        EXPECT_THAT(states.back(), testing::HasSubstr(row.pcState));
    }
}

TEST_F(Led, HandSetNdiTallyShowsWithFixedBrightnessUnlessTheLampIsOff)
{
    LED_API_SetTallyOnBoard("TallyLed", BU_TRUE, BU_FALSE, BU_FALSE);
    EXPECT_EQ(TKV_MX_NDITally_Manual(BU_TRUE, nullptr), -1);
    TKV_MX_NDITally_Manual(BU_TRUE, HAND_SET);
    EXPECT_THAT(statesAfter(LED_EVENT_FROM_E_NDI).back(), testing::HasSubstr("hold #00FF00 80%"));

    LED_API_SetTallyOnBoard("TallyLed", BU_FALSE, BU_FALSE, BU_FALSE);
    EXPECT_THAT(statesAfter(LED_EVENT_FROM_E_NDI).back(), testing::HasSubstr("off)"));

    LED_API_SetTallyOnBoard("TallyLed", BU_TRUE, BU_FALSE, BU_FALSE);
    TKV_MX_NDITally_Manual(BU_FALSE, nullptr); // back to NDI, where nobody shows a tally
    EXPECT_THAT(statesAfter(LED_EVENT_FROM_E_NDI).back(), testing::HasSubstr("off)"));
}
} // namespace
