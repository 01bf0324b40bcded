#pragma once

#include <atomic>
#include <functional>
#include <string>
#include <vector>

#include "src/migrate/terminal.h"
#include "src/migrate/text-sink.h"

namespace torvel::migrate {

/// What commands talk to.
struct Console {
    /// Throws std::runtime_error with a complete message if it cannot be written.
    TextSink output;
    TextSink error;
    std::function<Terminal()> outputTerminal;
    std::function<Terminal()> errorTerminal;
    /// What commands that end in good order ask for: from then on the flag is set when the user wants that. Others
    /// are ended by the system. None, or null: nobody can.
    std::function<const std::atomic<bool>*()> catchInterrupts;
};

/// Runs torvel-migrate on the arguments behind its name. 0: done; 1: the run could not be done, or was interrupted;
/// 2: wrong use; 3: findings that are not accepted. Throws nothing but std::bad_alloc.
int runMigrate(const std::vector<std::string>& arguments, const Console& console);

}  // namespace torvel::migrate
