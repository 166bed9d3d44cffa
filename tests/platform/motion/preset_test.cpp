#include "motionTest.h"

#include "camera/image.h"
#include "config/config.h"

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;
constexpr double CLOSE = 0.001; // degrees

class PresetTest : public MotionTest
{
protected:
    PresetTest()
    {
        AF_API_SetFocusAuto(0, BU_FALSE, BU_FALSE, BU_TRUE);
        storeAt(5, 90, 20, 8000, 3000);
        storeAt(6, -90, 0, 0, 1000);
        BSP_PTProcInit(0, nullptr);
        ZF_API_StartService();
    }
    static void storeAt(BU_S32 s32Preset, double dPan, double dTilt, BU_S32 s32Zoom, BU_S32 s32Focus)
    {
        CFG_STORE_SetPreset({s32Preset, "Stored", at(dPan), at(dTilt), s32Zoom, s32Focus});
    }
};

TEST_F(PresetTest, RecallBringsBackEverythingAtThePresetSpeed)
{
    PRESET_API_SetPresetSpeed(0, 12, BU_FALSE, BU_FALSE); // half of 120 degrees per second
    int iData = 1;
    EXPECT_EQ(PRESET_API_GotoById(5, FROM, &iData), 1);
    clock().advance(1749);
    EXPECT_THAT(reports(), ElementsAre("zf 1 done")); // 8000 at 6554 a second
    clock().advance(1);
    EXPECT_THAT(reports(), ElementsAre("zf 1 done", "pt 1 done"));
    EXPECT_NEAR(pan(), 90, CLOSE);
    EXPECT_NEAR(tilt(), 20, CLOSE);
    EXPECT_EQ(zoom(), 8000);
    EXPECT_EQ(focus(), 3000);
}

TEST_F(PresetTest, StoresThePositionOfThisMomentUnderAName)
{
    command(moveTo(30, 12));
    command(lens(ZF_E_ZOOM_DIRECT_POS, 4000));
    clock().advance(500); // pan and tilt move on, so does the zoom
    const PT_POS_S stHead = head();
    const BU_S32 s32Zoom = zoom();
    EXPECT_EQ(PRESET_API_SetCur(7, "a name that is longer than the record has room for"), 0);
    clock().advance(5000);
    EXPECT_NE(head().u32PanPos, stHead.u32PanPos);

    PRESET_INFO_S stInfo{};
    ASSERT_EQ(PRESET_API_QueryById(7, &stInfo), 0);
    EXPECT_STREQ(stInfo.acName, "a name that is longer than the ");
    EXPECT_EQ(stInfo.s32PanPos, static_cast<BU_S32>(stHead.u32PanPos));
    EXPECT_EQ(stInfo.s32TiltPos, static_cast<BU_S32>(stHead.u32TiltPos));
    EXPECT_EQ(stInfo.s32ZoomPos, s32Zoom);

    const auto name = [](BU_S32 s32Preset) -> std::string {
        PRESET_INFO_S st{};
        return PRESET_API_QueryById(s32Preset, &st) == 0 ? st.acName : "none";
    };
    EXPECT_EQ(PRESET_API_SetCur(5, ""), 0);
    EXPECT_EQ(name(5), "Stored");
    EXPECT_EQ(PRESET_API_SetCur(8, nullptr), 0);
    EXPECT_EQ(name(8), "Preset8");
    EXPECT_EQ(PRESET_API_DeleteById(8), 0);
    EXPECT_EQ(name(8), "none");
    EXPECT_EQ(PRESET_API_DeleteById(8), 0);
    for (const BU_S32 s32Outside : {-2, -1, 1000}) {
        EXPECT_EQ(PRESET_API_SetCur(s32Outside, "x"), -1);
        EXPECT_EQ(PRESET_API_DeleteById(s32Outside), -1);
        EXPECT_EQ(PRESET_API_QueryById(s32Outside, &stInfo), -1);
    }
}

struct tagRECALL_CASE_S {
    const char *pcScript;
    std::vector<std::string> reports;
};
std::ostream &operator<<(std::ostream &out, const tagRECALL_CASE_S &st) { return out << st.pcScript; }

