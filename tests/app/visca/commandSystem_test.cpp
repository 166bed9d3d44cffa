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
    check(viscaCtrlCancel, {{with<&Info::u8Address>(1), {}}});
    const tagCOMMAND_CASE_S stAddress{with<&Info::u8Address>(3), {}};
    EXPECT_EQ(run(viscaCtrlAddress, stAddress), 0);
    EXPECT_THAT(journal::effects(), ElementsAre("VISCA_API_SetAddr(3, 1)"));
    EXPECT_THAT(traceOf(viscaCtrlAddress, stAddress), HasSubstr("] addr 3\n"));
    journal::inject("VISCA_API_SetAddr", 9);
    EXPECT_EQ(run(viscaCtrlAddress, stAddress), REFUSED) << "whatever the failure";
    journal::inject("VISCA_API_SetAddr", 9);
    EXPECT_THAT(traceOf(viscaCtrlAddress, stAddress), HasSubstr("]: set addr 3 error\n"));
}

TEST_F(CommandSystem, VideoResolutions)
{
    struct {
        BU_S32 s32Type;
        const char *pcFormat, *pcFps;
    } const rows[] = {{0, "1080P", "60"},   {1, "1080P", "30"},  {2, "1080I", "60"},     {3, "720P", "60"},
                      {4, "720P", "30"},    {6, "4K", "60"},     {7, "4K", "30"},        {8, "1080P", "50"},
                      {9, "1080P", "25"},   {10, "1080I", "25"}, {11, "720P", "50"},     {12, "720P", "25"},
                      {14, "4K", "50"},     {15, "4K", "25"},    {16, "1080P", "59p94"}, {17, "1080P", "29p97"},
                      {18, "720P", "59p94"}};
    SYSTEM_API_SetHdmiCfg("Format-1080P", "Fps60", HDMI_CS_E_YUV444, BU_FALSE);
    for (const auto &row : rows) {
        const std::string strArgs = std::string("(\"Format-") + row.pcFormat + "\", \"Fps" + row.pcFps + "\", 2, ";
        passes(viscaCtrlVideoResolution,
               {{with<&Info::enVideoCtrl>(row.s32Type),
                 {"SYSTEM_API_SetHdmiCfg" + strArgs + "1)", "SYSTEM_API_SetSdiCfg" + strArgs + "0)"}}});
    }
    for (const BU_S32 s32Type : {5, 13, 19})
        check(viscaCtrlVideoResolution, {{with<&Info::enVideoCtrl>(s32Type), {}, REFUSED}});
}

std::function<void(Info &)> ip(VISCA_CTRL_IP_E enType, BU_U32 u32Ip = 0)
{
    return [=](Info &st) { st.stIpCtrl = {enType, u32Ip, ""}; };
}

