#include "src/lex/file-system.h"

#include <algorithm>

namespace torvel {

std::string displayPath(const NativePath& path, const NativePath& directory) {
    const NativePath relative = path.lexically_relative(directory);
    NativePath::string_type text = relative.empty() ? path.native() : relative.native();
    std::replace(text.begin(), text.end(), NativePath::value_type{'\\'},
                 NativePath::value_type{'/'});
    return narrowPath(text);
}

std::string_view lastComponent(std::string_view path) {
    path = withoutDrive(path);
    std::size_t begin = 0;
    for (std::size_t i = 0; i < path.size(); i += characterLength(path[i])) {
        if (path[i] == '\\' || path[i] == '/') {
            begin = i + 1;
        }
    }
    return path.substr(begin);
}

std::string_view fileStem(std::string_view name) {
    const auto stream = std::find(name.begin(), name.end(), ':');
    name = name.substr(0, static_cast<std::size_t>(stream - name.begin()));
    const std::size_t dot = name.rfind('.');
    if (name == ".." || dot == std::string_view::npos || dot == 0) {
        return name;
    }
    return name.substr(0, dot);
}

}  // namespace torvel
