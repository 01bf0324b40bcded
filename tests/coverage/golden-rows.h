#pragma once

#include <string_view>

#include "tests/coverage/golden-lines.h"
#include "tests/coverage/table-rows.h"

namespace torvel::test {

/// Whether the row of the statement tables is the one that the line is converted by.
bool isOfRow(const GoldenLine& line, const TableRow& row);

/// Whether the line has the value of the row behind an assignment.
bool hasValue(const GoldenLine& line, const TableRow& row);

/// Whether the line calls the function of the row.
bool hasFunction(const GoldenLine& line, const TableRow& row);

/// Whether the message with the symbol was logged.
bool hasLogged(const GoldenLine& line, std::string_view symbol);

}  // namespace torvel::test
