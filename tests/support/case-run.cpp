#include "tests/support/case-run.h"

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <string>

#include "tests/support/escapes.h"
#include "tests/support/platform.h"
#include "tests/support/temporary-directory.h"
#include "tests/support/text-difference.h"

namespace torvel::test {

namespace {

namespace fs = std::filesystem;

/// Makes a folder the working directory while it lives.
class WorkingDirectory {
public:
    explicit WorkingDirectory(const fs::path& path) : previous_(fs::current_path()) {
        fs::current_path(path);
    }
    ~WorkingDirectory() {
        std::error_code ignored;
        fs::current_path(previous_, ignored);
    }
    WorkingDirectory(const WorkingDirectory&) = delete;
    WorkingDirectory& operator=(const WorkingDirectory&) = delete;

private:
    fs::path previous_;
};

void layOut(const Case& test, const std::vector<CaseEntry>& files, const fs::path& root) {
    fs::create_directory(root / "out");
    for (const std::string& directory : test.directories) {
        fs::create_directories(root / pathOf(directory));
    }
    for (const CaseEntry& file : files) {
        writeFile(root / pathOf(file.path), file.content);
    }
    for (const CaseEntry& link : test.links) {
        const fs::path path = root / pathOf(link.path);
        fs::create_directories(path.parent_path());
        fs::create_symlink(pathOf(link.content), path);
    }
    for (const CaseEntry& link : test.hardLinks) {
        const fs::path path = root / pathOf(link.path);
        fs::create_directories(path.parent_path());
        fs::create_hard_link(path.parent_path() / pathOf(link.content), path);
    }
}

std::optional<std::string> contentOf(const fs::path& path) {
    std::error_code leadsNowhere;
    return fs::is_regular_file(path, leadsNowhere) ? std::optional(readFile(path)) : std::nullopt;
}

std::string joined(const std::vector<std::string>& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line + '\n';
    }
    return text;
}

void appendDifference(std::string& text, const char* what, std::string_view expected,
                      std::string_view actual) {
    if (const std::string difference = textDifference(expected, actual); !difference.empty()) {
        text += std::string(what) + ":\n" + difference;
    }
}

void appendDifference(std::string& text, const char* what,
                      const std::optional<std::string>& expected,
                      const std::optional<std::string>& actual) {
    if (expected.has_value() != actual.has_value()) {
        text += std::string(what) + (expected ? " is missing\n" : " should not be there:\n");
        text += textDifference(expected.value_or(""), actual.value_or(""));
    } else if (expected) {
        appendDifference(text, what, std::string_view(*expected), std::string_view(*actual));
    }
}

}  // namespace

std::string checkLine(const Finding& finding) {
    std::string line = finding.position.inclusion == nullptr
                           ? std::string("-")
                           : finding.position.inclusion->file->displayPath;
    line += ':' + std::to_string(finding.position.lineNumber);
    if (finding.columns != ColumnRange()) {
        line += ':' + std::to_string(finding.columns.first) + '-' +
                std::to_string(finding.columns.last);
    }
    return line + ' ' + std::string(finding.code) + '\n';
}

ConverterRun runForChecks(const std::vector<std::string>& arguments, const Limits& limits) {
    std::string checks;
    ConverterRun run = runCommandForFindings(arguments, limits, [&](const Finding& finding) {
        if (finding.origin == FindingOrigin::check) {
            checks += checkLine(finding);
        }
    });
    run.checks = checks;
    return run;
}

Outcome runCase(const Case& test, const std::vector<CaseEntry>& files, const RunConverter& run) {
    const TemporaryDirectory directory;
    const fs::path& root = directory.path();
    layOut(test, files, root);
    std::vector<std::string> arguments;
    for (const std::string& argument : test.arguments) {
        arguments.push_back(replaceAll(argument, "{dir}", root.string()));
    }
    const fs::path base = root / pathOf(test.outputDirectory());
    std::vector<fs::path> paths = {base / pathOf(test.stem() + ".torvel"),
                                   base / pathOf(test.stem() + ".log")};
    for (const CaseEntry& file : test.expected.files) {
        paths.push_back(root / pathOf(file.path));
    }
    std::vector<std::optional<std::string>> before;
    std::transform(paths.begin(), paths.end(), std::back_inserter(before), contentOf);
    const ConverterRun result = [&] {
        const WorkingDirectory here(root);
        return run(arguments, test.limits);
    }();

    // What the run did not write has the line ends that it had.
    const auto contentAfter = [&](std::size_t i) {
        std::optional<std::string> content = contentOf(paths[i]);
        if (content && content != before[i]) {
            content = withoutRoot(plainLineEnds(*content), root);
        }
        return content;
    };
    Outcome outcome;
    outcome.status = result.status;
    outcome.checks = result.checks;
    outcome.standardOutput = withoutRoot(result.standardOutput, root);
    outcome.standardError = withoutRoot(result.standardError, root);
    outcome.output = contentAfter(0);
    outcome.log = contentAfter(1);
    for (std::size_t i = 0; i < test.expected.files.size(); ++i) {
        if (const std::optional<std::string> found = contentAfter(i + 2)) {
            outcome.files.push_back({test.expected.files[i].path, *found});
        }
    }
    return outcome;
}

std::string outcomeDifference(const Outcome& expected, const Outcome& actual) {
    std::string text;
    if (expected.status != actual.status) {
        text += "status: expected " + std::to_string(expected.status) + ", got " +
                std::to_string(actual.status) + '\n';
    }
    appendDifference(text, "stderr", std::string_view(expected.standardError),
                     std::string_view(actual.standardError));
    appendDifference(text, "stdout", std::string_view(expected.standardOutput),
                     std::string_view(actual.standardOutput));
    appendDifference(text, "output", expected.output, actual.output);
    appendDifference(text, "log", expected.log, actual.log);
    if (expected.checks) {
        appendDifference(text, "checks", expected.checks, actual.checks);
    }
    for (const CaseEntry& file : expected.files) {
        const auto found =
            std::find_if(actual.files.begin(), actual.files.end(),
                         [&](const CaseEntry& other) { return other.path == file.path; });
        const std::optional<std::string> content =
            found == actual.files.end() ? std::nullopt : std::optional(found->content);
        appendDifference(text, file.path.c_str(), std::optional(file.content), content);
    }
    return text;
}

bool isSourceText(std::string_view path) {
    return !path.ends_with(".xml");
}

void visitCases(const fs::path& root, const VisitCase& visit) {
    std::vector<fs::path> paths;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        if (entry.path().extension() == ".case") {
            paths.push_back(entry.path());
        }
    }
    std::sort(paths.begin(), paths.end());
    for (const fs::path& path : paths) {
        visit(replaceAll(path.parent_path().filename().string(), "-", "_"),
              replaceAll(path.stem().string(), "-", "_"), path);
    }
}

bool takeUpdateFlag(int& argc, char** argv) {
    bool update = std::getenv("TORVEL_UPDATE_CASES") != nullptr;
    int kept = 0;
    for (int i = 0; i < argc; ++i) {
        if (std::string_view(argv[i]) == "--update") {
            update = true;
        } else {
            argv[kept++] = argv[i];
        }
    }
    argc = kept;
    return update;
}

std::string checkExpectations(const fs::path& path, const Case& test, const Outcome& outcome,
                              bool update) {
    const std::string difference = outcomeDifference(test.expected, outcome);
    if (update && !difference.empty()) {
        writeFile(path, withExpectations(readFile(path), outcome));
        return {};
    }
    return difference.empty() ? difference
                              : test.head + "arguments:\n" + joined(test.arguments) + difference;
}

}  // namespace torvel::test
