#include "tests/support/line-by-line.h"
#include "tests/support/program-text.h"

#include <algorithm>
#include <array>
#include <unordered_map>

#include "src/base/characters.h"
#include "src/preprocess/line-splitter.h"
#include "src/stmt/statement.h"
#include "tests/support/message-rows.h"
#include "tests/support/text-difference.h"

namespace torvel::test {

namespace {

std::size_t linefeedsIn(std::string_view text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

bool isAt(const SourcePosition& a, const SourcePosition& b) {
    return a.inclusion == b.inclusion && a.lineNumber == b.lineNumber;
}

std::string at(const SourcePosition& position, const std::string& fault) {
    return formatDiagnostic(position, fault);
}

/// The kind of the token that a line begins with; END_OF_FILE for a line without tokens.
TokenType leadOf(const Program& program, std::size_t line, const AxisNames& axes) {
    return lexedTokens(program, program.lines, line, axes).line().data()->type;
}

}  // namespace

std::size_t ConvertedLine::linesOfText() const {
    return isConverted ? 1 + linefeedsIn(trimBlanks(text)) : 1;
}

LineByLine::LineByLine(const Program& program, const AxisNames& axes, const Limits& limits)
    : context_{program, axes, limits, log_, {}} {
    for (const SourcePosition& position : program.nulCharacters) {
        log_.add(Message::NulCharacter, {}, position);
    }
}

bool LineByLine::step() {
    const Program& program = context_.program;
    const std::size_t number = lines_.size();
    if (number == program.lines.size()) {
        return false;
    }
    ConvertedLine& line = lines_.emplace_back();
    line.position = program.lines.positionOf(number);
    context_.position = line.position;
    line.messagesBefore = log_.size();
    BlockEffect effect{};
    StatementText text;
    line.isConverted = convertStatement(
        context_, lexedTokens(program, program.lines, number, context_.axes), text, effect);
    line.text = text.toString();
    line.messagesAfter = log_.size();
    TextBuffer output;
    const ProgramPart& part = program.lines.partOf(number);
    layout_.write(program, part.list, number - part.first,
                  line.isConverted ? std::optional<std::string_view>(text) : std::nullopt, effect,
                  output);
    output_ += output;
    return true;
}

LineByLine& LineByLine::finish() {
    while (step()) {
    }
    return *this;
}

std::string LineByLine::logText() const {
    std::string text;
    for (const ConversionMessage& message : log_) {
        text += formatDiagnostic(message.position, message.text) + '\n';
    }
    return text;
}

bool mayRefuse(std::string_view message) {
    static const std::unordered_map<std::string_view, std::string_view> classes = [] {
        std::unordered_map<std::string_view, std::string_view> made;
        for (const MessageRow& row : messageRows()) {
            made.emplace(row.text, row.messageClass);
        }
        return made;
    }();
    std::string_view messageClass;
    if (const auto found = classes.find(message); found != classes.end()) {
        messageClass = found->second;
    } else if (const MessageRow* row = rowOfMessage(message)) {
        messageClass = row->messageClass;
    }
    return messageClass != "placeholder" && messageClass != "advisory";
}

bool mayStandBesideText(std::string_view message) {
    return !mayRefuse(message) || message == messageText(Message::IntegerLiteralExpected);
}

namespace {

/// An "@" tells that its expression failed.
bool followsRefusal(std::string_view message) {
    return message == messageText(Message::ArgumentExpected);
}

std::string messageFaultOf(const LineByLine& conversion, std::size_t number) {
    const ConvertedLine& line = conversion.lines()[number];
    const bool isMacro =
        leadOf(conversion.program(), number, conversion.axes()) == macroDefinitionToken;
    const ConversionMessage* refusal = nullptr;
    for (std::size_t i = line.messagesBefore; i < line.messagesAfter; ++i) {
        const ConversionMessage& message = conversion.log()[i];
        if (!isAt(message.position, line.position)) {
            return at(line.position, "a message of another line: " + std::string(message.text));
        }
        if (isMacro) {
            continue;
        }
        if (line.isConverted && !mayStandBesideText(message.text)) {
            return at(line.position, "converted and refused: " + std::string(message.text));
        }
        if (refusal != nullptr && !followsRefusal(message.text)) {
            return at(line.position, "refused twice: " + std::string(refusal->text) + " / " +
                                         std::string(message.text));
        }
        refusal = mayStandBesideText(message.text) ? nullptr : &message;
    }
    if (!line.isConverted && (line.messagesAfter == line.messagesBefore ||
                              !mayRefuse(conversion.log()[line.messagesAfter - 1].text))) {
        return at(line.position, "refused without a word");
    }
    return {};
}

}  // namespace

std::string messageFault(const LineByLine& conversion) {
    for (std::size_t number = 0; number < conversion.lines().size(); ++number) {
        std::string fault = messageFaultOf(conversion, number);
        if (!fault.empty()) {
            return fault;
        }
    }
    return {};
}

namespace {

/// How many lines of the output a statement may make: a label has its own and an empty one behind it, and
/// some statements have one for each axis or variable. A directive that is kept has the lines that it had.
std::size_t mostLines(const LineByLine& conversion, std::size_t line) {
    const Program& program = conversion.program();
    const TokenType lead = leadOf(program, line, conversion.axes());
    const bool isDirective = lead == macroDefinitionToken || lead == TokenType::CONVERSION_TEXT;
    return isDirective
               ? SIZE_MAX
               : 1 + lexedTokens(program, program.lines, line, conversion.axes()).line().size();
}

}  // namespace

std::string outputFault(const LineByLine& conversion) {
    std::size_t expected = 0;
    for (std::size_t number = 0; number < conversion.lines().size(); ++number) {
        const ConvertedLine& line = conversion.lines()[number];
        const std::size_t most = mostLines(conversion, number);
        if (line.linesOfText() > most) {
            return at(line.position, "several lines for one statement: " + line.text);
        }
        expected += line.linesOfText();
    }
    if (linefeedsIn(conversion.output()) != expected) {
        return "the output has " + std::to_string(linefeedsIn(conversion.output())) +
               " lines, not " + std::to_string(expected) + '\n';
    }
    return {};
}

std::string conversionDifference(const LineByLine& a, const LineByLine& b) {
    return textDifference(a.output(), b.output()) + textDifference(a.logText(), b.logText());
}

namespace {

/// The word of a directive in lower case; empty for a line that is none of the preprocessor's.
std::string directiveOf(std::string_view code) {
    static constexpr std::array<std::string_view, 11> words = {
        "include", "macro",  "define", "undef", "subst", "nosubst",
        "ifdef",   "ifndef", "elseif", "else",  "endif"};
    if (!code.starts_with('#')) {
        return {};
    }
    std::string word;
    for (std::size_t i = 1; i < code.size() && !isWhiteSpace(code[i]); ++i) {
        word += lowerCase(code[i]);
    }
    return std::find(words.begin(), words.end(), word) == words.end() ? std::string() : word;
}

/// The lines of a program by the reading of a file, and their numbers in it.
using LinesOfInclusion = std::unordered_map<std::uint32_t, std::vector<const SourceLine*>>;

/// Compares the lines of one reading of a file with the file.
class InclusionCheck {
public:
    InclusionCheck(Program& program, const Inclusion& inclusion, const LinesOfInclusion& lines)
        : program_(program), inclusion_(inclusion), lines_(lines) {}

