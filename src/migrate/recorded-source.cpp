#include "src/migrate/recorded-source.h"

#include <algorithm>

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
    return displayPath(path, folder);
}

FileSource recordedSource(const FileSource& source, const NativePath& folder,
                          std::vector<Input>& inputs) {
    FileSource recorded = source;
    recorded.kind = [&](const NativePath& path) {
        const FileKind kind = source.kind(path);
        if (kind == FileKind::missing) {
            note(inputs, {keyOf(path, folder), std::nullopt});
        }
        return kind;
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
