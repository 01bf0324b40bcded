// Gathers the forms of statements, values, functions and variables. Rows of the converter's tables give
// their forms themselves; those that a routine converts have theirs in docs/statement-forms.def.

#include "tests/coverage/statement-forms.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <optional>
#include <stdexcept>
#include <utility>

#include "tests/support/escapes.h"

namespace torvel::test {

namespace {

// docs/statement-forms.def

enum class RoutineTable : std::uint8_t { statement, value, function };

/// Which routine's forms follow.
struct RoutineKey {
    RoutineTable table = RoutineTable::statement;
    TokenType token = TokenType::INVALID;
    std::optional<TokenType> word;

    bool operator==(const RoutineKey&) const = default;
};

/// A line of the file: a key, or a form.
struct FormEntry {
    std::optional<RoutineKey> key;
    StatementForm form;
};

FormClass classOf(const std::vector<const MessageRow*>& messages) {
    if (messages.empty()) {
        return FormClass::converted;
    }
    return messages.front()->messageClass == "placeholder" ? FormClass::placeholders
                                                           : FormClass::advised;
}

const MessageRow* messageRow(std::string_view symbol) {
    const MessageRow* row = findMessageRow(symbol);
    if (row == nullptr) {
        throw std::runtime_error("no message is called " + std::string(symbol));
    }
    return row;
}

StatementForm convertedForm(std::string brannic, std::string torvel,
                            std::initializer_list<std::string_view> messages = {}) {
    StatementForm form{std::move(brannic), std::move(torvel), {}, FormClass::converted};
    for (const std::string_view symbol : messages) {
        form.messages.push_back(messageRow(symbol));
    }
    form.formClass = classOf(form.messages);
    return form;
}

StatementForm refusedForm(std::string brannic, std::string_view message) {
    return {std::move(brannic), {}, {messageRow(message)}, FormClass::refused};
}

const std::vector<FormEntry>& formEntries() {
    static const std::vector<FormEntry> entries = {
#define KEY(...) {RoutineKey{__VA_ARGS__}, {}},
#define ROUTINE(token) KEY(RoutineTable::statement, TokenType::token, {})
#define ROUTINE_WORD(token, word) KEY(RoutineTable::statement, TokenType::token, TokenType::word)
#define VALUE_ROUTINE(token) KEY(RoutineTable::value, TokenType::token, {})
#define FUNCTION_ROUTINE(token) KEY(RoutineTable::function, TokenType::token, {})
#define CONVERTED(brannic, torvel) {{}, convertedForm(brannic, torvel)},
#define ADVISED(brannic, torvel, message) {{}, convertedForm(brannic, torvel, {#message})},
#define ADVISED_TWICE(brannic, torvel, message, other) \
    {{}, convertedForm(brannic, torvel, {#message, #other})},
#define REFUSED(brannic, message) {{}, refusedForm(brannic, #message)},
#include "docs/statement-forms.def"
#undef KEY
    };
    return entries;
}

/// The forms of a routine. Keys that stand together share theirs, which the first of them gets.
std::vector<StatementForm> formsOf(const RoutineKey& key) {
    std::vector<StatementForm> forms;
    const auto& entries = formEntries();
    auto entry = std::find_if(entries.begin(), entries.end(),
                              [&](const FormEntry& each) { return each.key == key; });
    const bool isFirst = entry == entries.begin() || !(entry - 1)->key;
    if (entry == entries.end() || !isFirst) {
        return forms;
    }
    entry = std::find_if(entry, entries.end(), [](const FormEntry& each) { return !each.key; });
    for (; entry != entries.end() && !entry->key; ++entry) {
        forms.push_back(entry->form);
    }
    return forms;
}

// Forms of rows

/// The word that stands for a kind of token in a program.
std::string spellingOf(TokenType type) {
    static const std::map<TokenType, std::string> unspelled = {
        {TokenType::SETCLAMPI, "SETCLAMP"},           {TokenType::SCOPE, "PUBLIC"},
        {TokenType::SYSTEM_PARAMETER, "$PGLOB"},      {TokenType::AXIS_PARAMETER, "$PAXIS"},
        {TokenType::TASK_PARAMETER, "$PTASK"},        {TokenType::VARIABLE, "variable"},
        {TokenType::PROGRAM_VARIABLE_DEFINE, "FEED"}, {TokenType::GLOBAL_VARIABLE_DEFINE, "LEVEL"},
    };
    if (const auto found = unspelled.find(type); found != unspelled.end()) {
        return found->second;
    }
    const std::string_view name = tokenTypeName(type);
    return std::string(name.substr(0, name.find(' ')));
}

/// What an operand is called, and what fills the hole of the Torvel text.
struct Operand {
    std::string brannic;
    std::string torvel;
};

Operand operandOf(char letter, const std::string& number) {
    switch (letter) {
        case 'a': return {"axis" + number, "axis" + number};
        case 'A': return {"axes", "axes"};
        case 'L': return {"axis1 axis2", "[axis1, axis2]"};
        case 'V': return {"values", "values"};
        case 's': return {"string", "string"};
        case 'r': return {"variable", "variable"};
        case 't': return {"task", "task"};
        default: return {"value" + number, "value" + number};
    }
}

/// The Brannic words of a pattern of forms.h, behind `brannic`, and what they fill the holes of the
/// text with.
class PatternForm {
public:
    PatternForm(const std::string& leadPattern, const std::string& pattern) {
        for (const char letter : leadPattern + pattern) {
            values_ += letter == 'v' ? 1 : 0;
        }
    }
    void add(std::string_view word) {
        brannic_ += brannic_.empty() ? "" : " ";
        brannic_ += word;
    }
    void addPattern(std::string_view pattern) {
        for (const char letter : pattern) {
            if (letter == ',' || letter == ';') {
                add(letter == ',' ? "," : "[,]");
                continue;
            }
            const bool isNumbered = letter == 'v' && values_ > 1;
            const Operand operand =
                operandOf(letter, isNumbered ? std::to_string(++numbered_) : std::string());
            add(operand.brannic);
            fillings_.push_back(operand.torvel);
        }
    }
    std::string brannic() const { return brannic_; }
    std::string torvel(std::string_view text) const {
        std::string filled;
        std::size_t next = 0;
        for (std::size_t hole = text.find("{}"); hole != std::string_view::npos;
             hole = text.find("{}")) {
            filled += text.substr(0, hole);
            filled += next < fillings_.size() ? fillings_[next++] : "?";
            text.remove_prefix(hole + 2);
        }
        return filled + std::string(text);
    }

private:
    std::string brannic_;
    std::vector<std::string> fillings_;
    int values_ = 0;
    int numbered_ = 0;
};

/// A row of the statement tables, with the file that it stands in.
struct StatementRow {
    enum class Kind : std::uint8_t { routine, form, refused, byWord, behindWord };

    Kind kind = Kind::routine;
    std::string_view file;
    TokenType token = TokenType::INVALID;
    std::optional<TokenType> word;
    std::string pattern;
    std::string text;
    std::string_view message;
    bool hasRoutine = false;
};

const std::vector<StatementRow>& statementRows() {
    using Kind = StatementRow::Kind;
    using Type = TokenType;
    static const std::vector<StatementRow> rows = {
#define STATEMENT(token, convert) {Kind::routine, __FILE__, Type::token, {}, "", "", "", true},
#define UNCHECKED(token, convert) {Kind::routine, __FILE__, Type::token, {}, "", "", "", true},
#define FORM(token, pattern, text) \
    {Kind::form, __FILE__, Type::token, {}, pattern, text, "", false},
#define FORM_ADVISED(token, pattern, text, message) \
    {Kind::form, __FILE__, Type::token, {}, pattern, text, #message, false},
#define REFUSED(token, message) {Kind::refused, __FILE__, Type::token, {}, "", "", #message, false},
#define BY_WORD(token, pattern) {Kind::byWord, __FILE__, Type::token, {}, pattern, "", "", false},
#define WORD(token, word, pattern, text) \
    {Kind::behindWord, __FILE__, Type::token, Type::word, pattern, text, "", false},
#define WORD_ADVISED(token, word, pattern, text, message) \
    {Kind::behindWord, __FILE__, Type::token, Type::word, pattern, text, #message, false},
#define WORD_ROUTINE(token, word, convert) \
    {Kind::behindWord, __FILE__, Type::token, Type::word, "", "", "", true},
#define WORD_REFUSED(token, word, message) \
    {Kind::behindWord, __FILE__, Type::token, Type::word, "", "", #message, false},
#include "src/stmt/statements.def"
    };
    return rows;
}

/// The operand in front of the words of a keyword.
std::string leadPatternOf(TokenType keyword) {
    for (const StatementRow& row : statementRows()) {
        if (row.kind == StatementRow::Kind::byWord && row.token == keyword) {
            return row.pattern;
        }
    }
    return {};
}

StatementForm rowForm(const StatementRow& row, const std::string& leadPattern) {
    PatternForm form(leadPattern, row.pattern);
    form.add(spellingOf(row.token));
    form.addPattern(leadPattern);
    if (row.word) {
        form.add(spellingOf(*row.word));
    }
    form.addPattern(row.pattern);
    if (row.text.empty()) {
        return refusedForm(form.brannic(), row.message);
    }
    return row.message.empty()
               ? convertedForm(form.brannic(), form.torvel(row.text))
               : convertedForm(form.brannic(), form.torvel(row.text), {row.message});
}

/// The task that a word may have in front of it is the running one where it is left out.
void appendWordForms(std::vector<StatementForm>& forms, const StatementRow& row) {
    std::string lead = leadPatternOf(row.token);
    if (lead == "t") {
        StatementRow own = row;
        own.text = replaceAll(row.text, "{}", "TaskGetIndex()");
        forms.push_back(rowForm(own, ""));
    }
    forms.push_back(rowForm(row, lead));
}

void appendRowForms(std::vector<StatementForm>& forms, const StatementRow& row) {
    if (row.hasRoutine) {
        for (StatementForm& form : formsOf({RoutineTable::statement, row.token, row.word})) {
            forms.push_back(std::move(form));
        }
    } else if (row.kind == StatementRow::Kind::behindWord) {
        appendWordForms(forms, row);
    } else if (row.kind != StatementRow::Kind::byWord) {
        forms.push_back(rowForm(row, ""));
    }
}

/// The heading of the rows of a file.
std::string titleOf(std::string_view file) {
    static const std::map<std::string, std::string> titles = {
        {"statements", "Assignments, declarations and flow control"},
        {"data-collection", "Data collection"},
        {"drive", "Axes, drives and their inputs and outputs"},
        {"galvo", "Scan heads and IFOV"},
        {"gcode", "G-code lines"},
        {"motion", "Motion"},
        {"ramps", "Ramps, units and modes"},
        {"tasks", "Tasks, faults, programs, compensation and zones"},
        {"unsupported", "Statements without a counterpart"},
    };
    return titles.at(std::filesystem::path(file).stem().string());
}

void appendStatementSections(std::vector<FormSection>& sections) {
    for (const StatementRow& row : statementRows()) {
        const std::string title = titleOf(row.file);
        auto section = std::find_if(sections.begin(), sections.end(),
                                    [&](const FormSection& each) { return each.title == title; });
        if (section == sections.end()) {
            section = sections.insert(section, {title, "statements", {}});
        }
        appendRowForms(section->forms, row);
    }
}

// Values, callbacks, functions, variables

FormSection valueSection() {
    FormSection section{"Values behind an assignment", "values", {}};
    for (const FormEntry& entry : formEntries()) {
        if (entry.key && entry.key->table == RoutineTable::value) {
            for (StatementForm& form : formsOf(*entry.key)) {
                section.forms.push_back(std::move(form));
            }
        }
    }
#define VALUE(token, message) \
    section.forms.push_back(refusedForm("variable = " + spellingOf(TokenType::token), #message));
#include "src/stmt/values.def"
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

StatementForm functionForm(TokenType keyword, std::string_view call, std::string_view arguments) {
    PatternForm form("", std::string(arguments.size(), 'v'));
    std::string brannic = "variable = " + spellingOf(keyword) + " (";
    std::string torvel = "variable = " + std::string(call);
    int number = 0;
    for (const char kind : arguments) {
        const std::string suffix = arguments == "nn" ? std::to_string(++number) : "";
        const std::string operand = kind == 's' ? "string" : "value" + suffix;
        const bool isFirst = torvel.ends_with('(');
        brannic += (isFirst ? " " : " , ") + operand;
        torvel += (isFirst ? "" : ", ") + operand;
    }
    return convertedForm(brannic + " )", torvel + ")");
}

FormSection functionSection() {
    FormSection section{"Functions", "functions", {}};
#define FUNCTION(keyword, call, arguments) \
    section.forms.push_back(functionForm(TokenType::keyword, call, arguments));
#define SPECIAL(keyword, translate)                                                          \
    for (StatementForm & form : formsOf({RoutineTable::function, TokenType::keyword, {}})) { \
        section.forms.push_back(std::move(form));                                            \
    }
#define REFUSED(keyword, message) \
    section.forms.push_back(refusedForm("variable = " + spellingOf(TokenType::keyword), #message));
#include "src/expr/functions.def"
    return section;
}

/// The index behind a variable, in Brannic and as an argument or subscript of the Torvel text.
Operand indexOf(std::string_view index, std::string_view items) {
    static const std::map<std::string_view, Operand> known = {
        {"axisParameter", {"[2]", "AxisParameter.CountsPerUnit"}},
        {"taskParameter", {"[16]", "TaskParameter.DefaultCoordinatedSpeed"}},
        {"systemParameter", {"[0]", "SystemParameter.DataCollectionPoints"}},
        {"axisStatus", {"[0]", "AxisStatusItem.PositionFeedback"}},
        {"taskStatus", {"[17]", "TaskStatusItem.ProgramLineNumber"}},
        {"systemStatus", {"[148]", "SystemStatusItem.LibraryCommand"}},
    };
    if (const auto found = known.find(items); found != known.end()) {
        return found->second;
    }
    return index == "ignored" ? Operand() : Operand{"[index]", "index"};
}

/// What follows "." behind the index, and the argument in front of the index.
Operand selectorOf(std::string_view selector) {
    if (selector == "axis") {
        return {".axis", "axis, "};
    }
    return selector == "task" ? Operand{"", "TaskGetIndex(), "} : Operand();
}

struct VariableForms {
    std::string brannic;
    std::string arguments;

    VariableForms(TokenType kind, std::string_view index, std::string_view selector,
                  std::string_view items) {
        const Operand number = indexOf(index, items);
        const Operand place = selectorOf(selector);
        brannic = spellingOf(kind) + number.brannic + place.brannic;
        arguments = place.torvel + number.torvel;
    }
};

FormSection variableSection() {
    FormSection section{"Variables, inputs and outputs, parameters, status", "variables", {}};
    const auto add = [&section](StatementForm form) { section.forms.push_back(std::move(form)); };
    const auto addRead = [&](const VariableForms& forms, const std::string& get) {
        add(convertedForm("variable = " + forms.brannic,
                          "variable = " + get + forms.arguments + ")"));
    };
    const auto addPlain = [&](TokenType kind, const std::string& name) {
        const VariableForms forms(kind, "required", "none", "none");
        const std::string torvel = (name.empty() ? spellingOf(kind) : name) + "[index]";
        add(convertedForm("variable1 = " + replaceAll(forms.brannic, "variable", "variable2"),
                          "variable1 = " + replaceAll(torvel, "variable", "variable2")));
        add(convertedForm(forms.brannic + " = value", torvel + " = value"));
    };
#define PLAIN(kind, name, index) addPlain(TokenType::kind, name);
#define CALL(kind, get, set, index, selector, items)                                        \
    {                                                                                       \
        const VariableForms forms(TokenType::kind, #index, #selector, #items);              \
        addRead(forms, get);                                                                \
        add(convertedForm(forms.brannic + " = value", set + forms.arguments + ", value)")); \
    }
#define READ_ONLY(kind, get, index, selector, items, message)                  \
    {                                                                          \
        const VariableForms forms(TokenType::kind, #index, #selector, #items); \
        addRead(forms, get);                                                   \
        add(refusedForm(forms.brannic + " = value", #message));                \
    }
#define REFUSED(kind, message) \
    add(refusedForm("variable = " + spellingOf(TokenType::kind) + "[index]", #message));
#include "src/expr/variables.def"
    add(convertedForm(
        "variable = $PTASK[16].1",
        "variable = ParameterGetTaskValue(1, TaskParameter.DefaultCoordinatedSpeed)"));
    return section;
}

// The page

constexpr std::string_view pageHead = R"(# Statements

Every form of a Brannic statement and what it becomes. This page is made from the tables that the
converter uses: after a change of these run `script/statement-page`.

A form is *converted*; converted *with advisory*, a message telling what to look at; written with
*placeholders*, comments in the places of arguments that are to be filled in by hand, and a message; or
*refused*: the line stands behind `#error_unconvertible`, and the message says why.
[Messages](messages.md) tells what to do about each message.

)";

constexpr std::string_view notation = R"(
Lower-case words are operands: `axis` is an axis (its name, a define of it, or `@` with its number), `axes`
several of them with blanks between them, `value` a calculation, `values` several with commas between them,
`condition` a calculation too, `task` the number of a task, `variable` a variable, `string` a string, `name`
the name of a label or subroutine. `[,]` is a comma and `[THEN]` a word that may be left out; other brackets
stand as they are. A form with several axes or values in turn goes on likewise. `FEED`, `LEVEL`, `TITLE` and
`HEAD` stand for defines of a variable, of `$GLOBAL[3]`, of `$STRGLOB[1]` and of the axis X.

In front of a statement there may be a block delete (`/`, `/2`), which is dropped with a message, and a label
(`name:`, `:name`) or an N-code (`N100`), which are kept.

Where an axis and its value in a line of G-code would be read as another axis together, the value stands in
parentheses: with the axes X and X1, `X=10` is written `X(10)`.
)";

std::string_view className(FormClass formClass) {
    switch (formClass) {
        case FormClass::converted: return "converted";
        case FormClass::advised: return "with advisory";
        case FormClass::placeholders: return "placeholders";
        default: return "refused";
    }
}

constexpr FormClass formClasses[] = {FormClass::converted, FormClass::advised,
                                     FormClass::placeholders, FormClass::refused};

/// Text in a cell of a table: a bar would end the cell.
std::string cell(std::string_view text) {
    return replaceAll(text, "|", "\\|");
}

std::string code(std::string_view text) {
    return '`' + cell(replaceAll(text, "\n", "`<br>`")) + '`';
}

void appendForm(std::string& page, const StatementForm& form) {
    std::string result = form.torvel.empty() ? "" : code(form.torvel);
    for (const MessageRow* message : form.messages) {
        result += result.empty() ? "" : "<br>";
        result += cell(replaceAll(message->text, "{}", "…"));
    }
    page += "| " + code(form.brannic) + " | " + result + " | " +
            std::string(className(form.formClass)) + " |\n";
}

std::size_t countForms(const std::vector<FormSection>& sections, std::string_view kind,
                       FormClass formClass) {
    std::size_t count = 0;
    for (const FormSection& section : sections) {
        count += section.kind != kind
                     ? 0
                     : static_cast<std::size_t>(std::count_if(
                           section.forms.begin(), section.forms.end(),
                           [=](const StatementForm& form) { return form.formClass == formClass; }));
    }
    return count;
}

void appendCounts(std::string& page, const std::vector<FormSection>& sections) {
    page += "| Forms of | converted | with advisory | placeholders | refused |\n";
    page += "|---|---|---|---|---|\n";
    for (const std::string_view kind : {"statements", "values", "functions", "variables"}) {
        page += "| " + std::string(kind);
        for (const FormClass formClass : formClasses) {
            page += " | " + std::to_string(countForms(sections, kind, formClass));
        }
        page += " |\n";
    }
}

void appendSpellings(std::string& page) {
    page +=
        "\n## Further spellings\n\nThese words stand for a keyword or an operator; capitals do not "
        "matter.\n\n| Keyword or operator | Spelled |\n|---|---|\n";
    std::vector<std::pair<TokenType, std::string>> spellings;
    const auto add = [&spellings](std::string_view spelling, TokenType type) {
        if (spellings.empty() || spellings.back().first != type) {
            spellings.emplace_back(type, "");
        }
        spellings.back().second += spellings.back().second.empty() ? "" : ", ";
        spellings.back().second += code(spelling);
    };
#define SPELLING(spelling, kind) add(spelling, TokenType::kind);
#include "src/lex/keyword-spellings.def"
    for (const auto& [type, words] : spellings) {
        const std::string_view name = tokenTypeName(type);
        page += "| " + cell(name) + " | " + words + " |\n";
    }
}

// What must fit

/// The routines of the tables: their keys, and what they are called.
std::vector<RoutineKey> routineKeys() {
    std::vector<RoutineKey> keys;
    for (const StatementRow& row : statementRows()) {
        if (row.hasRoutine) {
            keys.push_back({RoutineTable::statement, row.token, row.word});
        }
    }
#define FUNCTION(keyword, call, arguments)
#define SPECIAL(keyword, translate) \
    keys.push_back({RoutineTable::function, TokenType::keyword, {}});
#define REFUSED(keyword, message)
#include "src/expr/functions.def"
    // values.cpp
    for (const TokenType token :
         {TokenType::DBLTOSTR, TokenType::STRMID, TokenType::STRUPR, TokenType::STRLWR,
          TokenType::CALLBACK, TokenType::FILESIZE, TokenType::DSPMEM, TokenType::FLASHPARAM}) {
        keys.push_back({RoutineTable::value, token, {}});
    }
    return keys;
}

std::string nameOf(const RoutineKey& key) {
    return spellingOf(key.token) + (key.word ? " " + spellingOf(*key.word) : "");
}

}  // namespace

std::vector<FormSection> statementFormSections() {
    std::vector<FormSection> sections;
    appendStatementSections(sections);
    sections.push_back(valueSection());
    sections.push_back(callbackSection());
    sections.push_back(functionSection());
    sections.push_back(variableSection());
    return sections;
}

std::string formFaults() {
    std::string faults;
    const std::vector<RoutineKey> keys = routineKeys();
    std::vector<RoutineKey> met;
    for (const FormEntry& entry : formEntries()) {
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

std::string statementPage() {
    const std::vector<FormSection> sections = statementFormSections();
    std::string page(pageHead);
    appendCounts(page, sections);
    page += notation;
    for (const FormSection& section : sections) {
        page += "\n## " + section.title +
                "\n\n| Brannic | Torvel, or the message | Class |\n|---|---|---|\n";
        for (const StatementForm& form : section.forms) {
            appendForm(page, form);
        }
    }
    appendSpellings(page);
    return page;
}

}  // namespace torvel::test
