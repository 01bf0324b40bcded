// generate-corpus [--bytes N] [--seed N] [--families A,B,...] FOLDER
// Writes a generated program, main.pgm and what it includes, into a folder, and prints what it is made of.

#include <cstdio>
#include <exception>
#include <sstream>
#include <string>

#include "bench/corpus-files.h"
#include "bench/corpus-shares.h"

namespace {

using torvel::bench::CorpusOptions;

void readOption(const std::string& name, const std::string& value, CorpusOptions& options) {
    if (name == "--bytes") {
        options.bytes = std::stoull(value);
    } else if (name == "--seed") {
        options.seed = std::stoull(value);
    } else if (name == "--families") {
        std::istringstream names(value);
        for (std::string family; std::getline(names, family, ',');) {
            options.families.push_back(family);
        }
    } else {
        throw std::invalid_argument("unknown option " + name);
    }
}

void printShares(const torvel::bench::CorpusShares& shares) {
    std::printf(
        "%zu bytes, %zu files, %zu lines, %.1f %% comment lines, %zu defines, %.1f %% of lines "
        "with a defined name\n",
        shares.bytes, shares.files, shares.lines, 100 * shares.share(shares.commentLines),
        shares.defines, 100 * shares.share(shares.linesWithNames));
}

}  // namespace

int main(int argc, char** argv) {
    try {
        CorpusOptions options;
        int next = 1;
        for (; next + 2 < argc; next += 2) {
            readOption(argv[next], argv[next + 1], options);
        }
        if (next + 1 != argc) {
            throw std::invalid_argument(
                "usage: generate-corpus [--bytes N] [--seed N] [--families A,B,...] FOLDER");
        }
        const torvel::bench::Corpus corpus = torvel::bench::generateCorpus(options);
        torvel::bench::writeCorpus(corpus, argv[next]);
        printShares(torvel::bench::countShares(corpus));
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
