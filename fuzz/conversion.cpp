// A whole program: the input is cut at lines "--- PATH" into the program file, the files that it includes and
// a parameter file (.xml); the first file is the program, called main.pgm if the input does not begin with
// such a line.

#include "src/app/conversion.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

#include "fuzz/require.h"
#include "fuzz/target.h"
#include "src/app/command.h"
#include "src/app/parameter-file.h"
#include "src/base/characters.h"
#include "src/base/parse-exception.h"
#include "src/checks/finding-telling.h"
#include "src/preprocess/preprocessor.h"
#include "tests/support/case-file.h"
#include "tests/support/case-run.h"
#include "tests/support/escapes.h"
#include "tests/support/line-by-line.h"
#include "tests/support/temporary-directory.h"
#include "tests/support/text-difference.h"

namespace torvel::fuzz {

namespace {

namespace fs = std::filesystem;
using Files = std::vector<test::CaseEntry>;

constexpr std::string_view fileLead = "--- ";

bool isXml(std::string_view path) {
    return path.ends_with(".xml");
}

/// Whether a file may be made: a name, or a name in a folder.
bool isSafePath(std::string_view path) {
    const auto isPlain = [](char c) { return isWordCharacter(c) || c == '.' || c == '/'; };
    return !path.empty() && path.size() < 40 && path[0] != '/' && path.back() != '/' &&
           path.find("..") == std::string_view::npos && path.find("//") == std::string_view::npos &&
           std::count(path.begin(), path.end(), '/') < 2 && !path.starts_with("out") &&
           path != "." && !path.starts_with("./") && !path.ends_with("/.") &&
           std::all_of(path.begin(), path.end(), isPlain);
}

/// The files; none if the input names one that cannot be made.
Files cutIntoFiles(std::string_view input) {
    Files files;
    while (!input.empty()) {
        const std::size_t length = std::min(input.find('\n'), input.size() - 1) + 1;
        std::string_view line = input.substr(0, length);
        input.remove_prefix(length);
        if (line.starts_with(fileLead)) {
            line.remove_prefix(fileLead.size());
            while (!line.empty() && isWhiteSpace(line.back())) {
                line.remove_suffix(1);
            }
            if (!isSafePath(line)) {
                return {};
            }
            files.push_back({std::string(line), {}});
        } else {
            if (files.empty()) {
                files.push_back({"main.pgm", {}});
            }
            files.back().content += line;
        }
    }
    return files;
}

/// What a run leaves behind.
struct Result {
    CommandResult command;
    std::string output;
    std::string log;
    /// What needs a look, a line each.
    std::string checks;
};

/// A folder for the files of one input at a time.
class Folder {
public:
    explicit Folder(const Files& files) {
        clear();
        fs::create_directory(root() / "out");
        write(files);
    }
    ~Folder() { clear(); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    static const fs::path& root() {
        static const test::TemporaryDirectory directory;
        return directory.path();
    }
    static std::string pathOf(const std::string& file) { return (root() / file).string(); }

    static void write(const Files& files) {
        for (const test::CaseEntry& file : files) {
            test::writeFile(root() / file.path, file.content);
        }
    }

private:
    static void clear() {
        for (const auto& entry : fs::directory_iterator(root())) {
            fs::remove_all(entry.path());
        }
    }
};

class Check {
public:
    explicit Check(Files files) : files_(std::move(files)) {
        const auto parameters =
            std::find_if(files_.begin(), files_.end(),
                         [](const test::CaseEntry& file) { return isXml(file.path); });
        if (parameters != files_.end()) {
            parameterFile_ = parameters->path;
        }
        program_ = files_[0].path;
    }

    void run() {
        const Result first = convert();
        checkCommand(first);
        checkLines(first);
        const Result second = convert();
        requireSame(first, second, "a second run differs");
        Result unasked = convert(false);
        unasked.checks = first.checks;
        requireSame(first, unasked, "who asks for checks gets another result");
        if (first.command.status == 0) {
            checkSharing(first);
        }
        for (const test::CaseEntry& file : files_) {
            require(test::readFile(Folder::root() / file.path) == file.content,
                    "a source file was changed: " + file.path);
        }
        checkLineEnds(first);
    }

private:
    Result convert(bool asksForChecks = true) const {
        std::vector<std::string> arguments = {"-o", Folder::pathOf("out")};
        if (!parameterFile_.empty()) {
            arguments.insert(arguments.end(), {"-p", Folder::pathOf(parameterFile_)});
        }
        arguments.push_back(Folder::pathOf(program_));
        Result result;
        if (asksForChecks) {
            test::ConverterRun run = test::runForChecks(arguments, lowLimits());
            result.checks = *run.checks;
            result.command = std::move(run);
        } else {
            result.command = runCommand(arguments, lowLimits());
        }
        const std::string stem(fileStem(lastComponent(program_)));
        const fs::path output = Folder::root() / "out" / (stem + ".torvel");
        const fs::path log = Folder::root() / "out" / (stem + ".log");
        if (result.command.status == 0) {
            result.output = test::readFile(output);
            result.log = test::readFile(log);
            fs::remove(output);
            fs::remove(log);
        }
        require(!fs::exists(output) && !fs::exists(log), "a run that failed has written");
        return result;
    }

