// Pan/tilt panel.
#include "camera/motion.h"
#include "webTest.h"

using testing::ElementsAre;

namespace
{
constexpr BU_S32 MOVE = 9, PRESET = 10, ZOOM = 11, SPEED_MODE = 14;
constexpr BU_U32 GET = WEB_RPC_EVENT_GROUP_E_GET_PT, SET = WEB_RPC_EVENT_GROUP_E_SET_PT;

class PanTilt : public WebTest
{
protected:
    PanTilt()
    {
        // A level of the speed scale is 100 (pan) and 200 (tilt), of the superfine one 1 and 2.
        // clang-format off
        const auto entry = [](PT_CTRL_FROM_E enFrom, BU_S32 s32Max) {
            return PT_SPEED_CALC_SET_S{enFrom, BU_FALSE, 1, s32Max, 1, s32Max * 2, 100, PT_CalcSpeedLevelMap_Simple,
                                       2, nullptr, 0};
        };
        // clang-format on
        const PT_SPEED_LIMIT_T stLimits{1, 2400, 1, 4800, 100};
        PT_API_InitByXml(&stLimits, {entry(PT_CTRL_E_FROM_OTHER, 2400), entry(PT_CTRL_E_FROM_TKV_SUPERFINE, 255)});
        PT_API_SetPanSpeed(0, 3, BU_FALSE, BU_FALSE);
        PT_API_SetTileSpeed(0, 5, BU_FALSE, BU_FALSE);
        PT_API_SetPanSpeedSuperfine(0, 17, BU_FALSE, BU_FALSE);
        PT_API_SetTileSpeedSuperfine(0, 19, BU_FALSE, BU_FALSE);
        journal::effects();
    }
    static Effects set(BU_S32 s32Item, BU_S32 s32Value0, BU_S32 s32Value1 = 0)
    {
        return effects(SET, s32Item, 5, s32Value0, s32Value1);
    }
};

TEST_F(PanTilt, ItemsAreReadAndSet)
{
    // clang-format off
    for (const ItemCase &st : std::initializer_list<ItemCase>{
             {1, "PT_API_*PanSpeed", 2}, {2, "PT_API_*TileSpeed", 4}, {3, "PRESET_API_*PresetSpeed", 5},
             {4, "PT_API_*PowerUpPtzPos", 6}, {5, "PTZ_API_*ZoomSpd", 7}, {6, "SYS_API_*MountMode", 1, 0, true},
             {7, "PT_API_*PtSpeedMatch", 1}, {12, "PTZ_API_*MaxDZoomTime", 9}, {13, "PTZ_API_*DZoomMode", 1, 4096}})
        check(st, GET, SET, 0);
    // clang-format on
    for (const BU_S32 s32Item : {8, 9, 10, 11, 0, 15, -1, INT32_MAX}) {
        const Response res = call(GET, s32Item);
        EXPECT_TRUE(res.bEnabled == BU_TRUE && res.s32Value == 0) << s32Item;
        if (s32Item != ZOOM) { // no direction, no action of a preset
            EXPECT_THAT(set(s32Item, 7, 7), ElementsAre()) << s32Item;
        }
    }
    EXPECT_EQ(printed([] { call(GET, 9); }), "-- Pt Get 9\n");
    EXPECT_EQ(printed([] { call(SET, 13, 0, 1); }), "Set 13 {1 0 0 0}\n");
}

TEST_F(PanTilt, SuperfineModeHasSpeedsOfItsOwn)
{
    EXPECT_EQ(call(SET, SPEED_MODE, 0, 1).s32SideEffectBitmap, 6U);
    EXPECT_THAT(journal::effects(), ElementsAre("PT_API_SetSpeedMode(0, 1, 1)"));
    EXPECT_EQ(call(GET, SPEED_MODE).s32Value, 1);
    check({1, "PT_API_*PanSpeedSuperfine", 101}, GET, SET, 0);
    check({2, "PT_API_*TileSpeedSuperfine", 102}, GET, SET, 0);
    journal::inject("PT_API_GetSpeedMode", -1); // then it counts as standard
    EXPECT_EQ(call(GET, 1).s32Value, 3);
    set(SPEED_MODE, 0);
    EXPECT_EQ(call(GET, 1).s32Value, 3);
    EXPECT_EQ(call(GET, 2).s32Value, 5);
}

TEST_F(PanTilt, PairsOfDirectionsMoveTheHead)
{
    const std::tuple<BU_S32, BU_S32, const char *> rows[] = {
        {-1, -1, "LEFT_DOWN"}, {-1, 0, "LEFT"}, {-1, 1, "LEFT_UP"}, {0, -1, "DOWN"}, {0, 1, "UP"},
        {1, -1, "RIGHT_DOWN"}, {1, 0, "RIGHT"}, {1, 1, "RIGHT_UP"}, {-2, -2, "HOME"}};
    for (const bool bSuperfine : {false, true}) {
        set(SPEED_MODE, bSuperfine);
        const std::string strSpeed = bSuperfine ? ", pan 17, tilt 38}, NULL)" : ", pan 300, tilt 1000}, NULL)";
        for (const auto &[s32Right, s32Up, pcMotion] : rows)
            EXPECT_THAT(set(MOVE, s32Right, s32Up), ElementsAre("BSP_PTCtrlMotion(8, {" + (pcMotion + strSpeed)));
        EXPECT_THAT(set(MOVE, 0, 0), ElementsAre("BSP_PTCtrlMotion(8, {STOP}, NULL)"));
    }
    for (const auto &[s32Right, s32Up] :
         {std::pair{2, 0}, {0, -2}, {-2, 0}, {-2, -1}, {2, 2}, {1, INT32_MIN}, {INT32_MAX, 1}})
        EXPECT_THAT(set(MOVE, s32Right, s32Up), ElementsAre()) << s32Right << ' ' << s32Up;
}

TEST_F(PanTilt, SavingAndDeletingPresetsAnswerTheirResult)
{
    for (const auto &[s32Selector, pcFunction, pcArguments, u64Refused] :
         {std::tuple{0, "PRESET_API_SetCur", R"((12, ""))", ~BU_U64{0}},
          {1, "PRESET_API_GotoById", "(12, 8, NULL)", 0},
          {2, "PRESET_API_DeleteById", "(12)", ~BU_U64{0}},
          {3, "PRESET_API_GotoHome", "(8, NULL)", 0}})
        for (const bool bRefused : {false, true}) {
            journal::inject(pcFunction, bRefused ? -1 : 0);
            EXPECT_EQ(call(SET, PRESET, 0, s32Selector, 12).s32SideEffectBitmap, bRefused ? u64Refused : 0);
            EXPECT_THAT(journal::effects(), ElementsAre(std::string(pcFunction) + pcArguments));
        }
    for (const BU_S32 s32Other : {-1, 4}) EXPECT_THAT(set(PRESET, s32Other, 12), ElementsAre());
}

TEST_F(PanTilt, ZoomDrivesAtTheConfiguredSpeed)
{
    set(5, 7);
    for (const auto &[s32Tele, pcEnd] :
         {std::pair{1, "2, 7)"}, {5, "2, 7)"}, {INT32_MAX, "2, 7)"}, {INT32_MIN, "3, 7)"}, {0, "0, 0)"}})
        EXPECT_THAT(set(ZOOM, s32Tele), ElementsAre("PTZ_API_SetZoomAct(0, " + std::string(pcEnd)));
}
} // namespace
