#include "src/base/file-system.h"

#include <algorithm>

#include "src/base/file-descriptor.h"

namespace torvel {

std::string displayPath(const NativePath& path, const NativePath& directory) {
    const NativePath relative = relativePath(path, directory);
    NativePath::string_type text = relative.empty() ? path.native() : relative.native();
    std::replace(text.begin(), text.end(), NativePath::value_type{'\\'},
                 NativePath::value_type{'/'});
    return narrowPath(text);
}

NativePath withEnding(const NativePath& path, std::string_view ending) {
    NativePath longer = path;
    longer += ending;
    return longer;
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

std::size_t InputFile::read(char* data, std::size_t length, bool& failed) {
    std::size_t total = 0;
    while (total < length) {
        const std::ptrdiff_t count = readSome(descriptor_, data + total, length - total);
        failed = count < 0;
        if (count <= 0) {
            break;
        }
        total += static_cast<std::size_t>(count);
    }
    return total;
}

InputFile::~InputFile() {
    if (descriptor_ >= 0) {
        closeDescriptor(descriptor_);
    }
}

void OutputFile::flush() {
    std::string_view rest = buffer_;
    while (!rest.empty() && !failed_) {
        const std::ptrdiff_t count = writeSome(descriptor_, rest.data(), rest.size());
        failed_ = count <= 0;
        if (count > 0) {
            rest.remove_prefix(static_cast<std::size_t>(count));
        }
    }
    buffer_.clear();
}

bool OutputFile::close() {
    flush();
    if (failed_) {
        discard();
        return false;
    }
    failed_ = !closeDescriptor(descriptor_);
    descriptor_ = -1;
    return !failed_;
}

void OutputFile::discard() {
    if (descriptor_ >= 0) {
        emptyFile(descriptor_);
        closeDescriptor(descriptor_);
        descriptor_ = -1;
    }
}

OutputFile::~OutputFile() {
    discard();
}

}  // namespace torvel
