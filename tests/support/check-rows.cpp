#include "tests/support/check-rows.h"

namespace torvel::test {

const std::vector<CheckRow>& checkRows() {
    static const std::vector<CheckRow> rows = {
#define CHECK(symbol, code, severity, title, happens, todo) checkRow(Check::symbol),
#include "src/base/checks.def"
    };
    return rows;
}

}  // namespace torvel::test
