#include "tests/support/numbered-comments.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <filesystem>
#include <optional>

#include "tests/support/case-run.h"
#include "tests/support/escapes.h"
#include "tests/support/text-difference.h"

namespace torvel::test {

namespace {

// Adding comments

/// What the end of a line of source looks like from outside.
struct LineShape {
    bool takesComment = false;  // no comment, no block comment, no open string
    bool inBlockComment = false;
    std::string_view code;  // in front of a comment
};

LineShape shapeOf(std::string_view line, bool inBlockComment) {
    LineShape shape;
    bool touchesBlock = inBlockComment;
    bool inString = false;
    std::size_t i = 0;
    for (; i < line.size(); ++i) {
        const std::string_view rest = line.substr(i);
        if (inBlockComment) {
            if (rest.starts_with("*/")) {
                inBlockComment = false;
                ++i;
            }
        } else if (inString || line[i] == '"') {
            inString = inString != (line[i] == '"');
        } else if (rest.starts_with("/*")) {
            inBlockComment = true;
            touchesBlock = true;
            ++i;
        } else if (line[i] == ';' || line[i] == '\'' || rest.starts_with("//")) {
            break;
        }
    }
    shape.code = line.substr(0, std::min(i, line.size()));
    shape.inBlockComment = inBlockComment;
    shape.takesComment = i >= line.size() && !touchesBlock && !inString;
    return shape;
}

/// The word of a directive in lower case; empty for any other line.
std::string directiveWord(std::string_view code) {
    static constexpr std::array<std::string_view, 11> directives = {
        "include", "macro",  "define", "undef", "subst", "nosubst",
        "ifdef",   "ifndef", "elseif", "else",  "endif"};
    const std::size_t start = code.find_first_not_of(" \t");
    if (start == std::string_view::npos || code[start] != '#') {
        return {};
    }
    code.remove_prefix(start + 1);
    std::string word(code.substr(0, code.find_first_of(" \t\v\f")));
    std::transform(word.begin(), word.end(), word.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return std::find(directives.begin(), directives.end(), word) == directives.end() ? "" : word;
}

/// Goes through the lines of a file and tells which take a comment.
class CommentPlaces {
public:
    struct Place {
        bool takesComment = false;
        bool isInclude = false;
    };

    Place next(std::string_view line) {
        const LineShape shape = shapeOf(line, inBlockComment_);
        inBlockComment_ = shape.inBlockComment;
        const bool continues = shape.code.find('\\') != std::string_view::npos;
        if (inBody_) {
            inBody_ = continues;
            return {};
        }
        const std::string word = directiveWord(shape.code);
        const bool hasBody = word == "define" || word == "macro";
        inBody_ = hasBody && continues;
        const bool keepsComment = word.empty() || word == "include" || (hasBody && !inBody_);
        return {shape.takesComment && keepsComment, word == "include"};
    }

private:
    bool inBlockComment_ = false;
    bool inBody_ = false;  // of a directive that goes on over several lines
};

std::string numberFile(const std::string& content, std::size_t file,
                       std::vector<NumberedLine>& numbers) {
    // A mark in front and end marks behind are no part of the text.
    const std::size_t textEnd = content.find_last_not_of('\x1A') + 1;
    const std::size_t textStart = content.starts_with("\xEF\xBB\xBF") ? 3 : 0;
    const std::string endMarks = content.substr(textEnd);
    CommentPlaces places;
    std::string result = content.substr(0, textStart);
    std::string_view rest = std::string_view(content).substr(textStart, textEnd - textStart);
    for (std::size_t number = 1;; ++number) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        std::string_view line = rest.substr(0, end);
        if (line.find_first_of(std::string_view("\r\0", 2)) != std::string_view::npos) {
            return result + std::string(rest) + endMarks;
        }
        const CommentPlaces::Place place = places.next(line);
        if (place.takesComment) {
            line = line.substr(0, line.find_last_not_of(" \t") + 1);
            numbers.push_back({file, number, place.isInclude});
            result += std::string(line) + " ; #" + std::to_string(numbers.size());
        } else {
            result += line;
        }
        if (end == rest.size()) {
            return result + endMarks;
        }
        result += '\n';
        rest.remove_prefix(end + 1);
    }
}

// Checking the result

constexpr std::string_view markerLead = "#error_unconvertible (";

std::string_view withoutTabs(std::string_view line) {
    return line.substr(std::min(line.find_first_not_of('\t'), line.size()));
}

class NumberCheck {
public:
    NumberCheck(const NumberedSources& sources, std::string_view plain, std::string_view numbered)
        : sources_(sources), plain_(splitLines(plain)), numbered_(splitLines(numbered)) {}

