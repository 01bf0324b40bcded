// The plant of the examples: what is found in it is what its page says.

#include <gtest/gtest.h>

#include <filesystem>
#include <map>

#include "src/migrate/any-case-source.h"
#include "src/migrate/discovery.h"
#include "src/migrate/program-conversion.h"
#include "src/migrate/recorded-source.h"

namespace torvel::migrate::test {

namespace {

const std::filesystem::path plant = std::filesystem::path(TORVEL_SOURCE_DIR) / "examples/plant";

}  // namespace

TEST(Plant, ProgramsPartsAndMachines) {
    const Discovery found = findPrograms(readProject(plant / "migration.toml"));
    EXPECT_EQ(found.programs.size(), 40U);
    EXPECT_EQ(found.parts, (std::vector<std::string>{
                               "programs/bench/lib/Signals.pgm", "programs/drilling/inc/peck.pgm",
                               "programs/drilling/inc/tools.pgm", "programs/filling/inc/line.pgm",
                               "programs/shared/count.pgm", "programs/shared/safety.pgm",
                               "programs/shared/units.pgm"}));
    std::vector<std::string> colliding;
    std::map<std::string, unsigned> machines;
    for (const FoundProgram& program : found.programs) {
        ++machines[program.parameters];
        if (!program.collidesWith.empty()) {
            colliding.push_back(program.program);
        }
    }
    EXPECT_EQ(machines, (std::map<std::string, unsigned>{{"", 10},
                                                         {"programs/drilling/machine.xml", 18},
                                                         {"programs/filling/machine.xml", 12}}));
    EXPECT_EQ(colliding, (std::vector<std::string>{"programs/drilling/D1050.prg",
                                                   "programs/drilling/d1050.pgm"}));
}

TEST(Plant, OneProgramCannotBeRead) {
    const Project project = readProject(plant / "migration.toml");
    FolderListings listings;
    const ConversionSettings settings{
        project.folder,
        anyCaseSource(fileSystemSource(), listings, [](const OtherCase&) {}),
        AxisNames(),
        {}};
    std::vector<std::string> unreadable;
    for (const FoundProgram& program : findPrograms(project).programs) {
        if (convertOne(pathOf(program.program, settings.folder), settings).status ==
            ProgramStatus::unreadable) {
            unreadable.push_back(program.program);
        }
    }
    EXPECT_EQ(unreadable, std::vector<std::string>{"programs/drilling/d1060.pgm"});
}

}  // namespace torvel::migrate::test
