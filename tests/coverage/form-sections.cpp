// Gathers the forms of statements, values, functions and variables. Rows of the converter's tables give
// their forms themselves; those that a routine converts have theirs in docs/statement-forms.def.

#include "tests/coverage/form-sections.h"

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <map>
#include <stdexcept>

#include "tests/coverage/form-patterns.h"
#include "tests/coverage/table-rows.h"
#include "tests/coverage/variable-forms.h"
#include "tests/coverage/written-forms.h"
#include "tests/support/escapes.h"

namespace torvel::test {

namespace {

using Forms = std::vector<StatementForm>;

void append(Forms& forms, Forms more) {
    std::move(more.begin(), more.end(), std::back_inserter(forms));
}

// Statements

/// The row's words with the operands in front of them, as one pattern.
std::string fullPattern(const TableRow& row, bool hasTask) {
    std::string pattern = spellingOf(row.token);
    const auto add = [&pattern](std::string_view words) {
        pattern += words.empty() ? "" : " ";
        pattern += words;
    };
    if (row.isWord) {
        TableRow first = row;
        first.isSecond = false;
        const std::string_view lead = rowInFrontOf(first).pattern;
        add(lead != "[task]" ? lead : hasTask ? "task" : "");
    }
    add(row.word == TokenType::INVALID ? "" : spellingOf(row.word));
    if (row.isSecond) {
        add(rowInFrontOf(row).pattern);
        add(row.second == TokenType::INVALID ? "" : spellingOf(row.second));
    }
    add(row.pattern);
    return pattern;
}

/// The task that a word may have in front of it is the running one where it is left out.
Forms patternForms(const TableRow& row) {
    Forms forms;
    if (row.isWord && rowInFrontOf(row).pattern == "[task]") {
        append(forms, formsOfPattern(fullPattern(row, false),
                                     replaceAll(row.text, "{}", "TaskGetIndex()"), row.message));
    }
    append(forms, formsOfPattern(fullPattern(row, true), row.text, row.message));
    return forms;
}

Forms statementForms(const TableRow& row) {
    switch (row.kind) {
        case TableRow::Kind::byWord: return {};
        case TableRow::Kind::routine:
            return writtenForms({RoutineTable::statement, row.token, row.word, row.second});
        default: return patternForms(row);
    }
}

/// The heading of the rows of a file.
std::string titleOf(std::string_view file) {
    static const std::map<std::string, std::string> titles = {
        {"assignments", "Assignments"},
        {"declarations", "Declarations"},
        {"flow-control", "Flow control"},
        {"gcode", "G-code lines"},
        {"motion", "Motion"},
        {"ramps", "Ramps"},
        {"modes", "Units and modes"},
        {"setparm", "Axis parameters"},
        {"drive", "Drives"},
        {"gearing", "Gearing"},
        {"position-offset", "Position offsets"},
        {"autofocus", "Autofocus"},
        {"joystick", "Joystick"},
        {"data-collection", "Data collection"},
        {"galvo", "Scan heads and their laser"},
        {"ifov", "Infinite field of view"},
        {"task-control", "Tasks"},
        {"faults", "Faults, errors and warnings"},
        {"programs", "Programs"},
        {"thermal-compensation", "Thermal compensation"},
        {"safe-zones", "Safe zones"},
        {"normalcy", "Normalcy"},
        {"unsupported", "Statements without a counterpart"},
    };
    const std::string family = std::filesystem::path(file).stem().string();
    const auto title = titles.find(family);
    if (title == titles.end()) {
        throw std::runtime_error("tests/coverage/form-sections.cpp has no heading for the family " +
                                 family);
    }
    return title->second;
}

void appendStatementSections(std::vector<FormSection>& sections) {
    for (const TableRow& row : statementRows()) {
        const std::string title = titleOf(row.file);
        auto section = std::find_if(sections.begin(), sections.end(),
                                    [&](const FormSection& each) { return each.title == title; });
        if (section == sections.end()) {
            section = sections.insert(section, {title, "statements", {}});
        }
        append(section->forms, statementForms(row));
    }
}

// Values, callbacks, functions

Forms assigned(Forms forms) {
    std::transform(forms.begin(), forms.end(), forms.begin(), assignedForm);
    return forms;
}

/// The forms of a row of values or functions.
Forms valueForms(const TableRow& row, RoutineTable table) {
    if (row.kind == TableRow::Kind::routine) {
        return writtenForms({table, row.token});
    }
    return assigned(formsOfPattern(fullPattern(row, false), row.text, row.message));
}

FormSection valueSection() {
    FormSection section{"Values behind an assignment", "values", {}};
    for (const TableRow& row : valueRows()) {
        append(section.forms, valueForms(row, RoutineTable::value));
    }
    for (const TableRow& row : stringValueRows()) {
        section.forms.push_back(refusedForm("TITLE = " + spellingOf(row.token), row.message));
    }
    return section;
}

FormSection callbackSection() {
    FormSection section{"Services of the host", "values", {}};
    const auto add = [&section](const std::string& brannic, std::string_view message) {
        section.forms.push_back(refusedForm(brannic, message));
    };
#define SERVICE(code, message) add("CALLBACK " #code, #message);
#define MESSAGE_COMMAND(value, message) add("CALLBACK 1001 [,] " #value, #message);
#define LIBRARY_CALL(function, message) \
    add("CALLBACK 1032 [,] \"Q54CBack.dll\" [,] \"" function "\"", #message);
#include "src/stmt/callbacks.def"
    return section;
}

/// A status item in a call of a function: its number and name, as the call has them.
void appendStatusForms(Forms& forms, const StatusRow& row) {
    const NamedItem item = namedItem(row.items);
    const std::string name = "DATAITEM_" + item.torvel.substr(item.torvel.find('.') + 1);
    const auto add = [&](const std::string& brannic, const std::string& torvel) {
        forms.push_back(
            assignedForm(convertedForm(spellingOf(row.token) + " ( " + brannic + " )",
                                       std::string(row.call) + torvel + ")", {row.message})));
    };
    const std::string place(row.place);
    const std::string operand = place == "system" ? "" : place + " , ";
    const std::string argument = place == "system" ? "" : place + ", ";
    add(operand + name, argument + item.torvel);
    add(operand + name + " , value", argument + item.torvel + ", value");
    if (place == "axis") {
        add("0 , " + item.number, "X, " + item.torvel);
        add("TITLE , " + item.number, "@TITLE, " + item.torvel);
    }
    forms.push_back(assignedForm(
        refusedForm(spellingOf(row.token) + " ( " + operand + "9000 )", "ItemMissing")));
}

FormSection functionSection() {
    FormSection section{"Functions", "functions", {}};
    for (const TableRow& row : functionRows()) {
        append(section.forms, valueForms(row, RoutineTable::function));
    }
    for (const StatusRow& row : statusRows()) {
        appendStatusForms(section.forms, row);
    }
    return section;
}

}  // namespace

std::vector<FormSection> formSections() {
    std::vector<FormSection> sections;
    appendStatementSections(sections);
    sections.push_back(valueSection());
    sections.push_back(callbackSection());
    sections.push_back(functionSection());
    sections.push_back(
        {"Variables, inputs and outputs, parameters, status", "variables", variableForms()});
    return sections;
}

}  // namespace torvel::test
