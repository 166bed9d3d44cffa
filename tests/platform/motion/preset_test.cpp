// Presets: what is stored, what a recall brings back, how it ends; power-up position, special numbers, picture presets.
#include "motionTest.h"

#include "camera/image.h"
#include "config/config.h"

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;

struct PresetTest : MotionTest {
    PresetTest() { begin(); }
    void begin()
    {
        start();
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
    run("recall5#1=1 wait1749");
    EXPECT_THAT(reports(), ElementsAre("zf 1 done")); // 8000 at 6554 a second
    run("wait1 at90 zoomed8000 focused3000");
    EXPECT_THAT(reports(), ElementsAre("zf 1 done", "pt 1 done"));
    EXPECT_NEAR(tilt(), 20, CLOSE);
}

TEST_F(PresetTest, StoresThePositionOfThisMomentUnderAName)
{
    const auto query = [](BU_S32 s32Preset) {
        PRESET_INFO_S st{};
        return PRESET_API_QueryById(s32Preset, &st) == 0
                   ? std::tuple(std::string(st.acName), st.s32PanPos, st.s32TiltPos, st.s32ZoomPos)
                   : std::tuple(std::string("none"), -1, -1, -1);
    };
    command(moveTo(30, 12));
    run("zoom4000 wait500"); // pan and tilt move on, so does the zoom
    const auto stNow = std::tuple(std::string("a name that is longer than the "), static_cast<BU_S32>(head().u32PanPos),
                                  static_cast<BU_S32>(head().u32TiltPos), zoom());
    EXPECT_EQ(PRESET_API_SetCur(7, "a name that is longer than the record has room for"), 0);
    run("wait5000 at30");
    EXPECT_EQ(query(7), stNow);
    EXPECT_EQ(PRESET_API_SetCur(5, "") + PRESET_API_SetCur(8, nullptr), 0);
    EXPECT_EQ(std::get<0>(query(5)), "Stored");
    EXPECT_EQ(std::get<0>(query(8)), "Preset8");
    EXPECT_EQ(PRESET_API_DeleteById(8) + PRESET_API_DeleteById(8), 0);
    for (const BU_S32 s32Outside : {-2, -1, 1000}) {
        EXPECT_EQ(PRESET_API_SetCur(s32Outside, "x"), -1);
        EXPECT_EQ(PRESET_API_DeleteById(s32Outside), -1);
    }
    for (const BU_S32 s32None : {8, -2, -1, 1000}) EXPECT_EQ(std::get<0>(query(s32None)), "none");
}

// clang-format off
// At the greatest speed the head arrives before the zoom: 90 degrees at 120: 1.25 s; 8000 at 6554 a second: 1.42 s.
TEST_F(PresetTest, RecallsHaveTwoEndsOrWereSuperseded)
{
    const std::pair<const char *, std::vector<std::string>> ROWS[] = {
        {"recall5#1=1", {"pt 1 done", "zf 1 done"}}, {"recall5=0", {}}, {"recall9#1=-1", {}}, // nothing stored
        {"recall-1#1=1", {"pt 1 done", "zf 1 done"}}, // home
        {"recall5#1 recall6#2", {"superseded 1", "pt 2 done", "zf 2 done"}}, {"recall5#1 left", {"superseded 1"}},
        {"recall5#1 stop", {"superseded 1"}}, {"recall5#1 stop zoomstop focusstop", {"superseded 1"}},
        {"recall5#1 to0#2", {"superseded 1", "pt 2 done"}},
        {"to-20#1 recall5#2", {"pt 1 left", "pt 2 done", "zf 2 done"}},
        {"fast recall5#1 wait1260 wide", {"pt 1 done", "superseded 1"}},
        {"fast recall5#1 wait1260 stop", {"pt 1 done", "zf 1 done"}},
        {"auto recall5#1 near", {"pt 1 done", "zf 1 done"}}, // a focus command is not part of it
        {"auto focus5000#1 recall5#2", {"zf 1 left", "pt 2 done", "zf 2 done"}},
        {"recall5 wait10000 recall5#2=1", {"pt 2 done", "zf 2 done"}}, // at its position
    };
    for (const auto &[pcScript, list] : ROWS) {
        begin();
        run(pcScript);
        run("wait60000");
        EXPECT_THAT(reports(), testing::UnorderedElementsAreArray(list)) << pcScript;
    }
}
// clang-format on

TEST_F(PresetTest, RecallsOfOtherSourcesAreNotReported)
{
    int iData = 1;
    EXPECT_EQ(PRESET_API_GotoById(6, PT_CTRL_E_FROM_OTHER, &iData), 0);
    EXPECT_EQ(PRESET_API_GotoById(5, PT_CTRL_E_FROM_TKV_SUPERFINE, &iData), 0); // has no lens source
    EXPECT_EQ(PRESET_API_GotoById(5, PT_CTRL_E_FROM_BUTT, nullptr), -1);
    run("wait60000");
    EXPECT_THAT(reports(), IsEmpty());
}

TEST_F(PresetTest, SpecialNumbersRunTheirHandlerInsteadOfAMove)
{
    static std::vector<std::string> listRuns;
    listRuns.clear();
    storeAt(80, 45, 0, 0, 1000);
    EXPECT_EQ(PRESET_API_QuerySpecialById(80), -1);
    const auto handler = [](void *pvUser) { listRuns.emplace_back(static_cast<const char *>(pvUser)); };
    char acFirst[] = "first", acSecond[] = "second";
    for (char *pcUser : {acFirst, acSecond})
        EXPECT_EQ(PRESET_API_RegisterIdInterrupt(80, "Special", handler, pcUser), 0);
    EXPECT_EQ(PRESET_API_RegisterIdInterrupt(81, "Empty", {}, nullptr), -1);

    run("recall80#1=0");
    EXPECT_THAT(listRuns, IsEmpty()) << "not on the caller's thread";
    run("wait10000 at0");
    EXPECT_THAT(listRuns, ElementsAre("second"));
    EXPECT_THAT(reports(), IsEmpty());
    EXPECT_EQ(PRESET_API_SetCur(80, "x"), -1);
    EXPECT_EQ(PRESET_API_QuerySpecialById(80), 0);
    EXPECT_EQ(PRESET_API_QuerySpecialById(81), -1);
}

TEST_F(PresetTest, HomeIsPreset0UnderItsName)
{
    for (const auto &[pcName, pcThen] :
         {std::pair("Ordinary", "wait10000 at0"), {"PresetHome", "wait10000 at40 zoomed2000"}}) {
        CFG_STORE_SetPreset({0, pcName, at(40), CENTRE, 2000, 1000});
        PRESET_API_GotoHome(PT_CTRL_E_FROM_REMOTE, nullptr);
        run(pcThen);
    }
}

TEST_F(PresetTest, StartsAtThePowerUpPosition)
{
    for (const auto &[s32PowerUp, dPan] : {std::pair(5, 90.0), {6, -90.0}, {-1, 0.0}, {77, 0.0}}) {
        PT_API_SetPowerUpPtzPos(0, s32PowerUp, BU_FALSE, BU_FALSE);
        BSP_PTProcInit(0, nullptr);
        EXPECT_EQ(PRESET_API_GotoPowerUpPosition(), 0);
        EXPECT_NEAR(pan(), dPan, CLOSE) << s32PowerUp;
    }
}

TEST_F(PresetTest, PicturePresetsAreSetsOfSettings)
{
    const auto valueOf = [](const BU_CHAR *pcKey, BU_BOOL bReread) {
        BU_S32 s32 = -1;
        CFG_SETTING_Get(pcKey, 0, &s32, bReread);
        return s32;
    };
    const auto recall = [](BU_S32 s32Id) { return IMAGE_PRESET_API_GotoById(s32Id, PT_CTRL_E_FROM_OTHER, nullptr); };
    ISP_API_SetSharpness(0, 15, BU_FALSE, BU_FALSE);
    EXPECT_EQ(recall(3), -1);
    EXPECT_EQ(IMAGEPRESET_API_SetCur(3, nullptr), 0);

    // clang-format off
    const std::pair<BU_S32, std::vector<BU_S32>> rows[] = { // what each style stores
        {-250, {6, 7, 7, 7, 7, 0, 2, 3}}, {-1, {7, 7, 8, 7, 7, 1, 2, 3}},
        {-2, {4, 7, 5, 6, 7, 2, 2, 3}}, {-3, {8, 7, 9, 9, 7, 0, 2, 3}}};
    // clang-format on
    for (const auto &[s32Style, expected] : rows) {
        EXPECT_EQ(recall(s32Style), 0);
        EXPECT_EQ(IMAGE_PRESET_API_DeleteById(s32Style), -1);
        std::vector<BU_S32> values;
        for (const char *pcKey : {"Sharpness", "Brightness", "Contrast", "Saturation", "Hue", "Gamma", "Nr2d", "Nr3d"})
            values.push_back(valueOf(pcKey, BU_TRUE));
        EXPECT_EQ(values, expected) << s32Style;
    }
    EXPECT_EQ(recall(3), 0);
    EXPECT_EQ(valueOf("Sharpness", BU_FALSE), 15);
    for (const BU_S32 s32Result : {0, -1}) EXPECT_EQ(IMAGE_PRESET_API_DeleteById(3), s32Result);
    EXPECT_EQ(recall(3), -1);
    for (const BU_S32 s32Outside : {-1, 255}) EXPECT_EQ(IMAGEPRESET_API_SetCur(s32Outside, "x"), -1);
}
} // namespace
