#include <filesystem>

#include "fuzz/target.h"
#include "tests/support/case-run.h"
#include "tests/support/escapes.h"
#include "tests/support/temporary-directory.h"
#include "tests/support/text-difference.h"

namespace torvel::fuzz {

namespace {

namespace fs = std::filesystem;

/// The files of the cases, each case's together.
const std::vector<std::vector<test::CaseEntry>>& goldenFiles() {
    static const std::vector<std::vector<test::CaseEntry>> cases = [] {
        std::vector<std::vector<test::CaseEntry>> made;
        const fs::path root = fs::path(TORVEL_SOURCE_DIR) / "tests/golden";
        test::visitCases(root, [&](const std::string&, const std::string&, const fs::path& path) {
            made.push_back(test::readCase(path).files);
        });
        return made;
    }();
    return cases;
}

std::string asOneInput(const std::vector<test::CaseEntry>& files) {
    std::string input;
    for (const test::CaseEntry& file : files) {
        if (!input.empty() && !input.ends_with('\n')) {
            input += '\n';
        }
        input += "--- " + file.path + '\n' + file.content;
    }
    return input;
}

/// The lines of a file that the target takes; for expressions what stands behind the "=" too.
std::string linesFor(const Target& target, std::string_view content) {
    const bool wantsExpressions = target.check == checkExpressions;
    std::string input;
    bool goesOn = false;
    for (std::string_view line : test::splitLines(content)) {
        const bool isBody = goesOn;
        goesOn = line.ends_with('\\');
        if (wantsExpressions) {
            const std::size_t sign = line.find('=');
            line.remove_prefix(sign == std::string_view::npos ? 0 : sign + 1);
        } else if (!isBody && !isOfTarget(target, line)) {
            continue;
        }
        input += line;
        input += '\n';
    }
    return input;
}

}  // namespace

std::vector<std::string> seedsOf(const Target& target) {
    std::vector<std::string> seeds;
    for (const std::vector<test::CaseEntry>& files : goldenFiles()) {
        if (target.check == checkConversion) {
            seeds.push_back(asOneInput(files));
            continue;
        }
        for (const test::CaseEntry& file : files) {
            const bool takesXml = target.check == checkParameterFile;
            if (takesXml == test::isSourceText(file.path)) {
                continue;
            }
            const bool takesAll = takesXml || target.check == checkLineSplitter ||
                                  target.check == checkLexer || target.check == checkSubstitution;
            seeds.push_back(takesAll ? file.content : linesFor(target, file.content));
        }
    }
    std::erase(seeds, std::string());
    return seeds;
}

}  // namespace torvel::fuzz
