// Hands inputs to a target, without libFuzzer:
//
//   fuzz-replay --list                 the names of the targets
//   fuzz-replay --write-seeds FOLDER   inputs made of the golden cases, a folder for each target, and the words
//                                      of the language as a dictionary, words.dict
//   fuzz-replay TARGET [PATH ...]      checks these inputs, of folders all files, and those of the golden cases
//   fuzz-replay --all [FOLDER ...]     the same for all targets, each with the folder of its name in the folders

#include <cstdio>
#include <exception>
#include <filesystem>

#include "fuzz/require.h"
#include "fuzz/target.h"
#include "fuzz/words.h"
#include "tests/support/escapes.h"
#include "tests/support/temporary-directory.h"

namespace torvel::fuzz {

namespace {

namespace fs = std::filesystem;

/// A word as an entry of a dictionary; empty if it has none.
std::string dictionaryEntry(const std::string& word) {
    if (word.empty()) {
        return {};
    }
    std::string entry = "\"";
    for (const char c : word) {
        if (c == '"' || c == '\\') {
            entry += '\\';
            entry += c;
        } else {
            entry += c == '\n' ? "\\x0A" : c == '\r' ? "\\x0D" : std::string(1, c);
        }
    }
    return entry + "\"\n";
}

void writeSeeds(const fs::path& folder) {
    for (const Target& target : targets()) {
        fs::create_directories(folder / target.name);
        std::size_t number = 0;
        for (const std::string& seed : seedsOf(target)) {
            test::writeFile(folder / target.name / std::to_string(++number), seed);
        }
    }
    std::string dictionary;
    for (const auto* words : {&allKeywords(), &commonWords(), &directiveWords()}) {
        for (const std::string& word : *words) {
            dictionary += dictionaryEntry(word);
        }
    }
    test::writeFile(folder / "words.dict", dictionary);
}

std::size_t replay(const Target& target, const fs::path& path) {
    if (fs::is_directory(path)) {
        std::size_t count = 0;
        for (const auto& entry : fs::recursive_directory_iterator(path)) {
            count += entry.is_regular_file() ? replay(target, entry.path()) : 0;
        }
        return count;
    }
    if (!fs::exists(path)) {
        return 0;
    }
    // An input that ends the process is the last that was named.
    std::fprintf(stderr, "%s\n", path.c_str());
    target.check(target, test::readFile(path));
    return 1;
}

void replayAll(const Target& target, const std::vector<fs::path>& paths) {
    std::size_t count = 0;
    for (const std::string& seed : seedsOf(target)) {
        std::fprintf(stderr, "%s: seed %zu\n", target.name.c_str(), ++count);
        target.check(target, seed);
    }
    for (const fs::path& path : paths) {
        count += replay(target, path);
    }
    std::printf("%s: %zu inputs\n", target.name.c_str(), count);
}

int run(const std::vector<std::string>& arguments) {
    if (arguments.size() == 1 && arguments[0] == "--list") {
        for (const Target& target : targets()) {
            std::puts(target.name.c_str());
        }
        return 0;
    }
    if (arguments.size() == 2 && arguments[0] == "--write-seeds") {
        writeSeeds(arguments[1]);
        return 0;
    }
    if (!arguments.empty() && arguments[0] == "--all") {
        for (const Target& target : targets()) {
            std::vector<fs::path> paths;
            for (std::size_t i = 1; i < arguments.size(); ++i) {
                paths.push_back(fs::path(arguments[i]) / target.name);
            }
            replayAll(target, paths);
        }
        return 0;
    }
    const Target* target = arguments.empty() ? nullptr : findTarget(arguments[0]);
    if (target == nullptr) {
        std::fprintf(stderr, "no such target\n");
        return 2;
    }
    replayAll(*target, {arguments.begin() + 1, arguments.end()});
    return 0;
}

}  // namespace

}  // namespace torvel::fuzz

int main(int argc, char** argv) {
    try {
        return torvel::fuzz::run({argv + 1, argv + argc});
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
