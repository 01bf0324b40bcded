// A stage includes only itself and the stages in front of it: base, lex, preprocess, expr, stmt, checks, app. The
// translation needs nothing of the preprocessor but its finished lines, so expr, stmt and checks do not
// include it either.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <string>
#include <string_view>

#include "tests/support/temporary-directory.h"
#include "tests/support/text-difference.h"

namespace torvel::test {

namespace {

namespace fs = std::filesystem;

constexpr std::array<std::string_view, 10> stages = {
    "base", "lex", "preprocess", "expr", "stmt", "checks", "app", "migrate", "browser", "language"};

/// The folder of src that a path leads through; empty for a file of src itself.
std::string_view stageOf(std::string_view path) {
    const std::size_t slash = path.find('/');
    return slash == std::string_view::npos ? std::string_view() : path.substr(0, slash);
}

std::size_t numberOf(std::string_view stage) {
    return static_cast<std::size_t>(std::find(stages.begin(), stages.end(), stage) -
                                    stages.begin());
}

bool mayInclude(std::string_view stage, std::string_view included) {
    if (included.empty() || stage == included) {
        return true;
    }
    const bool isTranslation = stage == "expr" || stage == "stmt" || stage == "checks";
    return !stage.empty() && numberOf(included) < numberOf(stage) &&
           !(isTranslation && included == "preprocess");
}

/// The path behind "src/" of an #include line; empty for any other line.
std::string_view includedPath(std::string_view line) {
    constexpr std::string_view lead = "#include \"src/";
    if (!line.starts_with(lead)) {
        return {};
    }
    line.remove_prefix(lead.size());
    return line.substr(0, line.find('"'));
}

}  // namespace

TEST(IncludeDirections, RulesOfTheStages) {
    EXPECT_TRUE(mayInclude("lex", ""));
    EXPECT_TRUE(mayInclude("lex", "lex"));
    EXPECT_TRUE(mayInclude("app", "preprocess"));
    EXPECT_TRUE(mayInclude("stmt", "expr"));
    EXPECT_FALSE(mayInclude("", "lex"));
    EXPECT_FALSE(mayInclude("base", "lex"));
    EXPECT_TRUE(mayInclude("lex", "base"));
    EXPECT_FALSE(mayInclude("lex", "preprocess"));
    EXPECT_FALSE(mayInclude("expr", "stmt"));
    EXPECT_FALSE(mayInclude("expr", "preprocess"));
    EXPECT_FALSE(mayInclude("stmt", "preprocess"));
    EXPECT_TRUE(mayInclude("checks", "stmt"));
    EXPECT_FALSE(mayInclude("checks", "preprocess"));
    EXPECT_FALSE(mayInclude("stmt", "checks"));
    EXPECT_TRUE(mayInclude("migrate", "app"));
    EXPECT_FALSE(mayInclude("app", "migrate"));
    EXPECT_FALSE(mayInclude("migrate", "browser"));
    EXPECT_FALSE(mayInclude("lex", "unknown"));
}

TEST(IncludeDirections, SourcesFollowThem) {
    const fs::path root = fs::path(TORVEL_SOURCE_DIR) / "src";
    std::size_t includes = 0;
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        if (!entry.is_regular_file()) {
            continue;
        }
        const std::string path = entry.path().lexically_relative(root).generic_string();
        const std::string_view stage = stageOf(path);
        EXPECT_TRUE(stage.empty() || numberOf(stage) < stages.size()) << path << " is in no stage";
        const std::string text = readFile(entry.path());
        for (const std::string_view line : splitLines(text)) {
            const std::string_view included = includedPath(line);
            includes += included.empty() ? 0U : 1U;
            EXPECT_TRUE(mayInclude(stage, stageOf(included))) << path << ": " << line;
        }
    }
    EXPECT_GT(includes, stages.size());
}

}  // namespace torvel::test
