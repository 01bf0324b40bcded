#include "src/base/output-marks.h"

#include <algorithm>

namespace torvel {

bool isMarkerLine(std::string_view line) {
    return line.substr(std::min(line.find_first_not_of(" \t"), line.size()))
        .starts_with(unconvertibleMarker);
}

bool hasPlaceholder(std::string_view text) {
    constexpr std::string_view opening = "/* $";
    if (text.find(opening) == std::string_view::npos) {
        return false;
    }
    bool isInString = false;
    for (std::size_t at = 0; at < text.size(); ++at) {
        isInString = isInString != (text[at] == '"');
        if (isInString) {
            continue;
        }
        const std::string_view rest = text.substr(at);
        if (rest.starts_with(opening)) {
            return true;
        }
        if (rest.starts_with("//")) {
            at = std::min(text.find('\n', at), text.size() - 1);
        }
    }
    return false;
}

}  // namespace torvel
