// What web servers ask beside the events, and the news that they get.
#include "camera/image.h"
#include "camera/menu.h"
#include "camera/picture.h"
#include "camera/preset.h"
#include "camera/startup.h"
#include "camera/zoom.h"
#include "media/pipeline.h"
#include "platform/web_rpc/peer.h"
#include "questions.h"
#include "web/web.h"
#include "webTest.h"
#include "web_client/client.h"

#include <fstream>

namespace
{
using testing::ElementsAre;
using testing::HasSubstr;

class Api : public WebTest
{
protected:
    Api()
    {
        BSP_PTProcInit(0, nullptr);
        ZF_API_StartService();
        BSP_StartHttpService();
        m_peer.emplace();
        heard(); // the service knows of it
    }
    ~Api() override
    {
        UTIL_THREAD_WaitAsync();
        BSP_StopHttpService();
    }
    static std::string ask(const std::string &strQuestion, const std::string &strJson = "",
                           BU_S32 s32Result = WEB_CLIENT_RESULT_E_OK)
    {
        const auto result = web_rpc::answerQuestion(strQuestion, strJson);
        EXPECT_EQ(result.s32Result, s32Result) << result.strBytes;
        return result.strBytes;
    }
    /// The news since the last time.
    Effects heard()
    {
        UTIL_THREAD_WaitAsync();
        m_peer->ask(1, "position"); // its answer comes behind the news
        Effects news;
        for (auto st = m_peer->receive(); st.enKind == web_client::Kind::NEWS; st = m_peer->receive())
            news.push_back(st.strBytes);
        return news;
    }
    void lookAt(double dPan, double dTilt, double dZoom)
    {
        PT_MOTION_CTRL_S stHead{};
        stHead.enMotionType = PT_MOTION_E_ABS_POS;
        stHead.stPos = {static_cast<BU_U32>(540000 + dPan * 1500), static_cast<BU_U32>(540000 + dTilt * 1500)};
        EXPECT_EQ(BSP_PTCtrlMotion(PT_CTRL_E_FROM_OTHER, &stHead, nullptr), 1);
        PTZ_API_SetZoomTime(0, static_cast<BU_FLOAT>(dZoom), 7);
        clock().advance(30'000);
    }
    static std::string pictureOf(BU_S32 s32Preset)
    {
        std::ifstream in(UTIL_ROOT_Path(("/var/web/presets/" + std::to_string(s32Preset) + ".jpg").c_str()));
        return {std::istreambuf_iterator<char>(in), {}};
    }

private:
    std::optional<Peer> m_peer;
};

TEST_F(Api, SettingsComeWithRangeWordsAndBothPipesAndAreToldWhenAnnounced)
{
    ISP_API_SetGain(1, 5, BU_FALSE, BU_FALSE);
    const std::string strAnswer = ask("settings");
    for (const char *pcEntry :
         {R"("key":"Gain","max":27,"min":0,"pipe":0,"step":1,"value":0})",
          R"("key":"Gain","max":27,"min":0,"pipe":1,"step":1,"value":5})",
          R"({"default":5600,"key":"ColorTemp","max":6500,"min":2800,"pipe":0,"step":100,"value":5600})",
          R"("pipe":0,"step":1,"value":0,"words":[{"value":0,"word":"Off"},{"value":1,"word":"On"}]})",
          R"({"value":2,"word":"ShutterFirst"})"})
        EXPECT_THAT(strAnswer, HasSubstr(pcEntry));
    EXPECT_LT(strAnswer.size(), web_client::FROM_CAMERA_MAX / 2);
    ISP_API_SetGain(1, 9, BU_FALSE, BU_TRUE);
    EXPECT_THAT(heard(), ElementsAre(R"({"setting":"Gain","pipe":1,"value":9})"));
}

TEST_F(Api, PresetsAreListedWhateverTheirNames)
{
    EXPECT_EQ(ask("presets"), "[]");
    CFG_STORE_SetPreset({7, "Stage \"left\"\x01\xFF", 0, 0, 0, 0});
    CFG_STORE_SetPreset({2, "Preset2", 0, 0, 0, 0});
    EXPECT_EQ(ask("presets"), R"([{"id":2,"name":"Preset2","picture":0},)"
                              "{\"id\":7,\"name\":\"Stage \\\"left\\\" \xEF\xBF\xBD\",\"picture\":0}]");
    for (BU_S32 i = 0; i < 1000; ++i) CFG_STORE_SetPreset({i, std::string(31, '"'), 0, 0, 0, 0});
    EXPECT_LT(ask("presets").size(), web_client::FROM_CAMERA_MAX) << "as long as it can become";
}

TEST_F(Api, APresetIsToldAndItsPictureComesAndGoesWithIt)
{
    journal::inject("MPP_SnapImage", -1, 1);
    EXPECT_EQ(PRESET_API_SetCur(5, nullptr), 0);
    EXPECT_THAT(heard(), ElementsAre(R"({"preset":5})"));
    MPP_BUSINESS_CFG_S stCfg{};
    std::tie(stCfg.s32PipeCnt, stCfg.s32Width, stCfg.s32Height) = std::tuple(2, 640, 360);
    MPP_InitCfg(&stCfg);
    MPP_InitStream();
    journal::effects();
    PRESET_API_SetCur(3, "Door");
    EXPECT_THAT(heard(), ElementsAre(R"({"preset":3})", R"({"preset":3})")) << "once more when there is a picture";
    EXPECT_THAT(journal::effects(), testing::Contains(testing::StartsWith("MPP_SnapImage(0, 320, 180, 80, ")));
    EXPECT_THAT(pictureOf(3), testing::StartsWith("\xFF\xD8"));
    EXPECT_THAT(ask("presets"), testing::ContainsRegex(R"("Door","picture":[1-9])"));
    PRESET_API_DeleteById(3);
    EXPECT_THAT(heard(), ElementsAre(R"({"preset":3})"));
    EXPECT_EQ(pictureOf(3), "");
    BSP_StopHttpService();
    for (const char *pcName : {"/var/web/presets/5.jpg", "/var/web/presets/4.jpg"}) // of a preset; of none
        UTIL_FILE_WriteBufToFile(pcName, "x", 1);
    BSP_StartHttpService();
    EXPECT_EQ(pictureOf(5) + pictureOf(4), "x");
}

TEST_F(Api, PositionIsInDegreesAndToldAtMostFiveTimesASecondWhileItChanges)
{
    lookAt(-12.5, 30, 2);
    EXPECT_EQ(ask("position"), R"({"pan":-12.5,"tilt":30.0,"zoom":2.0})");
    EXPECT_EQ(heard().back(), R"({"position":{"pan":-12.5,"tilt":30.0,"zoom":2.0}})");
    const auto move = [this](PT_MOTION_TYPE_E enMotion, BU_S64 s64Ms) {
        PT_MOTION_CTRL_S stMotion{};
        stMotion.enMotionType = enMotion;
        stMotion.stSpd = {1000, 0};
        stMotion.u16SpdMul = 100;
        BSP_PTCtrlMotion(PT_CTRL_E_FROM_OTHER, &stMotion, nullptr);
        clock().advance(s64Ms);
    };
    move(PT_MOTION_E_RIGHT, 4000);
    EXPECT_THAT(heard(), testing::SizeIs(testing::AllOf(testing::Ge(18U), testing::Le(20U))));
    move(PT_MOTION_E_STOP, 1000);
    heard();
    clock().advance(10'000);
    EXPECT_THAT(heard(), testing::IsEmpty());
}

TEST_F(Api, MenuKeysAreForAnOpenMenu)
{
    const auto press = [](const std::string &strKey, BU_S32 s32Result = WEB_CLIENT_RESULT_E_OK) {
        return ask("menu", R"({"key":")" + strKey + "\"}", s32Result);
    };
    for (const char *pcKey : {"Up", "home", "menus"}) press(pcKey, WEB_CLIENT_RESULT_E_REFUSED);
    for (const char *pcKey : {"", "up", "down", "left", "right", "enter", "back"})
        EXPECT_EQ(press(pcKey), R"({"open":false,"taken":false})") << pcKey;
    // clang-format off
    for (const auto &[pcKey, pcCall] : {
             std::pair{"up", "HandeUpBtn"}, {"down", "HandeDownBtn"}, {"left", "HandeLeftBtn"}, {"right", "HandeRightBtn"},
             {"enter", "HandeHomeBtn"}, {"back", "OnlyReturnMenu"}, {"menu", "HandleMenuBtn"}}) {
        // clang-format on
        journal::inject(("CMD_MENU_" + std::string(pcCall)).c_str(), 0);
        EXPECT_EQ(press(pcKey), R"({"open":false,"taken":true})") << pcCall;
    }
}

TEST_F(Api, CentreTakesAPointOfThePictureAndComesAsNearAsTheHeadCan)
{
    for (const char *pcJson : {"", "{}", R"({"x":0.5})", R"({"x":"0.5","y":0.5})", R"({"x":-0.01,"y":0.5})",
                               R"({"x":0.5,"y":1.01})", R"({"x":1e400,"y":0.5})", R"({"x":null,"y":0.5})"})
        ask("centre", pcJson, WEB_CLIENT_RESULT_E_REFUSED);
    clock().advance(10'000);
    EXPECT_EQ(ask("position"), R"({"pan":0.0,"tilt":0.0,"zoom":1.0})") << "nothing has moved";
    journal::inject("PTZ_API_GetZoomTime", -1);
    ask("centre", "{\"x\":1,\"y\":0}", WEB_CLIENT_RESULT_E_REFUSED);
    lookAt(165, 85, 1);
    EXPECT_EQ(ask("centre", "{\"x\":1,\"y\":0}"), R"({"pan":170.0,"tilt":90.0})"); // 30 and 16.875 degrees on
    clock().advance(10'000);
    EXPECT_EQ(ask("position"), R"({"pan":170.0,"tilt":90.0,"zoom":1.0})");
}

TEST_F(Api, CentreComesToThePointThatThePictureShowsThere)
{
    // The field of view is 60 by 33.75 degrees, divided by the zoom; the head comes from 5 and 3 degrees.
    const std::tuple<const char *, double, bool, bool, bool, const char *> ROWS[] = {
        // zoom, mirror, flip, hangs
        {R"({"x":0.8,"y":0.3})", 1, false, false, false, R"({"pan":23.0,"tilt":9.75})"},
        {R"({"x":0.3,"y":0.2})", 4, false, false, false, R"({"pan":2.0,"tilt":5.53})"},
        {R"({"x":0.8,"y":0.3})", 1, true, false, false, R"({"pan":-13.0,"tilt":9.75})"},
        {R"({"x":0.3,"y":0.3})", 2, false, true, false, R"({"pan":-1.0,"tilt":-0.37})"},
        {R"({"x":0.8,"y":0.7})", 2, false, false, true, R"({"pan":-4.0,"tilt":6.37})"},
        {R"({"x":0.2,"y":0.3})", 2, true, false, true, R"({"pan":-4.0,"tilt":-0.37})"},
    };
    for (const auto &[pcPoint, dZoom, bMirror, bFlip, bHangs, pcGoal] : ROWS) {
        SYS_API_SetMirror(bMirror, BU_FALSE, BU_TRUE);
        SYS_API_SetFlip(bFlip, BU_FALSE, BU_TRUE);
        SYS_API_SetMountMode(!bHangs, BU_FALSE, BU_TRUE);
        lookAt(5, 3, dZoom);
        journal::effects();
        EXPECT_EQ(ask("centre", pcPoint), pcGoal) << dZoom << bMirror << bFlip << bHangs;
        EXPECT_THAT(journal::effects(), ElementsAre(testing::StartsWith("BSP_PTCtrlMotion(8, {ABS_POS ")));
    }
}
} // namespace
