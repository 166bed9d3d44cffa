/// Base of the tests of motion, presets and lens: head and lens just started, every report recorded.
#pragma once

#include "../../support/platformTest.h"

#include "camera/focus.h"
#include "camera/preset.h"
#include "camera/settingEvent.h"
#include "camera/zoom.h"

#include <cmath>
#include <cstring>
#include <functional>
#include <map>
#include <sstream>

/// What reached the callbacks, as "pt 7 done", "zf 7 left", "superseded 7": unit, the data given, how it ended.
inline std::vector<std::string> &reports()
{
    static std::vector<std::string> listReports;
    return listReports;
}

inline bool operator==(const PT_POS_S &a, const PT_POS_S &b) { return !std::memcmp(&a, &b, sizeof a); }
inline bool operator==(const PT_SPD_S &a, const PT_SPD_S &b) { return !std::memcmp(&a, &b, sizeof a); }

class MotionTest : public PlatformTest
{
protected:
    static constexpr PT_CTRL_FROM_E FROM = PT_CTRL_E_FROM_VISCA;
    static constexpr ZF_CTRL_FROM_E ZF_FROM = ZF_CTRL_E_FROM_VISCA;
    static constexpr BU_S32 CENTRE = 540000, DEGREE = 1500;
    static constexpr PT_SPEED_LIMIT_T LIMITS{5, 12000, 5, 9000, 100};
    static constexpr double CLOSE = 0.001; // degrees

    MotionTest() { start(); }
    void start()
    {
        CFG_STORE_Open(nullptr);
        CFG_SETTING_Reload();
        PT_API_InitByXml(&LIMITS, {});
        BSP_PTProcInit(0, nullptr);
        ZF_API_StartService();
        const PT_CTRL_CALL_FUNC_S stPanTilt{FROM, report<'p'>, sizeof(int)}, stLens{FROM, report<'z'>, sizeof(int)};
        BSP_PTRegisterRetCallFunc(0, FROM, &stPanTilt);
        BSP_ZFRegisterRetCallFunc(ZF_FROM, &stLens);
        PRESET_API_RegisterSuperseded(FROM, [](PT_CTRL_FROM_E, const void *pvPrivate, BU_S32 s32Size) {
            reports().push_back("superseded " + std::to_string(*static_cast<const int *>(pvPrivate)) +
                                (s32Size == sizeof(int) ? "" : " with a wrong size"));
        });
        reports().clear();
        m_dSpeed = 60;
    }

    /// Motor position of a number of degrees.
    static constexpr BU_S32 at(double dDegrees) { return CENTRE + static_cast<BU_S32>(std::lround(dDegrees * DEGREE)); }

    static PT_MOTION_CTRL_S drive(PT_MOTION_TYPE_E enType, double dPanDps, double dTiltDps = 0)
    {
        return {0, enType, {}, {static_cast<BU_U32>(dPanDps * 100), static_cast<BU_U32>(dTiltDps * 100)}, 100};
    }
    static PT_MOTION_CTRL_S moveTo(double dPan, double dTilt, double dPanDps = 60, double dTiltDps = 60)
    {
        PT_MOTION_CTRL_S st = drive(PT_MOTION_E_ABS_POS, dPanDps, dTiltDps);
        st.stPos = {static_cast<BU_U32>(at(dPan)), static_cast<BU_U32>(at(dTilt))};
        return st;
    }
    static ZF_MOTION_CTRL_S lens(ZF_MOTION_TYPE_E enType, BU_U32 u32Pos = 0, BU_U8 u8Speed = 7)
    {
        ZF_MOTION_CTRL_S st{};
        st.enMotionType = enType;
        st.u8ZoomSpd = st.u8FocusSpd = u8Speed;
        st.u32ZoomPos = st.u32FocusPos = u32Pos;
        return st;
    }
    static BU_S32 command(const PT_MOTION_CTRL_S &st, int *pi = nullptr) { return BSP_PTCtrlMotion(FROM, &st, pi); }
    static BU_S32 command(const ZF_MOTION_CTRL_S &st, int *pi = nullptr) { return BSP_ZFCtrlMotion(ZF_FROM, &st, pi); }

