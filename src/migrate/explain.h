#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace torvel::migrate {

/// What `explain CODE` shows: the message or check with its cause, remedy and example. None: there is no such code.
std::optional<std::string> explainedCode(std::string_view code, std::size_t width);

/// Codes that are spelled much like `code`, and those whose message has it as its text; the best one first, five at
/// most.
std::vector<std::string> similarCodes(std::string_view code);

/// What is said of a code that does not exist: one or two sentences, with similar ones.
std::string unknownCodeMessage(std::string_view code);

/// What `explain --list` shows: all codes with what they stand for, a line each, by sections.
std::string listOfCodes(std::size_t width);

}  // namespace torvel::migrate
