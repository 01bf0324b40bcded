#include "src/migrate/include-scan.h"

#include <algorithm>
#include <optional>

#include "src/base/characters.h"
#include "src/lex/keywords.h"
#include "src/preprocess/directive-line.h"

namespace torvel::migrate {

namespace {

/// A source that has one file, whatever it is asked for.
FileSource sourceOf(std::string_view bytes) {
    FileSource source;
    source.find = [](const NativePath& path) { return FoundFile{path, FileKind::regular}; };
    source.read = [bytes](const NativePath&, const MakeRoom& makeRoom) {
        char* const room = makeRoom(bytes.size());
        std::copy(bytes.begin(), bytes.end(), room);
        return FileReading{true, false, bytes.size(), {}};
    };
    return source;
}

/// The text behind line `number` of `text`, from 1; empty if there is no such line.
TextSpan behindLine(const TextStore& store, TextSpan text, std::uint32_t number) {
    const std::string_view view = store.view(text);
    std::size_t at = 0;
    for (; number > 0 && at < view.size(); --number) {
        at = std::min(view.find_first_of("\r\n", at), view.size());
        at = std::min(at + (view.substr(at, 2) == "\r\n" ? 2 : 1), view.size());
    }
    return text.subspan(at, view.size() - at);
}

/// A file's lines, one after the other.
struct FileScan {
    explicit FileScan(std::string_view bytes)
        : source(sourceOf(bytes)),
          run(program, axes, limits, predefinedConstants(), source),
          rest(run.files.load("program", {})) {}

    /// Calls visit(splitter, inclusion, line, number) with each line until it returns false. A line that ends inside a
    /// string ends nothing here: what is behind it is read anew.
    template <typename Visit>
    void visitLines(Visit visit) {
        std::uint32_t before = 0;
        bool goesOn = true;
        while (goesOn) {
            goesOn = false;
            const Inclusion inclusion{&rest, {}};
            LineSplitter splitter(program, inclusion);
            ScannedLine line;
            while (nextLine(splitter, line, goesOn)) {
                try {
                    if (!visit(splitter, inclusion, line, before + line.lineNumber)) {
                        return;
                    }
                } catch (const ParseException&) {
                    goesOn = true;
                }
            }
            if (goesOn) {
                rest.text = behindLine(program.text, rest.text, splitter.lineNumber());
                before += splitter.lineNumber();
                goesOn = !rest.text.empty();
            }
        }
    }

    static bool nextLine(LineSplitter& splitter, ScannedLine& line, bool& isFaulty) {
        try {
            return splitter.next(line);
        } catch (const ParseException&) {
            isFaulty = true;
            return false;
        }
    }

