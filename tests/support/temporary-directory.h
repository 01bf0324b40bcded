#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace torvel::test {

/// A new empty folder that goes when its owner goes.
class TemporaryDirectory {
public:
    TemporaryDirectory();
    ~TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    /// The folder's canonical path.
    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
};

/// A path that stands in a case or a table, in UTF-8.
std::filesystem::path pathOf(std::string_view text);

/// The bytes of a file. Throws std::runtime_error if it cannot be read.
std::string readFile(const std::filesystem::path& path);

/// Makes or replaces a file, and the folders that lead to it.
void writeFile(const std::filesystem::path& path, std::string_view content);

}  // namespace torvel::test
