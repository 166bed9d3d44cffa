// The menu as its callers see it: status, keys, time-out, what is drawn and when.
#include "camera/image.h"
#include "camera/menu.h"
#include "camera/motion.h"
#include "camera/picture.h"
#include "camera/preset.h"
#include "camera/video.h"
#include "menuTest.h"
#include "scene/scene.h"
#include "support/await.h"

#include <regex>
#include <thread>

using namespace std::string_literals;

namespace
{
struct Menu : MenuTest {
    Menu()
    {
        OSD_MENU_InitOpensourceRes();
        const OSD_MENU_CFG_S stCfg{{0, 0, 0.2F, 1.0F / 3}, OSD_FORMAT_E_ARGB4444, BU_TRUE, BU_TRUE};
        EXPECT_EQ(OSD_MENU_InitSdkRes(&stCfg, menu_test::setParam, menu_test::dataZone, nullptr), 0);
        press({});
    }
    ~Menu() override { press({CMD_MENU_OnlyCloseMenu}); }
    /// Pictures shown and taken away since the last call, after some time: "1" and "0".
    std::string shown(BU_S64 s64Ms = 0)
    {
        clock().advance(s64Ms);
        std::string strShown;
        for (const std::string &strEffect : journal::effects())
            if (strEffect.starts_with("MPP_OSD_OneToManyUpdateAllTarget(")) strShown += strEffect.at(33);
        return strShown;
    }
    std::string press(std::initializer_list<BU_S32 (*)()> keys)
    {
        for (const auto pfnKey : keys) {
            EXPECT_EQ(pfnKey(), 0);
            clock().advance(0);
        }
        return shown();
    }
};

TEST_F(Menu, DrawsOnlyWhatChanges)
{
    EXPECT_EQ(press({CMD_MENU_HandleMenuBtn}), "1");
    EXPECT_EQ(press({CMD_MENU_OnlyOpenMenu, CMD_MENU_HandeLeftBtn, CMD_MENU_HandeSetParam}), "");
    EXPECT_EQ(press({OSD_MENU_RefreshCurrentPage, OSD_MENU_RefreshCurrentPage}), "");
    EXPECT_EQ(press({CMD_MENU_HandeDownBtn, CMD_MENU_HandeUpBtn}), "11");
    EXPECT_EQ(press({CMD_MENU_HandeHomeBtn, CMD_MENU_HandeDownBtn}), "11");
    EXPECT_EQ(shown(5000), "");
    ISP_API_SetContrast(0, 3, BU_FALSE, BU_TRUE); // a controller; the page shows it
    EXPECT_EQ(shown(), "1");
    ISP_API_SetGain(0, 3, BU_FALSE, BU_TRUE); // not on this page
    EXPECT_EQ(shown(), "");
    EXPECT_EQ(press({CMD_MENU_HandleMenuBtn}), "0");
    ISP_API_SetContrast(0, 4, BU_FALSE, BU_TRUE);
    EXPECT_EQ(shown(), "");
}

TEST_F(Menu, ABurstOfKeysAndChangesDrawsInOrder)
{
    for (const auto pfnKey : {CMD_MENU_HandleMenuBtn, CMD_MENU_HandeHomeBtn, CMD_MENU_HandeDownBtn}) pfnKey();
    for (int i = 0; i < 3; ++i) CMD_MENU_HandeRightBtn();
    for (int i = 0; i < 1000; ++i) ISP_API_SetContrast(0, i % 15, BU_FALSE, BU_TRUE);
    EXPECT_LE(shown().size(), 8U);
    EXPECT_EQ(confirmed(), "Brightness=8 Brightness=9 Brightness=10");
}

TEST_F(Menu, ClosesWhenNobodyPressesAKey)
{
    const auto statusAfter = [&](BU_S64 s64Ms) { return clock().advance(s64Ms), CMD_MENU_GetMenuStatus(); };
    press({CMD_MENU_HandleMenuBtn});
    EXPECT_EQ(statusAfter(59'999), 1);
    EXPECT_EQ(press({CMD_MENU_HandeDownBtn}), "1");
    EXPECT_EQ(statusAfter(59'999), 1);
    EXPECT_EQ(statusAfter(1), 0);
    EXPECT_EQ(shown(), "0");
    EXPECT_EQ(CMD_MENU_HandeUpBtn(), -1);
    press({CMD_MENU_HandleMenuBtn});
    EXPECT_EQ(statusAfter(59'000), 1); // counted from its opening, not from the earlier one
}

TEST_F(Menu, TellsWhetherItIsOpenAndWhetherEnterOpensAPage)
{
    // clang-format off
    const struct { BU_S32 (*pfnKey)(); BU_S32 s32Open, s32SubPage; } rows[] = {
        {CMD_MENU_OnlyCloseMenu, 0, 0}, {CMD_MENU_OnlyOpenMenu, 1, 1}, {CMD_MENU_HandeHomeBtn, 1, 0},
        {OSD_MENU_ReturnMenu, 1, 1}, {CMD_MENU_OnlyReturnMenu, 0, 0}, {CMD_MENU_OnlyOpenMenu, 1, 1},
        {CMD_MENU_HandeHomeBtn, 1, 0}, {CMD_MENU_OnlyCloseMenu, 0, 0},
        {CMD_MENU_HandleAdvancedMenuBtn, 1, 1}, {CMD_MENU_HandleMenuBtn, 0, 0}}; // leaves the advanced pages as well
    // clang-format on
    for (const auto &row : rows) {
        press({row.pfnKey});
        EXPECT_EQ(OSD_MENU_GetMenuStatus(), row.s32Open) << &row - rows;
        EXPECT_EQ(CMD_MENU_GetMenuStatus(), row.s32Open) << &row - rows;
        EXPECT_EQ(OSD_Menu_HasSubPage(), row.s32SubPage) << &row - rows;
        EXPECT_EQ(CMD_MENU_HandeSetParam(), row.s32Open - 1) << &row - rows;
    }
    for (const auto pfnKey : {CMD_MENU_HandeHomeBtn, CMD_MENU_HandeUpBtn, CMD_MENU_HandeDownRightBtn,
                              CMD_MENU_HandeLeftUpdateParam, OSD_MENU_ReturnMenu})
        EXPECT_EQ(pfnKey(), -1);
}

TEST_F(Menu, DiagonalsCountAsUpAndDown)
{
    press({CMD_MENU_OnlyOpenMenu, CMD_MENU_HandeHomeBtn});
    EXPECT_EQ(press({CMD_MENU_HandeDownLeftBtn, CMD_MENU_HandeDownRightBtn, CMD_MENU_HandeUpRightBtn,
                     CMD_MENU_HandeRightBtn, CMD_MENU_HandeUpLeftBtn, CMD_MENU_HandeUpBtn}),
              "111111");
    EXPECT_EQ(confirmed(), "Brightness=8");
}

/// A held key as the remote sends it: press, steps, release.
TEST_F(Menu, AHeldKeyAppliesOnce)
{
    press({CMD_MENU_OnlyOpenMenu, CMD_MENU_HandeHomeBtn, CMD_MENU_HandeDownBtn, CMD_MENU_HandeLeftBtn,
           CMD_MENU_HandeLeftUpdateParam, CMD_MENU_HandeLeftUpdateParam, CMD_MENU_HandeLeftUpdateParam});
    EXPECT_EQ(confirmed(), "Brightness=6");
    press({CMD_MENU_HandeSetParam, CMD_MENU_HandeSetParam});
    EXPECT_EQ(confirmed(), "Brightness=3");
}

/// Outside the menu; hanging, the camera goes the other way.
TEST_F(Menu, DirectionKeysDriveTheHeadAtTheSetSpeeds)
{
    PT_API_SetPanSpeed(0, 24, BU_FALSE, BU_FALSE);
    PT_API_SetTileSpeed(0, 1, BU_FALSE, BU_FALSE);
    for (const auto &[s32Mount, strExpected] : {std::pair{1, "UP DOWN LEFT RIGHT"}, {0, "DOWN UP RIGHT LEFT"}}) {
        SYS_API_SetMountMode(s32Mount, BU_FALSE, BU_TRUE);
        journal::effects();
        for (const auto pfnKey : {CMD_PT_HandeUpBtn, CMD_PT_HandeDownBtn, CMD_PT_HandeLeftBtn, CMD_PT_HandeRightBtn})
            pfnKey(0);
        CMD_PT_StopMove();
        std::string strDone;
        for (const std::string &str : journal::effects())
            if (str.starts_with("BSP_PTCtrlMotion(2, {")) strDone += str.substr(21, str.find('}') - 21) + " ";
        EXPECT_EQ(std::regex_replace(strDone, std::regex(", pan 12000, tilt 375"), ""), strExpected + " STOP "s);
    }
}

TEST_F(Menu, FollowsTheOutputFormat)
{
    press({CMD_MENU_OnlyOpenMenu});
    for (const auto &[pcFormat, pcSize] : {std::pair{"Format-4K", "1105920,"}, {"Format-720P", "122880,"}}) {
        journal::effects(); // 768 x 720 x 2, 256 x 240 x 2
        SYSTEM_API_SetHdmiFormat(pcFormat, BU_FALSE);
        clock().advance(0);
        EXPECT_THAT(journal::effects(),
                    testing::Contains(testing::StartsWith(std::string("MPP_MEM_AllocMem(") + pcSize)));
    }
}

TEST_F(Menu, PromptsShowForAMomentWhenTheyAreOn)
{
    EXPECT_EQ(PROMPT_API_ShowIpaddr(nullptr), -1);
    EXPECT_EQ(PROMPT_API_ShowIpaddr("192.168.100.100"), 0);
    EXPECT_EQ(shown(), "1");
    EXPECT_EQ(shown(4000), "");
    EXPECT_EQ(PROMPT_API_ShowHdmiInfo(), 0);
    EXPECT_EQ(shown(4999), "1");
    EXPECT_EQ(shown(1), "0");
    for (const bool bOn : {false, true}) {
        SYS_API_SetPrompt(bOn, BU_FALSE, BU_TRUE);
        for (const std::string &str : {std::string("192.168.100.100"), std::string(10000, '9')})
            EXPECT_EQ(PROMPT_API_ShowIpaddr(str.c_str()), bOn - 1);
    }
    EXPECT_THAT(shown(), testing::EndsWith("1"));
}

TEST_F(Menu, TheStatusLineGoesWithItsSetting)
{
    OSD_PROMPT_Init();
    EXPECT_EQ(shown(), "1");
    for (const bool bOn : {false, true, false}) {
        SYS_API_SetPrompt(bOn, BU_FALSE, BU_TRUE);
        EXPECT_EQ(shown(250), bOn ? "1" : "0");
        EXPECT_EQ(shown(bOn ? 0 : 5000), "");
    }
}
} // namespace

/// Many controllers at once, with real time and the menu's own thread.
TEST_F(FreshDevice, KeysOfManyThreadsLeaveAMenuThatWorks)
{
    const OSD_MENU_CFG_S stCfg{{0, 0, 0.2F, 0.3F}, OSD_FORMAT_E_ARGB4444, BU_FALSE, BU_TRUE};
    ASSERT_EQ(OSD_MENU_InitSdkRes(&stCfg, menu_test::setParam, menu_test::dataZone, nullptr), 0);
    // clang-format off
    BU_S32 (*const apfnKeys[])() = {
        CMD_MENU_HandleMenuBtn, CMD_MENU_HandeHomeBtn, CMD_MENU_HandeDownBtn, CMD_MENU_HandeRightBtn,
        CMD_MENU_HandeUpBtn, CMD_MENU_HandeLeftBtn, CMD_MENU_HandeRightUpdateParam, CMD_MENU_HandeSetParam, CMD_MENU_OnlyReturnMenu,
        CMD_MENU_OnlyOpenMenu, CMD_MENU_HandleAdvancedMenuBtn, OSD_Menu_HasSubPage};
    // clang-format on
    std::vector<std::jthread> threads;
    for (unsigned t = 0; t < 4; ++t)
        threads.emplace_back([&, t] {
            for (unsigned i = 0; i < 60; ++i) {
                apfnKeys[(i * 7 + t * 5) % std::size(apfnKeys)]();
                ISP_API_SetContrast(0, static_cast<BU_S32>(i % 15), BU_FALSE, BU_TRUE);
            }
        });
    threads.clear();
    CMD_MENU_OnlyCloseMenu(), CMD_MENU_OnlyOpenMenu();
    await([] { return OSD_Menu_HasSubPage() == 1; }); // the keys before it have been worked off
    EXPECT_EQ(CMD_MENU_GetMenuStatus(), 1);
    CMD_MENU_OnlyCloseMenu();
    await([] { return OSD_Menu_HasSubPage() == 0; });
}
