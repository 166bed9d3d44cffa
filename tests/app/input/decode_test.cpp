// Which events reach a key, and what is said about them.
#include "inputTest.h"

#include "camera/serial.h"

namespace
{
class Decode : public InputTest
{
protected:
    /// Whether a press of MENU (of the front key) arrives.
    bool arrives(Remote remote, int s32Type, int s32Code, int s32Value)
    {
        journal::effects();
        KEYPAD_GetTimerData()->stParam.bTimerRunning = BU_FALSE;
        send(remote, s32Type, s32Code, s32Value);
        return !journal::effects().empty() || KEYPAD_GetTimerData()->stParam.bTimerRunning;
    }
};

TEST_F(Decode, SwitchAddressTypeAndValueDecide)
{
    struct {
        const char *pcSwitch;
        BU_U8 u8Camera;
        int s32Type, s32Remote, s32Value;
        bool bArrives;
    } const rows[] = {
        {"On", 1, EV_KEY, 1, 1, true},  {"On", 4, EV_KEY, 4, 1, true},  {"On", 1, EV_KEY, 2, 1, false},
        {"On", 2, EV_KEY, 1, 1, false}, {"On", 3, EV_KEY, 4, 1, false}, {"Off", 1, EV_KEY, 1, 1, false},
        {"On", 1, EV_SYN, 1, 1, false}, {"On", 1, EV_MSC, 1, 1, false}, {"On", 1, EV_KEY, 1, 2, false},
    };
    for (const auto &row : rows) {
        IR_API_SetSwitch(row.pcSwitch, BU_FALSE);
        IR_API_SetAddr(row.u8Camera, BU_FALSE, IRADDR_SWITCH_E_SOFT);
        for (const Remote remote : {SMALL, BIG, TRACKING})
            EXPECT_EQ(arrives(remote, row.s32Type, (row.s32Remote - 1) << 7 | CODES.at("menu"), row.s32Value),
                      row.bArrives)
                << row.pcSwitch << " camera " << int(row.u8Camera) << " remote " << row.s32Remote;
    }
}

TEST_F(Decode, FrontKeyKnowsNoAddressAndNoSwitch)
{
    IR_API_SetSwitch("Off", BU_FALSE);
    IR_API_SetAddr(3, BU_FALSE, IRADDR_SWITCH_E_SOFT);
    EXPECT_TRUE(arrives(FRONT, EV_KEY, 249, 1));
    EXPECT_FALSE(arrives(FRONT, EV_SYN, 249, 1));
    EXPECT_FALSE(arrives(FRONT, EV_KEY, 249, 2));
    EXPECT_FALSE(arrives(FRONT, EV_KEY, 249 & 0x7F, 1));
}

TEST_F(Decode, SaysWhatItHeard)
{
    struct {
        Remote remote;
        int s32Code, s32Value;
        const char *pcSaid;
    } const rows[] = {
        {BIG, 30, 1, "Key: 30, Event: 1\n"},
        {BIG, 30, 0, "Key: 30, Event: 0\n"},
        {BIG, 30, 2, ""},
        {BIG, 127, 1, "not match key:127\n"},
        {BIG, 102, 0, "not match key:102\n"},
        {BIG, 1 << 7 | 127, 1, ""},
        {TRACKING, 21, 1, "not match key:21\n"},
        {TRACKING, 89, 1, ""},
        {TRACKING, 90, 0, ""},
        {TRACKING, 103, 0, "Key: 103, Event: 0\n"},
        {SMALL, 30, 0, ""},
        {SMALL, 127, 1, ""},
        {FRONT, 249, 1, "Key: 249, Event: 1\n"},
        {FRONT, 30, 1, "not match key:30\n"},
        {FRONT, 30, 2, ""},
    };
    for (const auto &row : rows) {
        testing::internal::CaptureStdout();
        send(row.remote, EV_KEY, row.s32Code, row.s32Value);
        EXPECT_EQ(testing::internal::GetCapturedStdout(), row.pcSaid) << row.s32Code;
    }
}
} // namespace
