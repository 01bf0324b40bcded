// A logical line ends at CR LF, CR, LF or the NUL behind the file. A double quote opens and closes a
// string. Outside strings ";", "'" and "//" begin a comment that the line end closes, and "/*" one
// that "*/" closes, on a later line too: then the logical line goes on behind it. Lines are views of
// the file's own bytes; only a line that loses a block comment is put together anew.

#include "src/preprocess/line-splitter.h"

#include <array>

#include "src/lex/characters.h"
#include "src/lex/messages.h"
#include "src/lex/parse-exception.h"

namespace torvel {

namespace {

/// Bytes that matter outside strings and comments.
constexpr std::array<bool, 256> isSignificant = [] {
    std::array<bool, 256> table{};
    for (const unsigned char c : {'\0', '\n', '\r', '"', ';', '\'', '/'}) {
        table[c] = true;
    }
    return table;
}();

constexpr bool isLineEnd(char c) {
    return c == '\0' || c == '\n' || c == '\r';
}

const char* findLineEnd(const char* from) {
    while (!isLineEnd(*from)) {
        ++from;
    }
    return from;
}

const char* findSignificant(const char* from) {
    while (!isSignificant[static_cast<unsigned char>(*from)]) {
        ++from;
    }
    return from;
}

/// The position behind the line end at `at`, which is no NUL.
const char* skipLineEnd(const char* at) {
    return at[0] == '\r' && at[1] == '\n' ? at + 2 : at + 1;
}

}  // namespace

LineSplitter::LineSplitter(Program& program, const Inclusion& inclusion)
    : program_(program),
      inclusion_(&inclusion),
      file_(inclusion.file->text),
      begin_(program.text.view(file_).data()),
      next_(begin_) {}

bool LineSplitter::next(ScannedLine& line) {
    if (ended_) {
        return false;
    }
    const char* lineStart = next_;
    isJoined_ = false;
    while (true) {
        next_ = findSignificant(next_);
        switch (*next_) {
            case '"': do { ++next_;
                } while (*next_ != '"' && !isLineEnd(*next_));
                if (*next_ != '"') {
                    ended_ = true;
                    throw ParseException(messageText(Message::StringNotTerminated), position());
                }
                ++next_;
                break;
            case '/':
                if (next_[1] == '*') {
                    if (!isJoined_) {
                        joined_.clear();
                    }
                    joined_.append(lineStart, next_);
                    isJoined_ = true;
                    skipBlockComment();
                    lineStart = next_;
                } else if (next_[1] == '/') {
                    finishLine(line, lineStart, next_, 2);
                    return true;
                } else {
                    ++next_;
                }
                break;
            case ';':
            case '\'': finishLine(line, lineStart, next_, 1); return true;
            default: finishLine(line, lineStart, next_, 0); return true;
        }
    }
}

void LineSplitter::skipBlockComment() {
    const SourcePosition start = position();
    next_ += 2;
    while (!(next_[0] == '*' && next_[1] == '/')) {
        if (*next_ == '\0') {
            ended_ = true;
            throw ParseException(messageText(Message::CommentNotTerminated), start);
        }
        if (isLineEnd(*next_)) {
            next_ = skipLineEnd(next_);
            ++lineNumber_;
        } else {
            ++next_;
        }
    }
    next_ += 2;
}

void LineSplitter::finishLine(ScannedLine& line, const char* lineStart, const char* commentMarker,
                              std::size_t markerLength) {
    const char* lineEnd = findLineEnd(commentMarker);
    line.lineNumber = lineNumber_;
    if (*lineEnd == '\0') {
        ended_ = true;
    } else {
        next_ = skipLineEnd(lineEnd);
        ++lineNumber_;
    }

    TextSpan whole;
    std::size_t markerAt = static_cast<std::size_t>(commentMarker - lineStart);
    if (isJoined_) {
        markerAt += joined_.size();
        joined_.append(lineStart, lineEnd);
        whole = program_.text.add(joined_);
    } else {
        whole = file_.part(static_cast<std::size_t>(lineStart - begin_),
                           static_cast<std::size_t>(lineEnd - lineStart));
    }
    const auto trimmed = [this](TextSpan span) {
        const std::string_view text = program_.text.view(span);
        const std::string_view inner = trimBlanks(text);
        return span.part(static_cast<std::size_t>(inner.data() - text.data()), inner.size());
    };
    line.text = trimmed(whole);
    line.code = line.text;
    line.comment = {};
    if (markerLength != 0) {
        const std::size_t commentAt = markerAt + markerLength;
        line.code = trimmed(whole.part(0, markerAt));
        line.comment = trimmed(whole.part(commentAt, whole.length - commentAt));
    }
}

void LineSplitter::finish() {
    ScannedLine line;
    while (next(line)) {
    }
}

}  // namespace torvel
