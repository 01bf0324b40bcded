#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "src/migrate/report.h"

// The names by which formats, options and the baseline call what a finding and a program are. They never change.

namespace torvel::migrate {

inline constexpr std::array todos = {FindingTodo::fixSource, FindingTodo::rewrite,
                                     FindingTodo::complete, FindingTodo::look};
inline constexpr std::array severities = {Severity::moves, Severity::stops, Severity::reads};

/// "fix-source", "rewrite", "complete", "look".
std::string_view todoName(FindingTodo todo);
/// "message", "check", "define".
std::string_view originName(FindingOrigin origin);
/// "converted", "unreadable", "collides".
std::string_view statusName(ProgramStatus status);
/// "none", "as-generated", "edited", "conflict", "deleted", "foreign", "not-written".
std::string_view outputStateName(OutputState state);
/// What became of a program, in one word: a converted one is told by its output where a person has a part in it.
std::string_view programStatusName(const ReportProgram& program);

/// What `--fail-on` names: a todo or a severity.
struct FailOn {
    std::optional<FindingTodo> todo;
    std::optional<Severity> severity;
};

/// None: there is no such name.
std::optional<FailOn> failOnNamed(std::string_view name);

/// What a word of `--fail-on` or `fail_on` means: such a name, also "fix_source" for "fix-source", or "any", which is
/// every todo. Empty: there is no such word.
std::vector<FailOn> failOnsOf(std::string word);

}  // namespace torvel::migrate
