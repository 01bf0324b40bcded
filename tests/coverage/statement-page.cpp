#include "tests/coverage/statement-page.h"

#include <algorithm>

#include "src/base/token-type.h"
#include "tests/coverage/form-sections.h"
#include "tests/support/escapes.h"

namespace torvel::test {

namespace {

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

}  // namespace

std::string statementPage() {
    const std::vector<FormSection> sections = formSections();
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
