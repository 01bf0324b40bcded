#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/coverage/statement-form.h"

namespace torvel::test {

/// Forms that belong together, with their heading on the page.
struct FormSection {
    std::string title;
    /// The row of the page's table of counts.
    std::string_view kind;
    std::vector<StatementForm> forms;
};

/// Every form, from the tables that the converter uses and docs/statement-forms.def.
std::vector<FormSection> formSections();

}  // namespace torvel::test
