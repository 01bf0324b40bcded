#include "tests/support/temporary-directory.h"

#include <fstream>
#include <random>
#include <sstream>
#include <stdexcept>

namespace torvel::test {

TemporaryDirectory::TemporaryDirectory() {
    const std::filesystem::path parent =
        std::filesystem::canonical(std::filesystem::temp_directory_path());
    std::random_device random;
    do {
        path_ = parent / ("torvel-test-" + std::to_string(random()));
    } while (!std::filesystem::create_directory(path_));
}

TemporaryDirectory::~TemporaryDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::filesystem::path pathOf(std::string_view text) {
    return std::u8string(text.begin(), text.end());
}

std::string readFile(const std::filesystem::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    if (!file || !(content << file.rdbuf(), file)) {
        throw std::runtime_error("cannot read " + path.string());
    }
    return std::move(content).str();
}

void writeFile(const std::filesystem::path& path, std::string_view content) {
    if (path.has_parent_path()) {
        std::filesystem::create_directories(path.parent_path());
    }
    std::ofstream file(path, std::ios::binary);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    if (!file.flush()) {
        throw std::runtime_error("cannot write " + path.string());
    }
}

}  // namespace torvel::test
