#include "src/stmt/forms.h"

#include <vector>

#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"
#include "src/expr/strings.h"
#include "src/expr/variables.h"

namespace torvel {

namespace {

bool readAxes(Statement& statement, bool collapseSingle, std::string& out) {
    std::vector<std::string> axes;
    if (!translateAxisList(statement.context, statement.cursor, AxisDemand::anyNumber, axes)) {
        return false;
    }
    formatList(axes, collapseSingle, out);
    return true;
}

/// v {, v}
bool readExpressions(Statement& statement, std::string& out) {
    do {
        if (!translateExpression(statement.context, statement.cursor, out)) {
            return false;
        }
        if (statement.cursor.is(TokenType::COMMA)) {
            out += ", ";
        }
    } while (accept(statement, TokenType::COMMA));
    return true;
}

/// Appends `form` up to its next hole, which is taken out of it.
void writeUpToHole(Statement& statement, std::string_view& form) {
    const std::size_t hole = form.find("{}");
    statement.text += form.substr(0, hole);
    form.remove_prefix(hole + 2);
}

}  // namespace

bool readOperand(Statement& statement, char letter, std::string& out) {
    switch (letter) {
        case 'a': return translateSingleAxis(statement.context, statement.cursor, out);
        case 'A': return readAxes(statement, true, out);
        case 'L': return readAxes(statement, false, out);
        case 'V': return readExpressions(statement, out);
        case 'r': return translateVariableRead(statement.context, statement.cursor, out);
        case 's': return translateStringOperand(statement.context, statement.cursor, out);
        default: return translateExpression(statement.context, statement.cursor, out);
    }
}

bool writeForm(Statement& statement, std::string_view pattern, std::string_view form,
               std::string_view lead, std::optional<Message> advice) {
    if (!lead.empty() && form.find("{}") != std::string_view::npos) {
        writeUpToHole(statement, form);
        statement.text += lead;
    }
    for (const char letter : pattern) {
        if (letter == ',') {
            if (!expect(statement, TokenType::COMMA)) {
                return false;
            }
        } else if (letter == ';') {
            accept(statement, TokenType::COMMA);
        } else {
            writeUpToHole(statement, form);
            if (!readOperand(statement, letter, statement.text)) {
                return false;
            }
        }
    }
    statement.text += form;
    if (advice) {
        advise(statement, *advice);
    }
    return true;
}

}  // namespace torvel
