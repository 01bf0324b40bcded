#pragma once

#include <filesystem>
#include <string>
#include <vector>

// Commands that a page of the documentation shows, with what they say.

namespace torvel::migrate::test {

struct PageStep {
    std::string command;
    /// "..." stands for the rest of a line, a line "..." for any lines.
    std::vector<std::string> shown;
};

/// The commands of the page's blocks of "console", in order.
std::vector<PageStep> stepsOfPage(const std::string& page);

/// Runs a step in a folder, torvel-migrate on the path: it says what is shown and ends with status 0.
void expectShown(const PageStep& step, const std::filesystem::path& folder);

}  // namespace torvel::migrate::test
