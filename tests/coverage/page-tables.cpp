#include "tests/coverage/page-tables.h"

#include <stdexcept>

#include "tests/support/escapes.h"
#include "tests/support/text-difference.h"

namespace torvel::test {

namespace {

std::string trimmed(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return std::string(text.substr(first, text.find_last_not_of(' ') + 1 - first));
}

std::vector<std::string> cellsOf(std::string_view line) {
    std::vector<std::string> cells;
    std::string cell;
    for (std::size_t i = 1; i < line.size(); ++i) {
        if (line[i] == '\\' && i + 1 < line.size() && line[i + 1] == '|') {
            cell += line[++i];
        } else if (line[i] == '|') {
            cells.push_back(trimmed(cell));
            cell.clear();
        } else {
            cell += line[i];
        }
    }
    return cells;
}

}  // namespace

std::vector<std::vector<std::string>> tableRows(std::string_view page, std::string_view head) {
    std::vector<std::vector<std::string>> rows;
    bool isInTable = false;
    for (const std::string_view line : splitLines(page)) {
        const std::string row = trimmed(line);
        if (!row.starts_with('|')) {
            isInTable = false;
        } else if (row == head) {
            isInTable = true;
        } else if (isInTable && !row.starts_with("|-")) {
            rows.push_back(cellsOf(row));
            if (rows.back().size() != cellsOf(head).size()) {
                throw std::runtime_error("not as many cells as the head: " + row);
            }
        }
    }
    return rows;
}

std::string unquoted(std::string_view cell) {
    if (cell.size() >= 2 && cell.starts_with('`') && cell.ends_with('`')) {
        cell = cell.substr(1, cell.size() - 2);
    }
    return std::string(cell);
}

std::string linesOfCell(std::string_view cell) {
    return unquoted(replaceAll(cell, "`<br>`", "\n"));
}

}  // namespace torvel::test
