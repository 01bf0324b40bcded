#include "fuzz/memory-program.h"

#include "fuzz/require.h"
#include "src/base/characters.h"
#include "src/base/parse-exception.h"

namespace torvel::fuzz {

namespace {

bool isInclude(std::string_view code) {
    constexpr std::string_view word = "#include";
    if (code.size() < word.size()) {
        return false;
    }
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (lowerCase(code[i]) != word[i]) {
            return false;
        }
    }
    return true;
}

}  // namespace

MemoryProgram::MemoryProgram(std::string_view content, const Limits& limits)
    : text_(content.substr(0, content.find('\0'))),
      run_(text_.program, axes_, limits, predefinedConstants(), source_) {
    text_.program.lines.clear();
    try {
        readLines();
    } catch (const ParseException& error) {
        diagnostic_ = error.what();
        require(diagnostic_.starts_with("main.pgm:") && diagnostic_.ends_with('\n'),
                "a diagnostic without its place: " + diagnostic_);
    }
}

void MemoryProgram::readLines() {
    const Inclusion& inclusion = *text_.inclusion;
    LineSplitter splitter(text_.program, inclusion);
    ScannedLine line;
    while (splitter.next(line)) {
        const std::string_view code = text_.program.text.view(line.code);
        if (isInclude(code)) {
            continue;
        }
        if (!code.starts_with('#') || !runDirective(run_, splitter, inclusion, line)) {
            prepareLine(run_, line, {&inclusion, line.lineNumber});
        }
    }
}

}  // namespace torvel::fuzz
