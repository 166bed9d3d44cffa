// Lens panel.
#include "webTest.h"

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
constexpr BU_U32 GET = WEB_RPC_EVENT_GROUP_E_GET_AF, SET = WEB_RPC_EVENT_GROUP_E_SET_AF;

class Lens : public WebTest
{
};

TEST_F(Lens, ItemsAreReadAndSet)
{
    for (const ItemCase &st : std::initializer_list<ItemCase>{{1, "AF_API_*FocusModel", 2},
                                                              {2, "AF_API_*FaceAF", 1},
                                                              {3, "AF_API_*FocusArea", 3},
                                                              {4, "AF_API_*PtzTrigAf", 1},
                                                              {5, "AF_API_*FocusAuto", 1},
                                                              {7, "AF_API_*FocusSpd", 6}})
        check(st, GET, SET, 0);
}

TEST_F(Lens, FocusDrivesAtTheSpeedOfThePage)
{
    const struct {
        BU_S32 s32Value;
        const char *pcCall;
    } rows[] = {{0, "AF_API_SetFocusAct(0, 0, 0)"},         {1, "AF_API_SetFocusAct(0, 2, 1)"},
                {8, "AF_API_SetFocusAct(0, 2, 8)"},         {-1, "AF_API_SetFocusAct(0, 3, 1)"},
                {-300, "AF_API_SetFocusAct(0, 3, 44)"},     {256, "AF_API_SetFocusAct(0, 2, 0)"},
                {INT32_MIN, "AF_API_SetFocusAct(0, 3, 0)"}, {INT32_MAX, "AF_API_SetFocusAct(0, 2, 255)"}};
    for (const auto &st : rows) {
        EXPECT_EQ(call(SET, 6, 7, st.s32Value).s32SideEffectBitmap, 0U);
        EXPECT_THAT(journal::effects(), ElementsAre(st.pcCall)) << st.s32Value;
    }
    call(SET, 8, 0, 5);
    EXPECT_THAT(journal::effects(), ElementsAre("AF_API_TriggerCurveCorrection()"));
}

TEST_F(Lens, ItemsWithoutAValueAnswerEnabledAndZero)
{
    for (const BU_S32 s32Item : {6, 8, 0, 9, -1, INT32_MAX}) {
        const Response res = call(GET, s32Item);
        EXPECT_TRUE(res.bEnabled == BU_TRUE && res.s32Value == 0) << s32Item;
        if (s32Item != 6 && s32Item != 8) call(SET, s32Item, 0, 1);
    }
    EXPECT_THAT(journal::effects(), IsEmpty());
    EXPECT_EQ(printed([] { call(GET, 3); }), "-- Af Get 3\n");
    EXPECT_EQ(printed([] { call(SET, 3, 0, 1); }), "");
}
} // namespace
