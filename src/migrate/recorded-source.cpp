#include "src/migrate/recorded-source.h"

#include <algorithm>

#include "src/base/characters.h"

namespace torvel::migrate {

namespace {

void note(std::vector<Input>& inputs, Input input) {
    const auto same = std::find_if(inputs.begin(), inputs.end(),
                                   [&](const Input& noted) { return noted.path == input.path; });
    if (same == inputs.end()) {
        inputs.push_back(std::move(input));
    } else {
        same->hash = input.hash;
    }
}

}  // namespace

std::string keyOf(const NativePath& path, const NativePath& folder) {
    const NativePath relative = relativePath(path, folder);
    return keyText(relative.empty() ? path : relative);
}

std::string keyText(const NativePath& path) {
    // A back slash in a name is a byte like others where only "/" separates: the key has to lead to the file.
    NativePath::string_type text = path.native();
    std::replace(text.begin(), text.end(), NativePath::preferred_separator,
                 NativePath::value_type{'/'});
    return narrowPath(text);
}

NativePath pathOf(std::string_view key, const NativePath& folder) {
    NativePath path = pathAt(folder, key);
    return key.starts_with("..") ? tidyPath(path) : path.make_preferred();
}

bool isAbsoluteKey(std::string_view key) {
    return key.starts_with('/') || withoutDrive(key).size() != key.size();
}

std::string foldedKey(std::string key) {
    std::transform(key.begin(), key.end(), key.begin(), lowerCase);
    return key;
}

FileSource recordedSource(const FileSource& source, const NativePath& folder,
                          std::vector<Input>& inputs) {
    FileSource recorded = source;
    recorded.includedPath = [&](const NativePath& directory, std::string_view text) {
        NativePath path = source.includedPath(directory, text);
        // Written with back slashes and taken with slashes: the file of the written name was not there.
        if (const NativePath written = directory / nativePath(text);
            written != path && text.find('\\') != std::string_view::npos) {
            note(inputs, {keyOf(source.find(written).path, folder), std::nullopt});
        }
        return path;
    };
    recorded.find = [&](const NativePath& path) {
        FoundFile found = source.find(path);
        if (found.kind == FileKind::missing) {
            note(inputs, {keyOf(found.path, folder), std::nullopt});
        }
        return found;
    };
    recorded.read = [&](const NativePath& path, const MakeRoom& makeRoom) {
        // Noted first: reading ends with an exception if the file is too long.
        Input input{keyOf(path, folder), std::nullopt};
        note(inputs, input);
        char* bytes = nullptr;
        const FileReading reading = source.read(path, [&](std::uint64_t size) {
            bytes = makeRoom(size);
            return bytes;
        });
        if (reading.isOpened && !reading.hasFailed) {
            input.hash = hashOf({bytes, reading.length});
        }
        note(inputs, std::move(input));
        return reading;
    };
    return recorded;
}

}  // namespace torvel::migrate
