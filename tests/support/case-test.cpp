#include "tests/support/case-test.h"

#include <utility>

#include "tests/support/platform.h"

namespace torvel::test {

CaseTest::CaseTest(std::filesystem::path path, bool update)
    : path_(std::move(path)), update_(update) {}

void CaseTest::fail(const std::string& fault) const {
    ADD_FAILURE_AT(path_.string().c_str(), 1) << fault;
}

std::optional<Outcome> CaseTest::runAsItStands(const Case& test, const RunConverter& run) {
    if (const std::string reason = whyNotHere(test); !reason.empty()) {
        [&] { GTEST_SKIP() << reason; }();
        return std::nullopt;
    }
    Outcome outcome = runCase(test, test.files, run);
    const std::string difference = checkExpectations(path_, test, outcome, update_);
    if (!difference.empty()) {
        fail(difference);
        return std::nullopt;
    }
    return outcome;
}

}  // namespace torvel::test
