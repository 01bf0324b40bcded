#include "tests/coverage/row-text.h"

namespace torvel::test {

RowText::RowText(std::string_view text) : rest(text) {
    for (std::size_t at = rest.find('{'); at != std::string_view::npos; at = rest.find('{')) {
        const std::size_t end = rest.find('}', at);
        const bool isNumbered = end == at + 2;
        holes.push_back({rest.substr(0, at),
                         isNumbered ? static_cast<std::size_t>(rest[at + 1] - '1') : holes.size()});
        rest.remove_prefix(end + 1);
    }
}

std::string_view RowText::inFrontOf(std::size_t operand) const {
    for (const Hole& hole : holes) {
        if (hole.operand == operand) {
            return hole.before;
        }
    }
    return {};
}

std::string_view RowText::behind(std::size_t operand) const {
    for (std::size_t hole = 0; hole < holes.size(); ++hole) {
        if (holes[hole].operand == operand) {
            return hole + 1 < holes.size() ? holes[hole + 1].before : rest;
        }
    }
    return {};
}

}  // namespace torvel::test
