// CALLBACK reaches the services of the host by a code: operator messages, a library of files and
// communication, and others. Torvel has next to none of them; what is told is which one was called.

#include "src/expr/expressions.h"
#include "src/expr/number-checks.h"
#include "src/expr/number-text.h"
#include "src/expr/variables.h"
#include "src/stmt/routines.h"

namespace torvel {

namespace {

constexpr std::int32_t operatorMessages = 1001;
constexpr std::int32_t libraryCall = 1032;
constexpr std::string_view callbackLibrary = "Q54CBack.dll";
constexpr std::string_view fileClose = "KelCBackFileClose";

struct Service {
    std::int32_t code;
    Message message;
};

constexpr Service services[] = {
#define SERVICE(code, message) {code, Message::message},
#include "src/stmt/callbacks.def"
};

constexpr Service messageCommands[] = {
#define MESSAGE_COMMAND(value, message) {value, Message::message},
#include "src/stmt/callbacks.def"
};

struct LibraryFunction {
    std::string_view name;
    Message message;
};

constexpr LibraryFunction libraryFunctions[] = {
#define LIBRARY_CALL(function, message) {function, Message::message},
#include "src/stmt/callbacks.def"
};

template <std::size_t count>
Message findService(const Service (&rows)[count], std::int32_t code, Message other) {
    for (const Service& row : rows) {
        if (row.code == code) {
            return row.message;
        }
    }
    return other;
}

/// An expression that is an integer when it is converted; `missing` tells that it is none.
std::int32_t readConstant(Statement& statement, Message missing) {
    ExpressionText text;
    const Token* const first = statement.cursor.place();
    {
        const UnwrittenOperand unwritten(statement);
        translateExpression(statement, text);
    }
    checkOctal(statement, text, first);
    const std::optional<std::int32_t> number = parseIntegerText(text);
    if (!number) {
        refuse(statement, missing);
    }
    return number.value_or(0);
}

/// A string that is known when it is converted: a literal or a preserved define.
std::string_view readName(Statement& statement, Message missing) {
    TokenCursor& cursor = statement.cursor;
    std::string_view name;
    if (cursor.is(TokenType::STRING_LITERAL)) {
        name = cursor.text();
    } else if (cursor.is(TokenType::STRING_DEFINE)) {
        name = cursor.value();
        name = name.substr(1, name.size() - 2);
    } else {
        refuse(statement, missing);
    }
    cursor.advance();
    return name;
}

/// CALLBACK 1001 [,] command ...
void translateMessage(Statement& statement) {
    acceptToken(statement, TokenType::COMMA);
    const std::int32_t command = readConstant(statement, Message::MessageCommandExpected);
    refuse(statement, findService(messageCommands, command, Message::MessageCommandUnknown));
}

/// ... [,] handle
/// FileClose(handle)
void translateFileClose(Statement& statement, ExpressionText& out) {
    acceptToken(statement, TokenType::COMMA);
    if (!isNumericVariable(statement.cursor.type())) {
        refuse(statement, Message::FilecloseUnsupported);
    }
    out += "FileClose(";
    translateVariableRead(statement, out);
    out += ')';
}

/// CALLBACK 1032 [,] library [,] function ...
void translateLibraryCall(Statement& statement, ExpressionText& out) {
    acceptToken(statement, TokenType::COMMA);
    if (readName(statement, Message::LibraryNameExpected) != callbackLibrary) {
        refuse(statement, Message::CallbackNoOneToOne);
    }
    acceptToken(statement, TokenType::COMMA);
    const std::string_view name = readName(statement, Message::LibraryFunctionExpected);
    if (name == fileClose) {
        translateFileClose(statement, out);
        return;
    }
    for (const LibraryFunction& function : libraryFunctions) {
        if (function.name == name) {
            refuse(statement, function.message);
        }
    }
    refuse(statement, Message::CallbackNoOneToOne);
}

}  // namespace

void translateCallback(Statement& statement, ExpressionText& out) {
    statement.cursor.advance();
    const std::int32_t code = readConstant(statement, Message::CallbackCodeExpected);
    switch (code) {
        case operatorMessages: translateMessage(statement); break;
        case libraryCall: translateLibraryCall(statement, out); break;
        default: refuse(statement, findService(services, code, Message::CallbackNoOneToOne)); break;
    }
}

}  // namespace torvel
