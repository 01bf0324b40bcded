#include "src/migrate/finding-names.h"

#include <algorithm>

namespace torvel::migrate {

std::string_view todoName(FindingTodo todo) {
    switch (todo) {
        case FindingTodo::rewrite: return "rewrite";
        case FindingTodo::complete: return "complete";
        case FindingTodo::fixSource: return "fix-source";
        default: return "look";
    }
}

std::string_view originName(FindingOrigin origin) {
    switch (origin) {
        case FindingOrigin::message: return "message";
        case FindingOrigin::define: return "define";
        default: return "check";
    }
}

std::string_view statusName(ProgramStatus status) {
    switch (status) {
        case ProgramStatus::unreadable: return "unreadable";
        case ProgramStatus::collides: return "collides";
        default: return "converted";
    }
}

std::string_view outputStateName(OutputState state) {
    switch (state) {
        case OutputState::asGenerated: return "as-generated";
        case OutputState::edited: return "edited";
        case OutputState::conflict: return "conflict";
        case OutputState::deleted: return "deleted";
        case OutputState::foreign: return "foreign";
        case OutputState::notWritten: return "not-written";
        default: return "none";
    }
}

std::string_view programStatusName(const ReportProgram& program) {
    const bool isTouched =
        program.outputState != OutputState::none && program.outputState != OutputState::asGenerated;
    return program.status == ProgramStatus::converted && isTouched
               ? outputStateName(program.outputState)
               : statusName(program.status);
}

std::optional<FailOn> failOnNamed(std::string_view name) {
    for (const FindingTodo todo : todos) {
        if (todoName(todo) == name) {
            return FailOn{todo, {}};
        }
    }
    for (const Severity severity : severities) {
        if (severityName(severity) == name) {
            return FailOn{{}, severity};
        }
    }
    return std::nullopt;
}

std::vector<FailOn> failOnsOf(std::string word) {
    std::vector<FailOn> kinds;
    if (word == "any") {
        for (const FindingTodo todo : todos) {
            kinds.push_back({todo, std::nullopt});
        }
        return kinds;
    }
    std::replace(word.begin(), word.end(), '_', '-');
    if (const std::optional<FailOn> named = failOnNamed(word)) {
        kinds.push_back(*named);
    }
    return kinds;
}

}  // namespace torvel::migrate
