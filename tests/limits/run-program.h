#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

// Starts the program under conditions that the cases of tests/command_line cannot set.

namespace torvel::test {

/// How the program is started.
struct ProgramStart {
    std::vector<std::string> arguments;
    /// The program itself, with the sanitizers where the tests have them, or the plain one.
    std::string program = TORVEL_PROGRAM;
    /// The working directory; empty: that of the tests.
    std::filesystem::path directory;
    /// Added to the environment.
    std::vector<std::pair<std::string, std::string>> environment;
    /// Bounds in bytes: of the address space, and of a file that is written.
    std::optional<std::uint64_t> memory;
    std::optional<std::uint64_t> fileSize;
    /// Bound in bytes on the stack, which the run may not raise.
    std::optional<std::uint64_t> stack;
    /// No further process or thread for whoever runs the program; it holds for nobody and other common users.
    bool withoutThreads = false;
    /// As a user who may not do everything.
    bool asNobody = false;
    /// In a working directory that is gone.
    bool inRemovedDirectory = false;
    /// Standard streams (0, 1, 2) that are closed.
    std::vector<int> closed;
    /// What the standard streams lead to; empty: what is gathered.
    std::string standardOutput;
    std::string standardError;
    /// The time after which a run counts as endless. It is no measure of speed.
    unsigned seconds = 240;
};

/// How the run ended.
struct ProgramEnd {
    /// The exit status; none if a signal ended the run.
    std::optional<int> status;
    int signal = 0;
    std::string standardOutput;
    std::string standardError;
};

/// Runs the program to its end. Throws std::runtime_error if it cannot be started.
ProgramEnd runProgram(const ProgramStart& start);

/// The status, or the signal as "signal 9", for messages.
std::string endOf(const ProgramEnd& end);

/// Whether the tests may become another user.
bool canBecomeNobody();

}  // namespace torvel::test
