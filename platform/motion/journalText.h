/// Moves of the head and the lens as texts of the journal.
#pragma once

#include "camera/motion.h"

#include <iterator>
#include <string>

/// `{UP, pan 3300, tilt 2500}`, `{ABS_POS 795000 540000, pan 12000, tilt 9000}`, `{ZOOM_TELE, speed 5}`,
/// `{ZOOM_DIRECT_POS x1.00, speed 7, then focus}`.
inline std::string journalText(const PT_MOTION_CTRL_S &stMotion)
{
    constexpr const BU_CHAR *NAMES[] = {"UP",       "DOWN",       "LEFT", "RIGHT",   "LEFT_UP", "LEFT_DOWN",
                                        "RIGHT_UP", "RIGHT_DOWN", "STOP", "ABS_POS", "HOME",    "RESET"};
    const auto add = [](const BU_CHAR *pcName, BU_U32 u32) { return pcName + std::to_string(u32); };
    const auto type = static_cast<std::size_t>(stMotion.enMotionType);
    std::string strText = std::string("{") + (type < std::size(NAMES) ? NAMES[type] : "BUTT");
    if (type == PT_MOTION_E_STOP) return strText + "}";
    if (type == PT_MOTION_E_ABS_POS)
        strText += add(" ", stMotion.stPos.u32PanPos) + add(" ", stMotion.stPos.u32TiltPos);
    return strText + add(", pan ", stMotion.stSpd.u32PanSpd) + add(", tilt ", stMotion.stSpd.u32TiltSpd) + "}";
}

inline std::string journalText(const ZF_MOTION_CTRL_S &stMotion)
{
    // Which fields a type reads: z zoom position, f focus position, s zoom speed, p focus speed.
    constexpr struct {
        const BU_CHAR *pcName, *pcFields;
    } TYPES[] = {{"ZOOM_STOP", ""},         {"ZOOM_TELE", "s"},         {"ZOOM_WIDE", "s"},
                 {"ZOOM_DIRECT_POS", "zs"}, {"FOCUS_STOP", ""},         {"FOCUS_FAR", "p"},
                 {"FOCUS_NEAR", "p"},       {"FOCUS_DIRECT_POS", "fp"}, {"ZOOM_FOCUS_DIRECT_POS", "zfsp"}};
    const auto type = static_cast<std::size_t>(stMotion.enMotionType);
    if (type >= std::size(TYPES)) return "{?}";
    std::string strText = std::string("{") + TYPES[type].pcName;
    for (const BU_CHAR *pc = TYPES[type].pcFields; *pc; ++pc) {
        if (*pc == 'z' && stMotion.bUseZoomTime)
            strText += " x" + std::to_string(stMotion.fZoomTime).substr(0, 4);
        else if (*pc == 'z')
            strText += " " + std::to_string(stMotion.u32ZoomPos);
        else if (*pc == 'f')
            strText += " " + std::to_string(stMotion.u32FocusPos);
        else
            strText += ", speed " + std::to_string(*pc == 's' ? stMotion.u8ZoomSpd : stMotion.u8FocusSpd);
    }
    return strText + (stMotion.bTriggerFocusAfterZoom ? ", then focus}" : "}");
}
