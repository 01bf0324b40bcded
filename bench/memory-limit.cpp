// memory-limit IN OUT
// What no converter can do faster: it reads every byte of a file once, tells of what class it is, and writes as
// many bytes. The classes are letters, digits, blanks, ends of lines and the rest; how many bytes of each
// there are is printed, so that they have to be told.

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

/// Bytes of which a sum of bytes cannot run over.
constexpr std::size_t stripe = 240;

struct Classes {
    std::uint64_t letters = 0;
    std::uint64_t digits = 0;
    std::uint64_t blanks = 0;
    std::uint64_t lineEnds = 0;
};

/// Letters become small on the way: each byte is looked at and made anew. The compiler does many at once.
void classify(const unsigned char* in, unsigned char* out, std::size_t size, Classes& classes) {
    for (std::size_t begin = 0; begin < size; begin += stripe) {
        const std::size_t end = std::min(size, begin + stripe);
        std::uint8_t letters = 0;
        std::uint8_t digits = 0;
        std::uint8_t blanks = 0;
        std::uint8_t lineEnds = 0;
        for (std::size_t i = begin; i < end; ++i) {
            const auto small = static_cast<unsigned char>(in[i] | 0x20U);
            const auto letter = static_cast<std::uint8_t>(small >= 'a' && small <= 'z');
            letters = static_cast<std::uint8_t>(letters + letter);
            digits = static_cast<std::uint8_t>(digits + (in[i] >= '0' && in[i] <= '9'));
            blanks = static_cast<std::uint8_t>(blanks + (in[i] == ' ' || in[i] == '\t'));
            lineEnds = static_cast<std::uint8_t>(lineEnds + (in[i] == '\n' || in[i] == '\r'));
            out[i] = letter != 0 ? small : in[i];
        }
        classes.letters += letters;
        classes.digits += digits;
        classes.blanks += blanks;
        classes.lineEnds += lineEnds;
    }
}

struct File {
    File(const char* path, const char* mode) : stream(std::fopen(path, mode)) {
        if (stream == nullptr) {
            throw std::runtime_error(std::string("cannot open ") + path);
        }
        std::setvbuf(stream, nullptr, _IONBF, 0);
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() { std::fclose(stream); }

    std::FILE* stream;
};

void run(const char* inPath, const char* outPath) {
    const File in(inPath, "rb");
    const File out(outPath, "wb");
    // What fits into the processor's cache goes through memory once in and once out.
    std::vector<unsigned char> read(std::size_t{1} << 18U);
    std::vector<unsigned char> written(read.size());
    Classes classes;
    std::size_t total = 0;
    while (const std::size_t size = std::fread(read.data(), 1, read.size(), in.stream)) {
        classify(read.data(), written.data(), size, classes);
        if (std::fwrite(written.data(), 1, size, out.stream) != size) {
            throw std::runtime_error(std::string("cannot write ") + outPath);
        }
        total += size;
    }
    std::printf("%zu bytes, %llu letters, %llu digits, %llu blanks, %llu ends of lines\n", total,
                static_cast<unsigned long long>(classes.letters),
                static_cast<unsigned long long>(classes.digits),
                static_cast<unsigned long long>(classes.blanks),
                static_cast<unsigned long long>(classes.lineEnds));
}

}  // namespace

int main(int argc, char** argv) {
    try {
        if (argc != 3) {
            throw std::invalid_argument("usage: memory-limit IN OUT");
        }
        run(argv[1], argv[2]);
        return 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 1;
    }
}
