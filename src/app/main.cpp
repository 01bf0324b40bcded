#include <cstdio>
#include <string>
#include <vector>

#include "src/app/command.h"
#include "src/app/process.h"

int main(int argc, char** argv) {
    torvel::prepareProcess();
    const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    const torvel::CommandResult result = torvel::runCommand(arguments);
    std::fwrite(result.standardError.data(), 1, result.standardError.size(), stderr);
    std::fwrite(result.standardOutput.data(), 1, result.standardOutput.size(), stdout);
    return result.status;
}
