#include "src/migrate/file-hashes.h"

namespace torvel::migrate {

namespace {

/// More than a program may have; such a file is told of when it is converted.
constexpr std::uint64_t longestFile = std::uint64_t{1} << 33U;

struct TooLong {};

}  // namespace

std::optional<ContentHash> hashOfFile(const NativePath& path, const FileSource& source) {
    std::string bytes;
    FileReading reading;
    try {
        reading = source.read(path, [&](std::uint64_t size) {
            if (size > longestFile) {
                throw TooLong();
            }
            bytes.resize(static_cast<std::size_t>(size));
            return bytes.data();
        });
    } catch (const TooLong&) {
        return std::nullopt;
    }
    if (!reading.isOpened || reading.hasFailed) {
        return std::nullopt;
    }
    return hashOf(std::string_view(bytes).substr(0, reading.length));
}

}  // namespace torvel::migrate
