#include <sstream>
#include <string>

#include "src/expr/expressions.h"
#include "src/expr/functions.h"
#include "src/expr/number-text.h"
#include "src/expr/parameter-names.h"
#include "src/expr/status-items.h"
#include "src/expr/strings.h"
#include "src/expr/variables.h"
#include "tests/support/program-text.h"
#include "tests/support/table.h"

namespace torvel::test {

namespace {

/// What a translator makes of `code`: the text, the messages, and the first token that it left. A text that is
/// refused is not printed.
template <typename Translator>
std::string translateCode(const std::string& code, Translator translator) {
    ProgramText source(code);
    const AxisNames axes;
    const Limits limits;
    const LexedTokens tokens(lexText(source.program, axes, source.text(), source.position()));
    MessageLog log;
    ConversionContext context{source.program, axes, limits, log, source.position()};
    StatementText text;
    Statement statement{context, TokenCursor(source.program, tokens), text};
    translator(statement);

    std::string printed = statement.isRefused ? std::string() : text.toString();
    for (const ConversionMessage& message : log) {
        printed += printed.empty() ? "! " : " ! ";
        printed += message.text;
    }
    if (log.empty() && !statement.cursor.atEnd()) {
        printed += " ... " + std::string(statement.cursor.text());
    }
    return printed;
}

/// `translate` may tell how loosely the text binds; nobody here asks for it.
template <typename Result>
TableDriver textOf(Result (*translate)(Statement&, ExpressionText&)) {
    return [translate](const std::string& code) {
        return translateCode(
            code, [translate](Statement& statement) { translate(statement, statement.text); });
    };
}

std::string assignmentTarget(const std::string& code) {
    return translateCode(code, [](Statement& statement) {
        const bool isCall = translateAssignmentTarget(statement, statement.text);
        statement.text += isCall ? "..." : "";
    });
}

std::string unexpectedToken(const std::string& input) {
    const auto [kinds, code] = splitInput(input);
    return translateCode(code, [&kinds = kinds](Statement& statement) {
        std::vector<TokenType> types;
        std::istringstream numbers(kinds);
        for (unsigned number = 0; numbers >> number;) {
            types.push_back(static_cast<TokenType>(number));
        }
        statement.text += expectToken(statement, TokenTypes(types));
    });
}

std::string list(const std::string& input) {
    const auto [flag, itemText] = splitInput(input);
    TextList items;
    std::istringstream words(itemText);
    for (std::string item; words >> item;) {
        items.add(item);
    }
    ExpressionText text;
    formatList(items, flag == "single", text);
    return text.toString();
}

std::string integerText(const std::string& text) {
    const std::optional<std::int32_t> value = parseIntegerText(text);
    return value ? std::to_string(*value) : "nothing";
}

std::string realText(const std::string& text) {
    const std::optional<double> value = parseRealText(text);
    TextBuffer printed;
    if (value) {
        appendReal(*value, printed);
    }
    return value ? printed.toString() : "nothing";
}

using LookupName = std::optional<std::string_view> (*)(std::uint32_t);

TableDriver nameOf(LookupName lookup) {
    return [lookup](const std::string& number) -> std::string {
        const auto name = lookup(static_cast<std::uint32_t>(std::stoul(number)));
        return !name ? "absent" : name->empty() ? "removed" : std::string(*name);
    };
}

const TableTests expressions("expressions", {{"expression", textOf(translateExpression)},
                                             {"string", textOf(translateStringExpression)},
                                             {"string operand", textOf(translateStringOperand)},
                                             {"read", textOf(translateVariableRead)},
                                             {"assign", assignmentTarget},
                                             {"expected token", unexpectedToken}});

const TableTests texts("texts", {{"integer", integerText}, {"real", realText}, {"list", list}});

const TableTests parameterNames("parameter-names", {{"axis", nameOf(lookupAxisParameterName)},
                                                    {"task", nameOf(lookupTaskParameterName)},
                                                    {"system", nameOf(lookupSystemParameterName)}});

}  // namespace

}  // namespace torvel::test
