#pragma once

#include <string>
#include <string_view>

namespace torvel::migrate {

/// An entry of a page of the documentation in the few forms of Markdown that the report page knows: paragraphs, lists,
/// `code`, **bold** and fenced blocks. Other emphasis becomes bold, a table becomes a list of its rows.
std::string helpOfPage(std::string_view markdown);

}  // namespace torvel::migrate
