#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/start-program.h"

// Programs of others that read what the formats are. script/setup test installs them; with TORVEL_OTHER_PROGRAMS=required
// in the environment a test fails that would be left out without one of them.

namespace torvel::migrate::test {

/// True if `words` can be run and end with status 0.
bool runs(const std::vector<std::string>& words);

/// Runs a program that is found as a shell finds it.
CommandResult run(const std::vector<std::string>& words);

/// Whether a test must not be left out.
bool areOtherProgramsRequired();

/// Runs a script of Python with arguments.
CommandResult python(const std::string& script, const std::vector<std::string>& arguments);

}  // namespace torvel::migrate::test

/// Leaves the test out, or fails it.
#define TORVEL_TEST_NEEDS(what)                                 \
    if (::torvel::migrate::test::areOtherProgramsRequired()) {  \
        FAIL() << (what) << " is not there; script/setup test"; \
    } else                                                      \
        GTEST_SKIP() << (what) << " is not there; script/setup test"
