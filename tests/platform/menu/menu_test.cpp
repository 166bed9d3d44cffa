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

#include <algorithm>
#include <atomic>
#include <thread>

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
class Menu : public MenuTest
{
protected:
    Menu()
    {
        OSD_MENU_InitOpensourceRes();
        const OSD_MENU_CFG_S stCfg{{0, 0, 0.2F, 1.0F / 3}, OSD_FORMAT_E_ARGB4444, BU_TRUE, BU_TRUE};
        EXPECT_EQ(OSD_MENU_InitSdkRes(&stCfg, menu_test::setParam, menu_test::dataZone, nullptr), 0);
        run();
        journal::effects();
    }
    ~Menu() override
    {
        CMD_MENU_OnlyCloseMenu();
        run();
    }
    void run() { clock().advance(0); }

    /// Pictures shown and taken away since the last call: "1" and "0".
    static std::string shown()
    {
        std::string strShown;
        for (const std::string &strEffect : journal::effects())
            if (strEffect.starts_with("MPP_OSD_OneToManyUpdateAllTarget(")) strShown += strEffect.at(33);
        return strShown;
    }
    std::string press(std::initializer_list<BU_S32 (*)()> keys)
    {
        for (const auto pfnKey : keys) {
            EXPECT_EQ(pfnKey(), 0);
            run();
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
    clock().advance(5000);
    EXPECT_EQ(shown(), "");
    ISP_API_SetContrast(0, 3, BU_FALSE, BU_TRUE); // a controller; the page shows it
    run();
    EXPECT_EQ(shown(), "1");
    ISP_API_SetGain(0, 3, BU_FALSE, BU_TRUE); // not on this page
    run();
    EXPECT_EQ(shown(), "");
    EXPECT_EQ(press({CMD_MENU_HandleMenuBtn}), "0");
    ISP_API_SetContrast(0, 4, BU_FALSE, BU_TRUE);
    run();
    EXPECT_EQ(shown(), "");
}

TEST_F(Menu, ABurstOfKeysAndChangesDrawsInOrder)
{
    CMD_MENU_HandleMenuBtn();
    CMD_MENU_HandeHomeBtn();
    CMD_MENU_HandeDownBtn();
    for (int i = 0; i < 3; ++i) CMD_MENU_HandeRightBtn();
    for (int i = 0; i < 1000; ++i) ISP_API_SetContrast(0, i % 15, BU_FALSE, BU_TRUE);
    run();
    EXPECT_EQ(confirmed().text(), "Brightness=8 Brightness=9 Brightness=10");
    EXPECT_LE(shown().size(), 8U);
}

TEST_F(Menu, ClosesWhenNobodyPressesAKey)
{
    press({CMD_MENU_HandleMenuBtn});
    clock().advance(59'999);
    EXPECT_EQ(CMD_MENU_GetMenuStatus(), 1);
    press({CMD_MENU_HandeDownBtn});
    clock().advance(59'999);
    EXPECT_EQ(CMD_MENU_GetMenuStatus(), 1);
    shown();
    clock().advance(1);
    EXPECT_EQ(CMD_MENU_GetMenuStatus(), 0);
    EXPECT_EQ(shown(), "0");
    EXPECT_EQ(CMD_MENU_HandeUpBtn(), -1);
    press({CMD_MENU_HandleMenuBtn});
    clock().advance(59'000); // counted from its opening, not from the earlier one
    EXPECT_EQ(CMD_MENU_GetMenuStatus(), 1);
}

TEST_F(Menu, ReturnLeadsOutOfTheFirstPageOnly)
{
    press({CMD_MENU_OnlyOpenMenu, CMD_MENU_HandeHomeBtn, CMD_MENU_OnlyReturnMenu});
    EXPECT_EQ(OSD_MENU_GetMenuStatus(), 1);
    press({OSD_MENU_ReturnMenu});
    EXPECT_EQ(OSD_MENU_GetMenuStatus(), 0);
    EXPECT_EQ(OSD_MENU_ReturnMenu(), -1);
}

TEST_F(Menu, TellsWhetherEnterOpensAPage)
{
    EXPECT_EQ(OSD_Menu_HasSubPage(), 0);
    press({CMD_MENU_OnlyOpenMenu});
    EXPECT_EQ(OSD_Menu_HasSubPage(), 1);
    press({CMD_MENU_HandeHomeBtn});
    EXPECT_EQ(OSD_Menu_HasSubPage(), 0);
    press({CMD_MENU_OnlyReturnMenu});
    EXPECT_EQ(OSD_Menu_HasSubPage(), 1);
    press({CMD_MENU_OnlyCloseMenu});
    EXPECT_EQ(OSD_Menu_HasSubPage(), 0);
}

TEST_F(Menu, DiagonalsCountAsUpAndDown)
{
    press({CMD_MENU_OnlyOpenMenu, CMD_MENU_HandeHomeBtn});
    EXPECT_EQ(press({CMD_MENU_HandeDownLeftBtn, CMD_MENU_HandeDownRightBtn, CMD_MENU_HandeUpRightBtn}), "111");
    EXPECT_EQ(press({CMD_MENU_HandeRightBtn}), "1");
    EXPECT_EQ(confirmed().text(), "Brightness=8");
    EXPECT_EQ(press({CMD_MENU_HandeUpLeftBtn, CMD_MENU_HandeUpBtn}), "11");
}

/// A held key as the remote sends it: press, steps, release.
TEST_F(Menu, AHeldKeyAppliesOnce)
{
    press({CMD_MENU_OnlyOpenMenu, CMD_MENU_HandeHomeBtn, CMD_MENU_HandeDownBtn, CMD_MENU_HandeLeftBtn,
           CMD_MENU_HandeLeftUpdateParam, CMD_MENU_HandeLeftUpdateParam, CMD_MENU_HandeLeftUpdateParam});
    EXPECT_EQ(confirmed().text(), "Brightness=6");
    press({CMD_MENU_HandeSetParam, CMD_MENU_HandeSetParam});
    EXPECT_EQ(confirmed().text(), "Brightness=6 Brightness=3");
}

/// Outside the menu; hanging, the camera goes the other way.
TEST_F(Menu, DirectionKeysDriveTheHeadAtTheSetSpeeds)
{
    PT_API_SetPanSpeed(0, 24, BU_FALSE, BU_FALSE);
    PT_API_SetTileSpeed(0, 1, BU_FALSE, BU_FALSE);
    for (const BU_S32 s32Mount : {1, 0}) {
        SYS_API_SetMountMode(s32Mount, BU_FALSE, BU_TRUE);
        journal::effects();
        for (const auto pfnKey : {CMD_PT_HandeUpBtn, CMD_PT_HandeDownBtn, CMD_PT_HandeLeftBtn, CMD_PT_HandeRightBtn})
            pfnKey(0);
        CMD_PT_StopMove();
        std::string strDone;
        for (const std::string &str : journal::effects())
            if (str.starts_with("BSP_PTCtrlMotion(2, {")) strDone += str.substr(21, str.find('}') - 21) + "; ";
        const auto moves = [](const std::string &strOne, const std::string &strOther) {
            const std::string strSpeeds = ", pan 12000, tilt 375; ";
            return strOne + strSpeeds + strOther + strSpeeds;
        };
        EXPECT_EQ(strDone, s32Mount ? moves("UP", "DOWN") + moves("LEFT", "RIGHT") + "STOP; "
                                    : moves("DOWN", "UP") + moves("RIGHT", "LEFT") + "STOP; ");
    }
}

TEST_F(Menu, FollowsTheOutputFormat)
{
    const auto size = [] {
        std::string strRect;
        for (const std::string &strEffect : journal::effects())
            if (strEffect.starts_with("MPP_MEM_AllocMem(")) strRect = strEffect;
        return strRect.substr(0, strRect.find(','));
    };
    press({CMD_MENU_OnlyOpenMenu});
    journal::effects();
    SYSTEM_API_SetHdmiFormat("Format-4K", BU_FALSE);
    run();
    EXPECT_EQ(size(), "MPP_MEM_AllocMem(1105920"); // 768 x 720 x 2
    SYSTEM_API_SetHdmiFormat("Format-720P", BU_FALSE);
    run();
    EXPECT_EQ(size(), "MPP_MEM_AllocMem(122880"); // 256 x 240 x 2
}

TEST_F(Menu, PromptsShowForAMomentWhenTheyAreOn)
{
    EXPECT_EQ(PROMPT_API_ShowIpaddr(nullptr), -1);
    EXPECT_EQ(PROMPT_API_ShowIpaddr("192.168.100.100"), 0);
    run();
    EXPECT_EQ(shown(), "1");
    clock().advance(4000);
    EXPECT_EQ(PROMPT_API_ShowHdmiInfo(), 0);
    clock().advance(4999);
    EXPECT_EQ(shown(), "1");
    clock().advance(1);
    EXPECT_EQ(shown(), "0");
    SYS_API_SetPrompt(BU_FALSE, BU_FALSE, BU_TRUE);
    EXPECT_EQ(PROMPT_API_ShowIpaddr("192.168.100.100"), -1);
    EXPECT_EQ(PROMPT_API_ShowIpaddr(std::string(10000, '9').c_str()), -1);
    SYS_API_SetPrompt(BU_TRUE, BU_FALSE, BU_TRUE);
    EXPECT_EQ(PROMPT_API_ShowIpaddr(std::string(10000, '9').c_str()), 0);
    run();
    EXPECT_EQ(shown(), "1");
}

TEST_F(Menu, TheStatusLineGoesWithItsSetting)
{
    OSD_PROMPT_Init();
    run();
    EXPECT_EQ(shown(), "1");
    SYS_API_SetPrompt(BU_FALSE, BU_FALSE, BU_TRUE);
    clock().advance(250);
    EXPECT_EQ(shown(), "0");
    clock().advance(5000);
    EXPECT_EQ(shown(), "");
    SYS_API_SetPrompt(BU_TRUE, BU_FALSE, BU_TRUE);
    clock().advance(250);
    EXPECT_EQ(shown(), "1");
    SYS_API_SetPrompt(BU_FALSE, BU_FALSE, BU_TRUE);
    clock().advance(250);
}
} // namespace

/// Many controllers at once, with real time and the menu's own thread.
TEST(MenuThreads, KeysOfManyThreadsLeaveAMenuThatWorks)
{
    CFG_STORE_Open(nullptr);
    CFG_SETTING_Reload();
    const OSD_MENU_CFG_S stCfg{{0, 0, 0.2F, 0.3F}, OSD_FORMAT_E_ARGB4444, BU_FALSE, BU_TRUE};
    ASSERT_EQ(OSD_MENU_InitSdkRes(&stCfg, menu_test::setParam, menu_test::dataZone, nullptr), 0);
    BU_S32(*const apfnKeys[])
    () = {CMD_MENU_HandleMenuBtn,  CMD_MENU_HandeHomeBtn, CMD_MENU_HandeDownBtn,          CMD_MENU_HandeRightBtn,
          CMD_MENU_HandeUpBtn,     CMD_MENU_HandeLeftBtn, CMD_MENU_HandeRightUpdateParam, CMD_MENU_HandeSetParam,
          CMD_MENU_OnlyReturnMenu, CMD_MENU_OnlyOpenMenu, CMD_MENU_HandleAdvancedMenuBtn, OSD_Menu_HasSubPage};
    std::vector<std::jthread> threads;
    for (unsigned t = 0; t < 4; ++t)
        threads.emplace_back([&, t] {
            for (unsigned i = 0; i < 60; ++i) {
                apfnKeys[(i * 7 + t * 5) % std::size(apfnKeys)]();
                ISP_API_SetContrast(0, static_cast<BU_S32>(i % 15), BU_FALSE, BU_TRUE);
            }
        });
    threads.clear();
    CMD_MENU_OnlyCloseMenu();
    CMD_MENU_OnlyOpenMenu();
    await([] { return OSD_Menu_HasSubPage() == 1; }); // the keys before it have been worked off
    EXPECT_EQ(CMD_MENU_GetMenuStatus(), 1);
    CMD_MENU_OnlyCloseMenu();
    await([] { return OSD_Menu_HasSubPage() == 0; });
}
