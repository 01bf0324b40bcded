#include "bench/include-tree.h"

#include <algorithm>
#include <filesystem>
#include <map>
#include <string_view>

namespace torvel::bench {

namespace {

constexpr std::size_t depth = 25;
constexpr std::size_t bytesPerFile = 4000;
constexpr std::size_t commonFiles = 8;
constexpr std::size_t bytesPerCommonFile = 1000;

std::string lines(std::size_t bytes, std::uint64_t seed) {
    return generateCorpus({bytes, seed, {"assignments", "flow-control"}})[0].text;
}

std::string include(const std::string& path) {
    return "#include \"" + path + "\"\n";
}

std::string commonFile(std::size_t number) {
    return "common" + std::to_string(number % commonFiles) + ".pgm";
}

std::string rowFile(std::size_t number) {
    return "part" + std::to_string(number) + ".pgm";
}

using FilesByPath = std::map<std::string_view, const std::string*>;

void appendFile(const FilesByPath& files, const std::string& path, std::string& text) {
    constexpr std::string_view directive = "#include \"";
    std::string_view rest = *files.at(path);
    while (!rest.empty()) {
        const std::string_view line =
            rest.substr(0, std::min(rest.find('\n'), rest.size() - 1) + 1);
        rest.remove_prefix(line.size());
        if (!line.starts_with(directive)) {
            text += line;
            continue;
        }
        const std::string_view operand = line.substr(directive.size());
        const std::filesystem::path included = operand.substr(0, operand.find('"'));
        appendFile(files, (std::filesystem::path(path).parent_path() / included).generic_string(),
                   text);
    }
}

}  // namespace

Corpus generateIncludeTree(const CorpusOptions& options) {
    Corpus corpus = {{"main.pgm", {}}};
    for (std::size_t number = 0; number < commonFiles; ++number) {
        corpus.push_back({commonFile(number), lines(bytesPerCommonFile, options.seed + number)});
    }
    std::size_t bytes = 0;
    for (std::size_t number = 0; bytes < options.bytes; ++number) {
        // The program file, the rows and the common file: `depth` in all.
        const std::size_t place = number % (depth - 2);
        if (place == 0) {
            corpus[0].text += include(rowFile(number));
        }
        std::string text = include(commonFile(number));
        text += lines(bytesPerFile / 2, options.seed + commonFiles + 2 * number);
        bytes += bytesPerFile + bytesPerCommonFile;
        if (place + 1 < depth - 2 && bytes < options.bytes) {
            text += include(rowFile(number + 1));
        }
        text += lines(bytesPerFile / 2, options.seed + commonFiles + 2 * number + 1);
        corpus.push_back({rowFile(number), std::move(text)});
    }
    return corpus;
}

std::string inOneText(const Corpus& corpus) {
    FilesByPath files;
    for (const CorpusFile& file : corpus) {
        files[file.path] = &file.text;
    }
    std::string text;
    appendFile(files, corpus[0].path, text);
    return text;
}

}  // namespace torvel::bench
