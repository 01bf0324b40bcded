#include "src/migrate/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <utility>

#include "src/migrate/finding-names.h"
#include "src/migrate/path-pattern.h"
#include "src/migrate/recorded-source.h"

namespace torvel::migrate {

namespace {

constexpr std::array<std::pair<const char*, Subcommand>, 5> commandNames{{
    {"convert", Subcommand::convert},
    {"status", Subcommand::status},
    {"report", Subcommand::report},
    {"explain", Subcommand::explain},
    {"accept", Subcommand::accept},
}};

/// A path that is empty would be the working directory.
CLI::Validator pathCheck() {
    return {[](const std::string& text) {
                return text.empty() ? std::string("A path is empty: name a file or a folder.")
                                    : std::string();
            },
            "", "path"};
}

void addProjectOption(CLI::App& command, Options& options) {
    command.add_option("--project", options.project, "The project file (default: migration.toml)")
        ->type_name("FILE")
        ->check(pathCheck());
}

void addStoreOption(CLI::App& command, Options& options) {
    command.add_option("--store", options.store, "Keep the store there, not in the output folder")
        ->type_name("FILE")
        ->check(pathCheck());
}

void addBaselineOption(CLI::App& command, Options& options, const std::string& text) {
    command.add_option("--baseline", options.baseline, text)->type_name("FILE")->check(pathCheck());
}

/// Of the commands that make or use the baseline that is there.
void addStoreOptions(CLI::App& command, Options& options) {
    addStoreOption(command, options);
    addBaselineOption(command, options,
                      "The accepted findings (default: migration-baseline.json beside the project "
                      "file)");
}

/// Of the commands that only read.
void addReadingOptions(CLI::App& command, Options& options) {
    command.add_option("OUTPUT", options.outputs, "Output folders (default: the project's)")
        ->check(pathCheck());
    addStoreOption(command, options);
    addBaselineOption(command, options,
                      "Tell the findings that are not in it, and end with 3 if there are any");
}

/// A pattern of the command line is made tidy, and refused, as one of the project file.
CLI::Validator patternCheck() {
    return {[](std::string& text) {
                text = tidyPattern(std::move(text));
                const auto fault = faultOfPattern(text);
                return fault ? "The pattern '" + text + "' " + *fault + "." : std::string();
            },
            "", "pattern"};
}

CLI::Validator failWordCheck() {
    return {[](const std::string& word) {
                return !failOnsOf(word).empty()
                           ? std::string()
                           : "'" + word + "' is none of rewrite, complete, look, " +
                                 "fix_source, moves, stops, reads and any.";
            },
            "", "what fails"};
}

void addConvert(CLI::App& app, Options& options) {
    CLI::App& command = *app.add_subcommand("convert", "Convert what is new or has changed");
    command.add_option("SOURCE", options.sources, "Folders with programs, or single programs")
        ->check(pathCheck());
    command.add_option("-o,--output", options.output, "The folder of the results")
        ->type_name("FOLDER")
        ->check(pathCheck());
    command.add_option("-p,--parameters", options.parameters, "The machine's parameter file")
        ->type_name("FILE")
        ->check(pathCheck());
    command.add_option("-j,--jobs", options.threads, "Threads (default: one for each processor)")
        ->check(CLI::Range(1U, 1024U))
        ->type_name("N");
    command
        .add_option("--programs", options.programs,
                    "Patterns of programs (default: **/*.pgm **/*.prg)")
        ->type_name("PATTERN")
        ->transform(patternCheck())
        ->allow_extra_args(false);
    command
        .add_option("--always", options.programsAlways,
                    "Patterns of files that are programs though others include them")
        ->type_name("PATTERN")
        ->transform(patternCheck())
        ->allow_extra_args(false);
    command
        .add_option("--exclude", options.exclude,
                    "Patterns of what is left out, in place of those in the project file")
        ->type_name("PATTERN")
        ->transform(patternCheck())
        ->allow_extra_args(false);
    command.add_flag("--keep-extension", options.keepExtension,
                     "part.pgm becomes part.pgm.torvel, not part.torvel");
    command
        .add_option("--fail-on", options.failOn,
                    "End with 3 if there is such a finding that is not accepted: rewrite, "
                    "complete, look, fix_source; moves, stops, reads; any")
        ->type_name("WHAT")
        ->allow_extra_args(false)
        ->delimiter(',')
        ->check(failWordCheck());
    command.add_flag("--rebuild", options.rebuild,
                     "Begin with an empty store, of the whole project; the old one is kept");
    command.add_flag(
        "--restore", options.restore,
        "Write outputs again that were deleted; with SOURCE only those of its programs");
    command.add_flag("-q,--quiet", options.isQuiet,
                     "Tell errors only, and if the run fails also why");
    addStoreOptions(command, options);
    addProjectOption(command, options);
    command.footer(
        "Examples:\n"
        "  torvel-migrate convert programs -o converted -p machine.xml\n"
        "  torvel-migrate convert --fail-on moves,rewrite\n"
        "  torvel-migrate convert --restore programs/line1/part.pgm\n"
        "\n"
        "Exit status: 0 done, 1 not done, or not all of it, 2 wrong use, 3 findings that are not\n"
        "accepted (with a baseline or --fail-on only).");
}

void addStatus(CLI::App& app, Options& options) {
    CLI::App& command =
        *app.add_subcommand("status", "Tell what is there and what is left, on one screen");
    addReadingOptions(command, options);
    addProjectOption(command, options);
    command.footer(
        "Examples:\n"
        "  torvel-migrate status\n"
        "  torvel-migrate status converted/line1 converted/line2");
}

void addReport(CLI::App& app, Options& options) {
    CLI::App& command = *app.add_subcommand("report", "Write reports, without converting");
    command
        .add_option("--html", options.html,
                    "The page for people: a file that ends in .html, or a folder")
        ->type_name("PATH");
    command.add_option("--json", options.json, "All of it for other programs")
        ->type_name("FILE")
        ->check(pathCheck());
    command.add_option("--csv", options.csv, "A row for each finding")
        ->type_name("FILE")
        ->check(pathCheck());
    command.add_option("--programs-csv", options.programsCsv, "A row for each program")
        ->type_name("FILE")
        ->check(pathCheck());
    command.add_option("--sarif", options.sarif, "For editors and code hosts")
        ->type_name("FILE")
        ->check(pathCheck());
    command.add_option("--junit", options.junit, "For CI servers")
        ->type_name("FILE")
        ->check(pathCheck());
    addReadingOptions(command, options);
    addProjectOption(command, options);
    command.footer(
        "FILE can be - for the standard output.\n"
        "\n"
        "Examples:\n"
        "  torvel-migrate report --html report.html\n"
        "  torvel-migrate report --csv findings.csv --programs-csv programs.csv\n"
        "  torvel-migrate report line1/converted line2/converted --json plant.json");
}

void addExplain(CLI::App& app, Options& options) {
    CLI::App& command =
        *app.add_subcommand("explain", "Explain a message or a check by its code, with an example");
    CLI::Option* const code = command.add_option("CODE", options.code, "The code");
    CLI::Option* const list = command.add_flag("--list", options.listCodes, "List all codes");
    list->excludes(code);
    addProjectOption(command, options);
    command.footer(
        "Examples:\n"
        "  torvel-migrate explain value-cut\n"
        "  torvel-migrate explain --list");
}

void addAccept(CLI::App& app, Options& options) {
    CLI::App& command = *app.add_subcommand(
        "accept", "Write the findings that are known into the baseline, and prune it");
    command
        .add_option("PROGRAM", options.acceptedPrograms,
                    "Only findings of these programs, or of those in a folder (default: of all)")
        ->check(pathCheck());
    command.add_option("--code", options.acceptedCodes, "Only findings with this code")
        ->type_name("CODE")
        ->allow_extra_args(false);
    command.add_option("-o,--output", options.output, "The folder of the results")
        ->type_name("FOLDER")
        ->check(pathCheck());
    addStoreOptions(command, options);
    addProjectOption(command, options);
    command.footer(
        "Examples:\n"
        "  torvel-migrate accept\n"
        "  torvel-migrate accept --code comment-continues programs/line1/main.pgm");
}

Subcommand subcommandOf(const CLI::App& app) {
    return std::find_if(commandNames.begin(), commandNames.end(),
                        [&](const auto& row) { return app.got_subcommand(row.first); })
        ->second;
}

/// What is wrong with the command's name, which the library would not show; empty: nothing.
std::string faultOfCommand(const std::vector<std::string>& arguments) {
    auto argument = arguments.begin();
    while (argument != arguments.end() && argument->starts_with('-')) {
        if (*argument == "--help" || *argument == "-h" || *argument == "--version") {
            return {};
        }
        const bool hasValue = *argument == "--project" && argument + 1 != arguments.end();
        argument += hasValue ? 2 : 1;
    }
    if (argument != arguments.end() &&
        std::any_of(commandNames.begin(), commandNames.end(),
                    [&](const auto& row) { return *argument == row.first; })) {
        return {};
    }
    return (argument == arguments.end() ? "No command is named."
                                        : "There is no command '" + *argument + "'.") +
           std::string(" The commands are convert, status, report, explain and accept.");
}

/// What is wrong with options that each are right; empty: nothing.
std::string faultOfOptions(const Options& options) {
    if (options.store && !options.outputs.empty()) {
        return "--store names the store that is read, and so does OUTPUT: give one of the two.";
    }
    return {};
}

void defineOptions(CLI::App& app, Options& options) {
    app.name("torvel-migrate");
    app.set_version_flag("--version", "torvel-migrate " TORVEL_VERSION);
    app.require_subcommand(1);
    addProjectOption(app, options);
    app.footer(
        "Examples:\n"
        "  torvel-migrate convert programs -o converted -p machine.xml\n"
        "  torvel-migrate status\n"
        "  torvel-migrate explain value-cut\n"
        "\n"
        "\"torvel-migrate COMMAND --help\" tells more about a command.");
    addConvert(app, options);
    addStatus(app, options);
    addReport(app, options);
    addExplain(app, options);
    addAccept(app, options);
}

}  // namespace

ParsedOptions parseOptions(std::vector<std::string> arguments) {
    ParsedOptions parsed;
    const auto refuse = [&parsed](const std::string& fault) {
        parsed.options.reset();
        parsed.status = wrongUse;
        parsed.error = fault + "\nRun with --help for more information.\n";
        return parsed;
    };
    if (const std::string fault = faultOfCommand(arguments); !fault.empty()) {
        return refuse(fault);
    }
    Options options;
    CLI::App app("Converts a plant's Brannic programs to Torvel and tells what is left to do.");
    // A slash begins a path on every system.
    app.allow_windows_style_options(false);
    defineOptions(app, options);
    std::reverse(arguments.begin(), arguments.end());  // the library takes the last one first
    try {
        app.parse(std::move(arguments));
        options.subcommand = subcommandOf(app);
        if (options.subcommand == Subcommand::explain && options.code.empty() &&
            !options.listCodes) {
            throw CLI::RequiredError("CODE");
        }
        if (const std::string fault = faultOfOptions(options); !fault.empty()) {
            return refuse(fault);
        }
        parsed.options = std::move(options);
    } catch (const CLI::ParseError& error) {
        std::ostringstream output;
        std::ostringstream errors;
        const int status = app.exit(error, output, errors);
        parsed.status = status == 0 ? 0 : wrongUse;
        parsed.output = output.str();
        parsed.error = errors.str();
    }
    return parsed;
}

namespace {

/// A path of the command line as the project has paths: a key.
std::string keyOfArgument(const std::string& argument, const NativePath& directory,
                          const Project& project) {
    return keyOf(canonicalPath(pathAt(directory, argument)), project.folder);
}

}  // namespace

void applyOptions(const Options& options, const NativePath& directory, Project& project) {
    const auto keysOf = [&](const std::vector<std::string>& arguments) {
        std::vector<std::string> keys;
        std::transform(arguments.begin(), arguments.end(), std::back_inserter(keys),
                       [&](const std::string& argument) {
                           return keyOfArgument(argument, directory, project);
                       });
        return keys;
    };
    const auto overrideList = [](const std::vector<std::string>& given,
                                 std::vector<std::string>& list) {
        if (!given.empty()) {
            list = given;
        }
    };
    const auto overridePath = [&](const std::optional<std::string>& given, auto& path) {
        if (given) {
            path = keyOfArgument(*given, directory, project);
        }
    };
    // Beside a project file they choose among its programs.
    overrideList(keysOf(options.sources), project.file.empty() ? project.sources : project.named);
    overridePath(options.output, project.output);
    overridePath(options.parameters, project.parameters);
    overridePath(options.store, project.store);
    overridePath(options.baseline, project.baseline);
    overrideList(options.programs, project.programs);
    overrideList(options.programsAlways, project.programsAlways);
    overrideList(options.exclude, project.exclude);
    overrideList(options.failOn, project.failOn);
    project.keepExtension = project.keepExtension || options.keepExtension;
}

}  // namespace torvel::migrate
