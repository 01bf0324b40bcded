#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "src/app/command.h"
#include "tests/support/case-file.h"

namespace torvel::test {

/// What a run gives: with the checks, a line each, where it was asked for them.
struct ConverterRun : CommandResult {
    ConverterRun(CommandResult result) : CommandResult(std::move(result)) {}
    std::optional<std::string> checks;
};

/// Runs the converter on arguments, in the current working directory.
using RunConverter =
    std::function<ConverterRun(const std::vector<std::string>& arguments, const Limits& limits)>;

/// A check as cases have it: "file:line:first-last code", without columns where they are not known.
std::string checkLine(const Finding& finding);

/// Runs the converter and asks it for the checks.
ConverterRun runForChecks(const std::vector<std::string>& arguments, const Limits& limits);

/// Lays out `files` in a folder of their own with the case's folders and links, runs the converter there
/// and gathers what it leaves behind.
Outcome runCase(const Case& test, const std::vector<CaseEntry>& files, const RunConverter& run);

/// What differs between two outcomes, for people; empty if nothing does.
std::string outcomeDifference(const Outcome& expected, const Outcome& actual);

/// Whether the path belongs to a file of Brannic text (all but XML does).
bool isSourceText(std::string_view path);

/// Called for each case of a folder tree: `subject` and `name` with "_" for "-".
using VisitCase = std::function<void(const std::string& subject, const std::string& name,
                                     const std::filesystem::path& path)>;
void visitCases(const std::filesystem::path& root, const VisitCase& visit);

/// Whether the expectations of the cases are to be rewritten: the flag --update, which is taken off the
/// arguments, or the environment variable TORVEL_UPDATE_CASES.
bool takeUpdateFlag(int& argc, char** argv);

/// Compares the outcome with the case's expectations, or with `update` writes it into the case file.
/// Returns what differs; empty if nothing does.
std::string checkExpectations(const std::filesystem::path& path, const Case& test,
                              const Outcome& outcome, bool update);

}  // namespace torvel::test
