#include "src/stmt/argument-checks.h"

#include "src/base/characters.h"
#include "src/expr/precedence.h"
#include "src/expr/variables.h"

namespace torvel {

namespace {

/// "NAME 1", by which the passes find what belongs together.
std::string keyOf(std::string_view macro, std::size_t number) {
    return std::string(macro) + ' ' + std::to_string(number);
}

void noteArgumentFact(const Statement& statement, Fact::Kind kind, const std::string& key,
                      unsigned sides, const Token* first) {
    if (sides != 0) {
        noteFact(statement, kind, key, first);
        statement.context.record->facts.back().sides = static_cast<std::uint8_t>(sides);
    }
}

bool isSign(TokenType type) {
    return type == TokenType::PLUS || type == TokenType::MINUS;
}

/// Whether an operator draws the end of a sum that stands beside it to itself.
bool takesFromSum(TokenType type, bool isInFront) {
    if (isInFront &&
        (type == TokenType::MINUS || type == TokenType::EXCLAMATION || type == TokenType::TILDE)) {
        return true;
    }
    const BinaryOperator entry = findBinaryOperator(type);
    return entry.token != TokenType::INVALID && entry.level > Precedence::additive;
}

bool isAssignment(TokenType type) {
    using enum TokenType;
    return type == ASSIGN || type == PLUS_PLUS || type == MINUS_MINUS || type == PLUS_ASSIGN ||
           type == MINUS_ASSIGN || type == STAR_ASSIGN || type == SLASH_ASSIGN ||
           type == BAR_ASSIGN || type == AMPERSAND_ASSIGN || type == SHIFT_RIGHT_ASSIGN ||
           type == SHIFT_LEFT_ASSIGN;
}

}  // namespace

ArgumentNames::ArgumentNames(std::string_view head) {
    constexpr std::size_t lead = std::string_view("#macro ").size();
    const std::size_t open = head.find('(');
    macro_ = head.substr(lead, open - lead);
    for (std::size_t at = head.find('$', open); at != std::string_view::npos;
         at = head.find('$', at + 1)) {
        std::size_t end = at + 1;
        while (end < head.size() && isWordCharacter(head[end])) {
            ++end;
        }
        numbers_.emplace(head.substr(at, end - at), numbers_.size() + 1);
    }
}

void ArgumentNames::noteUses(const Statement& statement, std::span<const Token> tokens) const {
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        if (tokens[at].type != TokenType::VARIABLE) {
            continue;
        }
        const auto found = numbers_.find(statement.context.program.textOf(tokens[at]));
        if (found == numbers_.end()) {
            continue;
        }
        const TokenType before = at == 0 ? TokenType::END_OF_FILE : tokens[at - 1].type;
        const TokenType behind =
            at + 1 == tokens.size() ? TokenType::END_OF_FILE : tokens[at + 1].type;
        unsigned sides = takesFromSum(before, true) ? Fact::leftSide : 0U;
        sides |= takesFromSum(behind, false) ? Fact::rightSide : 0U;
        sides |= (at == 0 || before == TokenType::FOR) && isAssignment(behind) ? Fact::isSet : 0U;
        noteArgumentFact(statement, Fact::Kind::argumentUse, keyOf(macro_, found->second), sides,
                         statement.cursor.place());
    }
}

namespace {

/// Sums of an argument outside of its parentheses and brackets.
std::size_t signsIn(std::span<const Token> tokens) {
    int depth = 0;
    std::size_t signs = 0;
    for (std::size_t at = 1; at < tokens.size(); ++at) {
        using enum TokenType;
        const TokenType before = tokens[at - 1].type;
        depth += before == LEFT_PAREN || before == LEFT_BRACKET ? 1 : 0;
        depth -= tokens[at].type == RIGHT_PAREN || tokens[at].type == RIGHT_BRACKET ? 1 : 0;
        const bool isBinary = before == RIGHT_PAREN || before == RIGHT_BRACKET ||
                              (!isSign(before) && before != EXCLAMATION && before != TILDE &&
                               findBinaryOperator(before).token == INVALID);
        signs += depth == 0 && isSign(tokens[at].type) && isBinary ? 1 : 0;
    }
    return signs;
}

std::size_t signsIn(std::string_view text) {
    int depth = 0;
    bool isInString = false;
    std::size_t signs = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        isInString = isInString != (text[at] == '"');
        depth += text[at] == '(' || text[at] == '[' ? 1 : 0;
        depth -= text[at] == ')' || text[at] == ']' ? 1 : 0;
        const std::string_view rest = text.substr(at, 3);
        signs += !isInString && depth == 0 && (rest == " + " || rest == " - ") ? 1 : 0;
    }
    return signs;
}

bool isNumberText(std::string_view text) {
    return !text.empty() && text.find_first_not_of("-.0123456789e+") == std::string_view::npos;
}

/// The sides on which a sum of the argument was added up.
unsigned addedSides(const Program& program, std::span<const Token> tokens, std::string_view text) {
    if (tokens.size() < 3 || signsIn(tokens) <= signsIn(text)) {
        return 0;
    }
    const std::string_view left = text.substr(0, text.find(' '));
    const std::string_view right = text.substr(text.rfind(' ') + 1);
    unsigned sides = 0;
    if (isNumberText(left) && left != program.textOf(tokens.front())) {
        sides |= Fact::leftSide;
    }
    if (isNumberText(right) && right != program.textOf(tokens.back())) {
        sides |= Fact::rightSide;
    }
    return sides;
}

/// Whether a variable is read by a call.
bool isReadByCall(std::span<const Token> tokens, std::string_view text) {
    return isNumericVariable(tokens.front().type) && !isPreservedDefine(tokens.front().type) &&
           !text.empty() && hasClass(text[0], letterClass) && text.ends_with(')');
}

}  // namespace

void noteArgument(Statement& statement, std::string_view macro, std::size_t number,
                  const Token* first, std::string_view text) {
    const std::span<const Token> tokens(first, statement.cursor.place());
    if (tokens.empty() || statement.isRefused) {
        return;
    }
    unsigned sides = addedSides(statement.context.program, tokens, text);
    sides |= isReadByCall(tokens, text) ? Fact::isSet : 0U;
    noteArgumentFact(statement, Fact::Kind::argument, keyOf(macro, number), sides, first);
}

}  // namespace torvel
