#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>

#include "tests/support/case-run.h"

namespace torvel::test {

/// A case file as a test.
class CaseTest : public testing::Test {
public:
    CaseTest(std::filesystem::path path, bool update);

protected:
    /// Runs the case as it stands and checks what it expects. Nothing if it cannot run here, which
    /// skips the test, or if it is not as expected, which fails it.
    std::optional<Outcome> runAsItStands(const Case& test, const RunConverter& run);

    /// Fails the test at the case file.
    void fail(const std::string& fault) const;

    const std::filesystem::path& path() const { return path_; }

private:
    std::filesystem::path path_;
    bool update_;
};

/// Makes a test of the class `Test` for each case of a folder tree; returns how many.
template <typename Test>
std::size_t registerCases(const std::filesystem::path& root, bool update) {
    std::size_t count = 0;
    visitCases(root, [&](const std::string& subject, const std::string& name,
                         const std::filesystem::path& path) {
        ++count;
        testing::RegisterTest(
            subject.c_str(), name.c_str(), nullptr, nullptr, path.string().c_str(), 1,
            [path, update]() -> testing::Test* { return new Test(path, update); });
    });
    return count;
}

}  // namespace torvel::test
