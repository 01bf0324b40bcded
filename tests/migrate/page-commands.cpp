#include "tests/migrate/page-commands.h"

#include <gtest/gtest.h>
#include <sys/wait.h>

#include <cstdio>
#include <stdexcept>

namespace torvel::migrate::test {

namespace {

namespace fs = std::filesystem;

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

std::vector<PageStep> stepsOfPage(const std::string& page) {
    std::vector<PageStep> steps;
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

void expectShown(const PageStep& step, const fs::path& folder) {
    const std::string output = run(step.command, folder);
    EXPECT_TRUE(areShown(linesOf(output), step.shown)) << step.command << '\n' << output;
}

}  // namespace torvel::migrate::test
