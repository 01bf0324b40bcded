#include "src/preprocess/source-files.h"

#include <cstring>

#include "src/lex/messages.h"
#include "src/lex/parse-exception.h"

namespace torvel {

namespace {

[[noreturn]] void fail(Message message, const NativePath& path,
                       const SourcePosition& includedFrom) {
    throw ParseException(messageText(message, {narrowPath(path)}), includedFrom);
}

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
/// What old editors end a file with.
constexpr char endMark = '\x1A';

/// How long a file's content is without the end marks behind it.
std::size_t lengthWithoutEndMarks(std::string_view content) {
    return content.find_last_not_of(endMark) + 1;
}

}  // namespace

const SourceFile& SourceFiles::load(std::string_view path, const SourcePosition& includedFrom) {
    const NativePath written =
        includedFrom.inclusion == nullptr
            ? nativePath(path)
            : includedPath(includedFrom.inclusion->file->path.parent_path(), path);
    const auto known = byPath_.find(written.native());
    if (known != byPath_.end()) {
        return *known->second;
    }
    const NativePath canonical = canonicalPath(written);
    const SourceFile*& file = byCanonicalPath_[canonical.native()];
    if (file == nullptr) {
        if (includedFrom.inclusion == nullptr) {
            programDirectory_ = canonical.parent_path();
        }
        file = &read(canonical, includedFrom);
    }
    byPath_[written.native()] = file;
    return *file;
}

const SourceFile& SourceFiles::read(const NativePath& path, const SourcePosition& includedFrom) {
    switch (fileKind(path)) {
        case FileKind::missing: fail(Message::FileMissing, path, includedFrom);
        case FileKind::directory:
        case FileKind::other: fail(Message::FileNotRegular, path, includedFrom);
        case FileKind::regular: break;
    }
    InputFile input;
    if (!input.open(path)) {
        fail(Message::FileNotOpened, path, includedFrom);
    }
    const std::uint64_t size = input.size();
    if (size > limits_.programText) {
        throw ParseException(messageText(Message::ProgramTooLarge), includedFrom);
    }
    TextSpan text = program_.text.allocate(static_cast<std::size_t>(size));
    bool failed = false;
    char* const content = program_.text.data(text);
    const std::size_t bytes = input.read(content, text.length, failed);
    if (failed) {
        fail(Message::FileNotOpened, path, includedFrom);
    }
    const std::size_t length = lengthWithoutEndMarks({content, bytes});
    // The splitter ends at the first NUL: the one behind the text, or one of the file's own.
    content[length] = '\0';
    const std::size_t textEnd = std::strlen(content);
    const std::size_t textStart =
        std::string_view(content, textEnd).starts_with(byteOrderMark) ? byteOrderMark.size() : 0;
    text = text.part(textStart, textEnd - textStart);

    const std::string shown = displayPath(path, programDirectory_);
    program_.files.push_back(
        {path, shown, std::string(lastComponent(shown)), input.identity(), text, textEnd < length});
    return program_.files.back();
}

}  // namespace torvel
