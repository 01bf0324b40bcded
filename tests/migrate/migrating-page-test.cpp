// The commands of docs/migrating.md, run one after the other in a copy of the plant: what they say is what the page
// shows. "..." stands for the rest of a line, a line "..." for any lines.

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <filesystem>

#include "tests/support/temporary-directory.h"

namespace torvel::migrate::test {

namespace {

namespace fs = std::filesystem;

struct Step {
    std::string command;
    std::vector<std::string> shown;
};

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t begin = 0;
    for (std::size_t end = text.find('\n'); end != std::string::npos;
         end = text.find('\n', begin)) {
        lines.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    return lines;
}

std::vector<Step> stepsOf(const std::string& page) {
    std::vector<Step> steps;
    bool isConsole = false;
    for (const std::string& line : linesOf(page)) {
        if (line.starts_with("```")) {
            isConsole = line == "```console";
        } else if (isConsole && line.starts_with("$ ")) {
            steps.push_back({line.substr(2), {}});
        } else if (isConsole) {
            steps.back().shown.push_back(line);
        }
    }
    return steps;
}

/// Whether a line is what the page shows, with any text in the place of "...".
bool isShown(const std::string& line, const std::string& shown) {
    const std::size_t gap = shown.find("...");
    if (gap == std::string::npos) {
        return line == shown;
    }
    const std::string end = shown.substr(gap + 3);
    return line.size() >= gap + end.size() && line.starts_with(shown.substr(0, gap)) &&
           line.ends_with(end);
}

bool areShown(const std::vector<std::string>& lines, const std::vector<std::string>& shown) {
    std::size_t at = 0;
    for (const std::string& line : shown) {
        if (line == "...") {
            return true;  // what is behind it is not shown
        }
        if (at == lines.size() || !isShown(lines[at], line)) {
            return false;
        }
        ++at;
    }
    return at == lines.size();
}

std::string run(const std::string& command, const fs::path& folder) {
    const fs::path program = TORVEL_MIGRATE;
    const std::string whole = "cd '" + folder.string() + "' && PATH='" +
                              program.parent_path().string() + "':\"$PATH\" && { " + command +
                              "\n} 2>&1";
    std::string output;
    std::FILE* const pipe = popen(whole.c_str(), "r");
    if (pipe == nullptr) {
        throw std::runtime_error("no shell");
    }
    for (int c = std::fgetc(pipe); c != EOF; c = std::fgetc(pipe)) {
        output += static_cast<char>(c);
    }
    EXPECT_EQ(WEXITSTATUS(pclose(pipe)), 0) << command;
    return output;
}

}  // namespace

TEST(MigratingPage, CommandsDoWhatItShows) {
    const torvel::test::TemporaryDirectory directory;
    const fs::path plant = directory.path() / "plant";
    const fs::path root = TORVEL_SOURCE_DIR;
    fs::copy(root / "examples/plant", plant, fs::copy_options::recursive);
    fs::remove_all(plant / "converted");
    const std::vector<Step> steps = stepsOf(torvel::test::readFile(root / "docs/migrating.md"));
    ASSERT_GE(steps.size(), 9U);
    for (Step step : steps) {
        if (const std::size_t look = step.command.find("/tmp/first-look");
            look != std::string::npos) {
            step.command.replace(look, std::string("/tmp/first-look").size(),
                                 (directory.path() / "first-look").string());
        }
        const std::string output = run(step.command, plant);
        EXPECT_TRUE(areShown(linesOf(output), step.shown)) << step.command << '\n' << output;
    }
}

}  // namespace torvel::migrate::test
