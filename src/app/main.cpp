#include <cstdio>
#include <new>
#include <string>
#include <vector>

#include "src/app/command.h"
#include "src/app/process.h"
#include "src/base/messages.h"

namespace {

torvel::CommandResult run(int argc, char** argv) {
    try {
        torvel::prepareProcess();
        return torvel::runCommand(std::vector<std::string>(argv + (argc > 0 ? 1 : 0), argv + argc));
    } catch (const std::bad_alloc&) {
        return {1, {}, torvel::messageText(torvel::Message::OutOfMemory) + '\n'};
    }
}

}  // namespace

int main(int argc, char** argv) {
    const torvel::CommandResult result = run(argc, argv);
    std::fwrite(result.standardError.data(), 1, result.standardError.size(), stderr);
    std::fwrite(result.standardOutput.data(), 1, result.standardOutput.size(), stdout);
    return result.status;
}
