// shelf-benchmark FOLDER [THREADS]
// Measures a run over the programs "*/main.pgm" of a folder: the conversions alone by the library, then a first run
// with a store and outputs in FOLDER/../converted, then a run in which nothing has changed. Prints wall time,
// processor time and the greatest memory of each; each runs in a process of its own.

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <functional>
#include <string>
#include <thread>

#include "src/migrate/in-threads.h"
#include "src/migrate/program-conversion.h"
#include "src/migrate/run.h"

namespace {

using namespace torvel;
using namespace torvel::migrate;

void writeFile(const NativePath& path, std::string_view text) {
    NativePath beside = path;
    beside += ".new";
    std::ofstream(beside, std::ios::binary) << text;
    std::filesystem::rename(beside, path);
}

void writeBoth(const NativePath& path, std::string_view text, std::string_view log) {
    writeFile(path, text);
    NativePath logPath = path;
    writeFile(logPath.replace_extension(".log"), log);
}

PlannedOutput planNew(const OutputTask& task) {
    PlannedOutput plan;
    plan.placed = hashOf(task.generated);
    plan.place = [path = task.path, text = task.generated, log = task.log] {
        writeBoth(path, text, log);
        return PlacedOutput{true, {}};
    };
    return plan;
}

Discovery programsOf(const Project& project) {
    Discovery discovery;
    for (const auto& entry : std::filesystem::directory_iterator(project.folder)) {
        const std::string name = entry.path().filename().string();
        discovery.programs.push_back({name + "/main.pgm",
                                      entry.path() / "main.pgm",
                                      "../converted/" + name + ".torvel",
                                      {},
                                      {},
                                      {}});
    }
    std::sort(discovery.programs.begin(), discovery.programs.end(),
              [](const FoundProgram& left, const FoundProgram& right) {
                  return left.program < right.program;
              });
    return discovery;
}

double seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

void measure(const char* name, const std::function<void()>& work) {
    const auto begin = std::chrono::steady_clock::now();
    const pid_t child = fork();
    if (child == 0) {
        work();
        std::_Exit(0);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    const std::chrono::duration<double> wall = std::chrono::steady_clock::now() - begin;
    std::printf("%-24s %6.2f s wall %6.2f s user %6.2f s system %6ld kB%s\n", name, wall.count(),
                seconds(usage.ru_utime), seconds(usage.ru_stime), usage.ru_maxrss,
                status == 0 ? "" : " FAILED");
    std::fflush(stdout);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fputs("usage: shelf-benchmark FOLDER [THREADS]\n", stderr);
        return 2;
    }
    Project project;
    project.folder = canonicalPath(argv[1]);
    const Discovery discovery = programsOf(project);
    RunOptions options;
    options.threads = argc > 2 ? static_cast<unsigned>(std::atoi(argv[2])) : 2;
    options.planOutput = planNew;
    const NativePath out = project.folder / "../converted";
    const auto convert = [&](bool isWritten) {
        const ConversionSettings settings{project.folder, options.source, AxisNames(), {}, {}, {}};
        inThreads(options.threads, discovery.programs.size(), [&](std::size_t i, unsigned) {
            const FoundProgram& found = discovery.programs[i];
            const ProgramResult result = convertOne(found.path, settings);
            if (isWritten) {
                writeBoth(project.folder / found.output, result.outputText, result.logText);
            }
        });
    };
    const auto run = [&] {
        try {
            Store store(out / "migration.sqlite", StoreUse::write);
            runConversion(project, discovery, store, options);
        } catch (const std::exception& error) {
            std::puts(error.what());
            std::_Exit(1);
        }
    };
    std::printf("%zu programs, %u threads\n", discovery.programs.size(), options.threads);
    const auto clear = [&] {
        std::filesystem::remove_all(out);
        std::filesystem::create_directories(out);
    };
    measure("conversions", [&] { convert(false); });
    clear();
    measure("conversions and files", [&] { convert(true); });
    clear();
    measure("first run", run);
    measure("unchanged run", run);
    return 0;
}
