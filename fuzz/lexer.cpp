// The lines of an input, each cut into tokens. A first line "axes NAME NAME ..." gives the axes.

#include "src/lex/lexer.h"

#include <optional>
#include <sstream>

#include "fuzz/require.h"
#include "fuzz/target.h"
#include "src/base/characters.h"
#include "src/base/messages.h"
#include "src/base/parse-exception.h"
#include "src/lex/keywords.h"
#include "tests/support/program-text.h"
#include "tests/support/text-difference.h"

namespace torvel::fuzz {

namespace {

std::string upperCased(std::string_view text) {
    std::string upper;
    for (const char c : text) {
        upper += upperCase(c);
    }
    return upper;
}

/// What a token's text was made of: its own bytes, but for the prefix of a hexadecimal number and the letter
/// of a feedrate specifier.
bool isMadeOf(TokenType type, std::string_view text, std::string_view source) {
    if (text == source) {
        return true;
    }
    if (type == TokenType::AXIS_FEEDRATE) {
        return text.ends_with('F') && source.ends_with('f') &&
               text.substr(0, text.size() - 1) == source.substr(0, source.size() - 1);
    }
    const std::string prefix = upperCased(source.substr(0, 2));
    return type == TokenType::HEX_LITERAL && text.starts_with("0x") &&
           text.substr(2) == source.substr(2) &&
           (prefix == "0X" || prefix == "0H" || prefix == "&X" || prefix == "&H");
}

void checkKind(TokenType type, std::string_view text) {
    require(static_cast<std::uint32_t>(type) < tokenTypeCount && type != TokenType::INVALID &&
                type != TokenType::END_OF_FILE && type != TokenType::CONVERSION_TEXT &&
                !isPreservedDefine(type),
            "a kind that the lexer does not make");
    if (isLetter(text.empty() ? ' ' : text[0]) && text.size() > 1) {
        const TokenType keyword = keywordKind(text);
        require(keyword == keywordKind(upperCased(text)), "a keyword's kind depends on its case");
    }
}

/// The tokens stand in the line one after the other with nothing but blanks between them.
void checkCover(const Program& program, std::span<const Token> tokens, std::string_view line) {
    std::size_t at = 0;
    const auto skipBlanks = [&] {
        while (at < line.size() && isBlank(line[at])) {
            ++at;
        }
    };
    for (const Token& token : tokens) {
        skipBlanks();
        TextBuffer printed;
        appendTokenText(token.type, program.textOf(token), printed);
        const std::string text = printed.toString();
        const std::string_view rest = line.substr(at);
        checkKind(token.type, text);
        if (token.type == TokenType::STRING_LITERAL) {
            require(rest.starts_with('"' + text + '"'), "a string is not its source");
            at += text.size() + 2;
        } else {
            require(!text.empty(), "an empty token");
            require(isMadeOf(token.type, text, rest.substr(0, text.size())),
                    "a token is not its source: " + text);
            at += text.size();
        }
    }
    skipBlanks();
    require(at == line.size(), "the line is not used up");
}

/// The tokens of a text; nothing if it cannot be cut into tokens.
std::optional<std::string> lex(test::ProgramText& source, const AxisNames& axes, TextSpan code) {
    std::vector<Token> tokens;
    const bool isSuspected = mayBeRefused(source.program.text.view(code));
    try {
        tokens = test::lexText(source.program, axes, code, source.position());
    } catch (const ParseException& error) {
        const std::string message = test::withoutPlace(error.what());
        require(message == messageText(Message::StringNotTerminated) ||
                    message.starts_with("Unknown token seen: '"),
                "another message: " + message);
        require(isSuspected || message == messageText(Message::StringNotTerminated),
                "a text that the lexer refuses was not suspected");
        return std::nullopt;
    }
    checkCover(source.program, tokens, source.program.text.view(code));
    return test::printTokens(source.program, tokens);
}

/// A line of the same tokens with a blank between them.
std::string spacedOut(test::ProgramText& source, const AxisNames& axes) {
    std::string spaced;
    for (const Token& token :
         test::lexText(source.program, axes, source.text(), source.position())) {
        const char* quote = token.type == TokenType::STRING_LITERAL ? "\"" : "";
        spaced += ' ' + (quote + std::string(source.program.textOf(token)) + quote);
    }
    return spaced;
}

void checkLine(std::string_view line, const AxisNames& axes, bool hasOwnAxes) {
    test::ProgramText source(line);
    const std::optional<std::string> printed = lex(source, axes, source.text());
    if (!printed) {
        return;
    }
    require(printed == lex(source, axes, source.text()), "a second reading gives other tokens");
    // An axis that is called as a keyword is one only in front of a number.
    if (!hasOwnAxes) {
        const TextSpan spaced = source.program.text.add(spacedOut(source, axes));
        require(printed == lex(source, axes, spaced), "blanks between tokens change them");
    }
}

}  // namespace

void checkLexer(const Target& /*target*/, std::string_view input) {
    constexpr std::string_view lead = "axes ";
    std::vector<std::string_view> lines = test::splitLines(input);
    const bool hasOwnAxes = !lines.empty() && lines[0].starts_with(lead);
    AxisNames axes;
    if (hasOwnAxes) {
        std::istringstream words{std::string(lines[0].substr(lead.size()))};
        std::vector<std::string> names;
        for (std::string name; words >> name;) {
            names.push_back(name);
        }
        axes = AxisNames(std::move(names));
        lines.erase(lines.begin());
    }
    for (const std::string_view line : lines) {
        checkLine(line, axes, hasOwnAxes);
    }
}

}  // namespace torvel::fuzz
