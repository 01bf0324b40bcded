#pragma once

#include <optional>
#include <string>
#include <vector>

#include "src/migrate/project.h"

namespace torvel::migrate {

/// The exit status of a command line that cannot be followed.
inline constexpr int wrongUse = 2;

enum class Subcommand : std::uint8_t { convert, status, report, explain, accept };

/// The command line. Paths are as they were written, relative to the working directory.
struct Options {
    Subcommand subcommand = Subcommand::convert;
    /// A project file; none: migration.toml of the working directory, if it is there.
    std::optional<std::string> project;
    bool isQuiet = false;
    bool restore = false;

    // What the project file says too; it is overridden where something is given here.
    /// Of "convert": folders, or program files.
    std::vector<std::string> sources;
    std::optional<std::string> output;
    std::optional<std::string> parameters;
    std::optional<std::string> store;
    std::optional<std::string> baseline;
    std::vector<std::string> programs;
    std::vector<std::string> programsAlways;
    std::vector<std::string> exclude;
    std::vector<std::string> failOn;
    bool keepExtension = false;

    /// Threads that convert; 0: as many as there are processors.
    unsigned threads = 0;
    /// Begins with an empty store.
    bool rebuild = false;

    /// Of "status" and "report": output folders; none: that of the project.
    std::vector<std::string> outputs;
    std::optional<std::string> html;
    std::optional<std::string> json;
    std::optional<std::string> csv;
    std::optional<std::string> programsCsv;
    std::optional<std::string> sarif;
    std::optional<std::string> junit;

    /// Of "explain": a code; none with `listCodes`.
    std::string code;
    bool listCodes = false;

    /// Of "accept": what is accepted; none: everything.
    std::vector<std::string> acceptedCodes;
    std::vector<std::string> acceptedPrograms;
};

/// What became of a command line: options, or a text for the user and the exit status.
struct ParsedOptions {
    std::optional<Options> options;
    /// 0 after help and version, 2 after wrong use.
    int status = 0;
    /// For the standard output, and for standard error.
    std::string output;
    std::string error;
};

/// Reads the arguments behind the program's name.
ParsedOptions parseOptions(std::vector<std::string> arguments);

/// The project with what the options say in place of it. `directory` is the working directory, canonical.
void applyOptions(const Options& options, const NativePath& directory, Project& project);

}  // namespace torvel::migrate
