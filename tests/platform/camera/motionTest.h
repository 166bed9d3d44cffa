/// Base of the tests of motion, presets and lens: head and lens just started, every report recorded.
#pragma once

#include "../../support/platformTest.h"

#include "camera/focus.h"
#include "camera/preset.h"
#include "camera/settingEvent.h"
#include "camera/zoom.h"

#include <cmath>

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
    template <char UNIT> static BU_S32 report(void *pvPrivate, BU_BOOL bResult)
    {
        reports().push_back((UNIT == 'p' ? "pt " : "zf ") + std::to_string(*static_cast<int *>(pvPrivate)) +
                            (bResult ? " done" : " left"));
        return 0;
    }
};
