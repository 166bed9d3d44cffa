/// Base of the tests of motion, presets and lens: head and lens just started, every report recorded.
#pragma once

#include "../../support/platformTest.h"

#include "camera/focus.h"
#include "camera/preset.h"
#include "camera/settingEvent.h"
#include "camera/zoom.h"

#include <cmath>
#include <map>
#include <sstream>

/// What reached the callbacks, as "pt 7 done", "zf 7 left", "superseded 7": unit, the data given, how it ended.
inline std::vector<std::string> &reports()
{
    static std::vector<std::string> listReports;
    return listReports;
}

class MotionTest : public PlatformTest
{
protected:
    static constexpr PT_CTRL_FROM_E FROM = PT_CTRL_E_FROM_VISCA;
    static constexpr ZF_CTRL_FROM_E ZF_FROM = ZF_CTRL_E_FROM_VISCA;
    static constexpr BU_S32 CENTRE = 540000, DEGREE = 1500;

    MotionTest()
    {
        CFG_SETTING_Reload();
        constexpr PT_SPEED_LIMIT_T LIMITS{5, 12000, 5, 9000, 100};
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

    /// Commands without data, and with the number that the report will name.
    static BU_S32 command(const PT_MOTION_CTRL_S &st) { return BSP_PTCtrlMotion(FROM, &st, nullptr); }
    static BU_S32 command(const PT_MOTION_CTRL_S &st, int iData) { return BSP_PTCtrlMotion(FROM, &st, &iData); }
    static BU_S32 command(const ZF_MOTION_CTRL_S &st) { return BSP_ZFCtrlMotion(ZF_FROM, &st, nullptr); }
    static BU_S32 command(const ZF_MOTION_CTRL_S &st, int iData) { return BSP_ZFCtrlMotion(ZF_FROM, &st, &iData); }

    /// A script of moves in turn: "move#1=1 stop" moves with the data 1, must answer 1, then stops. "wait1260" lets so
    /// many milliseconds pass.
    void run(const std::string &strScript)
    {
        std::istringstream in(strScript);
        for (std::string strWord; in >> strWord;) {
            const auto end = strWord.find('='), mark = strWord.find('#');
            const std::string strName = strWord.substr(0, std::min(mark, end));
            int iData = mark == strWord.npos ? 0 : std::stoi(strWord.substr(mark + 1));
            const BU_S32 s32Result = runStep(strName, mark == strWord.npos ? nullptr : &iData);
            if (end != strWord.npos) {
                EXPECT_EQ(s32Result, std::stoi(strWord.substr(end + 1))) << strWord;
            }
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
    static BU_S32 zoom()
    {
        BU_S32 s32 = -1;
        PTZ_API_GetZoomPos(0, &s32);
        return s32;
    }
    static BU_S32 focus()
    {
        BU_S32 s32 = -1;
        AF_API_GetFocusPos(0, &s32);
        return s32;
    }

private:
    BU_S32 runStep(const std::string &strName, int *piData)
    {
        static const std::map<std::string, PT_MOTION_CTRL_S> HEAD = {{"move", moveTo(90, 0)},
                                                                     {"back", moveTo(-90, 0)},
                                                                     {"here", moveTo(0, 0)},
                                                                     {"aside", moveTo(-20, 0)},
                                                                     {"right", drive(PT_MOTION_E_RIGHT, 60)},
                                                                     {"left", drive(PT_MOTION_E_LEFT, 60)},
                                                                     {"stop", drive(PT_MOTION_E_STOP, 0)},
                                                                     {"home", drive(PT_MOTION_E_HOME, 0)},
                                                                     {"reset", drive(PT_MOTION_E_RESET, 0)}};
        static const std::map<std::string, ZF_MOTION_CTRL_S> LENS = {{"zoom", lens(ZF_E_ZOOM_DIRECT_POS, 16384)},
                                                                     {"focus", lens(ZF_E_FOCUS_DIRECT_POS, 5000)},
                                                                     {"both", lens(ZF_E_ZOOM_FOCUS_DIRECT_POS, 6000)},
                                                                     {"tele", lens(ZF_E_ZOOM_TELE)},
                                                                     {"wide", lens(ZF_E_ZOOM_WIDE)},
                                                                     {"near", lens(ZF_E_FOCUS_NEAR)},
                                                                     {"zoomstop", lens(ZF_E_ZOOM_STOP)},
                                                                     {"focusstop", lens(ZF_E_FOCUS_STOP)}};
        if (HEAD.contains(strName)) return BSP_PTCtrlMotion(FROM, &HEAD.at(strName), piData);
        if (LENS.contains(strName)) return BSP_ZFCtrlMotion(ZF_FROM, &LENS.at(strName), piData);
        if (strName.starts_with("recall")) return PRESET_API_GotoById(std::stoi(strName.substr(6)), FROM, piData);
        if (strName == "autofocus") return AF_API_SetFocusAuto(0, BU_TRUE, BU_FALSE, BU_TRUE);
        if (strName == "fast") return PRESET_API_SetPresetSpeed(0, 24, BU_FALSE, BU_FALSE);
        return clock().advance(std::stoi(strName.substr(4))), 0; // "wait"
    }

    template <char UNIT> static BU_S32 report(void *pvPrivate, BU_BOOL bResult)
    {
        reports().push_back((UNIT == 'p' ? "pt " : "zf ") + std::to_string(*static_cast<int *>(pvPrivate)) +
                            (bResult ? " done" : " left"));
        return 0;
    }
};
