#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "src/base/token-type.h"

namespace torvel::test {

/// A row of the tables of statements, values and functions.
struct TableRow {
    /// Who converts it: a routine; its pattern and text; nobody, it is refused; or the rows of the words behind
    /// it, in front of which the operand `pattern` stands.
    enum class Kind : std::uint8_t { routine, form, refused, byWord };

    Kind kind = Kind::routine;
    /// The file that it stands in.
    std::string_view file;
    /// The token that it begins with.
    TokenType token = TokenType::INVALID;
    /// The words behind it; TokenType::INVALID: there is none, or none of its words stands there.
    TokenType word = TokenType::INVALID;
    TokenType second = TokenType::INVALID;
    std::string_view pattern;
    std::string_view text;
    /// The symbol of the message that refuses it or stands beside it; empty: there is none.
    std::string_view message;
    /// A row of the words of a keyword, or of the second words of a word.
    bool isWord = false;
    bool isSecond = false;
};

/// src/stmt/statements.def
const std::vector<TableRow>& statementRows();
/// src/stmt/values.def: values, and what is refused behind a string variable.
const std::vector<TableRow>& valueRows();
const std::vector<TableRow>& stringValueRows();
/// src/expr/functions.def but for the functions that read a status item.
const std::vector<TableRow>& functionRows();

/// A function that reads a status item. Rows of src/expr/functions.def.
struct StatusRow {
    TokenType token = TokenType::INVALID;
    std::string_view call;
    /// axis, task or system
    std::string_view place;
    std::string_view items;
    std::string_view message;
};

const std::vector<StatusRow>& statusRows();

/// The row of the words of which a row is one: BY_WORD, or WORD_BY_WORD of a second word.
const TableRow& rowInFrontOf(const TableRow& row);

/// The row's words as programs have them.
std::string nameOf(const TableRow& row);

/// The word that stands for a kind of token in a program.
std::string spellingOf(TokenType type);

}  // namespace torvel::test
