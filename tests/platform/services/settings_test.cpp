// Output format, stand-by, tracking, serial ports: settings through the services of several libraries.
#include "../settings/settingsTest.h"
#include "board/device.h"
#include "board/profile.h"
#include "camera/image.h"
#include "camera/picture.h"
#include "camera/pip.h"
#include "camera/power.h"
#include "camera/restore.h"
#include "camera/serial.h"
#include "camera/sound.h"
#include "camera/startup.h"
#include "camera/tracking.h"
#include "camera/video.h"
#include "media/audio.h"
#include "media/pipeline.h"
#include "support/place.h"
#include "vocabulary/wordSetters.h"

#include <fstream>
#include <tuple>

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

using SystemSettings = PlatformTest;

TEST_F(SystemSettings, AFormatReachesItsOutput)
{
    // clang-format off
    const struct { const BU_CHAR *pcFormat, *pcFps; BU_U32 u32W, u32H; BU_S32 s32Fps; BU_BOOL bFields; } rows[] = {
        {"Format-4K", "Fps60", 3840, 2160, 60, BU_FALSE}, {"Format-4K", "Fps59p94", 3840, 2160, 59940, BU_FALSE},
        {"Format-1080P", "Fps50", 1920, 1080, 50, BU_FALSE}, {"Format-1080P", "Fps30", 1920, 1080, 30, BU_FALSE},
        {"Format-1080P", "Fps29p97", 1920, 1080, 29970, BU_FALSE}, {"Format-1080I", "Fps25", 1920, 1080, 25, BU_TRUE},
        {"Format-720P", "Fps24", 1280, 720, 24, BU_FALSE}, {"Format-720P", "Fps23p98", 1280, 720, 23980, BU_FALSE}};
    // clang-format on
    for (const auto &row : rows) {
        ASSERT_EQ(SYSTEM_API_SetHdmiCfg(row.pcFormat, row.pcFps, HDMI_CS_E_YUV420, BU_FALSE), 0);
        ASSERT_EQ(SYSTEM_API_SetSdiCfg("Format-720P", "Fps50", HDMI_CS_E_RGB, BU_FALSE), 0);
        MPP_VOUT_CFG_S st{};
        ASSERT_EQ(MPP_GetVoutCfg(MPP_VOUT_ID_2, &st), 0);
        const auto &[u32Width, u32Height] = st.stResolution;
        EXPECT_EQ(std::tuple(u32Width, u32Height, st.s32Fps, st.bInterlaced, st.s32OutputCs),
                  std::tuple(row.u32W, row.u32H, row.s32Fps, row.bFields, HDMI_CS_E_YUV420));
        EXPECT_EQ(stored("Format"), HDMI_FORMAT_E_1080P); // nothing was stored
    }
}

TEST_F(SystemSettings, AFormatIsTakenWholeOrNotAtAll)
{
    const std::tuple<const BU_CHAR *, const BU_CHAR *, BU_S32> rows[] = {
        {"", "Fps50", 0},          {"Format-4K", "", 0},       {"Format-4K", "fps50", 0},
        {"Format-4K", "Fps50", 4}, {"Format-4K", "Fps50", -1}, {nullptr, nullptr, 0}};
    for (const auto &[pcFormat, pcFps, s32Cs] : rows)
        EXPECT_EQ(SYSTEM_API_SetHdmiCfg(pcFormat, pcFps, s32Cs, BU_TRUE), -1);
    for (const BU_CHAR *pcWord : {"", "4K", "1080P61", "1080P60 ", "5K60", "1080p60"})
        EXPECT_EQ(SYSTEM_API_SetVideoFormat(pcWord, BU_TRUE), -1) << pcWord;
    EXPECT_EQ(std::pair(running("Format"), running("Fps")), std::pair(+HDMI_FORMAT_E_1080P, +HDMI_FPS_E_FPS60));
    journal::inject("CFG_STORE_SetTexts", -1);
    EXPECT_EQ(SYSTEM_API_SetHdmiCfg("Format-4K", "Fps50", 0, BU_TRUE), -1);
    EXPECT_EQ(running("Format"), HDMI_FORMAT_E_4K); // runs, although it is not stored
    EXPECT_EQ(stored("Format"), HDMI_FORMAT_E_1080P);

    EXPECT_EQ(SYSTEM_API_SetVideoFormat("720P59.94", BU_TRUE), 0);
    EXPECT_EQ(std::pair(running("Format"), running("Fps")), std::pair(+HDMI_FORMAT_E_720P, +HDMI_FPS_E_FPS59P94));
}

