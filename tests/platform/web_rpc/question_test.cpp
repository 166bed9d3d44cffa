#include "camera/image.h"
#include "camera/motion.h"
#include "camera/preset.h"
#include "camera/system.h"
#include "camera/zoom.h"
#include "media/pipeline.h"
#include "scene/scene.h"
#include "webRpcTest.h"

#include <fstream>
#include <sstream>

namespace
{
using testing::HasSubstr;
using testing::Not;

class QuestionTest : public WebRpcTest
{
protected:
    QuestionTest() : WebRpcTest("", Time::MANUAL)
    {
        BSP_PTProcInit(0, nullptr);
        ZF_API_StartService();
    }
    std::string ask(const std::string &strQuestion, const std::string &strJson = "",
                    BU_S32 s32Result = WEB_CLIENT_RESULT_E_OK) const
    {
        m_peer.ask(1, strQuestion, strJson);
        const auto st = m_peer.answer();
        EXPECT_EQ(st.s32Result, s32Result) << st.strBytes;
        return st.strBytes;
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

private:
    Peer m_peer;
};

TEST_F(QuestionTest, SettingsComeWithRangeWordsAndBothPipes)
{
    ISP_API_SetGain(1, 5, BU_FALSE, BU_FALSE);
    const std::string strAnswer = ask("settings");
    for (const char *pcEntry :
         {R"({"default":0,"key":"Gain","max":27,"min":0,"pipe":0,"step":1,"value":0})",
          R"({"default":0,"key":"Gain","max":27,"min":0,"pipe":1,"step":1,"value":5})",
          R"({"default":5600,"key":"ColorTemp","max":6500,"min":2800,"pipe":0,"step":100,"value":5600})",
          R"("key":"BacklightCompensation","max":1,"min":0,"pipe":0,"step":1,"value":0,)"
          R"("words":[{"value":0,"word":"Off"},{"value":1,"word":"On"}]})",
          R"({"value":2,"word":"ShutterFirst"})"})
        EXPECT_TRUE(strAnswer.find(pcEntry) != std::string::npos) << pcEntry;
    EXPECT_LT(strAnswer.size(), web_rpc::FROM_CAMERA_MAX / 2);
}

TEST_F(QuestionTest, PresetsAreListedWhateverTheirNames)
{
    EXPECT_EQ(ask("presets"), "[]");
    CFG_STORE_SetPreset({7, "Stage \"left\"\x01\xFF", 0, 0, 0, 0});
    CFG_STORE_SetPreset({2, "Preset2", 0, 0, 0, 0});
    EXPECT_EQ(ask("presets"), R"([{"id":2,"name":"Preset2","picture":0},)"
                              "{\"id\":7,\"name\":\"Stage \\\"left\\\" \xEF\xBF\xBD\",\"picture\":0}]");
    for (BU_S32 i = 0; i < 1000; ++i) CFG_STORE_SetPreset({i, std::string(31, '"'), 0, 0, 0, 0});
    EXPECT_GT(ask("presets").size(), 90'000U) << "as long as it can become";
}

TEST_F(QuestionTest, PositionIsInDegrees)
{
    lookAt(-12.5, 30, 2);
    EXPECT_EQ(ask("position"), R"({"pan":-12.5,"tilt":30.0,"zoom":2.0})");
}

TEST_F(QuestionTest, CentreTakesAPointOfThePicture)
{
    for (const char *pcJson : {"", "{}", "{\"x\":0.5}", "{\"x\":\"0.5\",\"y\":0.5}", "{\"x\":-0.01,\"y\":0.5}",
                               "{\"x\":0.5,\"y\":1.01}", "{\"x\":1e400,\"y\":0.5}", "{\"x\":null,\"y\":0.5}",
                               "[0.5,0.5]", "{\"x\":0.5,\"y\":0.5", "nonsense", "{\"x\":[[[[0]]]],\"y\":0}"})
        ask("centre", pcJson, WEB_CLIENT_RESULT_E_REFUSED);
    clock().advance(10'000);
    EXPECT_EQ(ask("position"), R"({"pan":0.0,"tilt":0.0,"zoom":1.0})") << "nothing has moved";
}

TEST_F(QuestionTest, CentreComesAsNearAsTheHeadCan)
{
    lookAt(165, 85, 1);
    EXPECT_EQ(ask("centre", "{\"x\":1,\"y\":0}"), R"({"pan":170.0,"tilt":90.0})"); // 30 and 16.875 degrees on
    clock().advance(10'000);
    EXPECT_EQ(ask("position"), R"({"pan":170.0,"tilt":90.0,"zoom":1.0})");
}

constexpr BU_S32 WIDTH = 640, HEIGHT = 360;

/// The close-up as it is shown, without its tone: only where things are matters here.
std::vector<BU_U8> picture()
{
    SCENE_VIEW_S stView;
    PICTURE_SETTINGS_S stRunning, stPlain;
    EXPECT_EQ(PICTURE_ReadView(&stView), 0);
    EXPECT_EQ(PICTURE_ReadSettings(0, &stRunning), 0);
    stView.fDefocus = 0;
    stPlain.bMirror = stRunning.bMirror;
    stPlain.bFlip = stRunning.bFlip;
    std::vector<BU_U8> vec(WIDTH * HEIGHT * 3 / 2);
    PICTURE_STATE_S stState;
    SCENE_S *pstScene = SCENE_Open("synthetic");
    EXPECT_EQ(PICTURE_Render(pstScene, &stView, stPlain, stState, 0,
                             {vec.data(), vec.data() + WIDTH * HEIGHT, WIDTH, WIDTH, WIDTH, HEIGHT}),
              0);
    SCENE_Close(pstScene);
    return vec;
}

/// Where the patch around a point of one picture is found in another, within some pixels of its middle.
std::pair<int, int> find(const std::vector<BU_U8> &vecFrom, double x, double y, const std::vector<BU_U8> &vecIn)
{
    constexpr int HALF = 40, RANGE = 6;
    const int fromX = static_cast<int>(x * WIDTH), fromY = static_cast<int>(y * HEIGHT);
    std::pair<int, int> best;
    for (long least = -1, dy = -RANGE; dy <= RANGE; ++dy)
        for (long dx = -RANGE; dx <= RANGE; ++dx) {
            long difference = 0;
            for (int j = -HALF; j <= HALF; ++j)
                for (int i = -HALF; i <= HALF; ++i)
                    difference +=
                        std::abs(vecFrom[static_cast<std::size_t>((fromY + j) * WIDTH + fromX + i)] -
                                 vecIn[static_cast<std::size_t>((HEIGHT / 2 + dy + j) * WIDTH + WIDTH / 2 + dx + i)]);
            if (least >= 0 && difference >= least) continue;
            least = difference;
            best = {dx, dy};
        }
    return best;
}

TEST_F(QuestionTest, CentredPointIsInTheMiddleOfTheNextPicture)
{
    constexpr struct {
        double x, y, dZoom;
        bool bMirror, bFlip, bHangs;
    } ROWS[] = {
        {0.8, 0.3, 1, false, false, false}, {0.2, 0.7, 1, false, false, false}, {0.3, 0.2, 4, false, false, false},
        {0.8, 0.3, 1, true, false, false},  {0.3, 0.3, 2, false, true, false},  {0.8, 0.7, 2, false, false, true},
        {0.2, 0.3, 2, true, false, true},
    };
    for (const auto &[x, y, dZoom, bMirror, bFlip, bHangs] : ROWS) {
        SYS_API_SetMirror(bMirror, BU_FALSE, BU_TRUE);
        SYS_API_SetFlip(bFlip, BU_FALSE, BU_TRUE);
        SYS_API_SetMountMode(!bHangs, BU_FALSE, BU_TRUE);
        lookAt(5, 3, dZoom);
        const auto vecBefore = picture();
        ask("centre", "{\"x\":" + std::to_string(x) + ",\"y\":" + std::to_string(y) + "}");
        clock().advance(10'000);
        const auto [dx, dy] = find(vecBefore, x, y, picture());
        EXPECT_LE(std::max(std::abs(dx), std::abs(dy)), 1)
            << x << ' ' << y << " zoom " << dZoom << bMirror << bFlip << bHangs << " is off by " << dx << ' ' << dy;
    }
}

class PictureTest : public WebRpcTest
{
protected:
    PictureTest()
    {
        MPP_BUSINESS_CFG_S stCfg{};
        stCfg.s32PipeCnt = 2;
        stCfg.s32Width = 640;
        stCfg.s32Height = 360;
        MPP_InitCfg(&stCfg);
        MPP_InitStream();
    }
    static std::string fileOf(BU_S32 s32Preset)
    {
        std::ostringstream out;
        out << std::ifstream(UTIL_ROOT_Path(("/var/web/presets/" + std::to_string(s32Preset) + ".jpg").c_str()))
                   .rdbuf();
        return out.str();
    }
};

TEST_F(PictureTest, ComesAndGoesWithItsPreset)
{
    const Peer peer;
    peer.call(1, SUM, request(1)); // it is known there
    peer.answer();
    PRESET_API_SetCur(3, "Door");
    EXPECT_EQ(peer.news(), R"({"preset":3})");
    EXPECT_EQ(peer.news(), R"({"preset":3})") << "once more when there is a picture";
    EXPECT_THAT(fileOf(3), testing::StartsWith("\xFF\xD8"));
    PRESET_API_SetCur(4, nullptr);
    UTIL_THREAD_WaitAsync();
    peer.ask(2, "presets");
    EXPECT_THAT(peer.answer().strBytes, Not(HasSubstr("\"picture\":0")));

    PRESET_API_DeleteById(3);
    UTIL_THREAD_WaitAsync();
    EXPECT_EQ(fileOf(3), "");
    EXPECT_NE(fileOf(4), "");
    WEB_RPC_UnInitForAppMain(BU_FALSE);
    CFG_STORE_DeletePreset(4); // nobody listens
    WEB_RPC_InitForAppMain();
    EXPECT_EQ(fileOf(4), "") << "found when the service starts";
}
} // namespace
