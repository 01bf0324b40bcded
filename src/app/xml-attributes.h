#pragma once

#include <cstddef>
#include <string_view>

namespace torvel {

/// The number of attributes of the XML element that has the most of them, or more where `text` is not
/// well-formed. Takes time in proportion to the text.
std::size_t mostAttributes(std::string_view text);

}  // namespace torvel
