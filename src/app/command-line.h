#pragma once

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace torvel {

/// What the command line asks for. Paths are as they were written.
struct CommandLine {
    std::string programPath;
    std::optional<std::string> parameterFile;
    std::string outputDirectory = ".";
};

/// A command line that cannot be followed; the usage text helps.
struct CommandLineError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// How the program is called, four lines.
extern const char* const usageText;

/// Reads the arguments behind the program's name. Throws CommandLineError.
CommandLine parseCommandLine(const std::vector<std::string>& arguments);

}  // namespace torvel
