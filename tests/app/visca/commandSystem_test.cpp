// Address, output format, network, infrared, lamps, sound, menu; and what no command may do.
#include "board/lamp.h"
#include "camera/serial.h"
#include "camera/systemService.h"
#include "commandTest.h"
#include "led/led.h"
#include "media/audio.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstring>
#include <thread>

namespace
{
using CommandSystem = CommandTest;
using testing::ElementsAre;
using testing::HasSubstr;

TEST_F(CommandSystem, AddressAndCancel)
{
    const auto address = [](BU_U8 u8Address) { return [=](Info &st) { st.u8Address = u8Address; }; };
    check({{"cancel", viscaCtrlCancel, address(1), {}}});
    const tagCOMMAND_CASE_S stAddress{"", viscaCtrlAddress, address(3), {}};
    EXPECT_EQ(run(stAddress), 0);
    EXPECT_THAT(journal::effects(), ElementsAre("VISCA_API_SetAddr(3, 1)"));
    EXPECT_THAT(traceOf(stAddress), HasSubstr("] addr 3\n"));
    journal::inject("VISCA_API_SetAddr", 9);
    EXPECT_EQ(run(stAddress), REFUSED) << "whatever the failure";
    journal::inject("VISCA_API_SetAddr", 9);
    EXPECT_THAT(traceOf(stAddress), HasSubstr("]: set addr 3 error\n"));
}

TEST_F(CommandSystem, VideoResolutions)
{
    struct {
        BU_S32 s32Type;
        const char *pcFormat, *pcFps;
    } const rows[] = {
        {0, "Format-1080P", "Fps60"},     {1, "Format-1080P", "Fps30"},   {2, "Format-1080I", "Fps60"},
        {3, "Format-720P", "Fps60"},      {4, "Format-720P", "Fps30"},    {6, "Format-4K", "Fps60"},
        {7, "Format-4K", "Fps30"},        {8, "Format-1080P", "Fps50"},   {9, "Format-1080P", "Fps25"},
        {10, "Format-1080I", "Fps25"},    {11, "Format-720P", "Fps50"},   {12, "Format-720P", "Fps25"},
        {14, "Format-4K", "Fps50"},       {15, "Format-4K", "Fps25"},     {16, "Format-1080P", "Fps59p94"},
        {17, "Format-1080P", "Fps29p97"}, {18, "Format-720P", "Fps59p94"}};
    const auto resolution = [](BU_S32 s32Type) {
        return [=](Info &st) { st.enVideoCtrl = static_cast<VISCA_CTRL_VIDEO_RESOLUTION_E>(s32Type); };
    };
    SYSTEM_API_SetHdmiCfg("Format-1080P", "Fps60", HDMI_CS_E_YUV444, BU_FALSE);
    for (const auto &row : rows) {
        SCOPED_TRACE(row.s32Type);
        const std::string strArgs = "(\"" + std::string(row.pcFormat) + "\", \"" + row.pcFps + "\", 2, ";
        check({{"",
                viscaCtrlVideoResolution,
                resolution(row.s32Type),
                {"SYSTEM_API_SetHdmiCfg" + strArgs + "1)", "SYSTEM_API_SetSdiCfg" + strArgs + "0)"},
                0,
                "SYSTEM_API_SetHdmiCfg"}});
    }
    for (const BU_S32 s32Type : {5, 13, 19}) check({{"", viscaCtrlVideoResolution, resolution(s32Type), {}, REFUSED}});
}

std::function<void(Info &)> ip(VISCA_CTRL_IP_E enType, BU_U32 u32Ip = 0)
{
    return [=](Info &st) {
        st.stIpCtrl.enIpType = enType;
        st.stIpCtrl.u32IpVal = u32Ip;
    };
}
Effects applied(const std::string &strAddress, const std::string &strMask, const std::string &strGateway)
{
    return {"NET_API_SetIpAddr(\"NetCard0\", \"" + strAddress + "\")",
            "NET_API_SetNetMask(\"NetCard0\", \"" + strMask + "\")",
            "NET_API_SetGateWay(\"NetCard0\", \"" + strGateway + "\")"};
}
/// The buffers live as long as the process, so what they hold at the start is a test's first row.
TEST_F(CommandSystem, NetworkAddressesAreKeptUntilApplied)
{
    const auto N = viscaCtrlIp;
    const auto apply = [&](const char *pcName, Effects effects) {
        const auto services = [] {
            for (const char *pc : {"NET_API_SetIpAddr", "NET_API_SetNetMask"}) journal::inject(pc, -1);
            journal::inject("NET_API_SetGateWay", 6);
        };
        return tagCOMMAND_CASE_S{pcName, N, ip(VISCA_MSG_E_IP_APPLYA), std::move(effects), 6, nullptr, services};
    };
    const auto checkApply = [&](const char *pcName, Effects effects) {
        const auto stCase = apply(pcName, std::move(effects));
        EXPECT_EQ(run(stCase), 6) << pcName << ": the gateway's result counts";
        EXPECT_EQ(journal::effects(), stCase.effects) << pcName;
    };
    checkApply("nothing sent yet", applied("", "", ""));
    check({{"address", N, ip(VISCA_MSG_E_IP_ADDRESS, 0xC0A801FE), {}}});
    checkApply("address alone", applied("192.168.1.254", "", ""));
    check({{"mask", N, ip(VISCA_MSG_E_IP_MASK, 0xFFFFFF00), {}},
           {"gateway", N, ip(VISCA_MSG_E_IP_GATEWAY, 0x0A000001), {}}});
    checkApply("all three", applied("192.168.1.254", "255.255.255.0", "10.0.0.1"));
    check({{"longest", N, ip(VISCA_MSG_E_IP_ADDRESS, 0xFFFFFFFF), {}}});
    checkApply("again", applied("255.255.255.255", "255.255.255.0", "10.0.0.1"));
    EXPECT_THAT(traceOf({"", N, ip(VISCA_MSG_E_IP_GATEWAY, 0xC0A80101), {}}), HasSubstr("Ip info: 192.168.1.1\n"));
    EXPECT_THAT(traceOf(apply("", {})),
                HasSubstr("visca set:\n  IP: 255.255.255.255\n  Mask: 255.255.255.0\n  Gateway: 192.168.1.1\n"));
    const char *pcMode = "NET_API_SetIpMode";
    check({{"dhcp", N, ip(VISCA_MSG_E_IP_DHCP_ON), {"NET_API_SetIpMode(\"NetCard0\", 0)"}, 0, pcMode},
           {"static", N, ip(VISCA_MSG_E_IP_DHCP_OFF), {"NET_API_SetIpMode(\"NetCard0\", 1)"}, 0, pcMode}});
}

TEST_F(CommandSystem, TwoControllersApplyOneAfterTheOther)
{
    for (const char *pc : {"NET_API_SetIpAddr", "NET_API_SetNetMask", "NET_API_SetGateWay"})
        journal::inject(pc, 0, 1000);
    const auto controller = [](BU_U32 u32Ip) {
        for (int i = 0; i < 100; ++i) {
            Info stInfo{};
            ip(VISCA_MSG_E_IP_MASK, u32Ip)(stInfo);
            viscaCtrlIp(&stInfo);
            ip(VISCA_MSG_E_IP_APPLYA)(stInfo);
            viscaCtrlIp(&stInfo);
        }
    };
    {
        const std::jthread first(controller, 1), second(controller, 2);
    }
    const auto effects = journal::effects();
    ASSERT_EQ(effects.size(), 600U);
    for (std::size_t i = 0; i < effects.size(); i += 3) {
        EXPECT_THAT(effects[i], HasSubstr("SetIpAddr"));
        EXPECT_THAT(effects[i + 1], HasSubstr("SetNetMask"));
        EXPECT_THAT(effects[i + 2], HasSubstr("SetGateWay"));
    }
}

TEST_F(CommandSystem, Infrared)
{
    const auto receiver = [](VISCA_CTRL_IR_RECV_E enType) { return [=](Info &st) { st.enIrRecvCtrl = enType; }; };
    const auto remote = [](VISCA_CTRL_IR_E enType, BU_U8 u8Val) {
        return [=](Info &st) { st.stIrCtrl = {enType, u8Val}; };
    };
    const auto is = [](const char *pcWord) { return [=] { IR_API_SetSwitchByRam(pcWord); }; };
    const auto R = viscaCtrlIrRecv, C = viscaCtrlIrCtrl;
    const std::string strOn = "IR_API_SetSwitchByRam(\"On\")", strOff = "IR_API_SetSwitchByRam(\"Off\")";
    const char *pcRam = "IR_API_SetSwitchByRam", *pcSwitch = "IR_API_SetSwitch";
    check({{"on", R, receiver(VISCA_MSG_E_IR_RECV_ON), {strOn}, 0, pcRam},
           {"off", R, receiver(VISCA_MSG_E_IR_RECV_OFF), {strOff}, 0, pcRam}});
    for (const auto &[pcWord, strOther] : {std::pair("On", strOff), std::pair("Off", strOn)}) {
        EXPECT_EQ(run({"", R, receiver(VISCA_MSG_E_IR_RECV_ON_OFF), {}, 0, nullptr, is(pcWord)}), 0);
        EXPECT_THAT(journal::effects(), ElementsAre(strOther));
    }
    journal::inject("IR_API_GetSwitch", -1);
    EXPECT_EQ(run({"", R, receiver(VISCA_MSG_E_IR_RECV_ON_OFF), {}}), 0);
    EXPECT_THAT(journal::effects(), ElementsAre(strOff)) << "a state that cannot be read counts as on";
    check({{"mode on", C, remote(VISCA_MSG_E_IR_MODE, 2), {"IR_API_SetSwitch(\"On\", 1)"}, 0, pcSwitch},
           {"mode off", C, remote(VISCA_MSG_E_IR_MODE, 3), {"IR_API_SetSwitch(\"Off\", 1)"}, 0, pcSwitch},
           {"mode 1", C, remote(VISCA_MSG_E_IR_MODE, 1), {}, REFUSED},
           {"mode 4", C, remote(VISCA_MSG_E_IR_MODE, 4), {}, REFUSED},
           {"address", C, remote(VISCA_MSG_E_IR_ADDR, 3), {"IR_API_SetAddr(3, 1, 0)"}, 0, "IR_API_SetAddr"}});
}

TEST_F(CommandSystem, LampColours)
{
    const auto lamp = [](BU_S32 s32Type) {
        return [=](Info &st) { st.enTallyLed = static_cast<VISCA_CTRL_LED_E>(s32Type); };
    };
    const auto shows = [](const char *pcState) {
        return Effects{"LED_API_SetLedStateInfoFrom(\"TallyLed\", 2, " + std::string(pcState) + ")"};
    };
    const auto T = viscaCtrlTallyLed;
    check({{"red", T, lamp(0), shows("hold #FF0000 80%")},
           {"green", T, lamp(1), shows("hold #00FF00 80%")},
           {"blue", T, lamp(2), shows("hold #0000FF 80%")},
           {"all on", T, lamp(3), shows("hold white 80%")},
           {"all off", T, lamp(4), shows("off")},
           {"red flicker", T, lamp(5), shows("flick #FF0000 80% 1Hz")},
           {"green flicker", T, lamp(6), shows("flick #00FF00 80% 1Hz")},
           {"blue flicker", T, lamp(7), shows("flick #0000FF 80% 1Hz")},
           {"unknown", T, lamp(8), shows("off")}});
}

TEST_F(CommandSystem, TallyModes)
{
    const auto tally = [](BU_S32 s32Mode) {
        return [=](Info &st) { st.stTKVtTally = {0x123456, static_cast<VISCA_MSG_TKV_TALLY_TYPE_E>(s32Mode)}; };
    };
    const auto simple = [](BU_S32 s32Type) {
        return [=](Info &st) { st.enTallyType = static_cast<VISCA_MSG_YM_TALLY_TYPE_E>(s32Type); };
    };
    const auto T = viscaCtrlTKVTally, Y = viscaCtrlYMTally;
    const std::string strOn = "LED_API_SetTallyOnBoard(\"TallyLed\", 1, 1, 1)",
                      strOff = "LED_API_SetTallyOnBoard(\"TallyLed\", 0, 1, 1)";
    const auto mode = [](BU_S32 s32Mode) {
        return Effects{"LED_API_SetTallyMode(\"TallyLed\", " + std::to_string(s32Mode) + ", 1, 1)"};
    };
    const char *pcBoard = "LED_API_SetTallyOnBoard", *pcMode = "LED_API_SetTallyMode",
               *pcColour = "LED_API_SetTallyCustomColor";
    const std::string strUpdate = "LED_API_TriggerLedUpdateFrom(3)";
    check({{"NDI on", T, tally(0), {strOn}, 0, pcBoard},
           {"NDI off", T, tally(1), {strOff}, 0, pcBoard},
           {"NDI preview", T, tally(2), {strUpdate}},
           {"NDI program", T, tally(3), {strUpdate}},
           {"NDI close", T, tally(4), {strUpdate}},
           {"off", T, tally(10), mode(0), 0, pcMode},
           {"white", T, tally(11), mode(1), 0, pcMode},
           {"custom", T, tally(12), mode(6), 0, pcMode},
           {"cycle", T, tally(13), mode(7), 0, pcMode},
           {"save colour", T, tally(14), {"LED_API_SetTallyCustomColor(\"TallyLed\", 1193046, 1, 1)"}, 0, pcColour},
           {"unknown", T, tally(5), {}, REFUSED},
           {"simple off", Y, simple(0), {strOff}},
           {"simple none", Y, simple(1), {}},
           {"simple on", Y, simple(2), {strOn}}});
}

TEST_F(CommandSystem, NdiTallySetByHandReachesTheLamp)
{
    LED_InitDev();
    std::atomic<bool> bOver{false};
    std::jthread over([&] {
        LED_API_AppOver();
        bOver = true;
    });
    while (!bOver) clock().advance(50); // the start-up indication runs on this clock

    struct {
        BU_S32 s32Mode;
        const char *pcState;
    } const rows[] = {{VISCA_MSG_TKV_NDI_TALLY_PREVIEW, "hold #00FF00 80%"},
                      {VISCA_MSG_TKV_NDI_TALLY_PROGRAM, "hold #FF0000 80%"},
                      {VISCA_MSG_TKV_NDI_TALLY_CLOSE, "off"}};
    for (const auto &row : rows) {
        const auto fill = [&](Info &st) {
            st.stTKVtTally.enledmode = static_cast<VISCA_MSG_TKV_TALLY_TYPE_E>(row.s32Mode);
        };
        EXPECT_EQ(run({"", viscaCtrlTKVTally, fill, {}}), 0);
        const std::string strShown = "LED_API_SetLedStateInfoFrom(\"TallyLed\", 3, " + std::string(row.pcState) + ")";
        const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        bool bShown = false; // the lamp's own thread follows
        while (!bShown && std::chrono::steady_clock::now() < deadline)
            bShown = std::ranges::count(journal::effects(), strShown) > 0;
        EXPECT_TRUE(bShown) << strShown;
    }
    LED_UnInitDev();
}

TEST_F(CommandSystem, VolumeOfTheFirstAudioInput)
{
    const auto volume = [](VISCA_CTRL_AUDIO_VOL_E enType, BU_U8 u8Direct) {
        return [=](Info &st) { st.stAudioVolCtrl = {enType, u8Direct}; };
    };
    const BU_S32 s32Id = AUDIO_AI_GetFirstEnabledId();
    ASSERT_GE(s32Id, 0);
    tagAI_ATTR_S stDefault{}, stAttr{};
    ASSERT_EQ(AUDIO_AI_GetDefAttr(s32Id, &stDefault), 0);
    const auto V = viscaCtrlAudioVol;
    struct {
        VISCA_CTRL_AUDIO_VOL_E enType;
        BU_S32 s32From, s32To;
    } const rows[] = {{VISCA_MSG_E_AUDIO_VOL_UP, 30, 31},
                      {VISCA_MSG_E_AUDIO_VOL_DOWN, 30, 29},
                      {VISCA_MSG_E_AUDIO_VOL_DIRECT, 30, 42},
                      {VISCA_MSG_E_AUDIO_VOL_RESET, 30, stDefault.s32Volume}};
    for (const auto &row : rows) {
        stAttr = stDefault;
        stAttr.s32Volume = row.s32From;
        AUDIO_AI_SetAttr(s32Id, &stAttr, BU_FALSE);
        EXPECT_EQ(run({"", V, volume(row.enType, 42), {}}), 0);
        ASSERT_EQ(AUDIO_AI_GetAttr(s32Id, &stAttr), 0);
        EXPECT_EQ(stAttr.s32Volume, row.s32To);
        journal::inject("AUDIO_AI_SetAttr", -4);
        EXPECT_EQ(run({"", V, volume(row.enType, 42), {}}), -4);
    }
    const tagCOMMAND_CASE_S stNone{"no input", V, volume(VISCA_MSG_E_AUDIO_VOL_UP, 0), {}, 0, nullptr, [] {
                                       journal::inject("AUDIO_AI_GetFirstEnabledId", -1);
                                   }};
    check({stNone});
    EXPECT_THAT(traceOf(stNone), HasSubstr("] No AI enabled value "));
}

TEST_F(CommandSystem, MuteMenuAndFactoryReset)
{
    const auto mute = [](BU_S32 s32Type) {
        return [=](Info &st) { st.enAudioMuteCtrl = static_cast<VISCA_CTRL_AUDIO_MUTE_E>(s32Type); };
    };
    const auto menu = [](BU_S32 s32Type) {
        return [=](Info &st) { st.eSysMenuOpt = static_cast<VISCA_MSG_SYS_MENU_E>(s32Type); };
    };
    const auto M = viscaCtrlSysMenu;
    check({{"mute", viscaCtrlAudioMute, mute(3), {"SYS_API_SetAudioMute(1, 1, 1)"}},
           {"sound", viscaCtrlAudioMute, mute(2), {"SYS_API_SetAudioMute(0, 1, 1)"}},
           {"menu", M, menu(0), {"CMD_MENU_HandleMenuBtn()"}},
           {"open", M, menu(1), {"CMD_MENU_OnlyOpenMenu()"}},
           {"close", M, menu(2), {"CMD_MENU_OnlyCloseMenu()"}},
           {"up", M, menu(3), {"CMD_MENU_HandeUpBtn()"}},
           {"down", M, menu(4), {"CMD_MENU_HandeDownBtn()"}},
           {"left", M, menu(5), {"CMD_MENU_HandeLeftBtn()"}},
           {"right", M, menu(6), {"CMD_MENU_HandeRightBtn()"}},
           {"enter", M, menu(7), {"CMD_MENU_HandeHomeBtn()"}},
           {"return", M, menu(8), {"OSD_MENU_ReturnMenu()"}},
           {"factory", viscaCtrlSystemFactory, menu(0), {"SYSTEM_API_FactoryRestoreConfiguration(-1)"}}});
}

/// Every code of the record is one that no message has.
TEST_F(CommandSystem, UnknownKindsChangeNothing)
{
    struct {
        BU_S32 (*pfnHandle)(Info *);
        BU_S32 s32Result;
    } const rows[] = {
        {viscaCtrlZoom, REFUSED},      {viscaCtrlDZoom, REFUSED},      {viscaCtrlFocus, REFUSED},
        {viscaCtrlWbMode, REFUSED},    {viscaCtrlWbColorTmp, REFUSED}, {viscaCtrlAwbGain, REFUSED},
        {viscaCtrlAE, REFUSED},        {viscaCtrlShutter, REFUSED},    {viscaCtrlWDR, REFUSED},
        {viscaCtrlBacklight, REFUSED}, {viscaCtrlVideoParam, REFUSED}, {viscaCtrlExtraISP, REFUSED},
        {viscaCtrlPTSpeed, REFUSED},   {viscaCtrlMemory, REFUSED},     {viscaCtrlVideoResolution, REFUSED},
        {viscaCtrlIp, REFUSED},        {viscaCtrlIrRecv, REFUSED},     {viscaCtrlIrCtrl, REFUSED},
        {viscaCtrlTKVTally, REFUSED},  {viscaCtrlAudioVol, REFUSED},   {viscaCtrlTKVTrack, REFUSED},
        {viscaCtrlYMTally, 0},         {viscaCtrlSysMenu, 0},          {viscaCtrlAutoTracking, 0},
        {viscaCtrlAutoZoom, 0},        {viscaCtrlAutoTilt, 0},         {viscaCtrlIndcator, 0},
        {viscaCtrlOsdPeminder, 0},     {viscaCtrlFigureSize, 0},       {viscaCtrlSelectSubject, 0},
        {viscaCtrlPlacement, 0},       {viscaCtrlATSpeed, 0}};
    for (const auto &row : rows) {
        SCOPED_TRACE(&row - rows);
        check({{"unknown kind",
                row.pfnHandle,
                [](Info &st) {
                    for (std::size_t i = 0; i < sizeof(st) / sizeof(BU_S32); ++i)
                        std::memcpy(reinterpret_cast<char *>(&st) + i * sizeof(BU_S32), "\x63\0\0", sizeof(BU_S32));
                },
                {},
                row.s32Result}});
    }
}
} // namespace