    static void requireSame(const Result& a, const Result& b, const std::string& fault) {
        require(a.command.status == b.command.status &&
                    a.command.standardError == b.command.standardError,
                fault + ": " + a.command.standardError + b.command.standardError);
        const std::string difference = test::textDifference(a.output, b.output) +
                                       test::textDifference(a.log, b.log) +
                                       test::textDifference(a.checks, b.checks);
        require(difference.empty(), fault + ":\n" + difference);
    }

    static void checkCommand(const Result& result) {
        const CommandResult& command = result.command;
        require(command.standardOutput.empty(), "something was printed");
        require((command.status == 0) == command.standardError.empty(),
                "the status does not fit the message: " + command.standardError);
    }

    AxisNames axisNames() const {
        return parameterFile_.empty() ? AxisNames()
                                      : loadParameterFile(Folder::pathOf(parameterFile_));
    }

    /// However the lines are shared out, output and checks are the same.
    void checkSharing(const Result& expected) const {
        const Limits limits = lowLimits();
        const AxisNames axes = axisNames();
        for (const unsigned helpers : {0U, 1U}) {
            Program program;
            program.lines.setPartSize(1 + 2 * helpers);
            CheckRecord record;
            MessageLog log;
            ConversionContext context{program, axes, limits, log, {}, 0, &record};
            ProgramConversion conversion(context, {helpers});
            preprocessProgram(program, Folder::pathOf(program_), axes, limits,
                              predefinedConstants(), fileSystemSource(), &record,
                              [&](const ProgramPart& part) { conversion.add(part); });
            OutputFile output;
            const fs::path path = Folder::root() / "out" / "shared";
            require(output.open(path), "no output");
            conversion.write(output);
            require(output.close(), "no output");
            std::string checks;
            tellFindings(program, record, log, [&](const Finding& finding) {
                checks += finding.origin == FindingOrigin::check ? test::checkLine(finding) : "";
            });
            requireNone(test::textDifference(test::readFile(path), expected.output));
            requireNone(test::textDifference(checks, expected.checks));
            fs::remove(path);
        }
    }

    /// Converts the program once more, with another one in turns, and checks line by line.
    void checkLines(const Result& expected) const {
        const Limits limits = lowLimits();
        Program program;
        AxisNames axes;
        try {
            axes = axisNames();
            preprocessProgram(program, Folder::pathOf(program_), axes, limits);
        } catch (const std::exception& error) {
            require(expected.command.standardError == error.what() + std::string("\n"),
                    "another message: " + expected.command.standardError + error.what());
            return;
        }
        require(expected.command.status == 0, "failed behind the preprocessor");
        requireNone(test::sourceLineFault(program));
        test::LineByLine lines(program, axes, limits);
        test::LineByLine others(program, axes, limits);
        while (lines.step()) {
            require(lines.nesting() == 0, "an expression is left open");
            others.step();
        }
        requireNone(test::messageFault(lines));
        requireNone(test::outputFault(lines));
        requireNone(test::conversionDifference(lines, others.finish()));
        requireNone(test::textDifference(lines.output(), expected.output));
        requireNone(test::textDifference(lines.logText(), expected.log));
    }

    /// Line ends of another kind change nothing.
    void checkLineEnds(const Result& expected) const {
        for (const char* lineEnd : {"\r\n", "\r"}) {
            Files files = files_;
            for (test::CaseEntry& file : files) {
                if (file.content.find('\r') != std::string::npos) {
                    return;
                }
                if (!isXml(file.path)) {
                    file.content = test::replaceAll(file.content, "\n", lineEnd);
                }
            }
            Folder::write(files);
            // The file ends are counted too, so a program just below the limit may not be below it now.
            const Result result = convert();
            Folder::write(files_);
            if (result.command.standardError != expected.command.standardError &&
                result.command.standardError.find(messageText(Message::ProgramTooLarge)) !=
                    std::string::npos) {
                continue;
            }
            requireSame(expected, result, "other line ends, another result");
        }
    }

    Files files_;
    std::string program_;
    std::string parameterFile_;
};

/// Files outside the folder, which an input could include, may not be the same a moment later.
bool leavesFolder(std::string_view input) {
    for (const std::string_view path :
         {"/proc", "/sys", "/dev", "/tmp", "..", "\\proc", "\\sys", "\\dev", "\\tmp"}) {
        if (input.find(path) != std::string_view::npos) {
            return true;
        }
    }
    return false;
}

}  // namespace

void checkConversion(const Target& /*target*/, std::string_view input) {
    if (leavesFolder(input)) {
        return;
    }
    Files files = cutIntoFiles(input);
    if (files.empty() || isXml(files[0].path)) {
        return;
    }
    for (const test::CaseEntry& file : files) {
        for (const test::CaseEntry& other : files) {
            // One path is made once, and no file is a folder.
            if (&file != &other && (other.path + '/').starts_with(file.path + '/')) {
                return;
            }
        }
    }
    const Folder folder(files);
    Check(std::move(files)).run();
}

}  // namespace torvel::fuzz