    /// Matches the lines one by one, collecting the numbers. Returns the first fault.
    std::string matchLines() {
        std::size_t at = 0;
        for (const std::string_view line : numbered_) {
            if (takesIncludeComment(line, at)) {
                continue;
            }
            if (at == plain_.size()) {
                return "line too many: " + encodeEscapes(line) + '\n';
            }
            if (!matches(plain_[at], line)) {
                return "without comment: " + encodeEscapes(plain_[at]) +
                       "\nwith comment:    " + encodeEscapes(line) + '\n';
            }
            ++at;
        }
        return at == plain_.size() ? "" : "line missing: " + encodeEscapes(plain_[at]) + '\n';
    }

    /// The numbers of each file stand in order, without gaps, as often as the file was read.
    std::string checkOrder(const std::string& program) const {
        for (std::size_t file = 0; file < sources_.files.size(); ++file) {
            const std::string& path = sources_.files[file].path;
            if (!isSourceText(path)) {
                continue;
            }
            const std::size_t times = path == program ? 1 : timesIncluded(path);
            if (numbersOf(file, found_) != repeated(numbersOf(file, allNumbers()), times)) {
                return path + ": numbers lost, repeated or out of order:" + listed(found_) + '\n';
            }
        }
        return {};
    }

    /// Where every source line gives one line of output the numbers stand at their own lines.
    std::string checkPlaces() const {
        const std::size_t lineCount = splitLines(sources_.files[0].content).size() +
                                      (sources_.files[0].content.ends_with('\n') ? 1U : 0U);
        if (sources_.files.size() != 1 || lineCount != plain_.size() ||
            numbered_.size() != lineCount) {
            return {};
        }
        for (std::size_t i = 0; i < foundAt_.size(); ++i) {
            if (sources_.lines[found_[i] - 1].line != foundAt_[i]) {
                return "the comment of line " + std::to_string(sources_.lines[found_[i] - 1].line) +
                       " stands at line " + std::to_string(foundAt_[i]) + '\n';
            }
        }
        return {};
    }

private:
    /// The number behind `lead` at the end of `text`, where nothing else stands.
    std::optional<std::size_t> numberBehind(std::string_view text, std::string_view lead) const {
        if (!text.starts_with(lead)) {
            return std::nullopt;
        }
        text.remove_prefix(lead.size());
        std::size_t number = 0;
        const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
        const bool complete = error == std::errc() && end == text.data() + text.size();
        return complete && number >= 1 && number <= sources_.lines.size() ? std::optional(number)
                                                                          : std::nullopt;
    }

    void add(std::size_t number, std::size_t line) {
        found_.push_back(number);
        foundAt_.push_back(line);
    }

    bool takesIncludeComment(std::string_view line, std::size_t at) {
        const std::optional<std::size_t> number = numberBehind(withoutTabs(line), "// #");
        if (!number || !sources_.lines[*number - 1].isInclude || at == plain_.size() ||
            !withoutTabs(plain_[at]).starts_with("// #include \"")) {
            return false;
        }
        add(*number, at + 1);
        return true;
    }

