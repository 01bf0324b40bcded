#include "src/migrate/finding-order.h"

namespace torvel::migrate {

Urgency urgencyOf(const FindingRow& row) {
    if (row.severity == Severity::moves || row.todo == FindingTodo::fixSource) {
        return Urgency::error;
    }
    const bool isRefused = row.todo == FindingTodo::rewrite || row.todo == FindingTodo::complete ||
                           row.severity == Severity::stops;
    return isRefused ? Urgency::warning : Urgency::note;
}

}  // namespace torvel::migrate
