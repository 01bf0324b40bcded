// The lines of a file are compared with those of a splitter that is as plain as the rules: nothing is lost
// but line ends, block comments and outer blanks.

#include "src/preprocess/line-splitter.h"

#include "fuzz/require.h"
#include "fuzz/target.h"
#include "src/base/characters.h"
#include "src/base/messages.h"
#include "src/base/parse-exception.h"
#include "tests/support/escapes.h"
#include "tests/support/program-text.h"

namespace torvel::fuzz {

namespace {

struct Line {
    std::string text;
    std::string code;
    std::string comment;
    std::uint32_t number = 0;

    bool operator==(const Line&) const = default;
};

struct Lines {
    std::vector<Line> lines;
    std::string diagnostic;

    bool operator==(const Lines&) const = default;
};

Lines split(std::string_view file) {
    test::ProgramText source(file);
    LineSplitter splitter(source.program, *source.inclusion);
    Lines result;
    ScannedLine line;
    try {
        while (splitter.next(line)) {
            const TextStore& text = source.program.text;
            result.lines.push_back({std::string(text.view(line.text)),
                                    std::string(text.view(line.code)),
                                    std::string(text.view(line.comment)), line.lineNumber});
        }
        require(!splitter.next(line), "a line behind the last");
    } catch (const ParseException& error) {
        result.diagnostic = error.what();
        require(!splitter.next(line), "a line behind an error");
    }
    return result;
}

/// The same, one byte at a time and with a copy of each.
class PlainSplitter {
public:
    explicit PlainSplitter(std::string_view file) : rest_(file) {}

    Lines run() {
        bool goesOn = true;
        while (goesOn) {
            std::string raw;
            std::size_t commentAt = std::string::npos;
            std::size_t markerLength = 0;
            while (!rest_.empty() && !isLineEnd()) {
                if (commentAt != std::string::npos) {
                    take(raw);
                } else if (rest_[0] == '"') {
                    if (!takeString(raw)) {
                        return fail(number_, Message::StringNotTerminated);
                    }
                } else if (rest_.starts_with("/*")) {
                    const std::uint32_t start = number_;
                    if (!skipComment()) {
                        return fail(start, Message::CommentNotTerminated);
                    }
                } else {
                    markerLength = markerAt(rest_);
                    commentAt = markerLength == 0 ? commentAt : raw.size();
                    take(raw);
                }
            }
            keep(raw, commentAt, markerLength);
            goesOn = !rest_.empty();
            skipLineEnd();
        }
        return std::move(lines_);
    }

private:
    static std::size_t markerAt(std::string_view text) {
        const bool isShort = text[0] == ';' || text[0] == '\'';
        return text.starts_with("//") ? 2 : std::size_t{isShort};
    }
    bool isLineEnd() const { return rest_[0] == '\r' || rest_[0] == '\n'; }

    void take(std::string& raw) {
        raw += rest_[0];
        rest_.remove_prefix(1);
    }

    void skipLineEnd() {
        if (!rest_.empty()) {
            rest_.remove_prefix(rest_.starts_with("\r\n") ? 2 : 1);
            ++number_;
        }
    }

    bool takeString(std::string& raw) {
        do {
            take(raw);
        } while (!rest_.empty() && !isLineEnd() && rest_[0] != '"');
        if (rest_.empty() || isLineEnd()) {
            return false;
        }
        take(raw);
        return true;
    }

    bool skipComment() {
        rest_.remove_prefix(2);
        while (!rest_.empty() && !rest_.starts_with("*/")) {
            if (isLineEnd()) {
                skipLineEnd();
            } else {
                rest_.remove_prefix(1);
            }
        }
        const bool isClosed = !rest_.empty();
        rest_.remove_prefix(isClosed ? 2 : 0);
        return isClosed;
    }

    void keep(std::string_view raw, std::size_t commentAt, std::size_t markerLength) {
        const std::string_view code = trimBlanks(raw.substr(0, commentAt));
        const std::string_view comment = commentAt == std::string::npos
                                             ? std::string_view()
                                             : trimBlanks(raw.substr(commentAt + markerLength));
        lines_.lines.push_back(
            {std::string(trimBlanks(raw)), std::string(code), std::string(comment), number_});
    }

    Lines fail(std::uint32_t line, Message message) {
        lines_.diagnostic = "main.pgm:" + std::to_string(line) + ": " + messageText(message) + '\n';
        return std::move(lines_);
    }

    std::string_view rest_;
    std::uint32_t number_ = 1;
    Lines lines_;
};

}  // namespace

void checkLineSplitter(const Target& /*target*/, std::string_view input) {
    const std::string_view file = input.substr(0, input.find('\0'));
    const Lines lines = split(file);
    const Lines expected = PlainSplitter(file).run();
    require(lines.diagnostic == expected.diagnostic,
            "another diagnostic: " + lines.diagnostic + expected.diagnostic);
    require(lines.lines.size() == expected.lines.size(), "another number of lines");
    for (std::size_t i = 0; i < lines.lines.size(); ++i) {
        require(lines.lines[i] == expected.lines[i], "another line: " + lines.lines[i].text);
    }
    if (file.find('\r') == std::string_view::npos) {
        require(lines == split(test::replaceAll(file, "\n", "\r\n")), "CR LF gives other lines");
        require(lines == split(test::replaceAll(file, "\n", "\r")), "CR gives other lines");
    }
}

}  // namespace torvel::fuzz