TEST_F(SystemSettings, AnOutputKeepsItsOwnFormatUntilItsSettingChanges)
{
    MPP_VOUT_CFG_S stOwn{{1024, 768}, 60, BU_FALSE, 0}, stCfg{};
    const auto width = [&] { return MPP_GetVoutCfg(MPP_VOUT_ID_0, &stCfg), stCfg.stResolution.u32Width; };
    EXPECT_EQ(MPP_SetVoutCfg(MPP_VOUT_ID_0, &stOwn), 0);
    SYSTEM_API_SetHdmiFps("Fps25", BU_TRUE); // not this output's
    EXPECT_EQ(width(), 1024u);
    SYSTEM_API_SetSdiCfg("Format-1080P", "Fps60", 0, BU_TRUE);
    EXPECT_EQ(width(), 1920u);
    stOwn.s32Fps = 61;
    EXPECT_EQ(MPP_SetVoutCfg(MPP_VOUT_ID_0, &stOwn), -1);
    EXPECT_EQ(MPP_GetVoutCfg(static_cast<MPP_VOUT_ID>(3), &stCfg), -1);
}

TEST_F(SystemSettings, ThePipelineHasAPictureForEachLensOfTheProfile)
{
    tagHW_ABILITY_S stAbility{};
    MPP_BUSINESS_CFG_S stCfg{};
    for (const auto &[pcModel, s32Lenses] : {std::pair("minimal", 1), {"QLS-500", 2}, {"TKV-MX", 2}}) {
        BSP_PROFILE_Load(pcModel);
        BSP_HW_ABI_GetHwAbility(&stAbility);
        SYSTEM_API_InitializeMppBusinessByXml(&stCfg);
        EXPECT_EQ(std::pair(stAbility.stLens.s32DevCnt, stCfg.s32PipeCnt), std::pair(s32Lenses, s32Lenses)) << pcModel;
    }
}

TEST_F(SystemSettings, AudioAndDistributorPortsFollowTheProfile)
{
    AENC_ATTR_S stAttr{};
    EXPECT_EQ(AUDIO_AENC_GetAttr(0, stAttr), 0);
    EXPECT_EQ(std::pair(stAttr.enSoundMode, stAttr.s32AacBitRate), std::pair(+AUDIO_SOUND_MODE_STEREO, 125));
    EXPECT_EQ(AUDIO_AENC_GetAttr(1, stAttr), AUDIO_AI_NOT_AVAILABLE);
    EXPECT_EQ(AUDIO_AENC_GetStreamCacheId(AENC_TYPE_E_AAC), 6);
    EXPECT_EQ(AUDIO_AENC_GetStreamCacheId(AENC_TYPE_E_G711U), -1);
    EXPECT_EQ(AUDIO_AO_GetIdByDevId(AUDIO_DEV_SDK), -1);
    EXPECT_NE(AUDIO_AO_GetIdByDevId(AUDIO_DEV_ALSA), AUDIO_AO_GetIdByDevId(AUDIO_DEV_UAC));
    for (const auto enDev : {AUDIO_DEV_ALSA, AUDIO_DEV_UAC})
        EXPECT_EQ(AUDIO_AO_SetEnable(AUDIO_AO_GetIdByDevId(enDev), BU_TRUE, BU_TRUE), 0) << enDev;
    EXPECT_EQ(AUDIO_AO_SetEnable(-1, BU_TRUE, BU_TRUE), -1);
    EXPECT_EQ(MPP_GetHdmiDistributor(MPP_HDMI_DISTRIBUTOR_TYPE_3G_SDI), 255); // no chip
    EXPECT_EQ(MPP_IsChangeHdmiEdid(), 0);

    std::ifstream profile(place::source("platform/board/profiles/TKV-MX.json"));
    profile.ignore(); // its brace
    std::ofstream(root() + "/own.json") << R"({"hdmiDistributor": {"hdmi": 1, "3gSdi": 2, "fullNdi": 3},)"
                                        << profile.rdbuf();
    BSP_PROFILE_Load((root() + "/own.json").c_str());
    std::vector<BU_S32> listPorts;
    for (BU_S32 i = 0; i <= MPP_HDMI_DISTRIBUTOR_MAX; ++i)
        listPorts.push_back(MPP_GetHdmiDistributor(static_cast<MPP_HDMI_DISTRIBUTOR_TYPE_E>(i)));
    EXPECT_THAT(listPorts, ElementsAre(1, 2, 255, 255, 3, 255));
    BSP_PROFILE_Load("minimal");
    EXPECT_EQ(AUDIO_AENC_GetStreamCacheId(AENC_TYPE_E_AAC), -1);
    EXPECT_EQ(AUDIO_AO_GetIdByDevId(AUDIO_DEV_ALSA), -1);
    BSP_PROFILE_Load("TKV-MX");
}

