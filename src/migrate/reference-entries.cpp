#include "src/migrate/reference-entries.h"

#include <algorithm>
#include <charconv>

#include "src/base/characters.h"
#include "src/base/parse-exception.h"
#include "src/lex/keywords.h"
#include "src/preprocess/line-splitter.h"
#include "src/preprocess/site-constants.h"

namespace torvel::migrate {

std::optional<std::uint32_t> referenceNumber(std::string_view text) {
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isWhole = error == std::errc() && end == text.data() + text.size();
    if (!isWhole || (text.size() > 1 && text[0] == '0')) {
        return std::nullopt;
    }
    return number;
}

std::optional<std::string> faultOfConstantName(std::string_view name) {
    if (!isConstantName(name)) {
        return "it must begin with a letter or '_' and go on with letters, digits and '_'";
    }
    if (keywordKind(name) != TokenType::INVALID) {
        return "it is a word of Brannic's own, which would be replaced everywhere";
    }
    if (isLetter(name[0]) && std::all_of(name.begin() + 1, name.end(), isDigit)) {
        return "a letter with or without digits is an axis or a word of G-code, which would be "
               "replaced everywhere";
    }
    return std::nullopt;
}

std::optional<std::string> faultOfConstantText(std::string_view text) {
    constexpr std::string_view noComment = "it must be code of one line without a comment";
    Program program;
    SourceFile file;
    file.text = program.text.add(text);
    const Inclusion inclusion{&file, {}};
    LineSplitter splitter(program, inclusion);
    ScannedLine line;
    try {
        splitter.next(line);
        if (program.text.view(line.code) != trimBlanks(text) || splitter.next(line)) {
            return std::string(noComment);
        }
    } catch (const ParseException&) {
        return "it has a string or a comment that is not closed";
    }
    if (line.code.empty()) {
        return "it is empty";
    }
    return std::nullopt;
}

}  // namespace torvel::migrate
