#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "src/base/file-source.h"
#include "src/migrate/program-result.h"

namespace torvel::migrate {

/// The key of a canonical path in a project whose folder is canonical.
std::string keyOf(const NativePath& path, const NativePath& folder);

/// A path as keys are written.
std::string keyText(const NativePath& path);

/// The canonical path that has a key.
NativePath pathOf(std::string_view key, const NativePath& folder);

/// Whether a key is a whole path, of a file on another drive or share than the project's folder.
bool isAbsoluteKey(std::string_view key);

/// A key in small letters: those that differ by case only are one file on some systems, and count as one on all.
std::string foldedKey(std::string key);

/// A source of files that notes what is asked of another one: each file that is read with the hash of its bytes, and
/// each that is looked for and not there. `source`, `folder` and `inputs` have to outlive it.
FileSource recordedSource(const FileSource& source, const NativePath& folder,
                          std::vector<Input>& inputs);

}  // namespace torvel::migrate
