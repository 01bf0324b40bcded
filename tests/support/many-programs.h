#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

// docs/many-programs.md, and a small shelf of programs to run its loops on.

namespace torvel::test {

/// The loop of the page in that language ("bash", "bat").
std::string loopOfPage(std::string_view language);

/// Makes the folder `programs` in `root`: programs of one name in two folders, one with a blank in its
/// name; files that are included by way of each other; a program whose name ends like that of an included
/// file; and one that cannot be converted. `machine.xml` stands beside it: one program needs its axis STAGE.
void writeShelf(const std::filesystem::path& root);

/// The files below `folder`, seen from it, with slashes, in order.
std::vector<std::string> filesBelow(const std::filesystem::path& folder);

/// What `filesBelow` gives for the results of the shelf.
std::vector<std::string> resultsOfShelf();

}  // namespace torvel::test
