/// What the sources of this library share.
#pragma once

#include "base/types.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace journal
{
/// Starts or ends writing every recorded call to /var/debug/app/platform/journal.log. At 4 MiB the file becomes
/// journal.log.1 and a new one begins.
void stream(bool bOn);
} // namespace journal

namespace util
{
/// Counts the changes of the device root, so that who keeps a path open notices. Thread: any.
BU_U32 rootGeneration();

/// Takes the device root for this process until it ends, however it ends; a restart takes it again. When another
/// process has it, says so and exits with status 75. A root that cannot be locked at all is used as it is.
void lockRoot();

/// The service starts up: it has the device root for itself; from now on one thread takes the signals that end the
/// process and runs their handlers, which log and exit, outside any interrupted code; the journal's debug switch is
/// there. Once; later calls do nothing.
void startProcess();

/// Replaces the process by a fresh one with the same arguments and environment, shortly, so that an answer under way
/// still leaves.
void restartSoon();

enum class After : BU_S32 {
    ANY,   ///< first, or behind ';' or '&'
    DONE,  ///< behind "&&"
    FAILED ///< behind "||"
};

/// One command, or a whole pipeline, of a shell text.
struct ShellCommand {
    After enAfter = After::ANY;
    std::vector<std::string> words; ///< at least one
    std::string strText;            ///< as written
    bool bNeedsShell = false; ///< a pipeline, a redirection, a substitution or a pattern: only a shell could run it
};

/// Takes a shell text apart. Words may be quoted with '...', "..." or '\'.
/// @return the commands in order; none when a quote is not closed or an operator has no command
std::optional<std::vector<ShellCommand>> shellCommands(std::string_view text);
} // namespace util
