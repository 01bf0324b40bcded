#include "src/app/command-line.h"

#include "src/base/messages.h"

namespace torvel {

const char* const usageText =
    "Usage: BrannicToTorvel64.exe [options] [program_path]\n"
    "  Options:\n"
    "    -p [parameter_file]\n"
    "    -o [output_directory]\n";

namespace {

[[noreturn]] void fail(Message message, std::initializer_list<std::string_view> holes = {}) {
    throw CommandLineError(messageText(message, holes));
}

}  // namespace

CommandLine parseCommandLine(const std::vector<std::string>& arguments) {
    CommandLine commandLine;
    std::optional<std::string> outputDirectory;
    std::optional<std::string> programPath;

    // An option takes the argument behind it, whatever that looks like.
    std::size_t at = 0;
    const auto takeOption = [&](std::optional<std::string>& value, Message twice, Message missing) {
        if (at + 1 == arguments.size()) {
            fail(missing);
        }
        if (value) {
            fail(twice);
        }
        value = arguments[++at];
    };
    for (; at < arguments.size(); ++at) {
        if (arguments[at] == "-p") {
            takeOption(commandLine.parameterFile, Message::ParameterFileGivenTwice,
                       Message::ParameterFileArgumentExpected);
        } else if (arguments[at] == "-o") {
            takeOption(outputDirectory, Message::OutputPathGivenTwice,
                       Message::OutputPathArgumentExpected);
        } else if (programPath) {
            fail(Message::UnexpectedArgument, {arguments[at]});
        } else {
            programPath = arguments[at];
        }
    }
    if (!programPath) {
        fail(Message::NoInputFile);
    }
    commandLine.programPath = *programPath;
    commandLine.outputDirectory = outputDirectory.value_or(".");
    return commandLine;
}

}  // namespace torvel
