#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace torvel::test {

/// The cells of every row of the tables of `page` that have this head, blanks around them left out. A bar
/// inside a cell stands behind a backslash, which is left out too. Throws std::runtime_error if a row has
/// not as many cells as the head.
std::vector<std::vector<std::string>> tableRows(std::string_view page, std::string_view head);

/// A cell without the backquotes around it.
std::string unquoted(std::string_view cell);

/// The lines of a cell that stand in backquotes each with `<br>` between them, joined by line feeds.
std::string linesOfCell(std::string_view cell);

}  // namespace torvel::test
