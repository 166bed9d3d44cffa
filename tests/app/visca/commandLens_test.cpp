// Zoom, digital zoom and focus.
#include "camera/focus.h"
#include "camera/motion.h"
#include "camera/system.h"
#include "camera/zoom.h"
#include "commandTest.h"

namespace
{
using CommandLens = CommandTest;
using testing::HasSubstr;

constexpr BU_U8 CONFIGURED_SPEED = 6;
const char *const MOTION = "BSP_ZFCtrlMotion";

std::string moves(const ZF_MOTION_CTRL_S &stMotion) { return lensMotion(stMotion, "&"); }

std::function<void(Info &)> zoom(VISCA_CTRL_ZOOM_E enType, BU_U8 u8Speed, BU_U16 u16Pos)
{
    return [=](Info &st) { st.stZoomCtrl = {enType, u8Speed, u16Pos}; };
}
std::function<void(Info &)> focus(VISCA_CTRL_FOCUS_E enType, BU_U8 u8Speed = 3, BU_U16 u16Pos = 1000)
{
    return [=](Info &st) { st.stFocusCtrl = {enType, u8Speed, u16Pos}; };
}
std::function<void(Info &)> digitalZoom(VISCA_CTRL_DZOOM_E enType, BU_U8 u8Limit = 0)
{
    return [=](Info &st) { st.stDZoomCtrl = {enType, u8Limit}; };
}

TEST_F(CommandLens, ZoomDrivesAndMoves)
{
    const auto motion = [](ZF_MOTION_TYPE_E enType, BU_U8 u8Speed, BU_U32 u32Pos) {
        ZF_MOTION_CTRL_S st{};
        st.enMotionType = enType;
        st.u8ZoomSpd = u8Speed;
        st.u32ZoomPos = u32Pos;
        return Effects{moves(st)};
    };
    const auto Z = viscaCtrlZoom;
    const auto setUp = [] { PTZ_API_SetZoomSpd(0, CONFIGURED_SPEED, BU_FALSE, BU_FALSE); };
    const auto TELE = ZF_E_ZOOM_TELE, WIDE = ZF_E_ZOOM_WIDE, DIRECT = ZF_E_ZOOM_DIRECT_POS;
    check({
        {"stop", Z, zoom(VISCA_MSG_E_SET_ZOOM_STOP, 2, 7), motion(ZF_E_ZOOM_STOP, 2, 7), 0, MOTION, setUp},
        {"tele", Z, zoom(VISCA_MSG_E_SET_ZOOM_TELE_STANDARD, 2, 7), motion(TELE, 6, 7), 0, MOTION, setUp},
        {"wide", Z, zoom(VISCA_MSG_E_SET_ZOOM_WIDE_STANDARD, 2, 7), motion(WIDE, 6, 7), 0, MOTION, setUp},
        {"tele at 2", Z, zoom(VISCA_MSG_E_SET_ZOOM_TELE_VARIABLE, 2, 7), motion(TELE, 2, 7), 0, MOTION, setUp},
        {"wide at 2", Z, zoom(VISCA_MSG_E_SET_ZOOM_WIDE_VARIABLE, 2, 7), motion(WIDE, 2, 7), 0, MOTION, setUp},
        {"to 9000", Z, zoom(VISCA_MSG_E_SET_ZOOM_DIRECT_POS, 2, 9000), motion(DIRECT, 4, 9000), 1, MOTION, setUp},
    });
}

/// The greatest position at each digital-zoom limit.
TEST_F(CommandLens, ZoomPositionIsLimitedByTheDigitalZoom)
{
    const BU_U16 au16End[] = {0x4000, 0x4B30, 0x5661, 0x6192, 0x672A, 0x6CC3, 0x6F8F, 0x725B,
                              0x7409, 0x75B7, 0x76D5, 0x77F4, 0x78C0, 0x798D, 0x7A26, 0x7AC0};
    for (BU_S32 s32Limit = 1; s32Limit <= 16; ++s32Limit) {
        const BU_U16 u16End = au16End[s32Limit - 1];
        const auto setUp = [=] { PTZ_API_SetMaxDZoomTime(0, s32Limit, BU_FALSE, BU_FALSE); };
        ZF_MOTION_CTRL_S stMotion{};
        stMotion.enMotionType = ZF_E_ZOOM_DIRECT_POS;
        stMotion.u8ZoomSpd = 4;
        stMotion.u32ZoomPos = u16End;
        const tagCOMMAND_CASE_S stBeyond{
            "beyond the end", viscaCtrlZoom, zoom(VISCA_MSG_E_SET_ZOOM_DIRECT_POS, 0, u16End + 1), {}, REFUSED,
            nullptr,          setUp};
        check({{"at the end",
                viscaCtrlZoom,
                zoom(VISCA_MSG_E_SET_ZOOM_DIRECT_POS, 0, u16End),
                {moves(stMotion)},
                1,
                MOTION,
                setUp},
               stBeyond});
        EXPECT_THAT(traceOf(stBeyond), HasSubstr("] zoom pos " + std::to_string(u16End + 1) + " > max zoom pos " +
                                                 std::to_string(u16End) + "\n"));
    }
}

TEST_F(CommandLens, DigitalZoomIsRefusedInTeleMode)
{
    const auto D = viscaCtrlDZoom;
    const auto crop = [](BU_BOOL bOn) { return [=] { SYS_API_SetSensorCrop(bOn, BU_TRUE, BU_FALSE); }; };
    const char *pcMode = "PTZ_API_SetDZoomMode", *pcLimit = "PTZ_API_SetMaxDZoomTime";
    check({
        {"on", D, digitalZoom(VISCA_MSG_E_DZOOM_ON), {"PTZ_API_SetDZoomMode(0, 1, 1, 1)"}, 0, pcMode, crop(0)},
        {"off", D, digitalZoom(VISCA_MSG_E_DZOOM_OFF), {"PTZ_API_SetDZoomMode(0, 0, 1, 1)"}, 0, pcMode, crop(0)},
        {"limit",
         D,
         digitalZoom(VISCA_MSG_E_DZOOM_SET_LIMIT, 12),
         {"PTZ_API_SetMaxDZoomTime(0, 12, 1, 1)"},
         0,
         pcLimit,
         crop(0)},
    });
    for (const auto enType : {VISCA_MSG_E_DZOOM_ON, VISCA_MSG_E_DZOOM_OFF, VISCA_MSG_E_DZOOM_SET_LIMIT}) {
        const tagCOMMAND_CASE_S stTele{"in tele mode", D, digitalZoom(enType, 3), {}, REFUSED, nullptr, crop(1)};
        check({stTele});
        EXPECT_THAT(traceOf(stTele), HasSubstr("] sensor crop is on, reject dzoom\n"));
    }
}

TEST_F(CommandLens, FocusDrivesAndMoves)
{
    const auto F = viscaCtrlFocus;
    const auto motion = [](ZF_MOTION_TYPE_E enType, BU_U32 u32Pos = 0) {
        ZF_MOTION_CTRL_S st{};
        st.enMotionType = enType;
        st.u8FocusSpd = 4; // one more than the record's
        st.u32FocusPos = u32Pos;
        return Effects{moves(st)};
    };
    const auto DIRECT = VISCA_MSG_E_SET_FOCUS_DIRECT_POS;
    const auto setUp = [] { AF_API_SetFocusAuto(0, BU_FALSE, BU_FALSE, BU_FALSE); };
    check({
        {"stop", F, focus(VISCA_MSG_E_SET_FOCUS_STOP), motion(ZF_E_FOCUS_STOP), 0, MOTION, setUp},
        {"far", F, focus(VISCA_MSG_E_SET_FOCUS_FAR_STANDARD), motion(ZF_E_FOCUS_FAR), 0, MOTION, setUp},
        {"far at 3", F, focus(VISCA_MSG_E_SET_FOCUS_FAR_VARIABLE), motion(ZF_E_FOCUS_FAR), 0, MOTION, setUp},
        {"near", F, focus(VISCA_MSG_E_SET_FOCUS_NEAR_STANDARD), motion(ZF_E_FOCUS_NEAR), 0, MOTION, setUp},
        {"near at 3", F, focus(VISCA_MSG_E_SET_FOCUS_NEAR_VARIABLE), motion(ZF_E_FOCUS_NEAR), 0, MOTION, setUp},
        {"far end", F, focus(DIRECT, 3, 175), motion(ZF_E_FOCUS_DIRECT_POS, 175), 1, MOTION, setUp},
        {"near end", F, focus(DIRECT, 3, 7095), motion(ZF_E_FOCUS_DIRECT_POS, 7095), 1, MOTION, setUp},
        {"before the far end", F, focus(DIRECT, 3, 174), {}, REFUSED},
        {"behind the near end", F, focus(DIRECT, 3, 7096), {}, REFUSED},
    });
    EXPECT_THAT(traceOf({"", F, focus(DIRECT, 3, 7096), {}}), HasSubstr("] focus pos 7096 out of range\n"));
}

TEST_F(CommandLens, FocusSettingsAreAlwaysAnsweredAsDone)
{
    const auto F = viscaCtrlFocus;
    const auto isAuto = [](BU_BOOL bOn) { return [=] { AF_API_SetFocusAuto(0, bOn, BU_FALSE, BU_FALSE); }; };
    const auto area = [](BU_S32 s32Area) {
        return Effects{"AF_API_SetFocusArea(0, " + std::to_string(s32Area) + ", 1, 1)"};
    };
    const std::string strAuto = "AF_API_SetFocusAuto(0, 1, 1, 1)", strManual = "AF_API_SetFocusAuto(0, 0, 1, 1)";
    check({
        {"auto", F, focus(VISCA_MSG_E_FOCUS_AUTO), {strAuto}},
        {"manual", F, focus(VISCA_MSG_E_FOCUS_MANUAL), {strManual}},
        {"toggle from auto", F, focus(VISCA_MSG_E_FOCUS_AUTO_MANUAL), {strManual}, 0, nullptr, isAuto(BU_TRUE)},
        {"toggle from manual", F, focus(VISCA_MSG_E_FOCUS_AUTO_MANUAL), {strAuto}, 0, nullptr, isAuto(BU_FALSE)},
        {"one push", F, focus(VISCA_MSG_E_FOCUS_ONE_PUSH_TRIGGER), {"AF_API_TriggerAutoFocus(0)"}},
        {"upper zone", F, focus(VISCA_MSG_E_SET_FOCUS_ZONE_UPPER), area(2)},
        {"center zone", F, focus(VISCA_MSG_E_SET_FOCUS_ZONE_CENTER), area(1)},
        {"lower zone", F, focus(VISCA_MSG_E_SET_FOCUS_ZONE_DOWN), area(3)},
        {"whole picture", F, focus(VISCA_MSG_E_SET_FOCUS_ZONE_GlOBAL), area(0)},
        {"people", F, focus(VISCA_MSG_E_SET_FOCUS_ZONE_FUTURE), area(4)},
    });
}

TEST_F(CommandLens, ZoomAndFocusMoveTogether)
{
    ZF_MOTION_CTRL_S stMotion{};
    stMotion.enMotionType = ZF_E_ZOOM_FOCUS_DIRECT_POS;
    stMotion.u8ZoomSpd = CONFIGURED_SPEED;
    stMotion.u32ZoomPos = 0x1234;
    stMotion.u32FocusPos = 0x0678;
    check({{"both",
            viscaCtrlZoomFocus,
            [](Info &st) {
                st.stZoomFocusCtrl = {0x1234, 0x0678};
            },
            {moves(stMotion)},
            1,
            MOTION,
            [] { PTZ_API_SetZoomSpd(0, CONFIGURED_SPEED, BU_FALSE, BU_FALSE); }}});
}
} // namespace
