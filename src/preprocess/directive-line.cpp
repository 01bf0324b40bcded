#include "src/preprocess/directive-line.h"

#include <algorithm>

#include "src/base/characters.h"

namespace torvel {

DirectiveLine::DirectiveLine(PreprocessorRun& run, LineSplitter& splitter,
                             const Inclusion& inclusion, const ScannedLine& line)
    : run_(run),
      splitter_(splitter),
      inclusion_(inclusion),
      line_(line),
      position_{&inclusion, line.lineNumber},
      code_(run.program.text.view(line.code)) {
    name_ = readUntil({});
    std::transform(name_.begin(), name_.end(), name_.begin(), lowerCase);
}

void DirectiveLine::fail(Message message, std::initializer_list<std::string_view> holes) const {
    failAt({&inclusion_, line_.lineNumber}, message, holes);
}

void DirectiveLine::skipBlanks() {
    while (!atEnd() && isBlank(current())) {
        advance();
    }
}

void DirectiveLine::skipWhiteSpace() {
    while (!atEnd() && isWhiteSpace(current())) {
        advance();
    }
}

std::string_view DirectiveLine::readUntil(std::string_view terminators) {
    const std::size_t start = at_;
    while (!atEnd() && !isWhiteSpace(current()) &&
           terminators.find(current()) == std::string_view::npos) {
        advance();
    }
    return code_.substr(start, at_ - start);
}

std::string_view DirectiveLine::readName(std::string_view terminators) {
    skipWhiteSpace();
    if (atEnd()) {
        fail(Message::DirectiveNameExpected, {name_});
    }
    const std::string_view operand = readUntil(terminators);
    if (operand.empty()) {
        fail(Message::DirectiveNameUnexpected, {name_});
    }
    return operand;
}

std::string_view DirectiveLine::readIdentifier() {
    skipWhiteSpace();
    if (atEnd()) {
        fail(Message::DirectiveNameExpected, {name_});
    }
    const std::size_t start = at_;
    while (!atEnd() && isWordCharacter(current())) {
        advance();
    }
    if (at_ == start) {
        fail(Message::DirectiveNameUnexpected, {name_});
    }
    return code_.substr(start, at_ - start);
}

std::string_view DirectiveLine::readQuoted() {
    skipWhiteSpace();
    const std::string_view rest = code_.substr(at_);
    const std::size_t close = rest.find('"', 1);
    if (!rest.starts_with('"') || close == std::string_view::npos) {
        fail(Message::ClosingQuoteExpected);
    }
    at_ += close + 1;
    return rest.substr(1, close - 1);
}

void DirectiveLine::expectEnd() {
    skipWhiteSpace();
    if (!atEnd()) {
        fail(Message::DirectiveEndUnexpected, {name_});
    }
}

/// A backslash that continues the line has nothing but white space behind it.
void DirectiveLine::expectLineEnd() {
    advance();
    skipWhiteSpace();
    if (!atEnd()) {
        fail(Message::NewlineExpected);
    }
}

DirectiveLine::Body DirectiveLine::readBody() {
    skipWhiteSpace();
    Body body = {line_.code.subspan(at_, code_.size() - at_), line_.comment};
    std::string joined;
    std::string comments(run_.program.text.view(line_.comment));
    bool isJoined = false;
    std::size_t lineStart = at_;
    bool inString = false;
    while (!atEnd()) {
        if (current() != '\\' || inString) {
            inString = inString != (current() == '"');
            advance();
            continue;
        }
        std::string_view part = code_.substr(lineStart, at_ - lineStart);
        expectLineEnd();
        while (!part.empty() && isBlank(part.back())) {
            part.remove_suffix(1);
        }
        joined += part;
        joined += '\n';
        isJoined = true;
        if (!splitter_.next(line_)) {
            // The file's last line ends in a backslash: an empty line follows it.
            line_.code = line_.comment = {};
        }
        code_ = run_.program.text.view(line_.code);
        at_ = lineStart = 0;
        const std::string_view added = run_.program.text.view(line_.comment);
        if (!added.empty()) {
            comments += comments.empty() ? "" : " ";
            comments += added;
        }
    }
    if (inString) {
        fail(Message::StringNotTerminated);
    }
    if (isJoined) {
        joined += code_.substr(lineStart);
        body = {run_.program.text.add(joined), run_.program.text.add(comments)};
    }
    const std::string_view whole = run_.program.text.view(body.text);
    const std::string_view inner = trimBlanks(whole);
    body.text =
        body.text.subspan(static_cast<std::size_t>(inner.data() - whole.data()), inner.size());
    return body;
}

}  // namespace torvel
