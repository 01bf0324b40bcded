// A logical line ends at CR LF, CR, LF or the NUL behind the file. A double quote opens and closes a
// string. Outside strings ";", "'" and "//" begin a comment that the line end closes, and "/*" one
// that "*/" closes, on a later line too: then the logical line goes on behind it. Lines are views of
// the file's own bytes; only a line that loses a block comment is put together anew.

#include "src/preprocess/line-splitter.h"

#include <algorithm>
#include <bit>

#include "src/base/characters.h"
#include "src/base/messages.h"
#include "src/base/parse-exception.h"
#include "src/preprocess/byte-search.h"

namespace torvel {

namespace {

/// The first byte from `from` on that is no blank, or `end`.
const char* skipBlanks(const char* from, const char* end) {
    while (isBlank(*from)) {
        const auto blanks =
            static_cast<unsigned>(std::countr_one(ByteBlock(from).oneOf<' ', '\t'>()));
        from += blanks;
        if (blanks < ByteBlock::size || from >= end) {
            break;
        }
    }
    return std::min(from, end);
}

/// Behind the last byte between `begin` and `end` that is no blank, or `begin`.
const char* dropBlanks(const char* begin, const char* end) {
    while (end != begin && isBlank(end[-1])) {
        --end;
    }
    return end;
}

/// Where a line's parts begin and end.
struct LineParts {
    const char* code;
    const char* commentMarker;
    const char* end;
};

/// Trims a line's parts. `begin` is where the text of `store` begins, in which the line stands.
void cutLine(ScannedLine& line, TextSpan store, const char* begin, LineParts parts,
             std::size_t markerLength) {
    const auto span = [&](const char* from, const char* to) {
        return store.subspan(static_cast<std::size_t>(from - begin),
                             static_cast<std::size_t>(to - from));
    };
    const char* code = skipBlanks(parts.code, parts.commentMarker);
    const char* codeEnd = dropBlanks(code, parts.commentMarker);
    line.code = span(code, codeEnd);
    line.codeText = {code, static_cast<std::size_t>(codeEnd - code)};
    if (markerLength == 0) {
        line.text = line.code;
        line.comment = {};
        return;
    }
    const char* comment = skipBlanks(parts.commentMarker + markerLength, parts.end);
    const char* commentEnd = dropBlanks(comment, parts.end);
    line.comment = span(comment, commentEnd);
    line.text = span(code, commentEnd == comment ? parts.commentMarker + markerLength : commentEnd);
}

/// The position behind the line end at `at`, which is no NUL.
const char* skipLineEnd(const char* at) {
    return at[0] == '\r' && at[1] == '\n' ? at + 2 : at + 1;
}

}  // namespace

LineSplitter::LineSplitter(Program& program, const Inclusion& inclusion, CheckRecord* record)
    : program_(program),
      inclusion_(&inclusion),
      record_(record),
      file_(inclusion.file->text),
      begin_(program.text.view(file_).data()),
      next_(begin_),
      signs_(begin_) {}

bool LineSplitter::next(ScannedLine& line) {
    if (ended_) {
        return false;
    }
    const char* lineStart = next_;
    const char* at = nullptr;
    bool hasOddBytes = false;
    isJoined_ = false;
    // Where there is no fault, what ends the code ends the loop: a comment, or the line's end.
    std::size_t markerLength = 0;
    while (true) {
        at = signs_.next();
        if (*at == '\n' || *at == '\r' || *at == '\0') {
            break;
        }
        if (*at == ';' || *at == '\'') {
            markerLength = 1;
            break;
        }
        if (*at == '"') {
            skipString();
        } else if (*at != '/') {
            hasOddBytes = true;
        } else if (at[1] == '/') {
            markerLength = 2;
            break;
        } else if (at[1] == '*') {
            if (!isJoined_) {
                joined_.clear();
            }
            joined_.append(lineStart, at);
            isJoined_ = true;
            next_ = at;
            skipBlockComment();
            lineStart = next_;
        }
    }
    line.hasOddBytes = hasOddBytes;
    finishLine(line, lineStart, at, markerLength);
    return true;
}

/// To the quote that ends the string whose first quote is the last sign.
void LineSplitter::skipString() {
    while (true) {
        const char* const at = signs_.next();
        if (*at == '"') {
            break;
        }
        if (*at == '\n' || *at == '\r' || *at == '\0') {
            ended_ = true;
            throw ParseException(Message::StringNotTerminated, {}, position());
        }
    }
}

void LineSplitter::skipBlockComment() {
    const SourcePosition start = position();
    next_ += 2;
    const char* const textStart = next_;
    while (true) {
        next_ = findByte<'\0', '\n', '\r', '*'>(next_);
        if (*next_ == '\0') {
            ended_ = true;
            throw ParseException(Message::CommentNotTerminated, {}, start);
        }
        if (*next_ != '*') {
            next_ = skipLineEnd(next_);
            ++lineNumber_;
        } else if (next_[1] == '/') {
            break;
        } else {
            ++next_;
        }
    }
    if (record_ != nullptr) {
        const std::string_view text(textStart, static_cast<std::size_t>(next_ - textStart));
        if (!std::all_of(text.begin(), text.end(), isWhiteSpace)) {
            recordDroppedComment(*record_, program_, start);
        }
    }
    next_ += 2;
    signs_.moveTo(next_);
}

void LineSplitter::finishLine(ScannedLine& line, const char* lineStart, const char* commentMarker,
                              std::size_t markerLength) {
    const char* lineEnd = markerLength == 0 ? commentMarker : signs_.nextLineEnd();
    line.lineNumber = lineNumber_;
    if (*lineEnd == '\0') {
        ended_ = true;
    } else {
        next_ = skipLineEnd(lineEnd);
        if (next_ != lineEnd + 1) {
            signs_.next();  // the line feed
        }
        ++lineNumber_;
    }
    TextSpan store = file_;
    const char* begin = begin_;
    LineParts parts = {lineStart, commentMarker, lineEnd};
    if (isJoined_) [[unlikely]] {
        const std::size_t markerAt =
            joined_.size() + static_cast<std::size_t>(commentMarker - lineStart);
        joined_.append(lineStart, lineEnd);
        store = program_.text.add(joined_);
        begin = program_.text.view(store).data();
        parts = {begin, begin + markerAt, begin + store.length};
    }
    cutLine(line, store, begin, parts, markerLength);
    codeLines_ += line.code.empty() ? 0 : 1;
}

void LineSplitter::finish() {
    ScannedLine line;
    while (next(line)) {
    }
}

}  // namespace torvel
