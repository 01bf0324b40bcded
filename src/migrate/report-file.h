#pragma once

#include <fstream>
#include <functional>
#include <string>

#include "src/base/file-system.h"
#include "src/migrate/text-sink.h"

namespace torvel::migrate {

/// Writes a file in pieces, beside its place, and puts it there when it is complete. "-" is `output`. Throws
/// std::runtime_error with a complete message; nothing is left behind then.
void writeReportFile(const std::string& path, const TextSink& output,
                     const std::function<void(const TextSink& sink)>& write);

}  // namespace torvel::migrate
