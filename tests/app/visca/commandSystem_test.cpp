// Commands of address, output format, network, infrared, lamps, sound, menu and tracking; and what no command may do.
#include "board/lamp.h"
#include "camera/menu.h"
#include "camera/restore.h"
#include "camera/tracking.h"
#include "camera/video.h"
#include "commandTest.h"
#include "led/led.h"
#include "media/audio.h"
#include "support/await.h"

#include <cstring>
#include <thread>

namespace
{
using CommandSystem = CommandTest;
using testing::HasSubstr;

// clang-format off
const Message ADDRESS{VISCA_CMD_E_SET_ADDRESS, put<&Info::u8Address>}, VIDEO{VISCA_CMD_E_VIDEO_RESOLUTION, put<&Info::enVideoCtrl>},
    IP{VISCA_CMD_E_IP, put<&Info::stIpCtrl>}, IR_RECEIVER{VISCA_CMD_E_IR_RECV, put<&Info::enIrRecvCtrl>}, IR_REMOTE{VISCA_CMD_E_IRCTRL, put<&Info::stIrCtrl>},
    LAMP{VISCA_CMD_E_TALLYLED, put<&Info::enTallyLed>, true}, TALLY{VISCA_CMD_E_TKV_TALLY_LED, put<&Info::stTKVtTally>},
    TALLY_DONE{VISCA_CMD_E_TKV_TALLY_LED, put<&Info::stTKVtTally>, true}, SIMPLE_TALLY{VISCA_CMD_E_YM_TALLY_LED, put<&Info::enTallyType>, true},
    VOLUME{VISCA_CMD_E_AUDIO_VOLUME, put<&Info::stAudioVolCtrl>}, MUTE{VISCA_CMD_E_TKV_AUDIO, put<&Info::enAudioMuteCtrl>, true},
    MENU{VISCA_CMD_E_SYS_MENU, put<&Info::eSysMenuOpt>, true};

TEST_F(CommandSystem, SingleCalls)
{
    const std::string strOn = "LED_API_SetTallyOnBoard(\"TallyLed\", 1, 1, 1)", strOff = "LED_API_SetTallyOnBoard(\"TallyLed\", 0, 1, 1)",
                      strUpdate = "LED_API_TriggerLedUpdateFrom(3)";
    check(Rows{{{VISCA_CMD_E_CANCEL}, {}, ""}, {{VISCA_CMD_E_SYSTEM_FACTORY, nothing, true}, {}, "SYSTEM_API_FactoryRestoreConfiguration(-1)"},
               {MUTE, {3}, "SYS AudioMute 1"}, {MUTE, {2}, "SYS AudioMute 0"},
               {IR_RECEIVER, {2}, "IR_API_SetSwitchByRam(\"On\")"},  {IR_RECEIVER, {3}, "IR_API_SetSwitchByRam(\"Off\")"},
               {IR_RECEIVER, {4}, "IR_API_SetSwitchByRam(\"Off\")", "IrSwitch 1"}, {IR_RECEIVER, {4}, "IR_API_SetSwitchByRam(\"On\")", "IrSwitch 0"},
               {IR_RECEIVER, {4}, "IR_API_SetSwitchByRam(\"Off\")", "@IR_API_GetSwitch -1"}, // a state that cannot be read counts as on
               {IR_REMOTE, {0, 2}, "IR_API_SetSwitch(\"On\", 1)"}, {IR_REMOTE, {0, 3}, "IR_API_SetSwitch(\"Off\", 1)"},
               {IR_REMOTE, {0, 1}, REFUSED}, {IR_REMOTE, {0, 4}, REFUSED}, {IR_REMOTE, {1, 3}, "IR_API_SetAddr(3, 1, 0)"},
               {SIMPLE_TALLY, {0}, strOff}, {SIMPLE_TALLY, {1}, ""}, {SIMPLE_TALLY, {2}, strOn},
               {TALLY, {0, 0}, strOn}, {TALLY, {0, 1}, strOff}, {TALLY, {0x123456, 14}, "LED_API_SetTallyCustomColor(\"TallyLed\", 1193046, 1, 1)"},
               {TALLY, {0, 10}, "LED_API_SetTallyMode(\"TallyLed\", 0, 1, 1)"}, {TALLY, {0, 11}, "LED_API_SetTallyMode(\"TallyLed\", 1, 1, 1)"},
               {TALLY, {0, 12}, "LED_API_SetTallyMode(\"TallyLed\", 6, 1, 1)"}, {TALLY, {0, 13}, "LED_API_SetTallyMode(\"TallyLed\", 7, 1, 1)"},
               {TALLY, {0, 5}, REFUSED}, {TALLY_DONE, {0, 2}, strUpdate}, {TALLY_DONE, {0, 3}, strUpdate}, {TALLY_DONE, {0, 4}, strUpdate}});
    const char *const KEYS[] = {"HandleMenuBtn", "OnlyOpenMenu", "OnlyCloseMenu", "HandeUpBtn", "HandeDownBtn", "HandeLeftBtn", "HandeRightBtn", "HandeHomeBtn"};
    for (BU_S32 i = 0; i < 8; ++i) check(Rows{{MENU, {i}, std::string("CMD_MENU_") + KEYS[i] + "()"}});
    check(Rows{{MENU, {8}, "OSD_MENU_ReturnMenu()"}});
    const char *const LAMPS[] = {"hold #FF0000 80%", "hold #00FF00 80%", "hold #0000FF 80%", "hold white 80%", "off",
                                 "flick #FF0000 80% 1Hz", "flick #00FF00 80% 1Hz", "flick #0000FF 80% 1Hz", "off" /* unknown */};
    for (BU_S32 i = 0; i < 9; ++i) check(Rows{{LAMP, {i}, std::string("LED_API_SetLedStateInfoFrom(\"TallyLed\", 2, ") + LAMPS[i] + ")"}});
}

TEST_F(CommandSystem, AddressIsRefusedWhateverTheFailure)
{
    for (const BU_S32 s32Result : {0, 9, -1}) {
        const std::string strTrace = traceOf([=] { EXPECT_EQ(dispatch(ADDRESS, {3}, "@VISCA_API_SetAddr " + std::to_string(s32Result)), s32Result ? -1 : 0); });
        EXPECT_EQ(effects(), "VISCA_API_SetAddr(3, 1); " + answered(VISCA_CMD_E_SET_ADDRESS, s32Result == 0));
        EXPECT_THAT(strTrace, HasSubstr(s32Result ? "]: set addr 3 error\n" : "] addr 3\n"));
    }
}

TEST_F(CommandSystem, VideoResolutions)
{
    const std::pair<BU_S32, const char *> ROWS[] = {
        {0, "1080P\", \"Fps60"}, {1, "1080P\", \"Fps30"}, {2, "1080I\", \"Fps60"}, {3, "720P\", \"Fps60"}, {4, "720P\", \"Fps30"}, {6, "4K\", \"Fps60"},
        {7, "4K\", \"Fps30"}, {8, "1080P\", \"Fps50"}, {9, "1080P\", \"Fps25"}, {10, "1080I\", \"Fps25"}, {11, "720P\", \"Fps50"}, {12, "720P\", \"Fps25"},
        {14, "4K\", \"Fps50"}, {15, "4K\", \"Fps25"}, {16, "1080P\", \"Fps59p94"}, {17, "1080P\", \"Fps29p97"}, {18, "720P\", \"Fps59p94"}};
    SYSTEM_API_SetHdmiCfg("Format-1080P", "Fps60", HDMI_CS_E_YUV444, BU_FALSE);
    for (const auto &[s32Code, pcFormat] : ROWS) {
        const std::string strArgs = std::string("(\"Format-") + pcFormat + "\", 2, ";
        check(Rows{{VIDEO, {s32Code}, "SYSTEM_API_SetHdmiCfg" + strArgs + "1); SYSTEM_API_SetSdiCfg" + strArgs + "0)"}});
    }
    check(refused(VIDEO, {{5}, {13}, {19}}));
}

/// The buffers live as long as the process, so what they hold at the start is a test's first row.
TEST_F(CommandSystem, NetworkAddressesAreKeptUntilApplied)
{
    const auto applied = [](const std::string &strAddress, const std::string &strMask, const std::string &strGateway) {
        EXPECT_EQ(dispatch(IP, {7}, "@NET_API_SetIpAddr -1, @NET_API_SetNetMask -1, @NET_API_SetGateWay 6"), 6) << "the gateway's result counts";
        EXPECT_EQ(effects(), "NET_API_SetIpAddr(\"NetCard0\", \"" + strAddress + "\"); NET_API_SetNetMask(\"NetCard0\", \"" + strMask +
                             "\"); NET_API_SetGateWay(\"NetCard0\", \"" + strGateway + "\"); ");
    };
    const auto number = [](BU_U32 u32Ip) { return static_cast<BU_S32>(u32Ip); };
    applied("", "", ""); // nothing sent yet
    check(Rows{{IP, {4, number(0xC0A801FE)}, ""}});
    applied("192.168.1.254", "", "");
    check(Rows{{IP, {5, number(0xFFFFFF00)}, ""}, {IP, {6, number(0x0A000001)}, ""}});
    applied("192.168.1.254", "255.255.255.0", "10.0.0.1");
    check(Rows{{IP, {4, number(0xFFFFFFFF)}, ""}});
    EXPECT_THAT(traceOf([&] { dispatch(IP, {6, number(0xC0A80101)}); }), HasSubstr("Ip info: 192.168.1.1\n"));
    EXPECT_THAT(traceOf([&] { applied("255.255.255.255", "255.255.255.0", "192.168.1.1"); }),
                HasSubstr("visca set:\n  IP: 255.255.255.255\n  Mask: 255.255.255.0\n  Gateway: 192.168.1.1\n"));
    check(each(IP, "NET_API_SetIpMode(\"NetCard0\", %)", {{2, 0}, {3, 1}}));
}
// clang-format on

TEST_F(CommandSystem, TwoControllersApplyOneAfterTheOther)
{
    const char *const ORDER[] = {"NET_API_SetIpAddr", "NET_API_SetNetMask", "NET_API_SetGateWay"};
    for (const char *pc : ORDER) journal::inject(pc, 1, 1000);
    journal::effects();
    {
        const auto controller = [] {
            for (int i = 0; i < 100; ++i) {
                Info stInfo{};
                IP.fill(stInfo, {VISCA_MSG_E_IP_APPLYA});
                viscaCtrlHandlerCallFunc(IP.enType, &stInfo);
            }
        };
        const std::jthread first(controller), second(controller);
    }
    const auto listEffects = journal::effects();
    ASSERT_EQ(listEffects.size(), 600U);
    for (std::size_t i = 0; i < listEffects.size(); ++i) EXPECT_THAT(listEffects[i], testing::StartsWith(ORDER[i % 3]));
}

TEST_F(CommandSystem, NdiTallySetByHandReachesTheLamp)
{
    LED_InitDev();
    std::promise<void> over;
    const std::jthread starting([&] { LED_API_AppOver(), over.set_value(); });
    await([&, ready = over.get_future()] { // the start-up indication runs on this clock
        return clock().advance(50), ready.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
    });
    for (const auto &[s32Mode, pcState] : {std::pair{2, "hold #00FF00 80%"}, {3, "hold #FF0000 80%"}, {4, "off"}}) {
        EXPECT_EQ(dispatch(TALLY, {0, s32Mode}), 0);
        const std::string strShown = "LED_API_SetLedStateInfoFrom(\"TallyLed\", 3, " + std::string(pcState) + ")";
        EXPECT_TRUE(await([&] { return std::ranges::count(journal::effects(), strShown) > 0; })) << strShown;
    }
    LED_UnInitDev();
}

TEST_F(CommandSystem, VolumeOfTheFirstAudioInput)
{
    const BU_S32 s32Id = AUDIO_AI_GetFirstEnabledId();
    tagAI_ATTR_S stDefault{}, stAttr{};
    ASSERT_EQ(AUDIO_AI_GetDefAttr(s32Id, &stDefault), 0);
    for (const auto &[s32Kind, s32Volume] : {std::pair{0, stDefault.s32Volume}, {1, 31}, {2, 29}, {3, 42}}) {
        stAttr = stDefault;
        stAttr.s32Volume = 30;
        AUDIO_AI_SetAttr(s32Id, &stAttr, BU_FALSE);
        EXPECT_EQ(dispatch(VOLUME, {s32Kind, 42}), 0);
        ASSERT_EQ(AUDIO_AI_GetAttr(s32Id, &stAttr), 0);
        EXPECT_EQ(stAttr.s32Volume, s32Volume);
        EXPECT_EQ(dispatch(VOLUME, {s32Kind, 42}, "@AUDIO_AI_SetAttr -4"), -4);
    }
    const std::string strTrace = traceOf([] { check(Rows{{VOLUME, {1}, "", "@AUDIO_AI_GetFirstEnabledId -1"}}); });
    EXPECT_THAT(strTrace, HasSubstr("] No AI enabled value "));
}

/// Every code of the record is one that no message has.
TEST_F(CommandSystem, UnknownKindsChangeNothing)
{
    // clang-format off
    const Type DONE[] = {VISCA_CMD_E_YM_TALLY_LED, VISCA_CMD_E_SYS_MENU, VISCA_CMD_E_YM_AUTO_TRACKING, VISCA_CMD_E_YM_AUTO_ZOOM,
        VISCA_CMD_E_YM_AUTO_TILT, VISCA_CMD_E_YM_INDICATOR, VISCA_CMD_E_YM_OSD_REMINDER, VISCA_CMD_E_YM_FIGURE_SIZE,
        VISCA_CMD_E_YM_SELECY_SUBJECT, VISCA_CMD_E_YM_PLACEMENT, VISCA_CMD_E_YM_AT_SPEED};
    const Type OTHERS[] = {VISCA_CMD_E_CANCEL, VISCA_CMD_E_SET_ADDRESS, VISCA_CMD_E_POWER, VISCA_CMD_E_ZOOM_FOCUS, // they know no kind
        VISCA_CMD_E_TALLYLED, VISCA_CMD_E_PAN_TILT, VISCA_CMD_E_SYSTEM_FACTORY, VISCA_CMD_E_TKV_AUDIO, VISCA_CMD_E_YM_TRACKING_START_PRESET};
    // clang-format on
    for (BU_S32 i = VISCA_CMD_E_CANCEL; i < VISCA_INQ_E_NONE; ++i) {
        const auto enType = static_cast<Type>(i);
        if (std::ranges::count(OTHERS, enType)) continue;
        const auto fill = [](Info &st, const Numbers &) {
            for (std::size_t at = 0; at + sizeof(BU_S32) <= sizeof(st); at += sizeof(BU_S32))
                std::memcpy(reinterpret_cast<char *>(&st) + at, "\x63\0\0", sizeof(BU_S32));
        };
        check(Rows{{{enType, fill}, {}, std::ranges::count(DONE, enType) ? "" : REFUSED}});
    }
}

// ---- tracking ----

typedef VISCA_MSG_AUTO_TRACKING_S Tracking;
using CommandTracking = CommandTest;

/// A field of the tracking record; the second number is the sub-command of the grouped command.
template <auto Member> void field(Info &st, const Numbers &numbers)
{
    put<&Info::stAutoTracking, Member>(st, {numbers[0]});
    if (numbers.size() > 1) put<&Info::stAutoTracking, &Tracking::enTRackParamType>(st, {numbers[1]});
}
void ownFigureSize(Info &st, const Numbers &numbers)
{
    field<&Tracking::s32FigureSize>(st, numbers);
    st.stAutoTracking.enFigureSizeCtrl = VISCA_MSG_E_FIGURE_SIZE_SAVE;
}

TEST_F(CommandTracking, EveryValueOfEveryField)
{
    constexpr auto NO_OWN = VISCA_CMD_E_NONE;
    constexpr BU_S32 NO_GROUPED = -1;
    typedef std::vector<std::pair<BU_S32, const char *>> Values;
    const auto switches = [](const char *pcOn, const char *pcOff) {
        return Values{{2, pcOn}, {3, pcOff}, {1, ""}, {4, ""}};
    };
    const struct {
        void (*fill)(Info &, const Numbers &);
        Type enOwn;        ///< the command of its own
        BU_S32 s32Grouped; ///< the sub-command
        Values values;     ///< and what each asks for
        bool bPasses = false;
    } FIELDS[] = {
        // clang-format off
        {field<&Tracking::enAutoTrackingCtrl>, VISCA_CMD_E_YM_AUTO_TRACKING, 0, {{2, "ALG Enable 1"}, {3, "ALG Enable 0"}, {5, ""}}},
        {field<&Tracking::enAutoTrackModeCtrl>, NO_OWN, 1, {{0, "ALG TrackMode 3"}, {1, "ALG TrackMode 4"}, {2, "ALG TrackMode 0"}, {3, "ALG TrackMode 2"}, {4, "ALG TrackMode 1"}, {5, ""}}},
        {field<&Tracking::enAutoZoomCtrl>, VISCA_CMD_E_YM_AUTO_ZOOM, 2, switches("ALG AutoZoom 1", "ALG AutoZoom 0")},
        {field<&Tracking::enAUtoTiltCtrl>, VISCA_CMD_E_YM_AUTO_TILT, 3, switches("ALG AutoTilt 1", "ALG AutoTilt 0")},
        {field<&Tracking::enAUtoPanCtrl>, NO_OWN, 4, switches("ALG AutoPan 1", "ALG AutoPan 0")},
        {field<&Tracking::s32TrackingStartPositionpreset>, NO_OWN, 5, {{0, "ALG StartPos -1"}, {1, "ALG StartPos 0"}, {2, "ALG StartPos 1"}, {3, "ALG StartPos -2"}, {4, "-"}, {254, "-"}, {-1, "-"}, {255, "-"}}},
        {field<&Tracking::s32TrackingStartPositionpreset>, VISCA_CMD_E_YM_TRACKING_START_PRESET, NO_GROUPED, {{0, "-"}, {1, "ALG StartPos 1"}, {254, "ALG StartPos 254"}, {255, "-"}}},
        {field<&Tracking::enFigureSizeCtrl>, VISCA_CMD_E_YM_FIGURE_SIZE, 6, {{0, "ALG BodySize 0"}, {1, "ALG BodySize 1"}, {2, "ALG BodySize 2"}, {3, "ALG BodySize 3"}, {5, "ALG_API_GetBodySizeReset()"}, {6, ""}}},
        {ownFigureSize, VISCA_CMD_E_YM_FIGURE_SIZE, 6, {{0, "-"}, {1, "ALG BodySizeCustom 1"}, {360, "ALG BodySizeCustom 360"}, {361, "-"}}},
        {field<&Tracking::enSelectSubjectCtrl>, VISCA_CMD_E_YM_SELECY_SUBJECT, 7, {{2, "ALG_API_PreSelectLastTarget()"}, {3, "ALG_API_PreSelectNextTarget()"}, {4, "ALG_API_ApplyPreSelectTarget()"}, {5, ""}}},
        {field<&Tracking::enPlacementCtrl>, VISCA_CMD_E_YM_PLACEMENT, 8, {{0, "ALG PeoplePos 2"}, {1, "ALG PeoplePos 0"}, {2, "ALG PeoplePos 1"}, {3, ""}}},
        {field<&Tracking::s32AtLostTime>, NO_OWN, 9, {{2, "ALG LostTime 0"}, {4, "ALG LostTime 1"}, {6, "ALG LostTime 2"}, {5, ""}, {0, ""}, {8, ""}}, true},
        {field<&Tracking::s32PresetAreaId>, NO_OWN, 11, {{0, "-"}}}, // zone trigger
        {field<&Tracking::s32PresetAreaId>, NO_OWN, 12, {{0, "-"}}}, // zone start area
        {field<&Tracking::enOsdReminderCtrl>, VISCA_CMD_E_YM_OSD_REMINDER, 14, {{0, "ALG Debug 0"}, {1, "ALG Debug 1"}, {2, ""}}},
        {field<&Tracking::enDetectedIndicatorCtrl>, VISCA_CMD_E_YM_INDICATOR, 15, switches("ALG TallyIndicator 1", "ALG TallyIndicator 0")},
        {field<&Tracking::s32HeadPos>, NO_OWN, 16, {{2, "ALG HeadPos 2"}}, true},
        {field<&Tracking::s32TrackSpeed>, NO_OWN, 17, {{0, "ALG TrackSpeed 3"}, {1, "ALG TrackSpeed 4"}, {2, "-"}, {-1, "-"}}},
        {field<&Tracking::enGestureDetect>, NO_OWN, 18, switches("ALG Gesture 1", "ALG Gesture 0"), true},
        {field<&Tracking::enAtSpeedCtrl>, VISCA_CMD_E_YM_AT_SPEED, NO_GROUPED, {{0, "ALG TrackSpeed 2"}, {1, "ALG TrackSpeed 1"}, {2, "ALG TrackSpeed 0"}, {3, ""}}},
        {field<&Tracking::s32PresetAreaId>, NO_OWN, 19, {{0, "-"}}}, // no such sub-command
        // clang-format on
    };
    for (const auto &stField : FIELDS)
        for (const auto &[s32Value, pcEffect] : stField.values) {
            Message own{stField.enOwn, stField.fill, !stField.bPasses}, grouped = own;
            grouped.enType = VISCA_CMD_E_TKV_TRACKING;
            if (own.enType != NO_OWN) check(Rows{{own, {s32Value}, pcEffect}});
            if (stField.s32Grouped >= 0) check(Rows{{grouped, {s32Value, stField.s32Grouped}, pcEffect}});
        }
    const auto fill = field<&Tracking::enAutoTrackingCtrl>;
    for (const Type enType : {VISCA_CMD_E_YM_AUTO_TRACKING, VISCA_CMD_E_TKV_TRACKING}) // the other state
        check(Rows{{{enType, fill, true}, {4, 0}, "ALG Enable 0", "TrackEnabled 1"},
                   {{enType, fill, true}, {4, 0}, "ALG Enable 1", "TrackEnabled 0"}});
}

TEST_F(CommandTracking, ZonesStoreAndCallTheirPreset)
{
    tagTRACK_AREA_S astAreas[8]{};
    for (BU_S32 i = 0; i < 3; ++i) astAreas[i] = {BU_TRUE, 0, 0, 10, 10, 20 + i, 0};
    ASSERT_EQ(TRACK_SetAreaList(TRACK_AREA_E_PRESET, astAreas, BU_FALSE), 0);
    BU_S32 s32Count = 0;
    ASSERT_EQ(TRACK_GetAreaList(TRACK_AREA_E_PRESET, astAreas, &s32Count), 0);

    constexpr BU_S32 SAVE = 10, CALL = 13;
    const Message ZONE{VISCA_CMD_E_TKV_TRACKING, field<&Tracking::s32PresetAreaId>};
    check(Rows{{ZONE, {1, SAVE}, "PRESET_API_SetCur(21, \"\")", "TrackMode 2"},
               {ZONE, {1, CALL}, "PRESET_API_GotoById(21, 1, NULL)", "TrackMode 2"}});
    for (const BU_S32 s32Sub : {SAVE, CALL}) {
        for (const BU_S32 s32Id : {-1, s32Count, 8}) check(Rows{{ZONE, {s32Id, s32Sub}, REFUSED, "TrackMode 2"}});
        for (const char *pcMode : {"TrackMode 0", "TrackMode 1", "TrackMode 3"})
            check(Rows{{ZONE, {1, s32Sub}, REFUSED, pcMode}});
    }
}

TEST_F(CommandTracking, TracesNameTheHandlerThatRan)
{
    const auto trace = [](Type enType, const Numbers &numbers) {
        const Message message{enType, field<&Tracking::enAUtoTiltCtrl>};
        return traceOf([&] { dispatch(message, numbers); });
    };
    EXPECT_THAT(trace(VISCA_CMD_E_YM_AUTO_TILT, {0}), testing::MatchesRegex("\\[viscaCtrlAutoTilt:[0-9]+\\]  \n"));
    EXPECT_THAT(trace(VISCA_CMD_E_TKV_TRACKING, {0, 18}),
                testing::MatchesRegex("\\[viscaCtrlTKVTrack:[0-9]+\\] Type\\[18\\]  \n"
                                      "\\[viscaCtrlATGestureDetect:[0-9]+\\]  \n"));
}
} // namespace
