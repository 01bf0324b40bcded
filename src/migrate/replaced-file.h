#pragma once

#include <functional>

#include "src/base/file-system.h"
#include "src/migrate/text-sink.h"

namespace torvel::migrate {

/// Writes a file as a whole: `write` hands over its text, byte for byte, which goes into a new file beside it, and that
/// takes its name when all is written. Whatever fails, the old file stays as it was. Throws std::runtime_error with a
/// complete message.
void replaceFile(const NativePath& path, const std::function<void(const TextSink&)>& write);

}  // namespace torvel::migrate
