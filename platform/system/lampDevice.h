/// A lamp as a file of the device root.
#pragma once

#include "board/lamp.h"

#include <string>

namespace lamp
{
/// The line that says what a lamp shows.
std::string describe(const LED_TALLY_STATE_S &stState, LED_WHITE_MODE_E enWhiteMode);

/// Replaces the lamp's line. Thread: one at a time.
void show(BSP_LED_HANDLE pvLamp, const std::string &strLine);
} // namespace lamp
