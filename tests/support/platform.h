#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/case-file.h"

// What the cases need to know about the platform that they run on: their texts are those of POSIX systems.

namespace torvel::test {

/// Folders of the repository with cases that start the program.
std::vector<std::string> commandLineFolders();

/// Why a case cannot run on this platform; empty if it can.
std::string whyNotHere(const Case& test);

/// What the program wrote, with line feeds where it has the platform's line ends. A line feed that is none
/// of them is shown as such.
std::string plainLineEnds(std::string_view written);

/// `text` with `{dir}` for the folder `root`, and slashes in the path behind it.
std::string withoutRoot(std::string_view text, const std::filesystem::path& root);

}  // namespace torvel::test
