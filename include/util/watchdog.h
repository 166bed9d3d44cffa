/// Software watchdog and crash diagnostics.
#pragma once

#include "base/types.h"

/// Limits the start-up: when it is not stopped in time, the process ends with a log line and status 70. Starting again
/// counts anew.
/// @param s32Seconds  1 or more
/// @return 0, or -1: below 1
/// Thread: the main thread, before any other is made.
BU_S32 UTIL_WDT_SW_StartTimeout(BU_S32 s32Seconds);

/// The start-up is over: stops the watchdog and, the first time, calls PLATFORM_Ready. @return 0. Thread: any.
BU_S32 UTIL_WDT_SW_StopTimeout();

/// Installs handlers that print the call stack to standard error when the process crashes, and makes a write to a
/// closed connection an error instead of a signal. Called once, first of all.
void UTIL_DUMPSTACK_PrintCallStack();
