#include "src/preprocess/source-files.h"

#include <cstring>

#include "src/base/messages.h"
#include "src/base/parse-exception.h"

namespace torvel {

namespace {

[[noreturn]] void fail(Message message, const NativePath& path,
                       const SourcePosition& includedFrom) {
    failAt(includedFrom, message, {narrowPath(path)});
}

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
/// What old editors end a file with.
constexpr char endMark = '\x1A';

/// How long a file's content is without the end marks behind it.
std::size_t lengthWithoutEndMarks(std::string_view content) {
    return content.find_last_not_of(endMark) + 1;
}

}  // namespace

SourceFile& SourceFiles::load(std::string_view path, const SourcePosition& includedFrom) {
    const NativePath written =
        includedFrom.inclusion == nullptr
            ? nativePath(path)
            : source_.includedPath(includedFrom.inclusion->file->path.parent_path(), path);
    const auto known = byPath_.find(written.native());
    if (known != byPath_.end()) {
        return *known->second;
    }
    const FoundFile found = source_.find(written);
    SourceFile*& file = byCanonicalPath_[found.path.native()];
    if (file == nullptr) {
        if (includedFrom.inclusion == nullptr) {
            programDirectory_ = found.path.parent_path();
        }
        file = &read(found, includedFrom);
    }
    byPath_[written.native()] = file;
    return *file;
}

SourceFile& SourceFiles::read(const FoundFile& found, const SourcePosition& includedFrom) {
    const NativePath& path = found.path;
    switch (found.kind) {
        case FileKind::missing: fail(Message::FileMissing, path, includedFrom);
        case FileKind::directory:
        case FileKind::other: fail(Message::FileNotRegular, path, includedFrom);
        case FileKind::regular: break;
    }
    TextSpan text;
    const FileReading reading = source_.read(path, [&](std::uint64_t size) {
        if (size > limits_.programText) {
            failAt(includedFrom, Message::ProgramTooLarge);
        }
        text = program_.text.allocate(static_cast<std::size_t>(size));
        return program_.text.data(text);
    });
    if (!reading.isOpened || reading.hasFailed) {
        fail(Message::FileNotOpened, path, includedFrom);
    }
    char* const content = program_.text.data(text);
    const std::size_t length = lengthWithoutEndMarks({content, reading.length});
    // The splitter ends at the first NUL: the one behind the text, or one of the file's own.
    content[length] = '\0';
    const std::size_t textEnd = std::strlen(content);
    const std::size_t textStart =
        std::string_view(content, textEnd).starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    text = text.subspan(textStart, textEnd - textStart);

    const std::string shown = displayPath(path, programDirectory_);
    program_.files.push_back(
        {path, shown, std::string(lastComponent(shown)), reading.identity, text, textEnd < length});
    return program_.files.back();
}

}  // namespace torvel
