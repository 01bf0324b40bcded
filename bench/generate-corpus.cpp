// generate-corpus [--bytes N] [--seed N] [--families A,B,...|include-tree] [--text FILE] FOLDER
// Writes a generated program, main.pgm and what it includes, into a folder, and prints what it is made of. The
// text is the program with its includes in their places, without the directives that a C preprocessor does not
// know or would leave out lines for.

#include <algorithm>
#include <cstdio>
#include <exception>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

#include "bench/corpus-files.h"
#include "bench/corpus-shares.h"
#include "bench/include-tree.h"

namespace {

using torvel::bench::Corpus;

struct Options {
    torvel::bench::CorpusOptions corpus;
    bool isIncludeTree = false;
    /// Empty: the text is not wanted.
    std::string textPath;
};

void readOption(const std::string& name, const std::string& value, Options& options) {
    if (name == "--bytes") {
        options.corpus.bytes = std::stoull(value);
    } else if (name == "--seed") {
        options.corpus.seed = std::stoull(value);
    } else if (name == "--families" && value == "include-tree") {
        options.isIncludeTree = true;
    } else if (name == "--families") {
        std::istringstream names(value);
        for (std::string family; std::getline(names, family, ',');) {
            options.corpus.families.push_back(family);
        }
    } else if (name == "--text") {
        options.textPath = value;
    } else {
        throw std::invalid_argument("unknown option " + name);
    }
}

/// Whether a C preprocessor does the same with the line: it has no directive but #define.
bool isForAll(std::string_view line) {
    const std::string_view code = line.substr(std::min(line.find_first_not_of(' '), line.size()));
    return !code.starts_with('#') || code.starts_with("#define");
}

void writeText(const std::string& text, const std::string& path) {
    std::ofstream out(path, std::ios::binary);
    for (std::string_view rest = text; !rest.empty();) {
        const std::string_view line =
            rest.substr(0, std::min(rest.find('\n'), rest.size() - 1) + 1);
        rest.remove_prefix(line.size());
        if (isForAll(line)) {
            out << line;
        }
    }
    if (!out.flush()) {
        throw std::runtime_error("cannot write " + path);
    }
}

/// `bytes` are those of the program with its includes in their places.
void printShares(const torvel::bench::CorpusShares& shares, std::size_t bytes) {
    std::printf(
        "%zu bytes, %zu files, %zu lines, %.1f %% comment lines, %zu defines, %.1f %% of lines "
        "with a defined name\n",
        bytes, shares.files, shares.lines, 100 * shares.share(shares.commentLines), shares.defines,
        100 * shares.share(shares.linesWithNames));
}

}  // namespace

int main(int argc, char** argv) {
    try {
        Options options;
        int next = 1;
        for (; next + 2 < argc; next += 2) {
            readOption(argv[next], argv[next + 1], options);
        }
        if (next + 1 != argc || argv[next][0] == '-') {
            throw std::invalid_argument(
                "usage: generate-corpus [--bytes N] [--seed N] [--families A,B,...|include-tree] "
                "[--text FILE] FOLDER");
        }
        const Corpus corpus = options.isIncludeTree
                                  ? torvel::bench::generateIncludeTree(options.corpus)
                                  : torvel::bench::generateCorpus(options.corpus);
        torvel::bench::writeCorpus(corpus, argv[next]);
        const std::string text = torvel::bench::inOneText(corpus);
        if (!options.textPath.empty()) {
            writeText(text, options.textPath);
        }
        printShares(torvel::bench::countShares(corpus), text.size());
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
