#include "tests/migrate/other-program.h"

namespace torvel::migrate::test {

CommandResult run(const std::vector<std::string>& words) {
    return torvel::test::startProgram("/usr/bin/env", words);
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
