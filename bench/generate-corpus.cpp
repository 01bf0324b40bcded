// generate-corpus [--bytes N] [--seed N] [--families A,B,...] FOLDER
// Writes a generated program, main.pgm and what it includes, into a folder.

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "bench/corpus.h"

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

void writeCorpus(const CorpusOptions& options, const std::filesystem::path& folder) {
    for (const torvel::bench::CorpusFile& file : torvel::bench::generateCorpus(options)) {
        const std::filesystem::path path = folder / file.path;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream out(path, std::ios::binary);
        out << file.text;
        if (!out.flush()) {
            throw std::runtime_error("cannot write " + path.string());
        }
    }
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
        writeCorpus(options, argv[next]);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
