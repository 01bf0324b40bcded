// Blocks, jumps and subroutines. A statement's effect on the blocks is set as soon as its keyword is
// recognised, so that a condition that cannot be converted still opens its block.

#include "src/stmt/flow-control.h"

#include "src/expr/expressions.h"
#include "src/expr/variables.h"

namespace torvel {

/// IF condition [THEN]
/// if condition
bool convertIf(Statement& statement) {
    statement.effect = BlockEffect::Opens;
    statement.cursor.advance();
    if (!writeExpression(statement, "if ")) {
        return false;
    }
    accept(statement, TokenType::THEN);
    if (statement.cursor.is(TokenType::GOTO) || statement.cursor.is(TokenType::IDENTIFIER)) {
        statement.effect = BlockEffect::None;
        return refuse(statement, Message::IfGotoUnsupported);
    }
    return true;
}

/// ELSEIF condition [THEN], ELSE IF condition [THEN]
/// elseif condition
bool convertElseif(Statement& statement) {
    statement.effect = BlockEffect::Continues;
    statement.cursor.advance();
    if (!writeExpression(statement, "elseif ")) {
        return false;
    }
    accept(statement, TokenType::THEN);
    return true;
}

/// ELSE
/// else
bool convertElse(Statement& statement) {
    statement.effect = BlockEffect::Continues;
    statement.cursor.advance();
    if (statement.cursor.is(TokenType::IF)) {
        return convertElseif(statement);
    }
    statement.text += "else";
    return true;
}

/// FOR variable = start TO stop [STEP step]
/// for variable = start to stop step step
bool convertFor(Statement& statement) {
    statement.effect = BlockEffect::Opens;
    statement.cursor.advance();
    statement.text += "for ";
    if (!translateVariableRead(statement.context, statement.cursor, statement.text) ||
        !expect(statement, TokenType::ASSIGN) || !writeExpression(statement, " = ") ||
        !expect(statement, TokenType::TO) || !writeExpression(statement, " to ")) {
        return false;
    }
    return !accept(statement, TokenType::STEP) || writeExpression(statement, " step ");
}

/// NEXT [variable]
/// end
bool convertNext(Statement& statement) {
    statement.effect = BlockEffect::Closes;
    statement.cursor.advance();
    if (!statement.cursor.atEnd()) {
        ExpressionText variable;
        if (!translateVariableRead(statement.context, statement.cursor, variable)) {
            return false;
        }
    }
    statement.text += "end";
    return true;
}

/// WHILE condition [DO]
/// while condition
bool convertWhile(Statement& statement) {
    statement.effect = BlockEffect::Opens;
    statement.cursor.advance();
    if (!writeExpression(statement, "while ")) {
        return false;
    }
    accept(statement, TokenType::DO);
    return true;
}

/// DO WHILE condition [DO]
/// while condition
bool convertDo(Statement& statement) {
    statement.cursor.advance();
    if (!statement.cursor.is(TokenType::WHILE)) {
        return refuse(statement, Message::DoUnsupported);
    }
    return convertWhile(statement);
}

/// LOOP
/// end
bool convertLoop(Statement& statement) {
    statement.cursor.advance();
    if (!statement.cursor.atEnd()) {
        return refuse(statement, Message::LoopUnsupported);
    }
    statement.effect = BlockEffect::Closes;
    statement.text += "end";
    return true;
}

/// REPEAT count
/// repeat count
bool convertRepeat(Statement& statement) {
    statement.effect = BlockEffect::Opens;
    statement.cursor.advance();
    if (!writeExpression(statement, "repeat ")) {
        return false;
    }
    if (statement.cursor.is(TokenType::IDENTIFIER)) {
        return refuse(statement, Message::RepeatJumpUnsupported);
    }
    return true;
}

/// DFS name
/// function name()
bool convertDfs(Statement& statement) {
    statement.effect = BlockEffect::Opens;
    statement.cursor.advance();
    const auto name = expectToken(statement.context, statement.cursor, TokenType::IDENTIFIER);
    if (!name) {
        return false;
    }
    statement.text += "function ";
    statement.text += *name;
    statement.text += "()";
    return true;
}

/// ENDIF, ENDWHILE, ENDREPEAT, ENDDFS
/// end
bool convertBlockEnd(Statement& statement) {
    statement.effect = BlockEffect::Closes;
    statement.cursor.advance();
    statement.text += "end";
    return true;
}

/// END, END PROGRAM; END IF | WHILE | REPEAT | DFS | SUB
/// ProgramExit(); end
bool convertEnd(Statement& statement) {
    statement.cursor.advance();
    if (statement.cursor.atEnd() || accept(statement, TokenType::PROGRAM)) {
        statement.text += "ProgramExit()";
        return true;
    }
    static constexpr TokenType blocks[] = {TokenType::IF, TokenType::WHILE, TokenType::REPEAT,
                                           TokenType::DFS, TokenType::SUB};
    if (!expectToken(statement.context, statement.cursor, blocks)) {
        return false;
    }
    statement.effect = BlockEffect::Closes;
    statement.text += "end";
    return true;
}

/// GOTO name, GOTO N number
/// goto name, goto Nnumber
bool convertGoto(Statement& statement) {
    statement.cursor.advance();
    const bool isNumber = statement.cursor.is(TokenType::LETTER_N);
    auto target = expectToken(statement.context, statement.cursor,
                              {TokenType::IDENTIFIER, TokenType::LETTER_N});
    if (target && isNumber) {
        target = expectToken(statement.context, statement.cursor, TokenType::INTEGER_LITERAL);
    }
    if (!target) {
        return false;
    }
    statement.text += isNumber ? "goto N" : "goto ";
    statement.text += *target;
    return true;
}

/// CALL name [( )]; arguments are dropped
/// name()
bool convertCall(Statement& statement) {
    statement.cursor.advance();
    const auto name = expectToken(statement.context, statement.cursor, TokenType::IDENTIFIER);
    if (!name) {
        return false;
    }
    statement.text += *name;
    statement.text += "()";
    if (statement.cursor.is(TokenType::LEFT_PAREN) &&
        statement.cursor.following() == TokenType::RIGHT_PAREN) {
        statement.cursor.advance();
        statement.cursor.advance();
    } else if (!statement.cursor.atEnd()) {
        statement.cursor.skipToEnd();
        advise(statement, Message::CallArgumentsDiffer);
    }
    return true;
}

namespace {

/// [value], which is dropped
bool writeReturn(Statement& statement) {
    if (!statement.cursor.atEnd()) {
        ExpressionText value;
        if (!translateExpression(statement.context, statement.cursor, value)) {
            return false;
        }
        advise(statement, Message::ReturnMotion);
    }
    statement.text += "return";
    return true;
}

}  // namespace

/// RETURN [value]
/// return
bool convertReturn(Statement& statement) {
    statement.cursor.advance();
    return writeReturn(statement);
}

/// EXIT SUB [value]
/// return
bool convertExit(Statement& statement) {
    statement.cursor.advance();
    return expect(statement, TokenType::SUB) && writeReturn(statement);
}

}  // namespace torvel
