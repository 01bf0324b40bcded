// One run: the command line, the parameter file, the preprocessor, then the conversion of its lines
// into the output and the messages into the log. Everything that can be wrong with the program or the
// paths comes before the first byte is written.

#include "src/app/command.h"

#include <algorithm>
#include <exception>
#include <memory>
#include <new>
#include <stdexcept>

#include "src/app/command-line.h"
#include "src/app/conversion.h"
#include "src/app/parameter-file.h"
#include "src/base/characters.h"
#include "src/base/file-system.h"
#include "src/base/known-folders.h"
#include "src/base/messages.h"
#include "src/base/parse-exception.h"
#include "src/checks/finding-telling.h"
#include "src/preprocess/preprocessor.h"

namespace torvel {

namespace {

[[noreturn]] void fail(Message message, std::initializer_list<std::string_view> holes) {
    throw std::runtime_error(messageText(message, holes));
}

struct OutputPaths {
    NativePath output;
    NativePath log;
};

/// The two files that the run writes, named after the program. Fails if their directory is none.
OutputPaths outputPaths(const CommandLine& commandLine) {
    const NativePath directory = nativePath(commandLine.outputDirectory);
    const FileKind kind = fileKind(directory);
    if (kind == FileKind::missing) {
        fail(Message::OutputPathMissing, {commandLine.outputDirectory});
    }
    if (kind != FileKind::directory) {
        fail(Message::OutputPathNotDirectory, {commandLine.outputDirectory});
    }
    const std::string stem(fileStem(lastComponent(trimBlanks(commandLine.programPath))));
    return {directory / nativePath(stem + ".torvel"), directory / nativePath(stem + ".log")};
}

/// Fails if a path leads to a file that the run reads.
void checkNoInput(const NativePath& path, const std::vector<FileIdentity>& inputs) {
    const FileIdentity identity = fileIdentity(path);
    if (identity != FileIdentity() &&
        std::find(inputs.begin(), inputs.end(), identity) != inputs.end()) {
        fail(Message::OutputOverwritesInput, {narrowPath(path)});
    }
}

/// Fails if both paths lead to one file that exists.
void checkApart(const OutputPaths& paths) {
    const FileIdentity identity = fileIdentity(paths.output);
    if (identity != FileIdentity() && identity == fileIdentity(paths.log)) {
        fail(Message::LogOverwritesOutput, {narrowPath(paths.log)});
    }
}

void openForWriting(OutputFile& file, const NativePath& path) {
    if (!file.open(path)) {
        fail(Message::OutputNotOpened, {narrowPath(path)});
    }
}

void closeWritten(OutputFile& file, const NativePath& path) {
    if (!file.close()) {
        fail(Message::OutputNotWritten, {narrowPath(path)});
    }
}

/// Reads the program; what keeps it from being read is a finding.
void readProgram(Program& program, const CommandLine& commandLine, const AxisNames& axes,
                 const Limits& limits, CheckRecord* record, const FindingTaker& taker,
                 const PartTaker& partTaker) {
    KnownFolders folders;
    try {
        preprocessProgram(program, commandLine.programPath, axes, limits, predefinedConstants(),
                          withKnownFolders(fileSystemSource(), folders), record, partTaker);
    } catch (const ParseException& error) {
        if (taker) {
            taker(unreadableFinding(error));
        }
        throw;
    }
}

void convertFile(const CommandLine& commandLine, const Limits& limits, const FindingTaker& taker) {
    // It is some thousands of bytes, which nobody touches who does not ask.
    const auto record = taker ? std::make_unique<CheckRecord>() : nullptr;
    std::vector<FileIdentity> inputs;
    AxisNames axes;
    if (commandLine.parameterFile) {
        axes = loadParameterFile(*commandLine.parameterFile, limits);
        inputs.push_back(fileIdentity(nativePath(*commandLine.parameterFile)));
    }
    Program program;
    MessageLog messages;
    ConversionContext context{program, axes, limits, messages, {}, 0, record.get()};
    ProgramConversion conversion(context);
    readProgram(program, commandLine, axes, limits, record.get(), taker,
                [&](const ProgramPart& part) { conversion.add(part); });

    const OutputPaths paths = outputPaths(commandLine);
    for (const SourceFile& file : program.files) {
        inputs.push_back(file.identity);
    }
    checkNoInput(paths.output, inputs);
    checkNoInput(paths.log, inputs);
    checkApart(paths);
    OutputFile output;
    OutputFile log;
    openForWriting(output, paths.output);
    checkApart(paths);  // a link can lead to the file that was made just now
    openForWriting(log, paths.log);

    messages = messagesOfReading(program);
    conversion.write(output);
    closeWritten(output, paths.output);
    for (const ConversionMessage& message : messages) {
        appendLogLine(message, log.buffer());
    }
    closeWritten(log, paths.log);
    if (record) {
        tellFindings(program, *record, messages, taker);
    }
}

}  // namespace

CommandResult runCommandForFindings(const std::vector<std::string>& arguments, const Limits& limits,
                                    const FindingTaker& taker) {
    CommandResult result;
    result.status = 1;
    try {
        convertFile(parseCommandLine(arguments), limits, taker);
        result.status = 0;
    } catch (const CommandLineError& error) {
        result.standardError = error.what();
        result.standardOutput = usageText;
    } catch (const std::bad_alloc&) {
        result.standardError = messageText(Message::OutOfMemory);
    } catch (const std::exception& error) {
        result.standardError = error.what();
    } catch (...) {
        result.standardError = messageText(Message::UnknownException);
    }
    if (!result.standardError.empty()) {
        result.standardError += '\n';
    }
    return result;
}

CommandResult runCommand(const std::vector<std::string>& arguments, const Limits& limits) {
    return runCommandForFindings(arguments, limits, {});
}

}  // namespace torvel
