#pragma once

#include <string>
#include <vector>

#include "src/app/command.h"

namespace torvel::test {

/// Starts a program in the current working directory, waits for its end and gathers its streams; nothing
/// stands on its standard input. Throws std::runtime_error if it cannot be started or is killed.
CommandResult startProgram(const std::string& path, const std::vector<std::string>& arguments);

}  // namespace torvel::test
