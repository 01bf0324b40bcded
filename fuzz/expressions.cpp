// Each line as an expression, a string, a variable that is read and one that is assigned to.

#include "src/expr/expressions.h"

#include <algorithm>

#include "fuzz/brackets.h"
#include "fuzz/memory-program.h"
#include "fuzz/require.h"
#include "fuzz/target.h"
#include "fuzz/words.h"
#include "src/expr/strings.h"
#include "src/expr/variables.h"
#include "tests/support/line-by-line.h"

namespace torvel::fuzz {

namespace {

/// What a translator made of a line.
struct Translated {
    bool succeeded = false;
    bool tookAll = false;
    std::string text;
    MessageLog log;
};

template <typename Translate>
Translated translate(MemoryProgram& memory, const Limits& limits, const LineTokens& tokens,
                     Translate translator) {
    Translated result;
    ConversionContext context{memory.program(), memory.axes(), limits, result.log, {}};
    StatementText text;
    Statement statement{context, TokenCursor(memory.program(), tokens), text};
    translator(statement, text);
    result.text = text.toString();
    result.succeeded = !statement.isRefused;
    result.tookAll = statement.cursor.atEnd();
    require(context.nesting == 0, "an expression is left open");
    if (result.succeeded) {
        for (const ConversionMessage& message : result.log) {
            require(test::mayStandBesideText(message.text),
                    "translated and refused: " + result.text);
        }
        require(bringsOwnBrackets(memory.program(), tokens) || hasBalancedBrackets(result.text),
                "unbalanced: " + result.text);
        require(!result.text.empty(), "translated into nothing");
    } else {
        require(!result.log.empty() && test::mayRefuse(result.log.back().text),
                "refused without a word");
    }
    return result;
}

void translateTarget(Statement& statement, ExpressionText& out) {
    const bool isCall = translateAssignmentTarget(statement, out);
    out += isCall ? "0)" : "";
}

/// An expression may stand in parentheses, which are kept, unless it is nested as deeply as may be.
void checkInParentheses(MemoryProgram& memory, const Limits& limits,
                        std::span<const Token> tokens) {
    std::vector<Token> enclosed = {{TokenType::LEFT_PAREN, {memory.program().text.add("(")}}};
    enclosed.insert(enclosed.end(), tokens.begin(), tokens.end());
    enclosed.push_back({TokenType::RIGHT_PAREN, {memory.program().text.add(")")}});
    const Translated result =
        translate(memory, limits, test::LexedTokens(enclosed), translateExpression);
    if (result.succeeded) {
        require(result.tookAll, "what stands in parentheses is read in part: " + result.text);
    } else {
        require(result.log.back().text == messageText(Message::NestedTooDeeply),
                "not translated in parentheses: " + std::string(result.log.back().text));
    }
}

/// Whether a line stands for a directive or calls a macro: no expression begins so.
bool isOfPreprocessor(std::span<const Token> tokens) {
    return std::any_of(tokens.begin(), tokens.end(), [](const Token& token) {
        return token.type == TokenType::CONVERSION_TEXT || token.type == macroDefinitionToken ||
               token.type == macroCallToken;
    });
}

}  // namespace

void checkExpressions(const Target& /*target*/, std::string_view input) {
    const Limits limits = lowLimits();
    MemoryProgram memory(std::string(prelude) + std::string(input), limits);
    const ProgramLines& lines = memory.program().lines;
    for (std::size_t number = 0; number < lines.size(); ++number) {
        const test::LexedTokens lexed =
            test::lexedTokens(memory.program(), lines, number, memory.axes());
        const LineTokens tokens = lexed.line();
        if (isOfPreprocessor(tokens)) {
            continue;
        }
        const Translated numeric = translate(memory, limits, tokens, translateExpression);
        if (numeric.succeeded && numeric.tookAll) {
            checkInParentheses(memory, limits, tokens);
        }
        translate(memory, limits, tokens, translateStringExpression);
        translate(memory, limits, tokens, translateStringOperand);
        translate(memory, limits, tokens, translateVariableRead);
        translate(memory, limits, tokens, translateTarget);
    }
}

}  // namespace torvel::fuzz