TEST_F(SystemSettings, ThePipelineIsUpOnlyAfterWhatHasToComeBefore)
{
    static BU_S32 s32Result, s32Calls;
    s32Result = -1, s32Calls = 0;
    EXPECT_EQ(MPP_InitStream(), -1);
    MPP_RegisterBeforeInit([](void *) { return ++s32Calls, s32Result; });
    MPP_BUSINESS_CFG_S stCfg{};
    EXPECT_EQ(MPP_InitCfg(&stCfg), -1); // no sensor
    EXPECT_EQ(s32Calls, 0);
    SYSTEM_API_InitializeMppBusinessByXml(&stCfg);
    EXPECT_EQ(MPP_InitCfg(&stCfg), -1);
    EXPECT_EQ(MPP_InitStream(), -1);
    s32Result = 0;
    EXPECT_EQ(MPP_InitCfg(&stCfg), 0);
    EXPECT_EQ(MPP_InitStream(), 0);
    EXPECT_EQ(s32Calls, 2);
}

TEST_F(SystemSettings, StandByHandsThePowerOffRecordToTheNextStart)
{
    static int nReboots;
    nReboots = 0;
    UTIL_CMD_SetRebootHandler([] { ++nReboots; });
    EXPECT_EQ(SYSTEM_API_WakeAppService(), -1);
    UTIL_FILE_WriteBufToFile("/var/ViscaCtrlPowerOff", "record", 6);
    std::filesystem::create_directories(root() + "/app");

    SYSTEM_API_SleepAppService();
    SYSTEM_API_SleepAppService(); // once more: nothing new
    EXPECT_TRUE(SYSTEM_API_IsAsleep());
    EXPECT_FALSE(UTIL_FILE_IsExist("/app/ViscaCtrlPowerOn"));

    EXPECT_EQ(SYSTEM_API_WakeAppService(), 0);
    EXPECT_FALSE(SYSTEM_API_IsAsleep());
    EXPECT_EQ(nReboots, 1);
    EXPECT_TRUE(UTIL_FILE_IsExist("/app/ViscaCtrlPowerOn"));
    EXPECT_FALSE(UTIL_FILE_IsExist("/var/ViscaCtrlPowerOff"));
    UTIL_CMD_SetRebootHandler(nullptr);

    std::filesystem::rename(root() + "/app/ViscaCtrlPowerOn", root() + "/var/ViscaCtrlPowerOff");
    SYSTEM_API_InitializeGlobalVirableByXml();
    EXPECT_TRUE(UTIL_FILE_IsExist("/var/ViscaCtrlPowerOff")); // it was not asleep
    CFG_STORE_SetInt("Standby/Asleep", BU_TRUE);              // a start out of stand-by answers the command too
    SYSTEM_API_InitializeGlobalVirableByXml();
    EXPECT_TRUE(UTIL_FILE_IsExist("/app/ViscaCtrlPowerOn"));
}