/// The buffers live as long as the process, so what they hold at the start is a test's first row.
TEST_F(CommandSystem, NetworkAddressesAreKeptUntilApplied)
{
    const tagCOMMAND_CASE_S stApply{ip(VISCA_MSG_E_IP_APPLYA), {}, 6, [] {
                                        for (const char *pc : {"NET_API_SetIpAddr", "NET_API_SetNetMask"})
                                            journal::inject(pc, -1);
                                        journal::inject("NET_API_SetGateWay", 6);
                                    }};
    const auto applies = [&](const std::string &strAddress, const std::string &strMask, const std::string &strGateway) {
        EXPECT_EQ(run(viscaCtrlIp, stApply), 6) << "the gateway's result counts";
        EXPECT_THAT(journal::effects(), ElementsAre("NET_API_SetIpAddr(\"NetCard0\", \"" + strAddress + "\")",
                                                    "NET_API_SetNetMask(\"NetCard0\", \"" + strMask + "\")",
                                                    "NET_API_SetGateWay(\"NetCard0\", \"" + strGateway + "\")"));
    };
    applies("", "", ""); // nothing sent yet
    check(viscaCtrlIp, {{ip(VISCA_MSG_E_IP_ADDRESS, 0xC0A801FE), {}}});
    applies("192.168.1.254", "", "");
    check(viscaCtrlIp, {{ip(VISCA_MSG_E_IP_MASK, 0xFFFFFF00), {}}, {ip(VISCA_MSG_E_IP_GATEWAY, 0x0A000001), {}}});
    applies("192.168.1.254", "255.255.255.0", "10.0.0.1");
    check(viscaCtrlIp, {{ip(VISCA_MSG_E_IP_ADDRESS, 0xFFFFFFFF), {}}});
    applies("255.255.255.255", "255.255.255.0", "10.0.0.1");
    EXPECT_THAT(traceOf(viscaCtrlIp, {ip(VISCA_MSG_E_IP_GATEWAY, 0xC0A80101), {}}),
                HasSubstr("Ip info: 192.168.1.1\n"));
    EXPECT_THAT(traceOf(viscaCtrlIp, stApply),
                HasSubstr("visca set:\n  IP: 255.255.255.255\n  Mask: 255.255.255.0\n  Gateway: 192.168.1.1\n"));
    passes(viscaCtrlIp, {{ip(VISCA_MSG_E_IP_DHCP_ON), {"NET_API_SetIpMode(\"NetCard0\", 0)"}},
                         {ip(VISCA_MSG_E_IP_DHCP_OFF), {"NET_API_SetIpMode(\"NetCard0\", 1)"}}});
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
    const auto receiver = with<&Info::enIrRecvCtrl, VISCA_CTRL_IR_RECV_E>;
    const auto remote = with<&Info::stIrCtrl, VISCA_CTRL_IR_E, BU_S32>;
    const std::string strOn = "IR_API_SetSwitchByRam(\"On\")", strOff = "IR_API_SetSwitchByRam(\"Off\")";
    passes(viscaCtrlIrRecv,
           {{receiver(VISCA_MSG_E_IR_RECV_ON), {strOn}}, {receiver(VISCA_MSG_E_IR_RECV_OFF), {strOff}}});
    const auto toggles = [&](std::function<void()> setUp, const std::string &strTo) {
        EXPECT_EQ(run(viscaCtrlIrRecv, {receiver(VISCA_MSG_E_IR_RECV_ON_OFF), {}, 0, std::move(setUp)}), 0);
        EXPECT_THAT(journal::effects(), ElementsAre(strTo));
    };
    toggles([] { IR_API_SetSwitchByRam("On"); }, strOff);
    toggles([] { IR_API_SetSwitchByRam("Off"); }, strOn);
    toggles([] { journal::inject("IR_API_GetSwitch", -1); }, strOff); // a state that cannot be read counts as on
    passes(viscaCtrlIrCtrl, {{remote(VISCA_MSG_E_IR_MODE, 2), {"IR_API_SetSwitch(\"On\", 1)"}},
                             {remote(VISCA_MSG_E_IR_MODE, 3), {"IR_API_SetSwitch(\"Off\", 1)"}},
                             {remote(VISCA_MSG_E_IR_MODE, 1), {}, REFUSED},
                             {remote(VISCA_MSG_E_IR_MODE, 4), {}, REFUSED},
                             {remote(VISCA_MSG_E_IR_ADDR, 3), {"IR_API_SetAddr(3, 1, 0)"}}});
}

TEST_F(CommandSystem, LampColours)
{
    const char *const apcStates[] = {"hold #FF0000 80%",
                                     "hold #00FF00 80%",
                                     "hold #0000FF 80%",
                                     "hold white 80%",
                                     "off",
                                     "flick #FF0000 80% 1Hz",
                                     "flick #00FF00 80% 1Hz",
                                     "flick #0000FF 80% 1Hz",
                                     "off" /* unknown */};
    for (BU_S32 i = 0; i < 9; ++i)
        check(viscaCtrlTallyLed,
              {{with<&Info::enTallyLed>(i),
                {std::string("LED_API_SetLedStateInfoFrom(\"TallyLed\", 2, ") + apcStates[i] + ")"}}});
}

