#include <windows.h>

#include <algorithm>

#include "tests/support/escapes.h"
#include "tests/support/platform.h"

namespace torvel::test {

namespace {

/// Whether every system has the text as it is, whatever its code page.
bool isAscii(std::string_view text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

bool hasAsciiPathsOnly(const Case& test) {
    return std::all_of(test.arguments.begin(), test.arguments.end(), isAscii) &&
           std::all_of(test.files.begin(), test.files.end(),
                       [](const CaseEntry& file) { return isAscii(file.path); });
}

}  // namespace

std::vector<std::string> commandLineFolders() {
    return {"tests/command_line", "tests/windows"};
}

std::string whyNotHere(const Case& test) {
    if (!test.links.empty()) {
        return "symbolic links are not for every user to make, and Wine does not make them";
    }
    if (!test.posixOnly.empty()) {
        return test.posixOnly;
    }
    for (const CaseEntry& file : test.files) {
        if (file.path.find(':') != std::string::npos) {
            return "a colon in a file's name is the mark of a stream, and Wine has no streams";
        }
        if (file.path.find('\t') != std::string::npos) {
            return "the name of a file cannot hold a tab";
        }
    }
    if (GetACP() != 1252 && !hasAsciiPathsOnly(test)) {
        return "the names are those of code page 1252";
    }
    return {};
}

std::string plainLineEnds(std::string_view written) {
    std::string text;
    for (std::size_t i = 0; i < written.size(); ++i) {
        const bool isLineEnd = written.substr(i, 2) == "\r\n";
        if (!isLineEnd && written[i] == '\n') {
            text += "[a line feed alone]";
        }
        i += isLineEnd ? 1 : 0;
        text += written[i];
    }
    return text;
}

std::string withoutRoot(std::string_view text, const std::filesystem::path& root) {
    const std::string name = "{dir}";
    std::string result = replaceAll(text, root.string(), name);
    std::size_t at = 0;
    while ((at = result.find(name, at)) != std::string::npos) {
        const auto begin = result.begin() + static_cast<std::ptrdiff_t>(at);
        std::replace(begin, std::find(begin, result.end(), '\''), '\\', '/');
        at += name.size();
    }
    return result;
}

}  // namespace torvel::test