    bool matches(std::string_view plain, std::string_view line) {
        ++line_;
        if (line == plain) {
            return true;
        }
        const bool isEmpty = withoutTabs(plain).empty();
        if (!isEmpty && !line.starts_with(plain)) {
            return false;
        }
        const std::string_view added = isEmpty ? withoutTabs(line) : line.substr(plain.size());
        if (withoutTabs(plain).starts_with(markerLead)) {
            return matchesMarker(plain, added);
        }
        const std::optional<std::size_t> number = numberBehind(added, isEmpty ? "// #" : " // #");
        if (number) {
            add(*number, line_);
        }
        return number.has_value();
    }

    /// The text behind a marker keeps its comment. Lines that a define put into one line of source all
    /// have that line's text.
    bool matchesMarker(std::string_view plain, std::string_view added) {
        const std::optional<std::size_t> number = numberBehind(added, " ; #");
        if (!number) {
            return false;
        }
        const NumberedLine& source = sources_.lines[*number - 1];
        const std::filesystem::path path = sources_.files[source.file].path;
        const std::string place = std::string(markerLead) + path.filename().string() + ":" +
                                  std::to_string(source.line) + "): ";
        if (found_.empty() || found_.back() != *number) {
            add(*number, line_);
        }
        return withoutTabs(plain).starts_with(place);
    }

    /// How many start markers of inclusions name the file.
    std::size_t timesIncluded(const std::string& path) const {
        const std::string name = std::filesystem::path(path).filename().string() + "\" // start";
        return static_cast<std::size_t>(
            std::count_if(plain_.begin(), plain_.end(), [&](std::string_view line) {
                const std::size_t before = line.size() - std::min(line.size(), name.size() + 1);
                return withoutTabs(line).starts_with("// #include \"") && line.ends_with(name) &&
                       std::string_view("\"/\\").find(line[before]) != std::string_view::npos;
            }));
    }

    std::vector<std::size_t> allNumbers() const {
        std::vector<std::size_t> numbers(sources_.lines.size());
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            numbers[i] = i + 1;
        }
        return numbers;
    }

    std::vector<std::size_t> numbersOf(std::size_t file, std::vector<std::size_t> numbers) const {
        std::erase_if(numbers, [&](std::size_t n) { return sources_.lines[n - 1].file != file; });
        return numbers;
    }

    static std::vector<std::size_t> repeated(const std::vector<std::size_t>& numbers,
                                             std::size_t times) {
        std::vector<std::size_t> result;
        for (std::size_t i = 0; i < times; ++i) {
            result.insert(result.end(), numbers.begin(), numbers.end());
        }
        return result;
    }

    static std::string listed(const std::vector<std::size_t>& numbers) {
        std::string text;
        for (const std::size_t number : numbers) {
            text += ' ' + std::to_string(number);
        }
        return text;
    }

    const NumberedSources& sources_;
    std::vector<std::string_view> plain_;
    std::vector<std::string_view> numbered_;
    std::size_t line_ = 0;              // of the output, the one that is matched
    std::vector<std::size_t> found_;    // numbers in the order of the output
    std::vector<std::size_t> foundAt_;  // and the lines where they stand
};

}  // namespace

NumberedSources numberComments(const std::vector<CaseEntry>& files) {
    NumberedSources sources;
    for (std::size_t file = 0; file < files.size(); ++file) {
        sources.files.push_back(files[file]);
        if (isSourceText(files[file].path)) {
            sources.files.back().content = numberFile(files[file].content, file, sources.lines);
        }
    }
    return sources;
}

std::string checkNumberedOutput(const NumberedSources& sources, const std::string& program,
                                std::string_view plain, std::string_view numbered) {
    NumberCheck check(sources, plain, numbered);
    std::string fault = check.matchLines();
    if (fault.empty()) {
        fault = check.checkOrder(program);
    }
    return fault.empty() ? check.checkPlaces() : fault;
}

}  // namespace torvel::test