class Recalls : public PresetTest, public testing::WithParamInterface<tagRECALL_CASE_S>
{
};
TEST_P(Recalls, HaveTwoEndsOrWereSuperseded)
{
    run(GetParam().pcScript);
    clock().advance(60000);
    EXPECT_THAT(reports(), testing::UnorderedElementsAreArray(GetParam().reports));
}
// clang-format off
// At the greatest speed the head arrives before the zoom: pan 90 degrees at 120: 1.25 s; zoom 8000 at 6554 a second: 1.42 s.
INSTANTIATE_TEST_SUITE_P(Preset, Recalls, testing::ValuesIn<tagRECALL_CASE_S>({
    {"recall5#1=1",                     {"pt 1 done", "zf 1 done"}},
    {"recall5=0",                       {}},
    {"recall9#1=-1",                    {}}, // nothing stored
    {"recall-1#1=1",                    {"pt 1 done", "zf 1 done"}}, // home
    {"recall5#1 recall6#2",             {"superseded 1", "pt 2 done", "zf 2 done"}},
    {"recall5#1 left",                  {"superseded 1"}},
    {"recall5#1 stop",                  {"superseded 1"}},
    {"recall5#1 stop zoomstop focusstop", {"superseded 1"}},
    {"recall5#1 here#2",                {"superseded 1", "pt 2 done"}},
    {"aside#1 recall5#2",               {"pt 1 left", "pt 2 done", "zf 2 done"}},
    {"fast recall5#1 wait1260 wide",    {"pt 1 done", "superseded 1"}},
    {"fast recall5#1 wait1260 stop",    {"pt 1 done", "zf 1 done"}},
    {"autofocus recall5#1 near",        {"pt 1 done", "zf 1 done"}}, // a focus command is not part of it
    {"autofocus focus#1 recall5#2",     {"zf 1 left", "pt 2 done", "zf 2 done"}},
}));
// clang-format on

TEST_F(PresetTest, RecallsAtTheirPositionAndOfOtherSources)
{
    run("recall5#1 wait10000");
    reports().clear();
    run("recall5#2=1");
    EXPECT_THAT(reports(), IsEmpty());
    clock().advance(1);
    EXPECT_THAT(reports(), UnorderedElementsAre("pt 2 done", "zf 2 done"));
    int iData = 1;
    EXPECT_EQ(PRESET_API_GotoById(6, PT_CTRL_E_FROM_OTHER, &iData), 0);
    EXPECT_EQ(PRESET_API_GotoById(5, PT_CTRL_E_FROM_TKV_SUPERFINE, &iData), 0); // has no lens source
    EXPECT_EQ(PRESET_API_GotoById(5, PT_CTRL_E_FROM_BUTT, nullptr), -1);
    clock().advance(60000);
    EXPECT_EQ(reports().size(), 2u);
}

TEST_F(PresetTest, SpecialNumbersRunTheirHandlerInsteadOfAMove)
{
    static std::vector<std::string> listRuns;
    listRuns.clear();
    storeAt(80, 45, 0, 0, 1000);
    EXPECT_EQ(PRESET_API_QuerySpecialById(80), -1);
    const auto handler = [](void *pvUser) { listRuns.emplace_back(static_cast<const char *>(pvUser)); };
    char acFirst[] = "first", acSecond[] = "second";
    EXPECT_EQ(PRESET_API_RegisterIdInterrupt(80, "Special", handler, acFirst), 0);
    EXPECT_EQ(PRESET_API_RegisterIdInterrupt(80, "Special", handler, acSecond), 0);
    EXPECT_EQ(PRESET_API_RegisterIdInterrupt(81, "Empty", {}, nullptr), -1);

    int iData = 1;
    EXPECT_EQ(PRESET_API_GotoById(80, FROM, &iData), 0);
    EXPECT_THAT(listRuns, IsEmpty()) << "not on the caller's thread";
    clock().advance(10000);
    EXPECT_THAT(listRuns, ElementsAre("second"));
    EXPECT_THAT(reports(), IsEmpty());
    EXPECT_EQ(pan(), 0);
    EXPECT_EQ(PRESET_API_SetCur(80, "x"), -1);
    EXPECT_EQ(PRESET_API_QuerySpecialById(80), 0);
    EXPECT_EQ(PRESET_API_QuerySpecialById(81), -1);
}

