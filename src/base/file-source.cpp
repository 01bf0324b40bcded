#include "src/base/file-source.h"

namespace torvel {

namespace {

FileReading readFile(const NativePath& path, const MakeRoom& makeRoom) {
    FileReading reading;
    InputFile input;
    reading.isOpened = input.open(path);
    if (reading.isOpened) {
        const std::uint64_t size = input.size();
        char* const room = makeRoom(size);
        reading.length = input.read(room, static_cast<std::size_t>(size), reading.hasFailed);
        reading.identity = input.identity();
    }
    return reading;
}

}  // namespace

FileSource fileSystemSource() {
    return {includedPath, findFile, readFile};
}

}  // namespace torvel
