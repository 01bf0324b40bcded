#include "src/migrate/commands.h"

#include <new>
#include <stdexcept>

#include "src/migrate/convert-command.h"
#include "src/migrate/options.h"
#include "src/migrate/report-commands.h"

namespace torvel::migrate {

namespace {

int run(const Options& options, const Console& console) {
    switch (options.subcommand) {
        case Subcommand::convert: return convertCommand(options, console);
        case Subcommand::status: return statusCommand(options, console);
        case Subcommand::report: return reportCommand(options, console);
        case Subcommand::explain: return explainCommand(options, console);
        case Subcommand::accept: return acceptCommand(options, console);
    }
    return 1;
}

}  // namespace

int runMigrate(const std::vector<std::string>& arguments, const Console& console) {
    const ParsedOptions parsed = parseOptions(arguments);
    try {
        if (!parsed.options) {
            console.output(parsed.output);
            console.error(parsed.error);
            return parsed.status;
        }
        return run(*parsed.options, console);
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception& error) {
        console.error("torvel-migrate: " + std::string(error.what()) + '\n');
        return 1;
    }
}

}  // namespace torvel::migrate