TEST_F(SystemSettings, AFrozenPictureComesBackAndPictureInPictureIsTakenWholeOrNotAtAll)
{
    SYS_API_SetImageFreeze(1, BU_TRUE, BU_TRUE);
    SYS_API_SetImageFreeze(0, BU_FALSE, BU_TRUE);
    EXPECT_EQ(SYSTEM_API_GetImgFreeze(), 1);
    EXPECT_EQ(running("ImageFreeze"), 1);
    const MPP_PIP_CONFIG_S stGood{1, 0, 1, BU_TRUE, MPP_PIP_POS_TOP_RIGHT, MPP_PIP_SIZE_SMALL};
    EXPECT_EQ(SYS_API_SetPipConfig(&stGood, BU_TRUE, BU_TRUE), 0);
    for (BU_S32 MPP_PIP_CONFIG_S::*pField : {&MPP_PIP_CONFIG_S::enMainVideo, &MPP_PIP_CONFIG_S::bEnablePip,
                                             &MPP_PIP_CONFIG_S::enPos, &MPP_PIP_CONFIG_S::enSize}) {
        MPP_PIP_CONFIG_S stBad{0, 1, 0, BU_FALSE, 0, 0};
        stBad.*pField = 4;
        EXPECT_EQ(SYS_API_SetPipConfig(&stBad, BU_TRUE, BU_TRUE), -1);
    }
    CFG_SETTING_Reload();
    MPP_PIP_CONFIG_S stCfg{};
    SYS_API_GetPipConfig(&stCfg);
    EXPECT_EQ(std::tuple(stCfg.enMainVideo, stCfg.enPos, stCfg.enSize, stCfg.bEnablePip),
              std::tuple(1, +MPP_PIP_POS_TOP_RIGHT, +MPP_PIP_SIZE_SMALL, 1));
    EXPECT_EQ(std::tuple(stored("PipMainVideo"), stored("PipSubVideo"), stored("PipPos"), stored("PipSize")),
              std::tuple(1, 0, stCfg.enPos, stCfg.enSize));
}

TEST_F(SystemSettings, TheVolumeOfTheInputIsTheVolumeOfTheSystem)
{
    AI_ATTR_S stAttr{};
    const BU_S32 s32Id = AUDIO_AI_GetFirstEnabledId();
    ASSERT_EQ(AUDIO_AI_GetDefAttr(s32Id, &stAttr), 0);
    EXPECT_EQ(stAttr.s32Volume, 50);
    stAttr.s32Volume = 100;
    EXPECT_EQ(AUDIO_AI_SetAttr(s32Id, &stAttr, BU_TRUE), 0);
    BU_S32 s32Volume = 0;
    SYS_API_GetAudioVolume(&s32Volume, BU_TRUE);
    EXPECT_EQ(s32Volume, 100);
    ++stAttr.s32Volume;
    EXPECT_EQ(AUDIO_AI_SetAttr(s32Id, &stAttr, BU_TRUE), -1);
    EXPECT_EQ(AUDIO_AI_GetAttr(1, &stAttr), AUDIO_AI_NOT_AVAILABLE);
}

