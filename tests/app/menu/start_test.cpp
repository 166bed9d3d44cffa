// Start of the menu, what it tells in words, and the described menu against the service's table.
#include "board/profile.h"
#include "camera/image.h"
#include "camera/menu.h"
#include "camera/video.h"
#include "description.h"
#include "menu/menu.h"
#include "param.h"
#include "support/place.h"
#include "support/platformTest.h"

#include <algorithm>
#include <fstream>
#include <set>
#include <sstream>

using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

namespace
{
struct MenuStart : PlatformTest {
    MenuStart() { BSP_PROFILE_Load("TKV-MX"); }
    ~MenuStart() override { BSP_PROFILE_Load("TKV-MX"); }

    static std::string answer(OSD_MENU_GET_EVENT_E enEvent)
    {
        OSD_MENU_CONTROL_PARAM_S st{"unchanged"};
        OSD_MENU_EventHandler(nullptr, enEvent, &st);
        return st.acVersion;
    }
    static std::string shipped(const std::string &strFile)
    {
        std::ifstream file(place::source("platform/" + strFile));
        return (std::stringstream() << file.rdbuf()).str();
    }
    /// That of the TKV-MX with some more versions.
    void profile(const std::string &strVersions)
    {
        std::string strJson = shipped("board/profiles/TKV-MX.json");
        std::filesystem::create_directories(root() + "/app/profiles");
        std::ofstream(root() + "/app/profiles/own.json")
            << strJson.insert(strJson.find("\"isp\":"), strVersions + ", ");
        BSP_PROFILE_Load("own");
    }
};

TEST_F(MenuStart, GeometryFollowsTheModel)
{
    // clang-format off
    for (const auto &[pcModel, strCfg] : {std::pair{"TKV-MX", "0.2, 0.333333, 1, 1, 1"},
         {"QLS-500", "0.333333, 0.5, 1, 1, 0"}, {"minimal", "0.2, 0.333333, 1, 1, 0"}}) {
        // clang-format on
        BSP_PROFILE_Load(pcModel);
        journal::effects();
        EXPECT_EQ(OSD_MENU_RegisterModule(), 0);
        EXPECT_THAT(journal::effects(),
                    ElementsAre("OSD_MENU_InitSdkRes({0, 0, " + std::string(strCfg) + "}, 1, 1, NULL)",
                                "Osd_GetVersionCallback(1, NULL)", "OSD_PROMPT_Init()"));
    }
}

TEST_F(MenuStart, StopsAtTheFirstFailure)
{
    journal::inject("MPP_GetVoutCfg", -5);
    testing::internal::CaptureStdout();
    EXPECT_EQ(OSD_MENU_RegisterModule(), -5);
    EXPECT_THAT(testing::internal::GetCapturedStdout(), EndsWith("] call MPP_GetVoutCfg failed, ret:-5\n"));
    EXPECT_THAT(journal::effects(), IsEmpty());
    journal::inject("OSD_MENU_InitSdkRes", 3);
    EXPECT_EQ(OSD_MENU_RegisterModule(), -1);
    EXPECT_THAT(journal::effects(), ElementsAre(testing::StartsWith("OSD_MENU_InitSdkRes")));
}

TEST_F(MenuStart, FirmwareIsTheReleaseOfNdiAndTheCamerasBuild)
{
    // clang-format off
    for (const auto &[strNdi, strFirmware] : {std::pair<std::string, std::string>{"NDI SDK 2024 5.6.1", "5.6.12"},
         {"5.6.1", "5.6.12"}, {"NDI 5.6", "12"}, {"NDI 5", "12"}, {"NDI 5.6.1.9 ", "12"}, {"NDI 6.0.1.9", "6.0.12"}}) {
        // clang-format on
        profile("\"ndi\": \"" + strNdi + "\"");
        EXPECT_EQ(answer(OSD_MENU_GET_FW_E_VERSION_INFO), "Tarvolk_MX_" + strFirmware) << strNdi;
    }
}

TEST_F(MenuStart, TellsTheOutputAndTheKeysOfItsRate)
{
    // clang-format off
    for (const auto &[pcFormat, pcFps, pcText, strRate] : {std::tuple{"Format-1080P", "Fps59p94", "1080P59.94", "60"},
         {"Format-4K", "Fps50", "4K50", "50"}, {"Format-1080I", "Fps60", "1080I60", "60"},
         {"Format-720P", "Fps24", "720P24", "24"}}) {
        // clang-format on
        SYSTEM_API_SetHdmiCfg(pcFormat, pcFps, HDMI_CS_E_YUV422, BU_FALSE);
        EXPECT_EQ(answer(OSD_MENU_GET_DEV_E_VIDEO_INFO), pcText);
        EXPECT_EQ(answer(OSD_MENU_GET_SHUTTER_E_SPEED), std::string("ShutterSpeedFps") + strRate);
        EXPECT_EQ(answer(OSD_MENU_GET_SHUTTER_E_VALUE), std::string("ShutterValueFps") + strRate);
    }
}

TEST_F(MenuStart, TellsTheVersionsAndNothingItDoesNotKnow)
{
    profile(R"("af": "AF V2.1", "ai": "AI V3.2")");
    EXPECT_EQ(answer(OSD_MENU_GET_AF_E_VERSION_INFO), "AF V2.1");
    EXPECT_EQ(answer(OSD_MENU_GET_ISP_E_VERSION_INFO), "ISP V1.4.0");
    EXPECT_EQ(answer(OSD_MENU_GET_AI_E_VERSION_INFO), "AI V3.2");
    for (const BU_S32 s32Event : {5, 6, 7, 8, 9, 10, 11, 14, -1}) {
        testing::internal::CaptureStdout();
        EXPECT_EQ(answer(static_cast<OSD_MENU_GET_EVENT_E>(s32Event)), "unchanged") << s32Event;
        EXPECT_THAT(testing::internal::GetCapturedStdout(), EndsWith("] unknown event\n"));
    }
}

/// Items that the service does not know would only ever say "Not accepted".
TEST_F(MenuStart, TheServiceKnowsEveryDescribedItem)
{
    std::set<std::string> known;
    for (const MENU_PARAM_MAP_S &st : menu::paramTable()) known.insert(st.acParam);
    for (const auto &page : menu::readDescription(shipped("menu/menu.json")).listPages)
        for (const auto &item : page.listItems)
            EXPECT_TRUE(item.enKind == menu::Kind::PAGE || item.enKind == menu::Kind::INFO ||
                        known.contains(item.strKey))
                << item.strKey;
}

TEST_F(MenuStart, KeysReachTheSettingAndTheStore)
{
    OSD_MENU_InitOpensourceRes();
    ASSERT_EQ(OSD_MENU_RegisterModule(), 0);
    CMD_MENU_HandleMenuBtn();
    for (const auto pfnKey : {CMD_MENU_HandeHomeBtn, CMD_MENU_HandeDownBtn, CMD_MENU_HandeRightBtn}) pfnKey();
    journal::effects();
    clock().advance(0);
    EXPECT_THAT(journal::effects(), Contains("ISP_API_SetBrightness(0, 8, 1, 1)"));
    BU_S32 s32Stored = 0;
    EXPECT_EQ(CFG_STORE_GetInt("Image0/Brightness", &s32Stored), 0);
    EXPECT_EQ(s32Stored, 8);
    for (const auto pfnKey : {CMD_MENU_OnlyReturnMenu, CMD_MENU_HandeUpBtn, CMD_MENU_HandeHomeBtn}) pfnKey(); // exit
    clock().advance(0);
    EXPECT_EQ(CMD_MENU_GetMenuStatus(), 0);
}
} // namespace
