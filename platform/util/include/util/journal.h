/// Call journal: the one choke point that every function of the platform passes.
///
/// Off, it costs one relaxed atomic load. On, it records effects as text, in order, and may answer a call with an
/// injected result. Tests assert the sequence and make calls fail; on a running camera it streams to
/// /var/debug/app/platform/journal.log once "1" is written to /var/debug/app/platform/journal.
#pragma once

#include "base/types.h"

#include <atomic>
#include <optional>
#include <string>
#include <type_traits>
#include <vector>

namespace journal
{
extern std::atomic<bool> g_bOn;

/// Clears the journal and starts recording. stop() ends it and forgets every injection.
void start();
void stop();

/// The recorded effects since start or the last call of effects, e.g. `ISP_API_SetGain(0, 12, 1, 1)`.
std::vector<std::string> effects();

/// Lets the next s32Times calls of a function (effect or question) return s32Result without being carried out.
void inject(const BU_CHAR *pcFunction, BU_S32 s32Result, BU_S32 s32Times = 1);

std::optional<BU_S32> record(const BU_CHAR *pcFunction, const std::string &strArgs, bool bEffect);

// The text of an argument. A record type gets its own form by an overload `std::string journalText(const Record &)` in
// the record's namespace.
std::string text(BU_S64 s64Value);
std::string text(double dValue);
std::string text(const BU_CHAR *pcText); ///< quoted; NULL for a null pointer
template <class T> std::string argument(const T &value)
{
    if constexpr (std::is_enum_v<T> || std::is_integral_v<T>)
        return text(static_cast<BU_S64>(value));
    else if constexpr (std::is_floating_point_v<T>)
        return text(static_cast<double>(value));
    else if constexpr (std::is_convertible_v<T, const BU_CHAR *>)
        return text(static_cast<const BU_CHAR *>(value));
    else if constexpr (requires { journalText(value); })
        return journalText(value);
    else if constexpr (std::is_pointer_v<T>) {
        if constexpr (requires { journalText(*value); })
            return value ? journalText(*value) : "NULL";
        else
            return value ? "&" : "NULL";
    } else
        return "?";
}

template <class... A> std::optional<BU_S32> pass(const BU_CHAR *pcFunction, bool bEffect, const A &...args)
{
    if (!g_bOn.load(std::memory_order_relaxed)) return std::nullopt;
    std::string strArgs;
    ((strArgs += strArgs.empty() ? argument(args) : ", " + argument(args)), ...);
    return record(pcFunction, strArgs, bEffect);
}

/// First line of a platform function that changes something:
///   if (const auto injected = journal::call(__func__, s32Pipe, s32Value)) return *injected;
template <class... A> std::optional<BU_S32> call(const BU_CHAR *pcFunction, const A &...args)
{
    return pass(pcFunction, true, args...);
}

/// First line of one that only answers: not recorded, but a result can be injected.
template <class... A> std::optional<BU_S32> ask(const BU_CHAR *pcFunction, const A &...args)
{
    return pass(pcFunction, false, args...);
}
} // namespace journal
