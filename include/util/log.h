/// Log lines and diagnostic traces.
#pragma once

#include "base/types.h"

enum UTIL_LOG_LEVEL_E : BU_S32 {
    UTIL_LOG_LEVEL_E_ERROR = 3,
    UTIL_LOG_LEVEL_E_WARN = 4,
    UTIL_LOG_LEVEL_E_INFO = 6,
    UTIL_LOG_LEVEL_E_DEBUG = 7
};

/// Writes one line to standard error and to the rotating file /var/log/camera.log of the device root.
/// A trailing newline of the text is dropped, other control characters become '?'. Text beyond 1 KiB is cut. Never
/// fails: a full disk loses file lines only.
/// @param pcPrefix  function and line, as UTIL_LOG makes it; may be null
/// Thread: any.
void UTIL_LOG_Print(BU_S32 s32Level, const BU_CHAR *pcPrefix, const BU_CHAR *pcFormat, ...)
    __attribute__((format(printf, 3, 4)));

/// The log file's name below /var/log; without it camera.log. For a process of its own, before its first line.
/// @param pcName  lives as long as the process
void UTIL_LOG_SetFile(const BU_CHAR *pcName);

/// Whether lines of the level are written: levels up to CAMERA_LOG (3, 4, 6 or 7; default 6).
BU_BOOL UTIL_LOG_IsOn(BU_S32 s32Level);

/// Writes text to standard output as it stands. Off when CAMERA_TRACE is 0. Thread: any; lines are not mixed.
void UTIL_TRACE_Print(const BU_CHAR *pcFormat, ...) __attribute__((format(printf, 1, 2)));

namespace util
{
/// "function[line] ", the prefix of a log line.
struct LogPrefix {
    BU_CHAR acText[64]{};
    LogPrefix(const BU_CHAR *pcFunction, BU_S32 s32Line);
};
} // namespace util

/// A log line with the calling function and line in front. Macros, so that the format is checked at compile time.
#define UTIL_LOG(level, ...) UTIL_LOG_Print(level, util::LogPrefix(__func__, __LINE__).acText, __VA_ARGS__)
#define LOG_ERROR(...) UTIL_LOG(UTIL_LOG_LEVEL_E_ERROR, __VA_ARGS__)
#define LOG_WARN(...) UTIL_LOG(UTIL_LOG_LEVEL_E_WARN, __VA_ARGS__)
#define LOG_INFO(...) UTIL_LOG(UTIL_LOG_LEVEL_E_INFO, __VA_ARGS__)
#define LOG_DEBUG(...) (UTIL_LOG_IsOn(UTIL_LOG_LEVEL_E_DEBUG) ? UTIL_LOG(UTIL_LOG_LEVEL_E_DEBUG, __VA_ARGS__) : void())

/// A trace "[function:line] text" on standard output.
#define TRACE(format, ...) UTIL_TRACE_Print("[%s:%d] " format, __func__, __LINE__ __VA_OPT__(, ) __VA_ARGS__)
