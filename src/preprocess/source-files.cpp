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
    const std::size_t length = input.read(program_.text.data(text), text.length, failed);
    if (failed) {
        fail(Message::FileNotOpened, path, includedFrom);
    }
    // The splitter ends at the first NUL: the one behind the text, or one of the file's own.
    program_.text.data(text)[length] = '\0';
    text.length = static_cast<std::uint32_t>(std::strlen(program_.text.data(text)));

    const std::string shown = displayPath(path, programDirectory_);
    program_.files.push_back({path, shown, std::string(lastComponent(shown)), input.identity(),
                              text, text.length < length});
    return program_.files.back();
}

}  // namespace torvel
