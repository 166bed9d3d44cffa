// Which events reach a key, and what is said about them.
#include "inputTest.h"

#include "camera/serial.h"

#include <algorithm>
#include <ranges>
#include <tuple>

namespace
{
struct Decode : InputTest {
    static std::string said(Remote remote, int s32Type, int s32Code, int s32Value)
    {
        testing::internal::CaptureStdout();
        send(remote, s32Type, s32Code, s32Value);
        return testing::internal::GetCapturedStdout();
    }
};

TEST_F(Decode, SwitchAddressTypeAndValueDecide)
{
    // clang-format off
    const struct { const char *pcSwitch; BU_U8 u8Camera; int s32Type, s32Remote, s32Value; bool bArrives; } rows[] = {
        {"On", 1, EV_KEY, 1, 1, true},  {"On", 4, EV_KEY, 4, 1, true},  {"On", 1, EV_KEY, 2, 1, false},
        {"On", 2, EV_KEY, 1, 1, false}, {"On", 3, EV_KEY, 4, 1, false}, {"Off", 1, EV_KEY, 1, 1, false},
        {"On", 1, EV_SYN, 1, 1, false}, {"On", 1, EV_MSC, 1, 1, false}, {"On", 1, EV_KEY, 1, 2, false}};
    // clang-format on
    for (const auto &row : rows) {
        IR_API_SetSwitch(row.pcSwitch, BU_FALSE);
        IR_API_SetAddr(row.u8Camera, BU_FALSE, IRADDR_SWITCH_E_SOFT);
        for (const Remote remote : {SMALL, BIG, TRACKING}) {
            journal::effects();
            send(remote, row.s32Type, (row.s32Remote - 1) << 7 | codeOf("menu"), row.s32Value);
            EXPECT_EQ(!journal::effects().empty(), row.bArrives)
                << row.pcSwitch << " camera " << int(row.u8Camera) << " remote " << row.s32Remote;
        }
        EXPECT_EQ(said(FRONT, EV_KEY, 249, 1), "Key: 249, Event: 1\n"); // it knows no address and no switch
    }
}

/// Those of the map that scripts/remote has. Two of the tracking remote's long presses mean something to the remote
/// only.
TEST_F(Decode, SaysWhichKeyItWasOrThatItIsNone)
{
    for (const auto &[strFamily, remote] : {std::pair{"big:", BIG}, {"tracking:", TRACKING}})
        for (int s32Code = 0; s32Code < 128; ++s32Code) {
            const bool bKey = std::ranges::count(std::views::values(families().at(strFamily)), s32Code) == 1;
            const bool bSilent = remote == TRACKING && (s32Code == 89 || s32Code == 90);
            const std::string strCode = std::to_string(s32Code);
            const std::string strSaid = bKey ? "Key: " + strCode + ", Event: 0\n" : "not match key:" + strCode + "\n";
            EXPECT_EQ(said(remote, EV_KEY, s32Code, 0), bSilent ? "" : strSaid);
        }
    EXPECT_EQ(families().at("small:").size(), 17U);
    EXPECT_EQ(said(BIG, EV_KEY, 30, 1), "Key: 30, Event: 1\n");
    EXPECT_EQ(said(FRONT, EV_KEY, 249 & 0x7F, 1), "not match key:121\n");
    // clang-format off
    const std::tuple<Remote, int, int, int> silent[] = {
        {BIG, EV_KEY, 30, 2}, {BIG, EV_KEY, 1 << 7 | 127, 1}, {SMALL, EV_KEY, 127, 1}, {FRONT, EV_KEY, 30, 2}, {FRONT, EV_SYN, 249, 1}};
    // clang-format on
    for (const auto &[remote, s32Type, s32Code, s32Value] : silent)
        EXPECT_EQ(said(remote, s32Type, s32Code, s32Value), "") << s32Code;
}
} // namespace
