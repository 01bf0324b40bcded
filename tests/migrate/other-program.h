#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tests/support/start-program.h"

// Programs of others that read what the formats are.

namespace torvel::migrate::test {

/// True if `words` can be run and end with status 0.
bool runs(const std::vector<std::string>& words);

/// Runs a program that is found as a shell finds it.
CommandResult run(const std::vector<std::string>& words);

/// Runs a script of Python with arguments.
CommandResult python(const std::string& script, const std::vector<std::string>& arguments);

}  // namespace torvel::migrate::test
