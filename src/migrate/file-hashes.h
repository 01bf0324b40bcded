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

/// Calls `work` for each number below `count`, by several threads. Throws what one of the calls threw.
void inParallel(std::size_t count, unsigned threads, const std::function<void(std::size_t)>& work);

}  // namespace torvel::migrate
