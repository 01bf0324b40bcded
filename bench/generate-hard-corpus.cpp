// generate-hard-corpus              prints the names of the hard programs, one a line
// generate-hard-corpus FOLDER NAME  writes one at both of its sizes, into FOLDER/1 and FOLDER/10

#include <cstdio>
#include <exception>
#include <filesystem>
#include <stdexcept>
#include <string_view>

#include "bench/corpus-files.h"
#include "bench/hard-corpus.h"

namespace {

const torvel::bench::HardProgram& programNamed(std::string_view name) {
    for (const torvel::bench::HardProgram& program : torvel::bench::hardPrograms()) {
        if (program.name == name) {
            return program;
        }
    }
    throw std::invalid_argument("there is no such program");
}

void run(int argc, char** argv) {
    if (argc == 1) {
        for (const torvel::bench::HardProgram& program : torvel::bench::hardPrograms()) {
            std::printf("%s\n", std::string(program.name).c_str());
        }
        return;
    }
    if (argc != 3) {
        throw std::invalid_argument("usage: generate-hard-corpus [FOLDER NAME]");
    }
    const torvel::bench::HardProgram& program = programNamed(argv[2]);
    for (const std::size_t times : {1, 10}) {
        writeCorpus(program.make(program.size * times),
                    std::filesystem::path(argv[1]) / std::to_string(times));
    }
    std::printf("%zu and %zu %s\n", program.size, 10 * program.size,
                std::string(program.unit).c_str());
}

}  // namespace

int main(int argc, char** argv) {
    try {
        run(argc, argv);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
