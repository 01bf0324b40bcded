#pragma once

#include <map>
#include <string>
#include <string_view>

#include "src/base/checks.h"

// What the pages of the documentation say of messages and checks: the program has them inside, so that there is one
// text.

namespace torvel::migrate {

/// The entry of a page.
struct Explanation {
    /// The message as it is printed, holes as "…", or the check's title.
    std::string title;
    /// Cause, remedy and example in Markdown, links and comments left out.
    std::string body;
    /// The heading of its section and the first paragraph behind it.
    std::string section;
    std::string sectionText;
};

/// By code.
using Explanations = std::map<std::string, Explanation, std::less<>>;

/// The entries of all pages. They are read when first asked for.
const Explanations& explanations();

/// The entries of a page.
Explanations explanationsOf(std::string_view page);

/// Markdown as plain text of this width: paragraphs are wrapped, examples are indented under what they are.
std::string plainMarkdown(std::string_view markdown, std::size_t width);

}  // namespace torvel::migrate
