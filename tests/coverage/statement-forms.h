#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "src/lex/token-type.h"
#include "tests/support/message-rows.h"

namespace torvel::test {

/// What becomes of a statement. With a message of the class "placeholder" it is to be completed by hand;
/// with an advisory it is to be looked at.
enum class FormClass : std::uint8_t { converted, advised, placeholders, refused };

/// A form of a Brannic statement or value and what it becomes, in the notation of
/// docs/statement-forms.def.
struct StatementForm {
    std::string brannic;
    /// Lines joined by line feeds; empty for a refused form.
    std::string torvel;
    std::vector<const MessageRow*> messages;
    FormClass formClass = FormClass::converted;
};

/// Forms that belong together, with their heading on the page.
struct FormSection {
    std::string title;
    /// The row of the page's table of counts.
    std::string_view kind;
    std::vector<StatementForm> forms;
};

/// Every form, from the tables that the converter uses and docs/statement-forms.def.
std::vector<FormSection> statementFormSections();

/// What does not fit between the tables and docs/statement-forms.def: rows with a routine that have no
/// forms there, and forms of rows that are not there. One a line.
std::string formFaults();

/// docs/statements.md.
std::string statementPage();

}  // namespace torvel::test
