#include <string>

#include "src/base/parse-exception.h"
#include "src/preprocess/line-splitter.h"
#include "tests/support/program-text.h"
#include "tests/support/table.h"

namespace torvel::test {

namespace {

/// The logical lines of a file, "number/first/second" separated by " | ", or the error that ends them.
std::string splitInto(const std::string& file, TextSpan ScannedLine::*first,
                      TextSpan ScannedLine::*second) {
    ProgramText source(file);
    LineSplitter splitter(source.program, *source.inclusion);
    std::string printed;
    ScannedLine line;
    try {
        while (splitter.next(line)) {
            printed += printed.empty() ? "" : " | ";
            printed += std::to_string(line.lineNumber) + '/';
            printed += source.program.text.view(line.*first);
            if (second != nullptr) {
                printed += '/';
                printed += source.program.text.view(line.*second);
            }
        }
    } catch (const ParseException& error) {
        printed += printed.empty() ? "! " : " | ! ";
        printed += std::string(error.what()).substr(std::string("main.pgm:").size());
        printed.pop_back();
    }
    return printed;
}

std::string codeAndComments(const std::string& file) {
    return splitInto(file, &ScannedLine::code, &ScannedLine::comment);
}

std::string keptTexts(const std::string& file) {
    return splitInto(file, &ScannedLine::text, nullptr);
}

const TableTests lineSplitting("line-splitting",
                               {{"lines", codeAndComments}, {"kept text", keptTexts}});

}  // namespace

}  // namespace torvel::test
