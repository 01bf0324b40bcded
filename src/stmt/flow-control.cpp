// Blocks, jumps and subroutines. A statement's effect on the blocks is set as soon as its keyword is
// recognised, so that a condition that cannot be converted still opens its block.

#include "src/expr/expressions.h"
#include "src/expr/variables.h"
#include "src/stmt/routines.h"

namespace torvel {

/// IF condition [THEN]
/// if condition
void convertIf(Statement& statement) {
    statement.effect = BlockEffect::Opens;
    statement.cursor.advance();
    writeExpression(statement, "if ");
    acceptToken(statement, TokenType::THEN);
    if (statement.cursor.is(TokenType::GOTO) || statement.cursor.is(TokenType::IDENTIFIER)) {
        statement.effect = BlockEffect::None;
        refuse(statement, Message::IfGotoUnsupported);
    }
}

/// ELSEIF condition [THEN], ELSE IF condition [THEN]
/// elseif condition
/// A jump behind the condition has no message of its own here, on purpose.
void convertElseif(Statement& statement) {
    statement.effect = BlockEffect::Continues;
    statement.cursor.advance();
    writeExpression(statement, "elseif ");
    acceptToken(statement, TokenType::THEN);
}

/// ELSE
/// else
void convertElse(Statement& statement) {
    statement.effect = BlockEffect::Continues;
    statement.cursor.advance();
    if (statement.cursor.is(TokenType::IF)) {
        convertElseif(statement);
    } else {
        statement.text += "else";
    }
}

/// FOR variable = start TO stop [STEP step]
/// for variable = start to stop step step
void convertFor(Statement& statement) {
    statement.effect = BlockEffect::Opens;
    statement.cursor.advance();
    statement.text += "for ";
    const Token* const variable = statement.cursor.place();
    const std::size_t start = statement.text.size();
    translateVariableRead(statement, statement.text);
    if (statement.text.size() > start && statement.text.back() == ')') {
        noteCheck(statement, Check::LoopTarget, variable);  // a call
    }
    expectToken(statement, TokenType::ASSIGN);
    writeExpression(statement, " = ");
    expectToken(statement, TokenType::TO);
    writeExpression(statement, " to ");
    if (acceptToken(statement, TokenType::STEP)) {
        writeExpression(statement, " step ");
    }
}

/// NEXT [variable]
/// end
void convertNext(Statement& statement) {
    statement.effect = BlockEffect::Closes;
    statement.cursor.advance();
    if (!statement.cursor.atEnd()) {
        ExpressionText variable;
        const UnwrittenOperand dropped(statement, UnwrittenOperand::Value::isDropped);
        translateVariableRead(statement, variable);
    }
    statement.text += "end";
}

/// WHILE condition [DO]
/// while condition
void convertWhile(Statement& statement) {
    statement.effect = BlockEffect::Opens;
    statement.cursor.advance();
    writeExpression(statement, "while ");
    acceptToken(statement, TokenType::DO);
}

/// DO WHILE condition [DO]
/// while condition
void convertDo(Statement& statement) {
    statement.cursor.advance();
    if (statement.cursor.is(TokenType::WHILE)) {
        convertWhile(statement);
    } else {
        refuse(statement, Message::DoUnsupported);
    }
}

/// LOOP
/// end
void convertLoop(Statement& statement) {
    statement.cursor.advance();
    if (!statement.cursor.atEnd()) {
        refuse(statement, Message::LoopUnsupported);
        return;
    }
    statement.effect = BlockEffect::Closes;
    statement.text += "end";
}

/// REPEAT count
/// repeat count
/// With a jump behind the count the block stays open on purpose.
void convertRepeat(Statement& statement) {
    statement.effect = BlockEffect::Opens;
    statement.cursor.advance();
    writeExpression(statement, "repeat ");
    if (statement.cursor.is(TokenType::IDENTIFIER)) {
        refuse(statement, Message::RepeatJumpUnsupported);
    }
}

/// DFS name
/// function name()
void convertDfs(Statement& statement) {
    statement.effect = BlockEffect::Opens;
    statement.cursor.advance();
    statement.text += "function ";
    const Token* const place = statement.cursor.place();
    const std::string_view name = expectToken(statement, TokenType::IDENTIFIER);
    noteFact(statement, Fact::Kind::function, name, place);
    statement.text += name;
    statement.text += "()";
}

/// ENDIF, ENDWHILE, ENDREPEAT, ENDDFS
/// end
void convertBlockEnd(Statement& statement) {
    statement.effect = BlockEffect::Closes;
    if (statement.cursor.is(TokenType::ENDDFS)) {
        noteFact(statement, Fact::Kind::functionEnd, {}, statement.cursor.place());
    }
    statement.cursor.advance();
    statement.text += "end";
}

/// END, END PROGRAM; END IF | WHILE | REPEAT | DFS | SUB
/// ProgramExit(); end
void convertEnd(Statement& statement) {
    statement.cursor.advance();
    if (statement.cursor.atEnd() || acceptToken(statement, TokenType::PROGRAM)) {
        statement.text += "ProgramExit()";
        return;
    }
    const Token* const block = statement.cursor.place();
    if (statement.cursor.is(TokenType::DFS) || statement.cursor.is(TokenType::SUB)) {
        noteFact(statement, Fact::Kind::functionEnd, {}, block);
    }
    expectToken(statement, {TokenType::IF, TokenType::WHILE, TokenType::REPEAT, TokenType::DFS,
                            TokenType::SUB});
    if (!statement.isRefused) {
        statement.effect = BlockEffect::Closes;
    }
    statement.text += "end";
}

/// GOTO name, GOTO N number
/// goto name, goto Nnumber
void convertGoto(Statement& statement) {
    statement.cursor.advance();
    const Token* const place = statement.cursor.place();
    std::string label;
    if (acceptToken(statement, TokenType::LETTER_N)) {
        label = "N";
        label += expectToken(statement, TokenType::INTEGER_LITERAL);
    } else {
        label = expectToken(statement, {TokenType::IDENTIFIER, TokenType::LETTER_N});
    }
    noteFact(statement, Fact::Kind::jump, label, place);
    statement.text += "goto ";
    statement.text += label;
}

/// CALL name [( )]; arguments are dropped
/// name()
void convertCall(Statement& statement) {
    statement.cursor.advance();
    const Token* const place = statement.cursor.place();
    const std::string_view name = expectToken(statement, TokenType::IDENTIFIER);
    noteFact(statement, Fact::Kind::call, name, place);
    statement.text += name;
    statement.text += "()";
    if (statement.cursor.is(TokenType::LEFT_PAREN) &&
        statement.cursor.following() == TokenType::RIGHT_PAREN) {
        statement.cursor.advance();
        statement.cursor.advance();
    } else if (!statement.cursor.atEnd()) {
        statement.cursor.skipToEnd();
        logConversionMessage(statement, Message::CallArgumentsDiffer);
    }
}

namespace {

/// [value], which is dropped
void writeReturn(Statement& statement) {
    if (!statement.cursor.atEnd()) {
        ExpressionText value;
        {
            const UnwrittenOperand dropped(statement, UnwrittenOperand::Value::isDropped);
            translateExpression(statement, value);
        }
        logConversionMessage(statement, Message::ReturnMotion);
    }
    statement.text += "return";
}

}  // namespace

/// RETURN [value]
/// return
void convertReturn(Statement& statement) {
    statement.cursor.advance();
    writeReturn(statement);
}

/// EXIT SUB [value]
/// return
void convertExit(Statement& statement) {
    statement.cursor.advance();
    expectToken(statement, TokenType::SUB);
    writeReturn(statement);
}

}  // namespace torvel
