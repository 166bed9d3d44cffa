/// A shell text taken apart into commands and words.
#include "internal.h"

#include <algorithm>
#include <utility>

namespace
{
using util::After;
using util::ShellCommand;

constexpr std::string_view BLANKS = " \t\n";
constexpr std::string_view OPERATORS = ";&|";
constexpr std::string_view SHELL_ONLY = "<>$`()*?[]{}~#!";

bool has(std::string_view set, BU_CHAR c) { return set.find(c) != std::string_view::npos; }

class Parser
{
public:
    explicit Parser(std::string_view text) : m_text(text) {}

    std::optional<std::vector<ShellCommand>> commands()
    {
        while (skipBlanks(), !m_text.empty()) {
            if (has(OPERATORS, m_text.front()) ? !takeOperator() : !takeWord()) return std::nullopt;
        }
        // Behind ';' and '&' the text may end, behind the others a command must follow.
        if (!endCommand() && (m_bPipe || m_stCommand.enAfter != After::ANY)) return std::nullopt;
        return std::move(m_commands);
    }

private:
    void skipBlanks() { take(std::min(m_text.find_first_not_of(BLANKS), m_text.size())); }

    void take(std::size_t count)
    {
        m_stCommand.strText += m_text.substr(0, count);
        m_text.remove_prefix(count);
    }

    bool endCommand()
    {
        if (m_stCommand.words.empty() || m_bPipe) return false;
        auto &strText = m_stCommand.strText;
        strText.erase(0, strText.find_first_not_of(BLANKS));
        strText.erase(strText.find_last_not_of(BLANKS) + 1);
        m_commands.push_back(std::exchange(m_stCommand, {}));
        return true;
    }

    bool takeOperator()
    {
        const BU_CHAR cOperator = m_text.front();
        const bool bTwice = cOperator != ';' && m_text.size() > 1 && m_text[1] == cOperator;
        if (cOperator == '|' && !bTwice) {
            if (m_stCommand.words.empty() || m_bPipe) return false;
            m_stCommand.bNeedsShell = m_bPipe = true;
            take(1);
            return true;
        }
        if (!endCommand()) return false;
        m_text.remove_prefix(bTwice ? 2 : 1);
        m_stCommand.enAfter = !bTwice ? After::ANY : cOperator == '&' ? After::DONE : After::FAILED;
        return true;
    }

    bool takeWord()
    {
        std::string strWord;
        while (!m_text.empty() && !has(BLANKS, m_text.front()) && !has(OPERATORS, m_text.front())) {
            const BU_CHAR c = m_text.front();
            if (c == '\'' || c == '"' || c == '\\') {
                if (!takeQuoted(c, strWord)) return false;
                continue;
            }
            if (has(SHELL_ONLY, c)) m_stCommand.bNeedsShell = true;
            const std::size_t count = m_text.starts_with(">&") ? 2 : 1; // that '&' ends no command
            strWord += m_text.substr(0, count);
            take(count);
        }
        m_bPipe = false;
        m_stCommand.words.push_back(std::move(strWord));
        return true;
    }

    bool takeQuoted(BU_CHAR cQuote, std::string &strWord)
    {
        if (cQuote == '\\') {
            if (m_text.size() < 2) return false;
            strWord += m_text[1];
            take(2);
            return true;
        }
        const std::size_t end = m_text.find(cQuote, 1);
        if (end == std::string_view::npos) return false;
        const std::string_view inner = m_text.substr(1, end - 1);
        if (cQuote == '"' && inner.find_first_of("$`\\") != std::string_view::npos) m_stCommand.bNeedsShell = true;
        strWord += inner;
        take(end + 1);
        return true;
    }

    std::string_view m_text;
    ShellCommand m_stCommand;
    bool m_bPipe = false; // the next word begins another part of the pipeline
    std::vector<ShellCommand> m_commands;
};
} // namespace

std::optional<std::vector<ShellCommand>> util::shellCommands(std::string_view text) { return Parser(text).commands(); }
