#pragma once

#include <string>

namespace torvel::test {

/// docs/statements.md.
std::string statementPage();

}  // namespace torvel::test
