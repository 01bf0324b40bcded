#include <gtest/gtest.h>

#include <string>

#include "src/base/parse-exception.h"
#include "src/preprocess/classification.h"
#include "src/preprocess/preprocessor.h"
#include "tests/support/program-text.h"
#include "tests/support/table.h"
#include "tests/support/temporary-directory.h"

namespace torvel::test {

namespace {

/// The lines of a preprocessed program as their tokens; lines are separated by " || ".
std::string preprocess(const std::string& content) {
    const TemporaryDirectory directory;
    const std::string path = (directory.path() / "main.pgm").string();
    writeFile(path, content);
    Program program;
    try {
        preprocessProgram(program, path, AxisNames(), Limits());
    } catch (const ParseException& error) {
        const std::string diagnostic = error.what();
        return "! " + diagnostic.substr(0, diagnostic.find('\n'));
    }
    std::string printed;
    for (std::size_t line = 0; line < program.lines.size(); ++line) {
        printed += line == 0 ? "" : " || ";
        printed += printTokens(program, lexedTokens(program, program.lines, line, AxisNames()));
    }
    return printed;
}

std::string classify(const std::string& value) {
    const std::optional<Classification> result = classifyDefine(value, AxisNames());
    return result ? std::to_string(static_cast<unsigned>(result->type)) + " " + result->value
                  : "none";
}

const TableTests preprocessing("preprocessing", {{"program", preprocess}});

const TableTests classification("classification", {{"value", classify}});

}  // namespace

}  // namespace torvel::test
