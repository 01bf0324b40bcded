#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// What a program's bytes say of other files, without converting it. Lines are read as the preprocessor reads them:
// comments, strings and the bodies of defines hide what stands in them; conditionals hide nothing.

namespace torvel::migrate {

/// An `#include`, with its path as it is written.
struct WrittenInclude {
    std::string path;
    std::uint32_t line = 0;
};

/// The includes of a file, in order. Behind a line that cannot be read the next ones are read all the same.
std::vector<WrittenInclude> includesOf(std::string_view bytes);

/// Whether the file ends a program outside of its subroutines: END, END PROGRAM, M2 or M30.
bool endsProgram(std::string_view bytes);

}  // namespace torvel::migrate
