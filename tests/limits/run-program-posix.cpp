#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <stdexcept>

#include "tests/limits/run-program.h"
#include "tests/support/temporary-directory.h"

namespace torvel::test {

namespace {

constexpr int cannotStart = 126;
/// The user and group "nobody" of Debian.
constexpr uid_t nobody = 65534;

void check(bool isDone) {
    if (!isDone) {
        _exit(cannotStart);
    }
}

void redirect(int stream, const char* path, int flags) {
    const int file = open(path, flags, 0600);
    check(file >= 0 && dup2(file, stream) == stream);
    close(file);
}

void bound(int resource, std::uint64_t bytes) {
    const rlimit limit{bytes, bytes};
    check(setrlimit(static_cast<__rlimit_resource>(resource), &limit) == 0);
}

/// Sets in the child what `start` asks for.
void setConditions(const ProgramStart& start, const char* output, const char* error,
                   const char* removed) {
    redirect(STDIN_FILENO, "/dev/null", O_RDONLY);
    redirect(STDOUT_FILENO, output, O_WRONLY | O_CREAT);
    redirect(STDERR_FILENO, error, O_WRONLY | O_CREAT);
    if (!start.directory.empty()) {
        check(chdir(start.directory.c_str()) == 0);
    }
    if (start.inRemovedDirectory) {
        check(mkdir(removed, 0700) == 0 && chdir(removed) == 0 && rmdir(removed) == 0);
    }
    if (start.asNobody) {
        check(setgid(nobody) == 0 && setuid(nobody) == 0);
    }
    if (start.fileSize) {
        bound(RLIMIT_FSIZE, *start.fileSize);
    }
    if (start.stack) {
        bound(RLIMIT_STACK, *start.stack);
    }
    if (start.withoutThreads) {
        bound(RLIMIT_NPROC, 1);
    }
    const rlimit noCore{0, 0};
    check(setrlimit(RLIMIT_CORE, &noCore) == 0);
    for (const int stream : start.closed) {
        close(stream);
    }
    alarm(start.seconds);
    if (start.memory) {
        bound(RLIMIT_AS, *start.memory);
    }
}

std::vector<char*> pointersTo(std::vector<std::string>& words) {
    std::vector<char*> pointers;
    std::transform(words.begin(), words.end(), std::back_inserter(pointers),
                   [](std::string& word) { return word.data(); });
    pointers.push_back(nullptr);
    return pointers;
}

std::string contentOf(const std::filesystem::path& path) {
    return std::filesystem::exists(path) ? readFile(path) : std::string();
}

}  // namespace

ProgramEnd runProgram(const ProgramStart& start) {
    const TemporaryDirectory directory;
    const std::filesystem::path gatheredOutput = directory.path() / "stdout";
    const std::filesystem::path gatheredError = directory.path() / "stderr";
    const std::string output =
        start.standardOutput.empty() ? gatheredOutput.string() : start.standardOutput;
    const std::string error =
        start.standardError.empty() ? gatheredError.string() : start.standardError;
    const std::string removed = (directory.path() / "removed").string();

    std::vector<std::string> words = {start.program};
    words.insert(words.end(), start.arguments.begin(), start.arguments.end());
    const std::vector<char*> arguments = pointersTo(words);
    std::vector<std::string> settings;
    for (char** setting = environ; *setting != nullptr; ++setting) {
        settings.emplace_back(*setting);
    }
    for (const auto& [name, value] : start.environment) {
        const std::string lead = name + "=";
        std::erase_if(settings,
                      [&](const std::string& setting) { return setting.starts_with(lead); });
        settings.push_back(lead + value);
    }
    const std::vector<char*> environment = pointersTo(settings);

    const pid_t process = fork();
    if (process == 0) {
        setConditions(start, output.c_str(), error.c_str(), removed.c_str());
        execve(start.program.c_str(), arguments.data(), environment.data());
        _exit(cannotStart);
    }
    int status = 0;
    if (process < 0 || waitpid(process, &status, 0) != process) {
        throw std::runtime_error("cannot start " + start.program);
    }
    ProgramEnd end;
    end.standardOutput = contentOf(gatheredOutput);
    end.standardError = contentOf(gatheredError);
    if (WIFSIGNALED(status)) {
        end.signal = WTERMSIG(status);
    } else {
        end.status = WEXITSTATUS(status);
    }
    if (end.status == cannotStart) {
        throw std::runtime_error("cannot start " + start.program);
    }
    return end;
}

std::string endOf(const ProgramEnd& end) {
    return end.status ? "status " + std::to_string(*end.status)
                      : "signal " + std::to_string(end.signal);
}

bool canBecomeNobody() {
    return geteuid() == 0;
}

}  // namespace torvel::test
