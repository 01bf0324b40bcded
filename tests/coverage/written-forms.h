#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "src/base/token-type.h"
#include "tests/coverage/statement-form.h"

namespace torvel::test {

enum class RoutineTable : std::uint8_t { statement, value, function };

/// A row that names a routine: its table, its token and the words behind that.
struct RoutineKey {
    RoutineTable table = RoutineTable::statement;
    TokenType token = TokenType::INVALID;
    TokenType word = TokenType::INVALID;
    TokenType second = TokenType::INVALID;

    bool operator==(const RoutineKey&) const = default;
};

/// The forms of a routine as docs/statement-forms.def has them. Rows that share their forms have them under
/// the first of these rows.
std::vector<StatementForm> writtenForms(const RoutineKey& key);

/// What does not fit between the tables and docs/statement-forms.def: rows with a routine that have no
/// forms there, and forms of rows that are not there. One a line.
std::string writtenFormFaults();

}  // namespace torvel::test
