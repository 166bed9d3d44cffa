// Tracking, by commands of their own and by the grouped command.
#include "camera/tracking.h"
#include "commandTest.h"

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;
typedef VISCA_MSG_AUTO_TRACKING_S Tracking;

/// A field of the record that one or two commands read, and what each of its values asks for.
struct tagFIELD_S {
    std::function<void(Tracking &, BU_S32)> set;
    PFN_HANDLER pfnSingle; ///< the command of its own; null: none
    BU_S32 s32Grouped;     ///< the sub-command; -1: none
    /// "ALG_API_SetTrackMode(3, 1, 1)" by "TrackMode 3"; any other call as it stands; "": nothing; "-": refused
    std::vector<std::pair<BU_S32, std::string>> listCases;
    bool bPasses = false; ///< a failure is passed through
};

template <auto Member> void field(Tracking &st, BU_S32 s32Value)
{
    st.*Member = static_cast<std::remove_reference_t<decltype(st.*Member)>>(s32Value);
}
void ownFigureSize(Tracking &st, BU_S32 s32Size)
{
    st.enFigureSizeCtrl = VISCA_MSG_E_FIGURE_SIZE_SAVE;
    st.s32FigureSize = s32Size;
}
std::string sets(const std::string &strSetter, const std::string &strValue)
{
    return "ALG_API_Set" + strSetter + "(" + strValue + ", 1, 1)";
}
Effects effectsOf(const std::string &strCase)
{
    if (strCase.empty() || strCase == "-") return {};
    const auto space = strCase.find(' ');
    return {space == strCase.npos ? strCase : sets(strCase.substr(0, space), strCase.substr(space + 1))};
}

class CommandTracking : public CommandTest
{
protected:
    static void checkField(const tagFIELD_S &stField)
    {
        for (const auto &[s32Value, strCase] : stField.listCases)
            for (const auto pfnHandle : {stField.pfnSingle, stField.s32Grouped < 0 ? nullptr : viscaCtrlTKVTrack}) {
                SCOPED_TRACE(s32Value);
                if (!pfnHandle) continue;
                const auto fill = [&, s32 = s32Value](Info &st) {
                    stField.set(st.stAutoTracking, s32);
                    st.stAutoTracking.enTRackParamType = static_cast<VISCA_CTRL_TRACK_PARAM_E>(stField.s32Grouped);
                };
                const Cases cases{{fill, effectsOf(strCase), strCase == "-" ? REFUSED : 0}};
                stField.bPasses ? passes(pfnHandle, cases) : check(pfnHandle, cases);
            }
    }
};

TEST_F(CommandTracking, EveryValueOfEveryField)
{
    const auto switches = [](const std::string &str) {
        return std::vector<std::pair<BU_S32, std::string>>{{2, str + " 1"}, {3, str + " 0"}, {1, ""}, {4, ""}};
    };
    // clang-format off
    const tagFIELD_S fields[] = {
        {field<&Tracking::enAutoTrackModeCtrl>, nullptr, 1,
            {{0, "TrackMode 3"}, {1, "TrackMode 4"}, {2, "TrackMode 0"}, {3, "TrackMode 2"}, {4, "TrackMode 1"}, {5, ""}}},
        {field<&Tracking::enAutoZoomCtrl>, viscaCtrlAutoZoom, 2, switches("AutoZoom")},
        {field<&Tracking::enAUtoTiltCtrl>, viscaCtrlAutoTilt, 3, switches("AutoTilt")},
        {field<&Tracking::enAUtoPanCtrl>, nullptr, 4, switches("AutoPan")},
        {field<&Tracking::s32TrackingStartPositionpreset>, nullptr, 5,
            {{0, "StartPos -1"}, {1, "StartPos 0"}, {2, "StartPos 1"}, {3, "StartPos -2"}, {4, "-"}, {254, "-"}, {-1, "-"}, {255, "-"}}},
        {field<&Tracking::s32TrackingStartPositionpreset>, viscaCtrlTrackingStartPreset, -1,
            {{0, "-"}, {1, "StartPos 1"}, {254, "StartPos 254"}, {255, "-"}}},
        {field<&Tracking::enFigureSizeCtrl>, viscaCtrlFigureSize, 6,
            {{0, "BodySize 0"}, {1, "BodySize 1"}, {2, "BodySize 2"}, {3, "BodySize 3"}, {5, "ALG_API_GetBodySizeReset()"}, {6, ""}}},
        {ownFigureSize, viscaCtrlFigureSize, 6,
            {{0, "-"}, {1, "BodySizeCustom 1"}, {360, "BodySizeCustom 360"}, {361, "-"}}},
        {field<&Tracking::enSelectSubjectCtrl>, viscaCtrlSelectSubject, 7,
            {{2, "ALG_API_PreSelectLastTarget()"}, {3, "ALG_API_PreSelectNextTarget()"}, {4, "ALG_API_ApplyPreSelectTarget()"}, {5, ""}}},
        {field<&Tracking::enPlacementCtrl>, viscaCtrlPlacement, 8,
            {{0, "PeoplePos 2"}, {1, "PeoplePos 0"}, {2, "PeoplePos 1"}, {3, ""}}},
        {field<&Tracking::s32AtLostTime>, nullptr, 9,
            {{2, "LostTime 0"}, {4, "LostTime 1"}, {6, "LostTime 2"}, {5, ""}, {0, ""}, {8, ""}}, true},
        {field<&Tracking::enOsdReminderCtrl>, viscaCtrlOsdPeminder, 14, {{0, "Debug 0"}, {1, "Debug 1"}, {2, ""}}},
        {field<&Tracking::enDetectedIndicatorCtrl>, viscaCtrlIndcator, 15, switches("TallyIndicator")},
        {field<&Tracking::s32HeadPos>, nullptr, 16, {{2, "HeadPos 2"}}, true},
        {field<&Tracking::s32TrackSpeed>, nullptr, 17, {{0, "TrackSpeed 3"}, {1, "TrackSpeed 4"}, {2, "-"}, {-1, "-"}}},
        {field<&Tracking::enGestureDetect>, nullptr, 18, switches("Gesture"), true},
        {field<&Tracking::enAtSpeedCtrl>, viscaCtrlATSpeed, -1, {{0, "TrackSpeed 2"}, {1, "TrackSpeed 1"}, {2, "TrackSpeed 0"}, {3, ""}}},
        {field<&Tracking::s32PresetAreaId>, nullptr, 11, {{0, "-"}}}, // zone trigger
        {field<&Tracking::s32PresetAreaId>, nullptr, 12, {{0, "-"}}}, // zone start area
        {field<&Tracking::s32PresetAreaId>, nullptr, 19, {{0, "-"}}}, // no such sub-command
    };
    // clang-format on
    for (const auto &stField : fields) checkField(stField);
}

