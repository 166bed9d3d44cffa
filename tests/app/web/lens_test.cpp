// Lens panel.
#include "webTest.h"

using testing::ElementsAre;

namespace
{
constexpr BU_U32 GET = WEB_RPC_EVENT_GROUP_E_GET_AF, SET = WEB_RPC_EVENT_GROUP_E_SET_AF;

using Lens = WebTest;

TEST_F(Lens, ItemsAreReadAndSet)
{
    // clang-format off
    for (const ItemCase &st : std::initializer_list<ItemCase>{
             {1, "AF_API_*FocusModel", 2}, {2, "AF_API_*FaceAF", 1}, {3, "AF_API_*FocusArea", 3},
             {4, "AF_API_*PtzTrigAf", 1}, {5, "AF_API_*FocusAuto", 1}, {7, "AF_API_*FocusSpd", 6}})
        // clang-format on
        check(st, GET, SET, 0);
    for (const BU_S32 s32Item : {6, 8, 0, 9, -1, INT32_MAX}) {
        const Response res = call(GET, s32Item);
        EXPECT_TRUE(res.bEnabled == BU_TRUE && res.s32Value == 0) << s32Item;
        EXPECT_EQ(effects(SET, s32Item, 0, 1).size(), s32Item == 6 || s32Item == 8 ? 1U : 0U) << s32Item;
    }
    EXPECT_EQ(printed([] { call(GET, 3); }), "-- Af Get 3\n");
    EXPECT_EQ(printed([] { call(SET, 3, 0, 1); }), "");
}

TEST_F(Lens, FocusDrivesAtTheSpeedOfThePage)
{
    // clang-format off
    for (const auto &[s32Value, pcArguments] : {std::pair{0, "0, 0"}, {1, "2, 1"}, {8, "2, 8"}, {-1, "3, 1"},
                                                {-300, "3, 44"}, {256, "2, 0"},
                                                {INT32_MIN, "3, 0"}, {INT32_MAX, "2, 255"}})
        // clang-format on
        EXPECT_THAT(effects(SET, 6, 7, s32Value),
                    ElementsAre("AF_API_SetFocusAct(0, " + std::string(pcArguments) + ")"));
    EXPECT_THAT(effects(SET, 8, 0, 5), ElementsAre("AF_API_TriggerCurveCorrection()"));
}
} // namespace
