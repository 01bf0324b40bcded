#include "tests/support/escapes.h"
#include "tests/support/platform.h"

namespace torvel::test {

std::vector<std::string> commandLineFolders() {
    return {"tests/command_line"};
}

std::string whyNotHere(const Case& /*test*/) {
    return {};
}

std::string plainLineEnds(std::string_view written) {
    return std::string(written);
}

std::string withoutRoot(std::string_view text, const std::filesystem::path& root) {
    return replaceAll(text, root.string(), "{dir}");
}

}  // namespace torvel::test
