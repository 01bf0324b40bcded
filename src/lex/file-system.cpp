#include "src/lex/file-system.h"

#include <algorithm>

namespace torvel {

std::string displayPath(const NativePath& path, const NativePath& directory) {
    const NativePath relative = path.lexically_relative(directory);
    std::string text = narrowPath(relative.empty() ? path : relative);
    std::replace(text.begin(), text.end(), '\\', '/');
    return text;
}

std::string_view lastComponent(std::string_view path) {
    const std::size_t separator = path.find_last_of("\\/");
    return separator == std::string_view::npos ? path : path.substr(separator + 1);
}

std::string_view fileStem(std::string_view name) {
    name = withoutDrive(name);
    name = name.substr(0, name.find(':'));
    const std::size_t dot = name.rfind('.');
    if (name == ".." || dot == std::string_view::npos || dot == 0) {
        return name;
    }
    return name.substr(0, dot);
}

}  // namespace torvel
