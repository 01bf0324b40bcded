// convert-shelf [--findings] [--write OUT] FOLDER THREADS
// Converts every *.pgm below a folder by the library, each in one thread, and throws the texts away: what any tool that
// converts them cannot do without.
//   --findings   asks for the findings too
//   --write OUT  writes output and log of each into the folder OUT, as BrannicToTorvel64 does

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include "src/app/conversion.h"
#include "src/base/file-source.h"
#include "src/checks/line-record.h"
#include "src/preprocess/preprocessor.h"

namespace {

using namespace torvel;

struct Options {
    bool hasFindings = false;
    std::string out;
    std::string folder;
    unsigned threads = 1;
};

Options optionsOf(const std::vector<std::string>& arguments) {
    Options options;
    std::vector<std::string> named;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == "--findings") {
            options.hasFindings = true;
        } else if (arguments[i] == "--write" && i + 1 < arguments.size()) {
            options.out = arguments[++i];
        } else {
            named.push_back(arguments[i]);
        }
    }
    if (named.size() != 2) {
        throw std::invalid_argument(
            "usage: convert-shelf [--findings] [--write OUT] FOLDER THREADS");
    }
    options.folder = named[0];
    options.threads = static_cast<unsigned>(std::stoul(named[1]));
    return options;
}

std::vector<NativePath> programsBelow(const std::string& folder) {
    std::vector<NativePath> programs;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(folder)) {
        if (entry.path().extension() == ".pgm") {
            programs.push_back(entry.path());
        }
    }
    std::sort(programs.begin(), programs.end());
    return programs;
}

void write(const NativePath& path, std::string_view text) {
    OutputFile file;
    if (!file.open(path)) {
        throw std::runtime_error("cannot write " + narrowPath(path));
    }
    file.write(text);
    if (!file.close()) {
        throw std::runtime_error("cannot write " + narrowPath(path));
    }
}

void convert(const NativePath& path, const Options& options) {
    const AxisNames axes;
    const Limits limits;
    CheckRecord record;
    CheckRecord* const asked = options.hasFindings ? &record : nullptr;
    Program program;
    preprocessProgram(program, narrowPath(path), axes, limits, predefinedConstants(),
                      fileSystemSource(), asked);
    MessageLog messages = messagesOfReading(program);
    ConversionContext context{program, axes, limits, messages, {}, 0, asked, nullptr};
    ProgramOutput output;
    convertProgram(context, output, WorkSharing{.helpers = 0});
    TextBuffer log;
    for (const ConversionMessage& message : messages) {
        appendLogLine(message, log);
    }
    if (!options.out.empty()) {
        const NativePath place = NativePath(options.out) / path.lexically_relative(options.folder);
        NativePath target = place;
        write(target.replace_extension(".torvel"), std::string_view(output.text));
        write(target.replace_extension(".log"), std::string_view(log));
    }
}

void convertAll(const std::vector<NativePath>& programs, const Options& options) {
    std::atomic<std::size_t> next{0};
    std::vector<std::thread> threads;
    for (unsigned i = 0; i < options.threads; ++i) {
        threads.emplace_back([&] {
            for (std::size_t number = next++; number < programs.size(); number = next++) {
                convert(programs[number], options);
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
}

}  // namespace

int main(int argc, char** argv) {
    try {
        const Options options = optionsOf(std::vector<std::string>(argv + 1, argv + argc));
        const std::vector<NativePath> programs = programsBelow(options.folder);
        if (!options.out.empty()) {
            for (const NativePath& program : programs) {
                std::filesystem::create_directories(
                    (NativePath(options.out) / program.lexically_relative(options.folder))
                        .parent_path());
            }
        }
        convertAll(programs, options);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
