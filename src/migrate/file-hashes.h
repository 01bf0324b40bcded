#pragma once

#include <optional>
#include <string>
#include <vector>

#include "src/base/file-source.h"
#include "src/migrate/content-hash.h"

namespace torvel::migrate {

/// The hash of a file's bytes; nothing if it is not there or cannot be read.
std::optional<ContentHash> hashOfFile(const NativePath& path,
                                      const FileSource& source = fileSystemSource());

}  // namespace torvel::migrate
