/// Speeds of the head.
#pragma once

#include "camera/motion.h"
#include "head.h"

namespace motion
{
/// Degrees per second of an order, within the limits of the head. @param bFullForNone  0 stands for the greatest speed
HeadSpeed headSpeed(const PT_MOTION_CTRL_S &stMotion, bool bFullForNone);
HeadSpeed fullHeadSpeed();
/// At the preset speed level of the settings.
HeadSpeed presetHeadSpeed();
/// Whether moves of the source bring pan and tilt to the target at once.
bool arrivesTogether(PT_CTRL_FROM_E enFrom);
} // namespace motion
