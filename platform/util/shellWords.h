#pragma once

#include "base/types.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

enum SHELL_AFTER_E : BU_S32 {
    SHELL_AFTER_E_ANY = 0, ///< first, or behind ';' or '&'
    SHELL_AFTER_E_DONE,    ///< behind "&&"
    SHELL_AFTER_E_FAILED   ///< behind "||"
};

/// One command, or a whole pipeline, of a shell text.
struct tagSHELL_COMMAND_S {
    SHELL_AFTER_E enAfter = SHELL_AFTER_E_ANY;
    std::vector<std::string> words; ///< at least one
    std::string strText;            ///< as written
    bool bNeedsShell = false; ///< a pipeline, a redirection, a substitution or a pattern: only a shell could run it
};

/// Takes a shell text apart. Words may be quoted with '...', "..." or '\'.
/// @return the commands in order; none when a quote is not closed or an operator has no command
std::optional<std::vector<tagSHELL_COMMAND_S>> shellCommands(std::string_view text);
