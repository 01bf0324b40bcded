#include "tests/coverage/written-forms.h"

#include <algorithm>
#include <optional>

#include "tests/coverage/table-rows.h"

namespace torvel::test {

namespace {

/// A line of the file: a key, or a form.
struct Entry {
    std::optional<RoutineKey> key;
    StatementForm form;
};

const std::vector<Entry>& entries() {
    using Table = RoutineTable;
    using Type = TokenType;
    static const std::vector<Entry> all = {
#define KEY(...) {RoutineKey{__VA_ARGS__}, {}},
#define ROUTINE(token) KEY(Table::statement, Type::token)
#define ROUTINE_WORD(token, word) KEY(Table::statement, Type::token, Type::word)
#define ROUTINE_SECOND(token, word, second) \
    KEY(Table::statement, Type::token, Type::word, Type::second)
#define VALUE_ROUTINE(token) KEY(Table::value, Type::token)
#define FUNCTION_ROUTINE(token) KEY(Table::function, Type::token)
#define CONVERTED(brannic, torvel) {{}, convertedForm(brannic, torvel)},
#define ADVISED(brannic, torvel, message) {{}, convertedForm(brannic, torvel, {#message})},
#define ADVISED_TWICE(brannic, torvel, message, other) \
    {{}, convertedForm(brannic, torvel, {#message, #other})},
#define REFUSED(brannic, message) {{}, refusedForm(brannic, #message)},
#include "docs/statement-forms.def"
#undef KEY
    };
    return all;
}

/// The rows that name a routine.
std::vector<RoutineKey> routineKeys() {
    std::vector<RoutineKey> keys;
    const auto add = [&keys](RoutineTable table, const std::vector<TableRow>& rows) {
        for (const TableRow& row : rows) {
            if (row.kind == TableRow::Kind::routine) {
                keys.push_back({table, row.token, row.word, row.second});
            }
        }
    };
    add(RoutineTable::statement, statementRows());
    add(RoutineTable::value, valueRows());
    add(RoutineTable::function, functionRows());
    return keys;
}

std::string nameOf(const RoutineKey& key) {
    TableRow row;
    row.token = key.token;
    row.word = key.word;
    row.second = key.second;
    return nameOf(row);
}

}  // namespace

std::vector<StatementForm> writtenForms(const RoutineKey& key) {
    std::vector<StatementForm> forms;
    const auto& all = entries();
    auto entry =
        std::find_if(all.begin(), all.end(), [&](const Entry& each) { return each.key == key; });
    const bool isFirst = entry == all.begin() || !(entry - 1)->key;
    if (entry == all.end() || !isFirst) {
        return forms;
    }
    entry = std::find_if(entry, all.end(), [](const Entry& each) { return !each.key; });
    for (; entry != all.end() && !entry->key; ++entry) {
        forms.push_back(entry->form);
    }
    return forms;
}

std::string writtenFormFaults() {
    std::string faults;
    const std::vector<RoutineKey> keys = routineKeys();
    std::vector<RoutineKey> met;
    for (const Entry& entry : entries()) {
        if (entry.key) {
            met.push_back(*entry.key);
            if (std::count(keys.begin(), keys.end(), *entry.key) == 0) {
                faults += nameOf(*entry.key) + " has no routine\n";
            }
        }
    }
    for (const RoutineKey& key : keys) {
        if (std::count(met.begin(), met.end(), key) != 1) {
            faults += nameOf(key) + " has no forms, or twice\n";
        }
    }
    return faults;
}

}  // namespace torvel::test
