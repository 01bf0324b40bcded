#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

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

/// A form that is converted, beside the messages with these symbols; an empty symbol is none.
StatementForm convertedForm(std::string brannic, std::string torvel,
                            std::initializer_list<std::string_view> messages = {});

StatementForm refusedForm(std::string brannic, std::string_view message);

/// A value's form as one of a statement: behind "variable = ".
StatementForm assignedForm(StatementForm form);

}  // namespace torvel::test
