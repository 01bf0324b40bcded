#include "tests/coverage/variable-forms.h"

#include <map>
#include <utility>

#include "tests/coverage/table-rows.h"
#include "tests/support/escapes.h"

namespace torvel::test {

namespace {

/// A piece of a reference in Brannic, and the argument or subscript that it becomes.
struct Piece {
    std::string brannic;
    std::string torvel;
};

Piece indexOf(std::string_view index, std::string_view items) {
    if (items != "none") {
        const NamedItem item = namedItem(items);
        return {'[' + item.number + ']', item.torvel};
    }
    return index == "ignored" ? Piece() : Piece{"[index]", "index"};
}

/// What follows "." behind the index, and the argument in front of the index.
Piece selectorOf(std::string_view selector) {
    if (selector == "axis") {
        return {".axis", "axis, "};
    }
    return selector == "task" ? Piece{"", "TaskGetIndex(), "} : Piece();
}

Piece referenceOf(TokenType kind, std::string_view index, std::string_view selector,
                  std::string_view items) {
    const Piece number = indexOf(index, items);
    const Piece place = selectorOf(selector);
    return {spellingOf(kind) + number.brannic + place.brannic, place.torvel + number.torvel};
}

using Forms = std::vector<StatementForm>;

void appendPlain(Forms& forms, TokenType kind, const std::string& name) {
    const Piece reference = referenceOf(kind, "required", "none", "none");
    const std::string torvel = (name.empty() ? spellingOf(kind) : name) + "[index]";
    forms.push_back(
        convertedForm("variable1 = " + replaceAll(reference.brannic, "variable", "variable2"),
                      "variable1 = " + replaceAll(torvel, "variable", "variable2")));
    forms.push_back(convertedForm(reference.brannic + " = value", torvel + " = value"));
}

void appendRead(Forms& forms, const Piece& reference, const std::string& get) {
    forms.push_back(assignedForm(convertedForm(reference.brannic, get + reference.torvel + ")")));
}

void appendCall(Forms& forms, const Piece& reference, const std::string& get,
                const std::string& set) {
    appendRead(forms, reference, get);
    forms.push_back(
        convertedForm(reference.brannic + " = value", set + reference.torvel + ", value)"));
}

void appendReadOnly(Forms& forms, const Piece& reference, const std::string& get,
                    std::string_view message) {
    appendRead(forms, reference, get);
    forms.push_back(refusedForm(reference.brannic + " = value", message));
}

}  // namespace

NamedItem namedItem(std::string_view items) {
    static const std::map<std::string_view, NamedItem> known = {
        {"axisParameter", {"2", "AxisParameter.CountsPerUnit"}},
        {"taskParameter", {"16", "TaskParameter.DefaultCoordinatedSpeed"}},
        {"systemParameter", {"0", "SystemParameter.DataCollectionPoints"}},
        {"axisStatus", {"0", "AxisStatusItem.PositionFeedback"}},
        {"taskStatus", {"17", "TaskStatusItem.ProgramLineNumber"}},
        {"systemStatus", {"148", "SystemStatusItem.LibraryCommand"}},
    };
    return known.at(items);
}

std::vector<StatementForm> variableForms() {
    Forms forms;
#define REFERENCE(kind, index, selector, items) \
    referenceOf(TokenType::kind, #index, #selector, #items)
#define PLAIN(kind, name, index) appendPlain(forms, TokenType::kind, name);
#define CALL(kind, get, set, index, selector, items) \
    appendCall(forms, REFERENCE(kind, index, selector, items), get, set);
#define READ_ONLY(kind, get, index, selector, items, message) \
    appendReadOnly(forms, REFERENCE(kind, index, selector, items), get, #message);
#define REFUSED(kind, message) \
    forms.push_back(assignedForm(refusedForm(spellingOf(TokenType::kind) + "[index]", #message)));
#include "src/expr/variables.def"
    forms.push_back(convertedForm(
        "variable = $PTASK[16].1",
        "variable = ParameterGetTaskValue(1, TaskParameter.DefaultCoordinatedSpeed)"));
    return forms;
}

}  // namespace torvel::test
