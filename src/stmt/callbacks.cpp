// CALLBACK reaches the services of the host by a code: operator messages, a library of files and
// communication, and others. Torvel has next to none of them; what is told is which one was called.

#include "src/stmt/callbacks.h"

#include "src/expr/expressions.h"
#include "src/expr/number-text.h"
#include "src/expr/variables.h"

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
std::optional<std::int32_t> readConstant(ConversionContext& context, TokenCursor& cursor,
                                         Message missing) {
    ExpressionText text;
    if (!translateExpression(context, cursor, text)) {
        return std::nullopt;
    }
    const std::optional<std::int32_t> number = parseIntegerText(text);
    if (!number) {
        logConversionMessage(context, missing);
    }
    return number;
}

/// A string that is known when it is converted: a literal or a preserved define.
std::optional<std::string_view> readName(ConversionContext& context, TokenCursor& cursor,
                                         Message missing) {
    std::string_view name;
    if (cursor.is(TokenType::STRING_LITERAL)) {
        name = cursor.text();
    } else if (cursor.is(TokenType::STRING_DEFINE)) {
        name = cursor.value();
        name = name.substr(1, name.size() - 2);
    } else {
        logConversionMessage(context, missing);
        return std::nullopt;
    }
    cursor.advance();
    return name;
}

/// CALLBACK 1001 [,] command ...
bool translateMessage(ConversionContext& context, TokenCursor& cursor) {
    acceptToken(cursor, TokenType::COMMA);
    const auto command = readConstant(context, cursor, Message::MessageCommandExpected);
    return command && logConversionMessage(context, findService(messageCommands, *command,
                                                                Message::MessageCommandUnknown));
}

/// ... [,] handle
/// FileClose(handle)
bool translateFileClose(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    acceptToken(cursor, TokenType::COMMA);
    if (!isNumericVariable(cursor.type())) {
        return logConversionMessage(context, Message::FilecloseUnsupported);
    }
    out += "FileClose(";
    if (!translateVariableRead(context, cursor, out)) {
        return false;
    }
    out += ')';
    return true;
}

/// CALLBACK 1032 [,] library [,] function ...
bool translateLibraryCall(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    acceptToken(cursor, TokenType::COMMA);
    const auto library = readName(context, cursor, Message::LibraryNameExpected);
    if (!library) {
        return false;
    }
    if (*library != callbackLibrary) {
        return logConversionMessage(context, Message::CallbackNoOneToOne);
    }
    acceptToken(cursor, TokenType::COMMA);
    const auto name = readName(context, cursor, Message::LibraryFunctionExpected);
    if (!name) {
        return false;
    }
    if (*name == fileClose) {
        return translateFileClose(context, cursor, out);
    }
    for (const LibraryFunction& function : libraryFunctions) {
        if (function.name == *name) {
            return logConversionMessage(context, function.message);
        }
    }
    return logConversionMessage(context, Message::CallbackNoOneToOne);
}

}  // namespace

bool translateCallback(ConversionContext& context, TokenCursor& cursor, ExpressionText& out) {
    cursor.advance();
    const auto code = readConstant(context, cursor, Message::CallbackCodeExpected);
    if (!code) {
        return false;
    }
    switch (*code) {
        case operatorMessages: return translateMessage(context, cursor);
        case libraryCall: return translateLibraryCall(context, cursor, out);
        default:
            return logConversionMessage(context,
                                        findService(services, *code, Message::CallbackNoOneToOne));
    }
}

}  // namespace torvel
