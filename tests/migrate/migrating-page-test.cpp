// The commands of docs/migrating.md, run one after the other in a copy of the plant: what they say is what the page
// shows.

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/migrate/page-commands.h"
#include "tests/support/temporary-directory.h"

namespace torvel::migrate::test {

namespace fs = std::filesystem;

TEST(MigratingPage, CommandsDoWhatItShows) {
    const torvel::test::TemporaryDirectory directory;
    const fs::path plant = directory.path() / "plant";
    const fs::path root = TORVEL_SOURCE_DIR;
    fs::copy(root / "examples/plant", plant, fs::copy_options::recursive);
    fs::remove_all(plant / "converted");
    const std::vector<PageStep> steps =
        stepsOfPage(torvel::test::readFile(root / "docs/migrating.md"));
    ASSERT_GE(steps.size(), 9U);
    for (PageStep step : steps) {
        if (const std::size_t look = step.command.find("/tmp/first-look");
            look != std::string::npos) {
            step.command.replace(look, std::string("/tmp/first-look").size(),
                                 (directory.path() / "first-look").string());
        }
        expectShown(step, plant);
    }
}

}  // namespace torvel::migrate::test
