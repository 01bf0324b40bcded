#include <deque>
#include <sstream>
#include <string>

#include "src/base/file-system.h"
#include "src/base/source-position.h"
#include "tests/support/program-text.h"
#include "tests/support/table.h"

namespace torvel::test {

namespace {

/// "inc/b.pgm:7 main.pgm:12 :: message": the place of the error, then those of the including lines.
std::string diagnostic(const std::string& input) {
    const auto [places, message] = splitInput(input);
    std::deque<SourceFile> files;
    std::deque<Inclusion> inclusions;
    SourcePosition position;
    SourcePosition* next = &position;
    std::istringstream words(places);
    for (std::string place; words >> place;) {
        const std::size_t colon = place.rfind(':');
        files.emplace_back().displayPath = place.substr(0, colon);
        Inclusion& inclusion = inclusions.emplace_back(Inclusion{&files.back(), {}});
        *next = {&inclusion, static_cast<std::uint32_t>(std::stoul(place.substr(colon + 1)))};
        next = &inclusion.includedFrom;
    }
    return formatDiagnostic(position, message);
}

std::string shownPath(const std::string& input) {
    const auto [path, directory] = splitInput(input);
    return displayPath(nativePath(path), nativePath(directory));
}

std::string lastOf(const std::string& path) {
    return std::string(lastComponent(path));
}

std::string stemOf(const std::string& name) {
    return std::string(fileStem(name));
}

const TableTests diagnostics("diagnostics", {{"text", diagnostic},
                                             {"display path", shownPath},
                                             {"last component", lastOf},
                                             {"stem", stemOf}});

}  // namespace

}  // namespace torvel::test