    std::string fault() {
        LineSplitter splitter(program_, inclusion_);
        ScannedLine line;
        while (splitter.next(line)) {
            const bool isLast = splitter.lineNumber() == line.lineNumber;
            const std::string fault = faultOf(line, isLast);
            if (!fault.empty()) {
                return at({&inclusion_, line.lineNumber}, fault);
            }
        }
        return {};
    }

private:
    std::string_view view(TextSpan text) const { return program_.text.view(text); }

    std::string faultOf(const ScannedLine& line, bool isLast) {
        std::vector<const SourceLine*> found;
        if (const auto entry = lines_.find(line.lineNumber); entry != lines_.end()) {
            found = entry->second;
        }
        // The last line has the comment that ends the inclusion too.
        if (isLast && inclusion_.includedFrom.inclusion != nullptr) {
            if (found.empty() || !view(found.back()->comment).ends_with("\" // end")) {
                return "no end marker";
            }
            found.pop_back();
        }
        const std::string_view code = view(line.code);
        const bool hasBackslash = code.find('\\') != std::string_view::npos;
        if (found.empty() && bodyMayGoOn_) {
            bodyMayGoOn_ = hasBackslash;
            return {};
        }
        const std::string directive = directiveOf(code);
        bodyMayGoOn_ = hasBackslash && (directive == "define" || directive == "macro");
        return directive.empty() ? ordinaryFault(line, found) : directiveFault(directive, found);
    }

    static std::string directiveFault(const std::string& directive,
                                      const std::vector<const SourceLine*>& found) {
        std::size_t least = 1;
        std::size_t most = 1;
        if (directive == "subst" || directive == "nosubst") {
            least = most = 0;
        } else if (directive == "include") {
            most = 2;
        }
        return found.size() < least || found.size() > most
                   ? "#" + directive + " has " + std::to_string(found.size()) + " lines"
                   : std::string();
    }

    std::string ordinaryFault(const ScannedLine& line,
                              const std::vector<const SourceLine*>& found) const {
        if (found.empty()) {
            return "the line is lost";
        }
        for (const SourceLine* each : found) {
            if (view(each->text) != view(line.text)) {
                return "the line's text is another: " + std::string(view(each->text));
            }
            const std::string_view comment =
                each == found.front() ? view(line.comment) : std::string_view();
            if (view(each->comment) != comment) {
                return "the line's comment is another: " + std::string(view(each->comment));
            }
        }
        return {};
    }

    Program& program_;
    const Inclusion& inclusion_;
    const LinesOfInclusion& lines_;
    /// The line may be one of the body of a define or macro above it.
    bool bodyMayGoOn_ = false;
};

}  // namespace

std::string sourceLineFault(Program& program) {
    std::unordered_map<const Inclusion*, LinesOfInclusion> lines;
    for (std::size_t number = 0; number < program.lines.size(); ++number) {
        const SourcePosition position = program.lines.positionOf(number);
        lines[position.inclusion][position.lineNumber].push_back(&program.lines[number]);
    }
    for (const Inclusion& inclusion : program.inclusions) {
        std::string fault = InclusionCheck(program, inclusion, lines[&inclusion]).fault();
        if (!fault.empty()) {
            return fault;
        }
    }
    return {};
}

}  // namespace torvel::test
