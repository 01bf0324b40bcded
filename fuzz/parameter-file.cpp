#include "src/app/parameter-file.h"

#include <stdexcept>

#include "fuzz/require.h"
#include "fuzz/target.h"
#include "src/base/messages.h"
#include "tests/support/temporary-directory.h"

namespace torvel::fuzz {

namespace {

constexpr std::string_view whiteSpace = " \t\r\n";

/// The names of the axes, a line each, or the message.
std::string load(const std::string& path) {
    std::string result;
    try {
        const AxisNames axes = loadParameterFile(path);
        std::size_t longest = 0;
        for (std::uint32_t number = 0; number < axes.names().size(); ++number) {
            const std::string& name = axes.names()[number];
            const auto found = axes.axisIndex(name);
            const bool isTrimmed =
                name.empty() || (whiteSpace.find(name.front()) == std::string_view::npos &&
                                 whiteSpace.find(name.back()) == std::string_view::npos);
            require(isTrimmed, "white space around an axis: " + name);
            require(name.empty() != found.has_value(), "a name without an axis: " + name);
            if (!found) {
                result += '\n';
                continue;
            }
            require(*found >= number && axes.names()[*found] == name,
                    "an axis is not found: " + name);
            require(axes.contains(name) && !axes.axisIndex(name + '\x01'), "an axis too many");
            longest = std::max(longest, name.size());
            result += name + '\n';
        }
        require(axes.longestName() == longest, "another longest name");
    } catch (const std::runtime_error& error) {
        result = error.what();
        require(result == messageText(Message::ParameterFileNotLoaded) ||
                    result == messageText(Message::ParameterFileMalformed),
                "another message: " + result);
    }
    return result;
}

}  // namespace

void checkParameterFile(const Target& /*target*/, std::string_view input) {
    static const test::TemporaryDirectory directory;
    const std::string path = (directory.path() / "axes.xml").string();
    test::writeFile(path, input);
    require(load(path) == load(path), "a second reading gives another result");
    require(test::readFile(path) == input, "the file was changed");
}

}  // namespace torvel::fuzz
