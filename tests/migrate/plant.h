#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "src/migrate/run.h"
#include "tests/support/temporary-directory.h"

// A small project on the disk for tests of runs, and outputs that are put in place in the simplest way that loses
// nothing.

namespace torvel::migrate::test {

class Plant {
public:
    Plant();

    NativePath path(const std::string& name) const { return project.folder / name; }
    NativePath store() const { return path("out/migration.sqlite"); }
    void write(const std::string& name, std::string_view text) const;
    std::string read(const std::string& name) const;
    bool has(const std::string& name) const;
    void remove(const std::string& name) const;
    /// A program of the folder, with an output in "out".
    FoundProgram& add(const std::string& name, std::string_view text);
    /// Makes this folder like that of another plant.
    void takeOver(const Plant& other);
    /// Opens the store, runs, closes it.
    RunSummary run(StoreUse use = StoreUse::write);
    /// Everything that the store has but its runs, as text.
    std::string dump() const;
    /// The outputs with their names.
    std::string outputs() const;

    Project project;
    Discovery discovery;
    RunOptions options;
    /// Programs that the last run converted.
    std::vector<std::string> convertedNow;

private:
    torvel::test::TemporaryDirectory directory_;
};

/// A base that is the beginning of the output is an edit at its end, which is kept; everything else that a person
/// changed is a conflict. `step` is called between what is written.
PlanOutput simplePlacing(std::function<void()> step = {});

}  // namespace torvel::migrate::test
