#include "tests/migrate/other-program.h"

#include <cstdlib>

namespace torvel::migrate::test {

CommandResult run(const std::vector<std::string>& words) {
    return torvel::test::startProgram("/usr/bin/env", words);
}

bool areOtherProgramsRequired() {
    const char* const wish = std::getenv("TORVEL_OTHER_PROGRAMS");
    return wish != nullptr && std::string_view(wish) == "required";
}

bool runs(const std::vector<std::string>& words) {
    return run(words).status == 0;
}

CommandResult python(const std::string& script, const std::vector<std::string>& arguments) {
    std::vector<std::string> words = {"python3", "-c", script};
    words.insert(words.end(), arguments.begin(), arguments.end());
    return run(words);
}

}  // namespace torvel::migrate::test