TEST_F(PresetTest, HomeIsPreset0UnderItsName)
{
    storeAt(0, 40, 0, 2000, 1000);
    PRESET_API_GotoHome(PT_CTRL_E_FROM_REMOTE, nullptr);
    clock().advance(10000);
    EXPECT_NEAR(pan(), 0, CLOSE) << "an ordinary preset 0 is not home";

    CFG_STORE_SetPreset({0, "PresetHome", at(40), CENTRE, 2000, 1000});
    PRESET_API_GotoHome(PT_CTRL_E_FROM_REMOTE, nullptr);
    clock().advance(10000);
    EXPECT_NEAR(pan(), 40, CLOSE);
    EXPECT_EQ(zoom(), 2000);
}

TEST_F(PresetTest, StartsAtThePowerUpPosition)
{
    const struct {
        BU_S32 s32PowerUp;
        double dPan;
    } CASES[] = {{5, 90}, {6, -90}, {-1, 0}, {77, 0}};
    for (const auto &st : CASES) {
        PT_API_SetPowerUpPtzPos(0, st.s32PowerUp, BU_FALSE, BU_FALSE);
        BSP_PTProcInit(0, nullptr);
        EXPECT_EQ(PRESET_API_GotoPowerUpPosition(), 0);
        EXPECT_NEAR(pan(), st.dPan, CLOSE) << st.s32PowerUp;
    }
}

TEST_F(PresetTest, PicturePresetsAreSetsOfSettings)
{
    const auto sharpness = [] {
        BU_S32 s32 = -1;
        ISP_API_GetSharpness(0, &s32);
        return s32;
    };
    CFG_VALUE_INT_S stRange{};
    CFG_COM_GetIntParams("Sharpness", &stRange);
    const BU_S32 s32Own = stRange.s32Max;
    ISP_API_SetSharpness(0, s32Own, BU_FALSE, BU_FALSE);
    EXPECT_EQ(IMAGE_PRESET_API_GotoById(3, PT_CTRL_E_FROM_OTHER, nullptr), -1);
    EXPECT_EQ(IMAGEPRESET_API_SetCur(3, nullptr), 0);

    std::vector<BU_S32> listStyles;
    for (const BU_S32 s32Style : {-250, -1, -2, -3}) {
        EXPECT_EQ(IMAGE_PRESET_API_GotoById(s32Style, PT_CTRL_E_FROM_OTHER, nullptr), 0);
        EXPECT_EQ(IMAGE_PRESET_API_DeleteById(s32Style), -1);
        listStyles.push_back(sharpness());
    }
    EXPECT_EQ(listStyles.front(), stRange.s32Def);
    EXPECT_LT(listStyles[2], listStyles[0]);
    EXPECT_GT(listStyles[3], listStyles[1]);
    BU_S32 s32Stored = -1;
    ISP_API_GetSharpness(0, &s32Stored, BU_TRUE);
    EXPECT_EQ(s32Stored, listStyles.back()) << "a style is saved";

    EXPECT_EQ(IMAGE_PRESET_API_GotoById(3, PT_CTRL_E_FROM_OTHER, nullptr), 0);
    EXPECT_EQ(sharpness(), s32Own);
    EXPECT_EQ(IMAGE_PRESET_API_DeleteById(3), 0);
    EXPECT_EQ(IMAGE_PRESET_API_DeleteById(3), -1);
    EXPECT_EQ(IMAGE_PRESET_API_GotoById(3, PT_CTRL_E_FROM_OTHER, nullptr), -1);
    for (const BU_S32 s32Outside : {-1, 255}) EXPECT_EQ(IMAGEPRESET_API_SetCur(s32Outside, "x"), -1);
}
} // namespace
