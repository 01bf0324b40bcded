#include "src/migrate/file-hashes.h"

#include <atomic>
#include <future>

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
            bytes.resize(size);
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

void inParallel(std::size_t count, unsigned threads, const std::function<void(std::size_t)>& work) {
    std::atomic<std::size_t> next = 0;
    const auto workOff = [&] {
        for (std::size_t i = next++; i < count; i = next++) {
            work(i);
        }
    };
    std::vector<std::future<void>> others;
    for (unsigned i = 1; i < threads && i < count; ++i) {
        others.push_back(std::async(std::launch::async, workOff));
    }
    workOff();
    for (std::future<void>& other : others) {
        other.get();
    }
}

}  // namespace torvel::migrate
