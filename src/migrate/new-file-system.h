#pragma once

#include <string>

#include "src/base/file-system.h"

// What new files need of the platform.

namespace torvel::migrate {

/// A new file that is open for writing; one that a killed run left is taken away. Negative: it cannot be made.
int createFile(const NativePath& path);

/// Gives a file the permissions of `old`, if that is there.
bool takePermissions(int descriptor, const NativePath& old);

/// Waits until the file is on the disk.
bool flushFile(int descriptor);

/// Puts a file in the place of another one. Where others who have that open can refuse it, it is tried again for some
/// seconds.
bool replaceFile(const NativePath& from, const NativePath& to);

/// The system's words for what failed just now.
std::string lastError();

}  // namespace torvel::migrate
