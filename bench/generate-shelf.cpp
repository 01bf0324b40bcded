// generate-shelf [--programs N] [--bytes N] FOLDER
// Writes a shelf of generated programs into a folder: 100 folders below it, 10,000 programs of 20,000 bytes or as many
// as are asked for. The programs of a folder include one file of it. The same arguments give the same bytes.

#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "bench/corpus.h"

namespace {

constexpr std::size_t folders = 100;

/// Whether a line is a statement for itself: no directive, and nothing that belongs to a block.
bool standsAlone(std::string_view line) {
    line.remove_prefix(std::min(line.find_first_not_of(' '), line.size()));
    for (const std::string_view word :
         {"#", "IF", "ELSE", "END", "WHILE", "FOR", "NEXT", "REPEAT", "DFS", "SWITCH", "CASE"}) {
        if (line.starts_with(word)) {
            return false;
        }
    }
    return true;
}

std::vector<std::string> linesOfCorpus() {
    torvel::bench::CorpusOptions options;
    options.bytes = 4'000'000;
    options.families = {"points", "assignments", "comments"};
    std::istringstream text(torvel::bench::generateCorpus(options).front().text);
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) {
        if (standsAlone(line)) {
            lines.push_back(line + '\n');
        }
    }
    return lines;
}

std::string numbered(const char* pattern, std::size_t number) {
    char text[32];
    std::snprintf(text, sizeof text, pattern, number);
    return text;
}

void write(const std::filesystem::path& path, const std::string& text) {
    std::ofstream out(path, std::ios::binary);
    if (!(out << text).flush()) {
        throw std::runtime_error("cannot write " + path.string());
    }
}

void generate(const std::filesystem::path& shelf, std::size_t programs, std::size_t bytes) {
    const std::vector<std::string> lines = linesOfCorpus();
    std::mt19937 random(1);
    for (std::size_t i = 0; i < folders; ++i) {
        const std::filesystem::path folder = shelf / numbered("f%03zu", i);
        std::filesystem::create_directories(folder);
        write(folder / "shared.inc", "; what the programs of this folder have in common\n");
    }
    for (std::size_t i = 0; i < programs; ++i) {
        std::string text = "#include \"shared.inc\"\n";
        while (text.size() < bytes) {
            text += lines[random() % lines.size()];
        }
        write(shelf / numbered("f%03zu", i % folders) / numbered("p%06zu.pgm", i), text);
    }
}

}  // namespace

int main(int argc, char** argv) {
    try {
        std::size_t programs = 10'000;
        std::size_t bytes = 20'000;
        int next = 1;
        for (; next + 2 < argc; next += 2) {
            const std::string name = argv[next];
            if (name != "--programs" && name != "--bytes") {
                throw std::invalid_argument("unknown option " + name);
            }
            (name == "--programs" ? programs : bytes) = std::stoul(argv[next + 1]);
        }
        if (next + 1 != argc || argv[next][0] == '-') {
            throw std::invalid_argument("usage: generate-shelf [--programs N] [--bytes N] FOLDER");
        }
        generate(argv[next], programs, bytes);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
