#include "src/app/xml-attributes.h"

#include <algorithm>

namespace torvel {

namespace {

/// What begins with "<" and is no element: its end. The longer beginnings come first.
struct Enclosed {
    std::string_view begin;
    std::string_view end;
};
constexpr Enclosed enclosed[] = {{"<!--", "-->"}, {"<![CDATA[", "]]>"}, {"<?", "?>"}, {"<!", ">"}};

/// Takes the tag off the front of `rest`; returns its number of "=" outside quotes.
std::size_t takeTag(std::string_view& rest) {
    std::size_t count = 0;
    std::size_t at = 1;
    for (; at < rest.size() && rest[at] != '>'; ++at) {
        if (rest[at] == '"' || rest[at] == '\'') {
            at = std::min(rest.find(rest[at], at + 1), rest.size() - 1);
        } else if (rest[at] == '=') {
            ++count;
        }
    }
    rest.remove_prefix(at);
    return count;
}

}  // namespace

std::size_t mostAttributes(std::string_view text) {
    std::size_t most = 0;
    while (true) {
        text.remove_prefix(std::min(text.find('<'), text.size()));
        if (text.empty()) {
            return most;
        }
        const auto* const found =
            std::find_if(std::begin(enclosed), std::end(enclosed),
                         [&](const Enclosed& each) { return text.starts_with(each.begin); });
        if (found != std::end(enclosed)) {
            const std::size_t end = text.find(found->end, found->begin.size());
            text.remove_prefix(std::min(end, text.size()));
        } else {
            most = std::max(most, takeTag(text));
        }
    }
}

}  // namespace torvel
