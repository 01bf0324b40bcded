// measure-runs ROUNDS NAME COMMAND ARG ... -- NAME COMMAND ARG ... -- ...
// Runs the commands in turns, ROUNDS times each, and prints for each the median wall time, its ratio to the
// first command's (the median over the rounds, so that both sides of a ratio were measured next to each
// other), the quartiles of that ratio, the median processor time and the greatest memory it held. What the
// commands print is thrown away.

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
    std::vector<double> processorMilliseconds;
    long peakKilobytes = 0;
};

std::vector<Command> readCommands(int argc, char** argv, int first) {
    std::vector<Command> commands;
    bool begins = true;
    for (int i = first; i < argc; ++i) {
        const std::string word = argv[i];
        if (begins) {
            commands.push_back({word, {}, {}, {}, 0});
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

double millisecondsOf(const timeval& time) {
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_usec) / 1e3;
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
    command.processorMilliseconds.push_back(millisecondsOf(usage.ru_utime) +
                                            millisecondsOf(usage.ru_stime));
    command.peakKilobytes = std::max(command.peakKilobytes, usage.ru_maxrss);
}

/// The value below which `share` of the others are.
double part(const std::vector<double>& sorted, double share) {
    return sorted[static_cast<std::size_t>(static_cast<double>(sorted.size() - 1) * share + 0.5)];
}

std::vector<double> sorted(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    return values;
}

/// The ratios of each round, from the least to the greatest.
std::vector<double> ratios(const Command& command, const Command& reference) {
    std::vector<double> values;
    for (std::size_t i = 0; i < command.milliseconds.size(); ++i) {
        values.push_back(command.milliseconds[i] / reference.milliseconds[i]);
    }
    return sorted(values);
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
        std::printf("%-24s %11s %8s %8s %9s %11s %10s\n", "", "median ms", "ratio", "lower",
                    "upper", "cpu ms", "peak KiB");
        for (const Command& command : commands) {
            const std::vector<double> ratio = ratios(command, commands[0]);
            std::printf("%-24s %11.3f %8.3f %8.3f %9.3f %11.3f %10ld\n", command.name.c_str(),
                        part(sorted(command.milliseconds), 0.5), part(ratio, 0.5),
                        part(ratio, 0.25), part(ratio, 0.75),
                        part(sorted(command.processorMilliseconds), 0.5), command.peakKilobytes);
        }
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