    /// A script of steps in turn: "to90#1=1 wait1000 at52.5" moves to 90 degrees with the data 1, which must answer 1,
    /// and a second later the head must be at 52.5 degrees. "zoomed" and "focused" check the lens, "speed" is degrees a
    /// second.
    void run(const std::string &strScript)
    {
        SCOPED_TRACE(strScript);
        std::istringstream in(strScript);
        for (std::string strWord; in >> strWord;) {
            const auto end = strWord.find('='), mark = strWord.find('#');
            const std::string strStep = strWord.substr(0, std::min(mark, end));
            const auto digits = std::min(strStep.find_first_of("-0123456789"), strStep.size());
            const double dNumber = digits < strStep.size() ? std::stod(strStep.substr(digits)) : 0;
            int iData = mark == strWord.npos ? 0 : std::stoi(strWord.substr(mark + 1));
            const BU_S32 s32Result = step(strStep.substr(0, digits), dNumber, mark == strWord.npos ? nullptr : &iData);
            EXPECT_TRUE(end == strWord.npos || s32Result == std::stoi(strWord.substr(end + 1))) << strWord << s32Result;
        }
    }

    static PT_POS_S head()
    {
        PT_POS_S st{};
        BSP_PTGetCurPos(0, &st, PT_DEV_TYPE_PAN_TILE_E);
        return st;
    }
    static double pan() { return (static_cast<double>(head().u32PanPos) - CENTRE) / DEGREE; }
    static double tilt() { return (static_cast<double>(head().u32TiltPos) - CENTRE) / DEGREE; }
    template <BU_S32 (*GET)(BU_S32, BU_S32 *)> static BU_S32 valueOf()
    {
        BU_S32 s32 = -1;
        GET(0, &s32);
        return s32;
    }
    static BU_S32 zoom() { return valueOf<PTZ_API_GetZoomPos>(); }
    static BU_S32 focus() { return valueOf<AF_API_GetFocusPos>(); }

private:
    // clang-format off
    BU_S32 step(const std::string &strName, double dNumber, int *piData)
    {
        static const std::map<std::string, PT_MOTION_TYPE_E> HEAD = {
            {"to", PT_MOTION_E_ABS_POS}, {"right", PT_MOTION_E_RIGHT}, {"left", PT_MOTION_E_LEFT},
            {"stop", PT_MOTION_E_STOP}, {"home", PT_MOTION_E_HOME}, {"reset", PT_MOTION_E_RESET}};
        static const std::map<std::string, ZF_MOTION_TYPE_E> LENS = {
            {"zoom", ZF_E_ZOOM_DIRECT_POS}, {"focus", ZF_E_FOCUS_DIRECT_POS}, {"both", ZF_E_ZOOM_FOCUS_DIRECT_POS},
            {"tele", ZF_E_ZOOM_TELE}, {"wide", ZF_E_ZOOM_WIDE}, {"near", ZF_E_FOCUS_NEAR},
            {"zoomstop", ZF_E_ZOOM_STOP}, {"focusstop", ZF_E_FOCUS_STOP}};
        const BU_S32 s32 = static_cast<BU_S32>(dNumber);
        const std::map<std::string, std::function<BU_S32()>> OTHERS = {
            {"wait", [&] { return clock().advance(s32), 0; }}, {"speed", [&] { return m_dSpeed = dNumber, 0; }},
            {"at", [&] { EXPECT_NEAR(pan(), dNumber, CLOSE); return 0; }},
            {"zoomed", [&] { EXPECT_EQ(zoom(), s32); return 0; }},
            {"focused", [&] { EXPECT_EQ(focus(), s32); return 0; }},
            {"auto", [&] { return AF_API_SetFocusAuto(0, BU_TRUE, BU_FALSE, BU_TRUE); }},
            {"manual", [&] { return AF_API_SetFocusAuto(0, BU_FALSE, BU_FALSE, BU_TRUE); }},
            {"once", [&] { return AF_API_TriggerAutoFocus(0); }},
            {"recall", [&] { return PRESET_API_GotoById(s32, FROM, piData); }},
            {"fast", [&] { return PRESET_API_SetPresetSpeed(0, 24, BU_FALSE, BU_FALSE); }}};
        PT_MOTION_CTRL_S stHead = moveTo(dNumber, 0, m_dSpeed, m_dSpeed);
        if (HEAD.contains(strName)) return stHead.enMotionType = HEAD.at(strName), command(stHead, piData);
        if (LENS.contains(strName)) return command(lens(LENS.at(strName), static_cast<BU_U32>(dNumber)), piData);
        return OTHERS.at(strName)();
    }
    // clang-format on

    template <char UNIT> static BU_S32 report(void *pvPrivate, BU_BOOL bResult)
    {
        reports().push_back((UNIT == 'p' ? "pt " : "zf ") + std::to_string(*static_cast<int *>(pvPrivate)) +
                            (bResult ? " done" : " left"));
        return 0;
    }
    double m_dSpeed = 60;
};
