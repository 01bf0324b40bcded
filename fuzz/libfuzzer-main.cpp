// The targets as one program of libFuzzer: --target=NAME chooses one.

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

#include "fuzz/mutation.h"
#include "fuzz/target.h"

namespace {

const torvel::fuzz::Target* chosen = nullptr;

std::string_view textOf(const std::uint8_t* data, std::size_t size) {
    return {reinterpret_cast<const char*>(data), size};
}

}  // namespace

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    constexpr std::string_view option = "--target=";
    for (int i = 1; i < *argc; ++i) {
        const std::string_view argument = (*argv)[i];
        if (argument.starts_with(option)) {
            chosen = torvel::fuzz::findTarget(argument.substr(option.size()));
        }
    }
    if (chosen == nullptr) {
        std::fprintf(stderr, "usage: %s --target=NAME [libFuzzer options] [corpus ...]\n",
                     (*argv)[0]);
        std::exit(2);
    }
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    chosen->check(*chosen, textOf(data, size));
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size,
                                               std::size_t maxSize, unsigned seed) {
    // Words change in most mutations, bytes in the others.
    if (!chosen->hasWords || seed % 4 == 0) {
        return LLVMFuzzerMutate(data, size, maxSize);
    }
    const std::string mutated = torvel::fuzz::mutateWords(*chosen, textOf(data, size), seed);
    const std::size_t length = std::min(mutated.size(), maxSize);
    mutated.copy(reinterpret_cast<char*>(data), length);
    return length;
}