TEST_F(CommandTracking, TrackingSwitchesOnOffAndOver)
{
    for (const auto pfnHandle : {viscaCtrlAutoTracking, viscaCtrlTKVTrack}) {
        const auto asks = [&](BU_S32 s32Ctrl, BU_BOOL bBefore) {
            const auto fill = [=](Info &st) { field<&Tracking::enAutoTrackingCtrl>(st.stAutoTracking, s32Ctrl); };
            EXPECT_EQ(run(pfnHandle, {fill, {}, 0, [=] { ALG_API_SetEnable(bBefore, BU_FALSE, BU_FALSE); }}), 0);
            return journal::effects();
        };
        EXPECT_THAT(asks(2, BU_TRUE), ElementsAre(sets("Enable", "1")));
        EXPECT_THAT(asks(3, BU_TRUE), ElementsAre(sets("Enable", "0")));
        EXPECT_THAT(asks(4, BU_TRUE), ElementsAre(sets("Enable", "0")));
        EXPECT_THAT(asks(4, BU_FALSE), ElementsAre(sets("Enable", "1")));
        EXPECT_THAT(asks(5, BU_FALSE), IsEmpty());
    }
}

TEST_F(CommandTracking, ZonesStoreAndCallTheirPreset)
{
    tagTRACK_AREA_S astAreas[8]{};
    for (BU_S32 i = 0; i < 3; ++i) astAreas[i] = {BU_TRUE, 0, 0, 10, 10, 20 + i, 0};
    ASSERT_EQ(TRACK_SetAreaList(TRACK_AREA_E_PRESET, astAreas, BU_FALSE), 0);
    BU_S32 s32Count = 0;
    ASSERT_EQ(TRACK_GetAreaList(TRACK_AREA_E_PRESET, astAreas, &s32Count), 0);

    const auto zone = [](BU_S32 s32Sub, BU_S32 s32Id, BU_S32 s32Mode, Effects effects, BU_S32 s32Result) {
        const auto fill = [=](Info &st) {
            field<&Tracking::enTRackParamType>(st.stAutoTracking, s32Sub);
            st.stAutoTracking.s32PresetAreaId = s32Id;
        };
        const auto setUp = [=] { ALG_API_SetTrackMode(s32Mode, BU_FALSE, BU_FALSE); };
        return tagCOMMAND_CASE_S{fill, std::move(effects), s32Result, setUp};
    };
    const BU_S32 SAVE = 10, CALL = 13, ZONE = TRACK_MODE_E_ZONE_TRACKING;
    passes(viscaCtrlTKVTrack, {zone(SAVE, 1, ZONE, {"PRESET_API_SetCur(21, \"\")"}, 0),
                               zone(CALL, 1, ZONE, {"PRESET_API_GotoById(21, 1, NULL)"}, 0)});
    for (const BU_S32 s32Sub : {SAVE, CALL}) {
        for (const BU_S32 s32Id : {-1, s32Count, 8}) check(viscaCtrlTKVTrack, {zone(s32Sub, s32Id, ZONE, {}, REFUSED)});
        for (const BU_S32 s32Mode :
             {TRACK_MODE_E_EVERYWHERE_TRACKING, TRACK_MODE_E_STAGE_TRACKING, TRACK_MODE_E_AUTO_FRAMEING})
            check(viscaCtrlTKVTrack, {zone(s32Sub, 1, s32Mode, {}, REFUSED)});
    }
}

TEST_F(CommandTracking, TracesNameTheHandlerThatRan)
{
    const auto traces = [](PFN_HANDLER pfnHandle, BU_S32 s32Sub) {
        return traceOf(pfnHandle,
                       {[=](Info &st) { field<&Tracking::enTRackParamType>(st.stAutoTracking, s32Sub); }, {}});
    };
    EXPECT_THAT(traces(viscaCtrlAutoTilt, 0), testing::MatchesRegex("\\[viscaCtrlAutoTilt:[0-9]+\\]  \n"));
    EXPECT_THAT(traces(viscaCtrlTKVTrack, 18),
                testing::MatchesRegex(
                    "\\[viscaCtrlTKVTrack:[0-9]+\\] Type\\[18\\]  \n\\[viscaCtrlATGestureDetect:[0-9]+\\]  \n"));
}
} // namespace