    AxisNames axes;
    Limits limits;
    Program program;
    FileSource source;
    PreprocessorRun run;
    SourceFile rest;
};

/// Where the last `#include` may be: block comments inside the word are not worth a closer look. `npos`: there is none.
std::size_t lastMaybeInclude(std::string_view bytes) {
    std::size_t last = std::string_view::npos;
    for (std::size_t at = bytes.find('#'); at != std::string_view::npos;
         at = bytes.find('#', at + 1)) {
        const char next = at + 1 < bytes.size() ? lowerCase(bytes[at + 1]) : '\0';
        const char second = at + 2 < bytes.size() ? lowerCase(bytes[at + 2]) : '\0';
        if ((next == 'i' && (second == 'n' || second == '/')) || next == '/') {
            last = at;
        }
    }
    return last;
}

/// What stands in front of a place in its line.
enum class PlaceInLine : std::uint8_t { first, behindText, unclear };

PlaceInLine placeInLine(std::string_view bytes, std::size_t at) {
    while (at > 0 && isBlank(bytes[at - 1])) {
        --at;
    }
    if (at == 0 || bytes[at - 1] == '\n' || bytes[at - 1] == '\r') {
        return PlaceInLine::first;
    }
    return isWhiteSpace(bytes[at - 1]) ? PlaceInLine::unclear : PlaceInLine::behindText;
}

/// The path of the directive that a line begins with; none: that is another one, or it takes a closer look.
std::optional<std::string_view> plainIncludePath(std::string_view line) {
    constexpr std::string_view word = "#include";
    const bool isInclude = line.size() > word.size() && isWhiteSpace(line[word.size()]) &&
                           std::equal(word.begin(), word.end(), line.begin(),
                                      [](char wanted, char c) { return wanted == lowerCase(c); });
    if (!isInclude) {
        return std::nullopt;
    }
    line.remove_prefix(word.size());
    while (!line.empty() && isWhiteSpace(line.front())) {
        line.remove_prefix(1);
    }
    const std::size_t close = line.find('"', 1);
    // A further string may be open at the end of the line.
    if (!line.starts_with('"') || close == std::string_view::npos ||
        line.find('"', close + 1) != std::string_view::npos) {
        return std::nullopt;
    }
    return line.substr(1, close - 1);
}

/// How many lines end in a text.
std::uint32_t lineEnds(std::string_view text) {
    std::uint32_t count = 0;
    for (std::size_t at = text.find_first_of("\r\n"); at != std::string_view::npos;
         at = text.find_first_of("\r\n", at)) {
        at += text.substr(at, 2) == "\r\n" ? 2 : 1;
        ++count;
    }
    return count;
}

/// The includes of a file that has no other directives, and nothing else that hides lines or ends the file early. None: it
/// has.
std::optional<std::vector<WrittenInclude>> plainIncludes(std::string_view bytes) {
    constexpr char byteOrderMark = '\xEF';
    if (bytes.starts_with(byteOrderMark) || bytes.find('\0') != std::string_view::npos ||
        bytes.find("/*") != std::string_view::npos) {
        return std::nullopt;
    }
    std::vector<WrittenInclude> includes;
    std::size_t counted = 0;
    std::uint32_t number = 1;
    for (std::size_t at = bytes.find('#'); at != std::string_view::npos;
         at = bytes.find('#', at + 1)) {
        const PlaceInLine place = placeInLine(bytes, at);
        if (place == PlaceInLine::behindText) {
            continue;
        }
        const std::size_t end = std::min(bytes.find_first_of("\r\n", at), bytes.size());
        const auto path = plainIncludePath(bytes.substr(at, end - at));
        if (place == PlaceInLine::unclear || !path) {
            return std::nullopt;
        }
        number += lineEnds(bytes.substr(counted, at - counted));
        counted = at;
        includes.push_back({std::string(*path), number});
    }
    return includes;
}

/// The word that `code` begins with, which is taken off with the blanks behind it.
std::string_view takeWord(std::string_view& code) {
    const auto end = std::find_if_not(code.begin(), code.end(), isWordCharacter);
    const std::string_view word = code.substr(0, static_cast<std::size_t>(end - code.begin()));
    code = trimBlanks(code.substr(word.size()));
    return word;
}

/// Whether `word` is one letter and a number of this value.
bool isCode(std::string_view word, char letter, std::string_view number) {
    if (word.empty() || upperCase(word[0]) != letter) {
        return false;
    }
    word.remove_prefix(1);
    word.remove_prefix(std::min(word.find_first_not_of('0'), word.size()));
    return word == number;
}

bool isSequenceNumber(std::string_view word) {
    return word.size() > 1 && upperCase(word[0]) == 'N' &&
           std::all_of(word.begin() + 1, word.end(), isDigit);
}

enum class LineRole : std::uint8_t { other, opensSubroutine, closesSubroutine, endsProgram };

LineRole roleOf(std::string_view code) {
    std::string_view word = takeWord(code);
    if (isSequenceNumber(word)) {
        word = takeWord(code);
    }
    switch (keywordKind(word)) {
        case TokenType::DFS: return LineRole::opensSubroutine;
        case TokenType::ENDDFS: return LineRole::closesSubroutine;
        case TokenType::END: break;
        default:
            return isCode(word, 'M', "2") || isCode(word, 'M', "30") ? LineRole::endsProgram
                                                                     : LineRole::other;
    }
    const TokenType what = keywordKind(takeWord(code));
    if (what == TokenType::INVALID || what == TokenType::PROGRAM) {
        return LineRole::endsProgram;
    }
    return what == TokenType::DFS || what == TokenType::SUB ? LineRole::closesSubroutine
                                                            : LineRole::other;
}

}  // namespace

std::vector<WrittenInclude> includesOf(std::string_view bytes) {
    std::vector<WrittenInclude> includes;
    const std::size_t last = lastMaybeInclude(bytes);
    if (last == std::string_view::npos) {
        return includes;
    }
    if (auto plain = plainIncludes(bytes)) {
        return std::move(*plain);
    }
    FileScan scan(bytes);
    const std::uint32_t lastLine = lineEnds(bytes.substr(0, last)) + 1;
    scan.visitLines([&](LineSplitter& splitter, const Inclusion& inclusion, const ScannedLine& line,
                        std::uint32_t number) {
        if (scan.program.text.view(line.code).starts_with('#')) {
            DirectiveLine directive(scan.run, splitter, inclusion, line);
            if (directive.name() == "include") {
                includes.push_back({std::string(directive.readQuoted()), number});
            } else if (directive.name() == "define" || directive.name() == "macro") {
                directive.readBody();
            }
        }
        return number < lastLine;
    });
    return includes;
}

bool endsProgram(std::string_view bytes) {
    bool isInSubroutine = false;
    bool ends = false;
    FileScan scan(bytes);
    scan.visitLines([&](LineSplitter&, const Inclusion&, const ScannedLine& line, std::uint32_t) {
        const LineRole role = roleOf(scan.program.text.view(line.code));
        if (role == LineRole::opensSubroutine || role == LineRole::closesSubroutine) {
            isInSubroutine = role == LineRole::opensSubroutine;
        }
        ends = role == LineRole::endsProgram && !isInSubroutine;
        return !ends;
    });
    return ends;
}

}  // namespace torvel::migrate
