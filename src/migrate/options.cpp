#include "src/migrate/options.h"

#include <CLI/CLI.hpp>
#include <algorithm>

#include "src/migrate/path-pattern.h"
#include "src/migrate/recorded-source.h"

namespace torvel::migrate {

namespace {

constexpr int wrongUse = 2;

const std::vector<std::string> failWords = {"rewrite", "complete", "look",  "fix-source",
                                            "moves",   "stops",    "reads", "any"};

void addProjectOption(CLI::App& command, Options& options) {
    command.add_option("--project", options.project, "The project file (default: migration.toml)")
        ->type_name("FILE");
}

void addStoreOptions(CLI::App& command, Options& options) {
    command.add_option("--store", options.store, "Keep the store there, not in the output folder")
        ->type_name("FILE");
    command
        .add_option("--baseline", options.baseline,
                    "The accepted findings (default: migration-baseline.json beside the project "
                    "file)")
        ->type_name("FILE");
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

void addConvert(CLI::App& app, Options& options) {
    CLI::App& command = *app.add_subcommand("convert", "Convert what is new or has changed");
    command.add_option("SOURCE", options.sources, "Folders with programs, or single programs");
    command.add_option("-o,--output", options.output, "The folder of the results")
        ->type_name("FOLDER");
    command.add_option("-p,--parameters", options.parameters, "The machine's parameter file")
        ->type_name("FILE");
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
    command.add_option("--exclude", options.exclude, "Patterns of what is left out")
        ->type_name("PATTERN")
        ->transform(patternCheck())
        ->allow_extra_args(false);
    command.add_flag("--keep-extension", options.keepExtension,
                     "part.pgm becomes part.pgm.torvel, not part.torvel");
    command
        .add_option("--fail-on", options.failOn,
                    "End with 3 if there is such a finding that is not accepted: rewrite, "
                    "complete, look, fix-source; moves, stops, reads; any")
        ->type_name("WHAT")
        ->allow_extra_args(false)
        ->delimiter(',')
        ->check(CLI::IsMember(failWords));
    command.add_flag("--rebuild", options.rebuild, "Begin with an empty store");
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
        "Exit status: 0 done, 1 the run could not be done, 2 wrong use, 3 findings that are not\n"
        "accepted (with a baseline or --fail-on only).");
}

void addStatus(CLI::App& app, Options& options) {
    CLI::App& command =
        *app.add_subcommand("status", "Tell what is there and what is left, on one screen");
    command.add_option("OUTPUT", options.outputs, "Output folders (default: the project's)");
    addStoreOptions(command, options);
    addProjectOption(command, options);
    command.footer(
        "Examples:\n"
        "  torvel-migrate status\n"
        "  torvel-migrate status converted/line1 converted/line2");
}

void addReport(CLI::App& app, Options& options) {
    CLI::App& command = *app.add_subcommand("report", "Write reports, without converting");
    command.add_option("OUTPUT", options.outputs, "Output folders (default: the project's)");
    command
        .add_option("--html", options.html,
                    "The page for people: a file that ends in .html, or a folder")
        ->type_name("PATH");
    command.add_option("--json", options.json, "All of it for other programs")->type_name("FILE");
    command.add_option("--csv", options.csv, "A row for each finding")->type_name("FILE");
    command.add_option("--programs-csv", options.programsCsv, "A row for each program")
        ->type_name("FILE");
    command.add_option("--sarif", options.sarif, "For editors and code hosts")->type_name("FILE");
    command.add_option("--junit", options.junit, "For CI servers")->type_name("FILE");
    addStoreOptions(command, options);
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
    command.add_option(
        "PROGRAM", options.acceptedPrograms,
        "Only findings of these programs, or of those in a folder (default: of all)");
    command.add_option("--code", options.acceptedCodes, "Only findings with this code")
        ->type_name("CODE")
        ->allow_extra_args(false);
    command.add_option("-o,--output", options.output, "The folder of the results")
        ->type_name("FOLDER");
    addStoreOptions(command, options);
    addProjectOption(command, options);
    command.footer(
        "Examples:\n"
        "  torvel-migrate accept\n"
        "  torvel-migrate accept --code comment-continues programs/line1/main.pgm");
}

Subcommand subcommandOf(const CLI::App& app) {
    constexpr std::pair<const char*, Subcommand> names[] = {
        {"convert", Subcommand::convert}, {"status", Subcommand::status},
        {"report", Subcommand::report},   {"explain", Subcommand::explain},
        {"accept", Subcommand::accept},
    };
    return std::find_if(std::begin(names), std::end(names),
                        [&](const auto& row) { return app.got_subcommand(row.first); })
        ->second;
}

void defineOptions(CLI::App& app, Options& options) {
    app.name("torvel-migrate");
    app.set_version_flag("--version", "torvel-migrate " TORVEL_VERSION);
    app.require_subcommand(1);
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
    Options options;
    CLI::App app("Converts a plant's Brannic programs to Torvel and tells what is left to do.");
    defineOptions(app, options);
    std::reverse(arguments.begin(), arguments.end());  // the library takes the last one first
    try {
        app.parse(std::move(arguments));
        options.subcommand = subcommandOf(app);
        if (options.subcommand == Subcommand::explain && options.code.empty() &&
            !options.listCodes) {
            throw CLI::RequiredError("CODE");
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
    return keyOf(canonicalPath(directory / nativePath(argument)), project.folder);
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