TEST_F(SystemSettings, ProtocolWordsAreTakenByNameNotByTheirTableNumber)
{
    // clang-format off
    const struct { const BU_CHAR *pcWord; BU_S32 s32Result, s32Protocol; } rows[] = {
        {"PelcoP", 0, RS_PROTO_E_PELCO_P}, {"PelcoD", 0, RS_PROTO_E_PELCO_D}, {"VISCA", -1, RS_PROTO_E_PELCO_D},
        {"", -1, RS_PROTO_E_PELCO_D}, {"Freed", 0, RS_PROTO_E_FREED}, {"Visca", 0, RS_PROTO_E_VISCA}};
    // clang-format on
    for (const auto &st : rows) {
        EXPECT_EQ(SERIAL_API_SetProtocolType(UART_INSTANCE_TYPE_RS422, st.pcWord, BU_TRUE), st.s32Result) << st.pcWord;
        EXPECT_EQ(SERIAL_API_GetProtocolType(UART_INSTANCE_TYPE_RS422), st.s32Protocol) << st.pcWord;
    }
    EXPECT_EQ(SERIAL_API_SetBaudrate(UART_INSTANCE_TYPE_RS232, "N38400", BU_TRUE), 0);
    EXPECT_EQ(SERIAL_API_SetBaudrate(UART_INSTANCE_TYPE_RS232, "N115200", BU_TRUE), -1);
    EXPECT_EQ(SERIAL_API_GetBaudrate(UART_INSTANCE_TYPE_RS232), 38400);
    EXPECT_EQ(SERIAL_API_GetBaudrate(UART_INSTANCE_TYPE_RS422), 9600);
    EXPECT_EQ(SERIAL_API_SetBaudrate(UART_INSTANCE_TYPE_12G_FPGA, "N9600", BU_TRUE), -1);
}

TEST_F(SystemSettings, TheInfraredAddressIsSetByEitherSource)
{
    for (const char *pcShown : {"SoftWare", "DIPSwitch"}) {
        EXPECT_EQ(IR_API_SetAddrCtrl(pcShown, BU_TRUE), 0);
        EXPECT_EQ(IR_API_SetAddr(2, BU_TRUE, IRADDR_SWITCH_E_SOFT), 0);
        EXPECT_EQ(IR_API_SetAddr(4, BU_TRUE, IRADDR_SWITCH_E_DIP), 0);
        EXPECT_EQ(IR_API_SetAddr(5, BU_TRUE, IRADDR_SWITCH_E_DIP), -1);
        EXPECT_EQ(running("IrAddr"), 4);
    }
    EXPECT_EQ(IR_API_SetSwitchByRam("Off"), 0);
    CFG_SETTING_Reload();
    EXPECT_EQ(running("IrSwitch"), 1);
}

TEST_F(SystemSettings, TheTrackModeFollowsTheStrategy)
{
    static std::vector<BU_S32> listModes;
    listModes.clear();
    ALG_API_RegisterTrackModeCallback([](TRACK_MODE_E en) { listModes.push_back(en); });
    ALG_API_SetTrackStrategyMonocular("AutoFraming", BU_TRUE, BU_TRUE); // kept for later
    EXPECT_THAT(listModes, IsEmpty());
    ALG_API_SetTrackMode(TRACK_MODE_E_ZONE_TRACKING, BU_TRUE, BU_TRUE); // of the binocular strategy
    ALG_API_SetTrackStrategy("Monocular", BU_TRUE, BU_TRUE);
    ALG_API_SetTrackStrategy("Binocular", BU_TRUE, BU_TRUE);
    ALG_API_SetTrackMode(TRACK_MODE_E_ZONE_TRACKING, BU_TRUE, BU_TRUE); // no change
    EXPECT_EQ(ALG_API_SetTrackMode(6, BU_TRUE, BU_TRUE), -1);
    EXPECT_EQ(ALG_API_SetTrackStrategy("Trinocular", BU_TRUE, BU_TRUE), -1);
    SYSTEM_API_FactoryRestoreConfiguration(SYSTEM_RESTORE_E_TRACK);
    EXPECT_THAT(listModes, ElementsAre(TRACK_MODE_E_ZONE_TRACKING, TRACK_MODE_E_AUTO_FRAMEING,
                                       TRACK_MODE_E_ZONE_TRACKING, TRACK_MODE_E_EVERYWHERE_TRACKING));
    ALG_API_RegisterTrackModeCallback(nullptr);
}

