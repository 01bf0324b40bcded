// README.md: its example is converted as it shows, and defines are what it says.

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "src/app/command.h"
#include "tests/coverage/page-tables.h"
#include "tests/support/case-run.h"
#include "tests/support/escapes.h"
#include "tests/support/temporary-directory.h"
#include "tests/support/text-difference.h"

namespace torvel::test {

namespace {

std::string readme() {
    return readFile(std::filesystem::path(TORVEL_SOURCE_DIR) / "README.md");
}

Outcome convert(const std::string& name, const std::string& program) {
    Case test;
    test.files.push_back({name, program});
    test.arguments = {"-o", "out", name};
    return runCase(test, test.files, runCommand);
}

/// The indented lines behind the first line that is `lead`.
std::string indentedBehind(const std::string& page, std::string_view lead) {
    std::string text;
    bool isBehind = false;
    for (const std::string_view line : splitLines(page)) {
        if (line == lead) {
            isBehind = true;
        } else if (isBehind && line.starts_with("    ")) {
            text += std::string(line.substr(4)) + '\n';
        } else if (isBehind && line.empty()) {
            text += text.empty() ? "" : "\n";
        } else if (isBehind) {
            break;
        }
    }
    return text;
}

TEST(Readme, ExampleIsConvertedAsShown) {
    const std::string page = readme();
    std::string program;
    std::string expected;
    for (const std::vector<std::string>& cells :
         tableRows(page, "| Brannic, `drill.pgm` | Torvel, `drill.torvel` |")) {
        program += unquoted(cells[0]) + '\n';
        expected += replaceAll(unquoted(cells[1]), "⇥", "\t") + '\n';
    }
    EXPECT_NE(program, "");
    const Outcome outcome = convert("drill.pgm", program);
    EXPECT_EQ(outcome.output.value_or(""), expected + "\n");
    const std::string log = indentedBehind(page, "and the log, `drill.log`:");
    EXPECT_NE(log, "");
    EXPECT_EQ(outcome.log.value_or(""), log);
}

TEST(Readme, DefinesThatAreNotKeptAndThoseInTheirPlace) {
    const std::vector<std::vector<std::string>> rows = tableRows(
        readme(), "| in the output | no conditional asks for it | a conditional asks for it |");
    EXPECT_FALSE(rows.empty());
    for (const std::vector<std::string>& cells : rows) {
        const std::string marked = unquoted(cells[0]);
        const std::string define = replaceAll(marked, "#error_unconvertible ", "");
        EXPECT_EQ(convert("main.pgm", define).output.value_or(""), marked + "\n");
        const std::string instead = unquoted(cells[2]);
        EXPECT_EQ(convert("main.pgm", instead).output.value_or(""), instead + "\n");
    }
}

}  // namespace

}  // namespace torvel::test
