// measure-runs ROUNDS NAME COMMAND ARG ... -- NAME COMMAND ARG ... -- ...
// Runs the commands in turns, ROUNDS times each, and prints for each the median wall time, the ratio to the
// first command's time (the median over the rounds, so that both sides of a ratio were measured next to
// each other) and the greatest memory it held. What the commands print is thrown away.

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

struct Command {
    std::string name;
    std::vector<char*> arguments;  // ends in a null pointer
    std::vector<double> milliseconds;
    long peakKilobytes = 0;
};

std::vector<Command> readCommands(int argc, char** argv, int first) {
    std::vector<Command> commands;
    bool begins = true;
    for (int i = first; i < argc; ++i) {
        const std::string word = argv[i];
        if (begins) {
            commands.push_back({word, {}, {}, 0});
            begins = false;
        } else if (word == "--") {
            begins = true;
        } else {
            commands.back().arguments.push_back(argv[i]);
        }
    }
    for (Command& command : commands) {
        if (command.arguments.empty()) {
            throw std::invalid_argument(command.name + " has no command");
        }
        command.arguments.push_back(nullptr);
    }
    return commands;
}

void runOnce(Command& command, const posix_spawn_file_actions_t& actions) {
    const auto start = std::chrono::steady_clock::now();
    pid_t process = 0;
    if (posix_spawnp(&process, command.arguments[0], &actions, nullptr, command.arguments.data(),
                     environ) != 0) {
        throw std::runtime_error("cannot start " + command.name);
    }
    int status = 0;
    rusage usage{};
    wait4(process, &status, 0, &usage);
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0) {
        throw std::runtime_error(command.name + " failed");
    }
    command.milliseconds.push_back(time.count());
    command.peakKilobytes = std::max(command.peakKilobytes, usage.ru_maxrss);
}

double median(std::vector<double> values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

double medianRatio(const Command& command, const Command& reference) {
    std::vector<double> ratios;
    for (std::size_t i = 0; i < command.milliseconds.size(); ++i) {
        ratios.push_back(command.milliseconds[i] / reference.milliseconds[i]);
    }
    return median(ratios);
}

void measure(std::vector<Command>& commands, int rounds) {
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    for (const int descriptor : {STDOUT_FILENO, STDERR_FILENO}) {
        posix_spawn_file_actions_addopen(&actions, descriptor, "/dev/null", O_WRONLY, 0);
    }
    for (int round = 0; round < rounds; ++round) {
        for (Command& command : commands) {
            runOnce(command, actions);
        }
    }
    posix_spawn_file_actions_destroy(&actions);
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const int rounds = argc > 2 ? std::stoi(argv[1]) : 0;
        std::vector<Command> commands = readCommands(argc, argv, 2);
        if (rounds < 1 || commands.empty()) {
            throw std::invalid_argument("usage: measure-runs ROUNDS NAME COMMAND ARG ... [-- ...]");
        }
        measure(commands, rounds);
        std::printf("%-32s %12s %8s %12s\n", "", "median ms", "ratio", "peak KiB");
        for (const Command& command : commands) {
            std::printf("%-32s %12.3f %8.2f %12ld\n", command.name.c_str(),
                        median(command.milliseconds), medianRatio(command, commands[0]),
                        command.peakKilobytes);
        }
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
