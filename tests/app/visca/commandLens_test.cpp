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

std::string moves(const ZF_MOTION_CTRL_S &stMotion) { return lensMotion(stMotion, "&"); }

constexpr auto zoom = with<&Info::stZoomCtrl, VISCA_CTRL_ZOOM_E, BU_S32, BU_S32>;
std::function<void(Info &)> focus(VISCA_CTRL_FOCUS_E enType, BU_U8 u8Speed = 3, BU_U16 u16Pos = 1000)
{
    return with<&Info::stFocusCtrl>(enType, u8Speed, u16Pos);
}

// clang-format off
TEST_F(CommandLens, ZoomDrivesAndMoves)
{
    const auto motion = [](ZF_MOTION_TYPE_E enType, BU_U8 u8Speed, BU_U32 u32Pos) {
        ZF_MOTION_CTRL_S st{};
        st.enMotionType = enType;
        st.u8ZoomSpd = u8Speed;
        st.u32ZoomPos = u32Pos;
        return Effects{moves(st)};
    };
    const auto setUp = [] { PTZ_API_SetZoomSpd(0, CONFIGURED_SPEED, BU_FALSE, BU_FALSE); };
    passes(viscaCtrlZoom, {
        {zoom(VISCA_MSG_E_SET_ZOOM_STOP, 2, 7),          motion(ZF_E_ZOOM_STOP, 2, 7),          0, setUp},
        {zoom(VISCA_MSG_E_SET_ZOOM_TELE_STANDARD, 2, 7), motion(ZF_E_ZOOM_TELE, 6, 7),          0, setUp},
        {zoom(VISCA_MSG_E_SET_ZOOM_WIDE_STANDARD, 2, 7), motion(ZF_E_ZOOM_WIDE, 6, 7),          0, setUp},
        {zoom(VISCA_MSG_E_SET_ZOOM_TELE_VARIABLE, 2, 7), motion(ZF_E_ZOOM_TELE, 2, 7),          0, setUp},
        {zoom(VISCA_MSG_E_SET_ZOOM_WIDE_VARIABLE, 2, 7), motion(ZF_E_ZOOM_WIDE, 2, 7),          0, setUp},
        {zoom(VISCA_MSG_E_SET_ZOOM_DIRECT_POS, 2, 9000), motion(ZF_E_ZOOM_DIRECT_POS, 4, 9000), 1, setUp},
    });
}
// clang-format on

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
        const tagCOMMAND_CASE_S stBeyond{zoom(VISCA_MSG_E_SET_ZOOM_DIRECT_POS, 0, u16End + 1), {}, REFUSED, setUp};
        passes(viscaCtrlZoom,
               {{zoom(VISCA_MSG_E_SET_ZOOM_DIRECT_POS, 0, u16End), {moves(stMotion)}, 1, setUp}, stBeyond});
        EXPECT_THAT(traceOf(viscaCtrlZoom, stBeyond), HasSubstr("] zoom pos " + std::to_string(u16End + 1) +
                                                                " > max zoom pos " + std::to_string(u16End) + "\n"));
    }
}

// clang-format off
TEST_F(CommandLens, DigitalZoomIsRefusedInTeleMode)
{
    const auto digitalZoom = [](VISCA_CTRL_DZOOM_E enType, BU_U8 u8Limit) {
        return [=](Info &st) { st.stDZoomCtrl = {enType, u8Limit}; };
    };
    const auto crop = [](BU_BOOL bOn) { return [=] { SYS_API_SetSensorCrop(bOn, BU_TRUE, BU_FALSE); }; };
    passes(viscaCtrlDZoom, {
        {digitalZoom(VISCA_MSG_E_DZOOM_ON, 0),         {"PTZ_API_SetDZoomMode(0, 1, 1, 1)"},     0, crop(0)},
        {digitalZoom(VISCA_MSG_E_DZOOM_OFF, 0),        {"PTZ_API_SetDZoomMode(0, 0, 1, 1)"},     0, crop(0)},
        {digitalZoom(VISCA_MSG_E_DZOOM_SET_LIMIT, 12), {"PTZ_API_SetMaxDZoomTime(0, 12, 1, 1)"}, 0, crop(0)},
    });
    for (const auto enType : {VISCA_MSG_E_DZOOM_ON, VISCA_MSG_E_DZOOM_OFF, VISCA_MSG_E_DZOOM_SET_LIMIT}) {
        const tagCOMMAND_CASE_S stTele{digitalZoom(enType, 3), {}, REFUSED, crop(1)};
        check(viscaCtrlDZoom, {stTele});
        EXPECT_THAT(traceOf(viscaCtrlDZoom, stTele), HasSubstr("] sensor crop is on, reject dzoom\n"));
    }
}

