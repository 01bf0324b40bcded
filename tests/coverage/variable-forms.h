#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/coverage/statement-form.h"

namespace torvel::test {

/// The forms in which the kinds of variable are read and assigned to, as src/expr/variables.def has them.
std::vector<StatementForm> variableForms();

/// An item of a table of names: its number, and its name in Torvel.
struct NamedItem {
    std::string number;
    std::string torvel;
};

/// An item of a table of parameters or status items.
NamedItem namedItem(std::string_view items);

}  // namespace torvel::test
