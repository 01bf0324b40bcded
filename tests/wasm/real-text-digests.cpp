// Reads and writes a million numbers as the converter does, and prints a hash for every 20,000 of them: the same lines
// from every build.

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "src/expr/number-text.h"
#include "tests/support/real-text-samples.h"

namespace {

class Digest {
public:
    void add(std::string_view bytes) {
        for (const char byte : bytes) {
            hash_ = (hash_ ^ static_cast<unsigned char>(byte)) * 0x100000001B3U;
        }
        add(bytes.size());
    }
    void add(std::uint64_t number) {
        for (unsigned shift = 0; shift < 64; shift += 8) {
            hash_ = (hash_ ^ (number >> shift & 255U)) * 0x100000001B3U;
        }
    }
    std::uint64_t value() const { return hash_; }

private:
    std::uint64_t hash_ = 0xCBF29CE484222325U;
};

void addReal(double value, Digest& digest) {
    if (!std::isnan(value)) {
        torvel::TextBuffer text;
        torvel::appendReal(value, text);
        digest.add(std::string_view(text));
    }
}

void addText(const std::string& text, Digest& digest) {
    const auto value = torvel::parseRealText(text);
    digest.add(text);
    digest.add(value ? 1 : 0);
    if (value && !std::isnan(*value)) {
        digest.add(torvel::test::bitsOf(*value));
        addReal(*value, digest);
    }
}

}  // namespace

int main() {
    constexpr std::uint32_t block = 20'000;
    std::uint32_t number = 0;
    std::uint32_t read = 0;
    Digest digest;
    torvel::test::forEachRealText(1'000'000, [&](const std::string& text) {
        read += torvel::parseRealText(text) ? 1 : 0;
        addText(text, digest);
        addReal(torvel::test::realSample(number), digest);
        if (++number % block == 0) {
            std::printf("%u %016llx\n", number, static_cast<unsigned long long>(digest.value()));
        }
    });
    std::printf("%u of %u are numbers\n", read, number);
    return 0;
}