TEST_F(CommandLens, FocusDrivesAndMoves)
{
    const auto motion = [](ZF_MOTION_TYPE_E enType, BU_U32 u32Pos = 0) {
        ZF_MOTION_CTRL_S st{};
        st.enMotionType = enType;
        st.u8FocusSpd = 4; // one more than the record's
        st.u32FocusPos = u32Pos;
        return Effects{moves(st)};
    };
    const auto DIRECT = VISCA_MSG_E_SET_FOCUS_DIRECT_POS;
    const auto setUp = [] { AF_API_SetFocusAuto(0, BU_FALSE, BU_FALSE, BU_FALSE); };
    passes(viscaCtrlFocus, {
        {focus(VISCA_MSG_E_SET_FOCUS_STOP),          motion(ZF_E_FOCUS_STOP), 0, setUp},
        {focus(VISCA_MSG_E_SET_FOCUS_FAR_STANDARD),  motion(ZF_E_FOCUS_FAR),  0, setUp},
        {focus(VISCA_MSG_E_SET_FOCUS_FAR_VARIABLE),  motion(ZF_E_FOCUS_FAR),  0, setUp},
        {focus(VISCA_MSG_E_SET_FOCUS_NEAR_STANDARD), motion(ZF_E_FOCUS_NEAR), 0, setUp},
        {focus(VISCA_MSG_E_SET_FOCUS_NEAR_VARIABLE), motion(ZF_E_FOCUS_NEAR), 0, setUp},
        {focus(DIRECT, 3, 175),  motion(ZF_E_FOCUS_DIRECT_POS, 175),  1, setUp}, // the far end
        {focus(DIRECT, 3, 7095), motion(ZF_E_FOCUS_DIRECT_POS, 7095), 1, setUp}, // the near end
        {focus(DIRECT, 3, 174),  {}, REFUSED},
        {focus(DIRECT, 3, 7096), {}, REFUSED},
    });
    EXPECT_THAT(traceOf(viscaCtrlFocus, {focus(DIRECT, 3, 7096), {}}), HasSubstr("] focus pos 7096 out of range\n"));
}

TEST_F(CommandLens, FocusSettingsAreAlwaysAnsweredAsDone)
{
    const auto isAuto = [](BU_BOOL bOn) { return [=] { AF_API_SetFocusAuto(0, bOn, BU_FALSE, BU_FALSE); }; };
    const std::string strAuto = "AF_API_SetFocusAuto(0, 1, 1, 1)", strManual = "AF_API_SetFocusAuto(0, 0, 1, 1)";
    check(viscaCtrlFocus, {
        {focus(VISCA_MSG_E_FOCUS_AUTO),             {strAuto}},
        {focus(VISCA_MSG_E_FOCUS_MANUAL),           {strManual}},
        {focus(VISCA_MSG_E_FOCUS_AUTO_MANUAL),      {strManual}, 0, isAuto(BU_TRUE)},
        {focus(VISCA_MSG_E_FOCUS_AUTO_MANUAL),      {strAuto},   0, isAuto(BU_FALSE)},
        {focus(VISCA_MSG_E_FOCUS_ONE_PUSH_TRIGGER), {"AF_API_TriggerAutoFocus(0)"}},
        {focus(VISCA_MSG_E_SET_FOCUS_ZONE_UPPER),   {"AF_API_SetFocusArea(0, 2, 1, 1)"}},
        {focus(VISCA_MSG_E_SET_FOCUS_ZONE_CENTER),  {"AF_API_SetFocusArea(0, 1, 1, 1)"}},
        {focus(VISCA_MSG_E_SET_FOCUS_ZONE_DOWN),    {"AF_API_SetFocusArea(0, 3, 1, 1)"}},
        {focus(VISCA_MSG_E_SET_FOCUS_ZONE_GlOBAL),  {"AF_API_SetFocusArea(0, 0, 1, 1)"}},
        {focus(VISCA_MSG_E_SET_FOCUS_ZONE_FUTURE),  {"AF_API_SetFocusArea(0, 4, 1, 1)"}},
    });
}
// clang-format on

TEST_F(CommandLens, ZoomAndFocusMoveTogether)
{
    ZF_MOTION_CTRL_S stMotion{};
    stMotion.enMotionType = ZF_E_ZOOM_FOCUS_DIRECT_POS;
    stMotion.u8ZoomSpd = CONFIGURED_SPEED;
    stMotion.u32ZoomPos = 0x1234;
    stMotion.u32FocusPos = 0x0678;
    const auto setUp = [] { PTZ_API_SetZoomSpd(0, CONFIGURED_SPEED, BU_FALSE, BU_FALSE); };
    passes(viscaCtrlZoomFocus, {{with<&Info::stZoomFocusCtrl>(0x1234, 0x0678), {moves(stMotion)}, 1, setUp}});
}
} // namespace