TEST_F(SystemSettings, AreasSurviveARestartAndEndWithTheLastEnabledOne)
{
    tagTRACK_AREA_S astAreas[TRACK_AREA_MAX]{}, astRead[TRACK_AREA_MAX]{};
    astAreas[2] = {BU_TRUE, 10, -20, 300, 400, 7, 1};
    EXPECT_EQ(TRACK_SetAreaList(TRACK_AREA_E_PRESET, astAreas, BU_TRUE), 0);
    astAreas[5] = {BU_TRUE, 1, 1, 1, 1, 1, 1};
    EXPECT_EQ(TRACK_SetAreaList(TRACK_AREA_E_SHIELD, astAreas, BU_FALSE), 0);
    BU_S32 s32Count = 0;
    const auto count = [&](tagTRACK_AREA_E en) { return TRACK_GetAreaList(en, astRead, &s32Count), s32Count; };
    EXPECT_EQ(count(TRACK_AREA_E_SHIELD), 6);
    CFG_SETTING_Reload();
    EXPECT_EQ(count(TRACK_AREA_E_SHIELD), 0);
    EXPECT_EQ(count(TRACK_AREA_E_PRESET), 3);
    EXPECT_EQ(std::pair(astRead[2].y, astRead[2].s32PresetId), std::pair(-20, 7));
    SYSTEM_API_FactoryRestoreConfiguration(SYSTEM_RESTORE_E_TRACK);
    EXPECT_EQ(count(TRACK_AREA_E_PRESET), 0);
    EXPECT_EQ(TRACK_GetAreaList(static_cast<tagTRACK_AREA_E>(5), astRead, &s32Count), -1);
}

TEST_F(SystemSettings, TargetsAreSteppedThroughFromLeftToRight)
{
    EXPECT_EQ(ALG_API_LockNextTarget(), -1);
    ALG_API_UpdatePanoramaTargets(
        {{7, 0.6F, 0.1F, 0.8F, 0.9F}, {5, 0.0F, 0.1F, 0.2F, 0.9F}, {6, 0.1F, 0.1F, 0.5F, 0.9F}});
    ALG_API_SetCurTargetId(-1);
    const auto current = [](BU_S32 s32Result) { return std::pair(s32Result, ALG_API_GetCurTargetId()); };
    EXPECT_EQ(current(ALG_API_LockNextTarget()), std::pair(0, 5));
    EXPECT_EQ(current(ALG_API_LockLastTarget()), std::pair(0, 7)); // round the end
    EXPECT_EQ(ALG_API_ApplyPreSelectTarget(), -1);
    EXPECT_EQ(current(ALG_API_PreSelectLastTarget()), std::pair(0, 7));
    EXPECT_EQ(ALG_API_GetPreSelectTargetId(), 6);
    EXPECT_EQ(current(ALG_API_ApplyPreSelectTarget()), std::pair(0, 6));
    const auto select = ALG_API_SelectTargetByBodyPosWithPanoramaTargets;
    EXPECT_EQ(current(select(0.15F, 0.5F)), std::pair(0, 5)); // in two boxes, nearer to 5
    EXPECT_EQ(current(select(0.55F, 0.5F)), std::pair(-1, 5));
    ALG_API_UpdatePanoramaTargets({});
}

TEST_F(SystemSettings, ACorrectionCountsOnlyWhenItIsSaved)
{
    EXPECT_EQ(TRACK_DoPosCorrection(TRACK_POS_CORRECT_ACTION_E_UP), -1);
    for (const BU_S32 s32Last : {TRACK_POS_CORRECT_ACTION_E_CANCEL, TRACK_POS_CORRECT_ACTION_E_SAVE})
        for (const BU_S32 s32Action : {+TRACK_POS_CORRECT_ACTION_E_START, +TRACK_POS_CORRECT_ACTION_E_UP,
                                       +TRACK_POS_CORRECT_ACTION_E_LEFT, +TRACK_POS_CORRECT_ACTION_E_LEFT, s32Last})
            EXPECT_EQ(TRACK_DoPosCorrection(s32Action), 0);
    EXPECT_EQ(TRACK_DoPosCorrection(TRACK_POS_CORRECT_ACTION_E_SAVE), -1);
    std::string strStored;
    CFG_STORE_GetText("Track/Correction", &strStored);
    EXPECT_EQ(strStored, "-2 1");
}
