#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

// How JavaScript and the functions of this folder hand each other bytes. A function that is exported takes one block, in
// which each value is a number in base 128 (packed-numbers.h) or a text with its length in front, and leaves one block
// behind, which stays until the next call. It returns 0 when it has done what it is for; 1: the block is a sentence that
// says why it could not be.

#define TORVEL_EXPORT extern "C" __attribute__((used, visibility("default")))

namespace torvel::browser {

/// The values that a function was given, in order. What is missing is 0 or empty.
class Request {
public:
    Request(const char* bytes, std::size_t size) : bytes_(bytes, size) {}

    std::uint64_t number();
    std::string text();

private:
    std::string_view bytes_;
};

/// Does what an exported function is for; what it returns is what is left behind.
int answered(const std::function<std::string()>& function);

}  // namespace torvel::browser
