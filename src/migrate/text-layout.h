#pragma once

#include <cstdint>
#include <string>
#include <string_view>

// Text for a terminal.

namespace torvel::migrate {

/// 1234567 as "1,234,567".
std::string grouped(std::uint64_t number);

/// "1 program", "2,000 programs".
std::string counted(std::uint64_t number, std::string_view one, std::string_view many);

/// "and 12 more".
std::string andMore(std::uint64_t number);

/// The words of `text` in lines of at most `width` characters; a longer word has a line of its own. The first line
/// begins with `first`, the others with `others`. Each ends in a line feed.
std::string wrapped(std::string_view text, std::size_t width, std::string_view first = {},
                    std::string_view others = {});

/// A path with at most `width` characters: what is cut out of its middle leaves an ellipsis, and its end stays.
std::string shortenedPath(std::string_view path, std::size_t width);

/// `text` with blanks up to `width` characters, behind it or in front of it.
std::string leftAligned(std::string_view text, std::size_t width);
std::string rightAligned(std::string_view text, std::size_t width);

}  // namespace torvel::migrate
