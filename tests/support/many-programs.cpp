#include "tests/support/many-programs.h"

#include <algorithm>
#include <stdexcept>

#include "tests/support/temporary-directory.h"

namespace torvel::test {

namespace fs = std::filesystem;

std::string loopOfPage(std::string_view language) {
    const std::string page = readFile(fs::path(TORVEL_SOURCE_DIR) / "docs/many-programs.md");
    const std::string fence = "\n```" + std::string(language) + "\n";
    const std::size_t first = page.find(fence);
    const std::size_t last = page.find("\n```\n", first + fence.size());
    if (first == std::string::npos || last == std::string::npos) {
        throw std::runtime_error("no loop for " + std::string(language));
    }
    return page.substr(first + fence.size(), last + 1 - first - fence.size());
}

void writeShelf(const fs::path& root) {
    const fs::path programs = root / "programs";
    writeFile(programs / "mill one/main.pgm", "#include \"inc\\tool.pgm\"\nHOME X\n");
    writeFile(programs / "mill one/inc/tool.pgm", "#include \"speeds.inc\"\nHOME Y\n");
    writeFile(programs / "mill one/inc/speeds.inc", "\t#include  \"feeds.pgm\" ; of all tools\n");
    writeFile(programs / "mill one/inc/feeds.pgm", "F10");
    writeFile(programs / "laser/main.pgm", "HOME STAGE\n");
    writeFile(programs / "laser/broken.pgm", "#include \"nowhere.inc\"\n");
    writeFile(programs / "ool.pgm", "HOME U\n");
    std::string axes;
    for (const char* const name : {"X", "Y", "U", "STAGE"}) {
        axes += "<Axis><P n=\"AxisName\">" + std::string(name) + "</P></Axis>";
    }
    writeFile(root / "machine.xml",
              "<Machine><Parameters><Axes>" + axes + "</Axes></Parameters></Machine>\n");
}

std::vector<std::string> filesBelow(const fs::path& folder) {
    std::vector<std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file()) {
            files.push_back(entry.path().lexically_relative(folder).generic_string());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::vector<std::string> resultsOfShelf() {
    return {"laser/main.log",       "laser/main.torvel", "mill one/main.log",
            "mill one/main.torvel", "ool.log",           "ool.torvel"};
}

}  // namespace torvel::test