TEST_F(CommandSystem, TallyModes)
{
    const auto tally = [](BU_S32 s32Mode) { return with<&Info::stTKVtTally>(0x123456, s32Mode); };
    const std::string strOn = "LED_API_SetTallyOnBoard(\"TallyLed\", 1, 1, 1)",
                      strOff = "LED_API_SetTallyOnBoard(\"TallyLed\", 0, 1, 1)",
                      strUpdate = "LED_API_TriggerLedUpdateFrom(3)";
    // clang-format off
    passes(viscaCtrlTKVTally, {{tally(0),  {strOn}},
                               {tally(1),  {strOff}},
                               {tally(10), {"LED_API_SetTallyMode(\"TallyLed\", 0, 1, 1)"}},
                               {tally(11), {"LED_API_SetTallyMode(\"TallyLed\", 1, 1, 1)"}},
                               {tally(12), {"LED_API_SetTallyMode(\"TallyLed\", 6, 1, 1)"}},
                               {tally(13), {"LED_API_SetTallyMode(\"TallyLed\", 7, 1, 1)"}},
                               {tally(14), {"LED_API_SetTallyCustomColor(\"TallyLed\", 1193046, 1, 1)"}},
                               {tally(5),  {}, REFUSED}});
    // clang-format on
    check(viscaCtrlTKVTally, {{tally(2), {strUpdate}}, {tally(3), {strUpdate}}, {tally(4), {strUpdate}}});
    check(viscaCtrlYMTally, {{with<&Info::enTallyType>(0), {strOff}},
                             {with<&Info::enTallyType>(1), {}},
                             {with<&Info::enTallyType>(2), {strOn}}});
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
        EXPECT_EQ(run(viscaCtrlTKVTally, {with<&Info::stTKVtTally>(0, row.s32Mode), {}}), 0);
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
    const auto volume = with<&Info::stAudioVolCtrl, VISCA_CTRL_AUDIO_VOL_E, BU_S32>;
    const BU_S32 s32Id = AUDIO_AI_GetFirstEnabledId();
    ASSERT_GE(s32Id, 0);
    tagAI_ATTR_S stDefault{}, stAttr{};
    ASSERT_EQ(AUDIO_AI_GetDefAttr(s32Id, &stDefault), 0);
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
        EXPECT_EQ(run(viscaCtrlAudioVol, {volume(row.enType, 42), {}}), 0);
        ASSERT_EQ(AUDIO_AI_GetAttr(s32Id, &stAttr), 0);
        EXPECT_EQ(stAttr.s32Volume, row.s32To);
        journal::inject("AUDIO_AI_SetAttr", -4);
        EXPECT_EQ(run(viscaCtrlAudioVol, {volume(row.enType, 42), {}}), -4);
    }
    const tagCOMMAND_CASE_S stNone{
        volume(VISCA_MSG_E_AUDIO_VOL_UP, 0), {}, 0, [] { journal::inject("AUDIO_AI_GetFirstEnabledId", -1); }};
    check(viscaCtrlAudioVol, {stNone});
    EXPECT_THAT(traceOf(viscaCtrlAudioVol, stNone), HasSubstr("] No AI enabled value "));
}

TEST_F(CommandSystem, MuteMenuAndFactoryReset)
{
    check(viscaCtrlAudioMute, {{with<&Info::enAudioMuteCtrl>(3), {"SYS_API_SetAudioMute(1, 1, 1)"}},
                               {with<&Info::enAudioMuteCtrl>(2), {"SYS_API_SetAudioMute(0, 1, 1)"}}});
    const char *const apcKeys[] = {"CMD_MENU_HandleMenuBtn()", "CMD_MENU_OnlyOpenMenu()", "CMD_MENU_OnlyCloseMenu()",
                                   "CMD_MENU_HandeUpBtn()",    "CMD_MENU_HandeDownBtn()", "CMD_MENU_HandeLeftBtn()",
                                   "CMD_MENU_HandeRightBtn()", "CMD_MENU_HandeHomeBtn()", "OSD_MENU_ReturnMenu()"};
    for (BU_S32 i = 0; i < 9; ++i) check(viscaCtrlSysMenu, {{with<&Info::eSysMenuOpt>(i), {apcKeys[i]}}});
    check(viscaCtrlSystemFactory, {{[](Info &) {}, {"SYSTEM_API_FactoryRestoreConfiguration(-1)"}}});
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
        const auto fill = [](Info &st) {
            for (std::size_t i = 0; i < sizeof(st) / sizeof(BU_S32); ++i)
                std::memcpy(reinterpret_cast<char *>(&st) + i * sizeof(BU_S32), "\x63\0\0", sizeof(BU_S32));
        };
        check(row.pfnHandle, {{fill, {}, row.s32Result}});
    }
}
} // namespace
