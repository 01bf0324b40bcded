#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>

#include "tests/support/start-program.h"
#include "tests/support/temporary-directory.h"

namespace torvel::test {

CommandResult startProgram(const std::string& path, const std::vector<std::string>& arguments) {
    const TemporaryDirectory directory;
    const std::string output = (directory.path() / "stdout").string();
    const std::string error = (directory.path() / "stderr").string();

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    const int create = O_WRONLY | O_CREAT | O_TRUNC;
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(), create, 0600);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, error.c_str(), create, 0600);

    std::vector<std::string> words = {path};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    for (std::string& word : words) {
        pointers.push_back(word.data());
    }
    pointers.push_back(nullptr);
    pid_t process = 0;
    const int failure =
        posix_spawn(&process, path.c_str(), &actions, nullptr, pointers.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) {
        throw std::runtime_error("cannot start " + path);
    }
    int status = 0;
    if (waitpid(process, &status, 0) != process || !WIFEXITED(status)) {
        throw std::runtime_error(path + " did not end by itself:\n" + readFile(error));
    }
    return {WEXITSTATUS(status), readFile(output), readFile(error)};
}

}  // namespace torvel::test
