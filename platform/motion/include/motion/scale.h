/// The scale of the head's motors. docs/positions.md has the tables.
#pragma once

#include "base/types.h"

namespace motion
{
constexpr BU_S32 MOTOR_CENTRE = 540000; ///< straight ahead, level
constexpr BU_S32 MOTOR_PER_DEGREE = 1500;
} // namespace motion
