// convert-for-findings [--unasked] ARGUMENTS
// Converts as BrannicToTorvel64 does with these arguments and asks for the findings; with --unasked for none.

#include <cstdio>
#include <string>
#include <vector>

#include "src/app/command.h"

int main(int argc, char** argv) {
    std::vector<std::string> arguments(argv + 1, argv + argc);
    const bool isAsked = arguments.empty() || arguments.front() != "--unasked";
    std::size_t findings = 0;
    torvel::CommandResult result;
    if (isAsked) {
        result = torvel::runCommandForFindings(arguments, {},
                                               [&](const torvel::Finding&) { ++findings; });
    } else {
        arguments.erase(arguments.begin());
        result = torvel::runCommand(arguments);
    }
    std::fputs(result.standardError.c_str(), stderr);
    std::printf("%zu findings\n", findings);
    return result.status;
}
