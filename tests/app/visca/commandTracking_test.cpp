// Tracking, by commands of their own and by the grouped command.
#include "camera/tracking.h"
#include "commandTest.h"

namespace
{
using testing::ElementsAre;
using testing::IsEmpty;
typedef VISCA_MSG_AUTO_TRACKING_S Tracking;

class CommandTracking : public CommandTest
{
protected:
    /// A field of the record that one or two commands read, and what each of its values asks for.
    struct tagFIELD_CASE_S {
        BU_S32 s32Value;
        Effects effects;
        BU_S32 s32Result = 0;
    };
    struct tagFIELD_S {
        const char *pcName;
        std::function<void(Tracking &, BU_S32)> set;
        BU_S32 (*pfnSingle)(Info *); ///< the command of its own; null: none
        BU_S32 s32Grouped;           ///< the sub-command; -1: none
        std::vector<tagFIELD_CASE_S> listCases;
        const char *pcPassedThrough = nullptr;
    };
    static void checkField(const tagFIELD_S &stField)
    {
        SCOPED_TRACE(stField.pcName);
        for (const auto &stCase : stField.listCases) {
            SCOPED_TRACE(stCase.s32Value);
            const auto fill = [&](Info &st) {
                stField.set(st.stAutoTracking, stCase.s32Value);
                st.stAutoTracking.enTRackParamType = static_cast<VISCA_CTRL_TRACK_PARAM_E>(stField.s32Grouped);
            };
            for (const auto pfnHandle : {stField.pfnSingle, stField.s32Grouped < 0 ? nullptr : viscaCtrlTKVTrack})
                if (pfnHandle)
                    check({{"", pfnHandle, fill, stCase.effects, stCase.s32Result, stField.pcPassedThrough}});
        }
    }
};

template <auto Member> std::function<void(Tracking &, BU_S32)> field()
{
    return [](Tracking &st, BU_S32 s32Value) {
        st.*Member = static_cast<std::remove_reference_t<decltype(st.*Member)>>(s32Value);
    };
}
std::string sets(const std::string &strSetter, BU_S32 s32Value)
{
    return "ALG_API_Set" + strSetter + "(" + std::to_string(s32Value) + ", 1, 1)";
}

TEST_F(CommandTracking, EveryValueOfEveryField)
{
    const auto switches = [](const char *pcSetter) {
        return std::vector<tagFIELD_CASE_S>{{2, {sets(pcSetter, 1)}}, {3, {sets(pcSetter, 0)}}, {1, {}}, {4, {}}};
    };
    const tagFIELD_S fields[] = {
        {"mode",
         field<&Tracking::enAutoTrackModeCtrl>(),
         nullptr,
         1,
         {{0, {sets("TrackMode", 3)}},
          {1, {sets("TrackMode", 4)}},
          {2, {sets("TrackMode", 0)}},
          {3, {sets("TrackMode", 2)}},
          {4, {sets("TrackMode", 1)}},
          {5, {}}}},
        {"zoom", field<&Tracking::enAutoZoomCtrl>(), viscaCtrlAutoZoom, 2, switches("AutoZoom")},
        {"tilt", field<&Tracking::enAUtoTiltCtrl>(), viscaCtrlAutoTilt, 3, switches("AutoTilt")},
        {"pan", field<&Tracking::enAUtoPanCtrl>(), nullptr, 4, switches("AutoPan")},
        {"start preset, grouped",
         field<&Tracking::s32TrackingStartPositionpreset>(),
         nullptr,
         5,
         {{0, {sets("StartPos", -1)}},
          {1, {sets("StartPos", 0)}},
          {2, {sets("StartPos", 1)}},
          {3, {sets("StartPos", -2)}},
          {4, {}, REFUSED},
          {254, {}, REFUSED},
          {-1, {}, REFUSED},
          {255, {}, REFUSED}}},
        {"start preset",
         field<&Tracking::s32TrackingStartPositionpreset>(),
         viscaCtrlTrackingStartPreset,
         -1,
         {{0, {}, REFUSED}, {1, {sets("StartPos", 1)}}, {254, {sets("StartPos", 254)}}, {255, {}, REFUSED}}},
        {"figure size",
         field<&Tracking::enFigureSizeCtrl>(),
         viscaCtrlFigureSize,
         6,
         {{0, {sets("BodySize", 0)}},
          {1, {sets("BodySize", 1)}},
          {2, {sets("BodySize", 2)}},
          {3, {sets("BodySize", 3)}},
          {5, {"ALG_API_GetBodySizeReset()"}},
          {6, {}}}},
        {"figure size of its own",
         [](Tracking &st, BU_S32 s32) {
             st.enFigureSizeCtrl = VISCA_MSG_E_FIGURE_SIZE_SAVE;
             st.s32FigureSize = s32;
         },
         viscaCtrlFigureSize,
         6,
         {{0, {}, REFUSED},
          {1, {sets("BodySizeCustom", 1)}},
          {360, {sets("BodySizeCustom", 360)}},
          {361, {}, REFUSED}}},
        {"subject",
         field<&Tracking::enSelectSubjectCtrl>(),
         viscaCtrlSelectSubject,
         7,
         {{2, {"ALG_API_PreSelectLastTarget()"}},
          {3, {"ALG_API_PreSelectNextTarget()"}},
          {4, {"ALG_API_ApplyPreSelectTarget()"}},
          {5, {}}}},
        {"placement",
         field<&Tracking::enPlacementCtrl>(),
         viscaCtrlPlacement,
         8,
         {{0, {sets("PeoplePos", 2)}}, {1, {sets("PeoplePos", 0)}}, {2, {sets("PeoplePos", 1)}}, {3, {}}}},
        {"lost time",
         field<&Tracking::s32AtLostTime>(),
         nullptr,
         9,
         {{2, {sets("LostTime", 0)}},
          {4, {sets("LostTime", 1)}},
          {6, {sets("LostTime", 2)}},
          {5, {}},
          {0, {}},
          {8, {}}},
         "ALG_API_SetLostTime"},
        {"frame",
         field<&Tracking::enOsdReminderCtrl>(),
         viscaCtrlOsdPeminder,
         14,
         {{0, {sets("Debug", 0)}}, {1, {sets("Debug", 1)}}, {2, {}}}},
        {"hint", field<&Tracking::enDetectedIndicatorCtrl>(), viscaCtrlIndcator, 15, switches("TallyIndicator")},
        {"head position",
         field<&Tracking::s32HeadPos>(),
         nullptr,
         16,
         {{2, {sets("HeadPos", 2)}}},
         "ALG_API_SetHeadPos"},
        {"track speed",
         field<&Tracking::s32TrackSpeed>(),
         nullptr,
         17,
         {{0, {sets("TrackSpeed", 3)}}, {1, {sets("TrackSpeed", 4)}}, {2, {}, REFUSED}, {-1, {}, REFUSED}}},
        {"gesture", field<&Tracking::enGestureDetect>(), nullptr, 18, switches("Gesture"), "ALG_API_SetGesture"},
        {"speed",
         field<&Tracking::enAtSpeedCtrl>(),
         viscaCtrlATSpeed,
         -1,
         {{0, {sets("TrackSpeed", 2)}}, {1, {sets("TrackSpeed", 1)}}, {2, {sets("TrackSpeed", 0)}}, {3, {}}}},
        {"zone trigger", field<&Tracking::s32PresetAreaId>(), nullptr, 11, {{0, {}, REFUSED}}},
        {"zone start area", field<&Tracking::s32PresetAreaId>(), nullptr, 12, {{0, {}, REFUSED}}},
        {"no such sub-command", field<&Tracking::s32PresetAreaId>(), nullptr, 19, {{0, {}, REFUSED}}},
    };
    for (const auto &stField : fields) checkField(stField);
}

TEST_F(CommandTracking, TrackingSwitchesOnOffAndOver)
{
    for (const auto pfnHandle : {viscaCtrlAutoTracking, viscaCtrlTKVTrack}) {
        const auto asks = [&](BU_S32 s32Ctrl, BU_BOOL bBefore) {
            EXPECT_EQ(run({"",
                           pfnHandle,
                           [=](Info &st) {
                               st.stAutoTracking.enAutoTrackingCtrl = static_cast<VISCA_CTRL_AUTO_TRACKING_E>(s32Ctrl);
                           },
                           {},
                           0,
                           nullptr,
                           [=] { ALG_API_SetEnable(bBefore, BU_FALSE, BU_FALSE); }}),
                      0);
            return journal::effects();
        };
        EXPECT_THAT(asks(2, BU_TRUE), ElementsAre(sets("Enable", 1)));
        EXPECT_THAT(asks(3, BU_TRUE), ElementsAre(sets("Enable", 0)));
        EXPECT_THAT(asks(4, BU_TRUE), ElementsAre(sets("Enable", 0)));
        EXPECT_THAT(asks(4, BU_FALSE), ElementsAre(sets("Enable", 1)));
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

    const auto zone = [&](BU_S32 s32Sub, BU_S32 s32Id, BU_S32 s32Mode, Effects effects, BU_S32 s32Result,
                          const char *pcPassedThrough = nullptr) {
        const auto fill = [=](Info &st) {
            st.stAutoTracking.enTRackParamType = static_cast<VISCA_CTRL_TRACK_PARAM_E>(s32Sub);
            st.stAutoTracking.s32PresetAreaId = s32Id;
        };
        const auto setUp = [=] { ALG_API_SetTrackMode(s32Mode, BU_FALSE, BU_FALSE); };
        return tagCOMMAND_CASE_S{"zone",    viscaCtrlTKVTrack, fill, std::move(effects),
                                 s32Result, pcPassedThrough,   setUp};
    };
    const BU_S32 SAVE = 10, CALL = 13, ZONE = TRACK_MODE_E_ZONE_TRACKING;
    check({zone(SAVE, 1, ZONE, {"PRESET_API_SetCur(21, \"\")"}, 0, "PRESET_API_SetCur")});
    check({zone(CALL, 1, ZONE, {"PRESET_API_GotoById(21, 1, NULL)"}, 0, "PRESET_API_GotoById")});
    for (const BU_S32 s32Sub : {SAVE, CALL}) {
        check({zone(s32Sub, -1, ZONE, {}, REFUSED), zone(s32Sub, s32Count, ZONE, {}, REFUSED),
               zone(s32Sub, 8, ZONE, {}, REFUSED)});
        for (const BU_S32 s32Mode :
             {TRACK_MODE_E_EVERYWHERE_TRACKING, TRACK_MODE_E_STAGE_TRACKING, TRACK_MODE_E_AUTO_FRAMEING})
            check({zone(s32Sub, 1, s32Mode, {}, REFUSED)});
    }
}

TEST_F(CommandTracking, TracesNameTheHandlerThatRan)
{
    const auto traces = [](BU_S32 (*pfnHandle)(Info *), BU_S32 s32Sub) {
        return traceOf(
            {"",
             pfnHandle,
             [=](Info &st) { st.stAutoTracking.enTRackParamType = static_cast<VISCA_CTRL_TRACK_PARAM_E>(s32Sub); },
             {}});
    };
    EXPECT_THAT(traces(viscaCtrlAutoTilt, 0), testing::MatchesRegex("\\[viscaCtrlAutoTilt:[0-9]+\\]  \n"));
    EXPECT_THAT(traces(viscaCtrlTKVTrack, 18),
                testing::MatchesRegex(
                    "\\[viscaCtrlTKVTrack:[0-9]+\\] Type\\[18\\]  \n\\[viscaCtrlATGestureDetect:[0-9]+\\]  \n"));
}
} // namespace
