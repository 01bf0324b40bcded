#pragma once

#include <cstddef>
#include <cstdint>

namespace torvel {

/// Bounds of one run. They keep hostile or broken programs from exhausting the machine; each but
/// composedValue ends in a message of its own. docs/limits.md tells users about them; tests lower them.
struct Limits {
    /// Files open at once through `#include`, the program file counted.
    unsigned includeDepth = 31;
    /// Files included in one run, a file included twice counted twice.
    std::uint32_t includedFiles = 100'000;
    /// Bytes of one define's expansion.
    std::size_t defineExpansion = std::size_t{1} << 20U;
    /// Bytes of a define's value that holds other defines, if it is to be kept as a define of Torvel: to judge
    /// such a value it has to be put together. A longer one is not kept, and there is no message.
    std::size_t composedValue = std::size_t{1} << 12U;
    /// Bytes that defines put into one line.
    std::size_t lineExpansion = std::size_t{1} << 20U;
    /// Bytes of the program with everything it includes.
    std::uint64_t programText = std::uint64_t{1} << 32U;
    /// Constructs open at once in one expression.
    unsigned expressionNesting = 256;
    /// Bytes of the parameter file.
    std::uint64_t parameterFile = std::uint64_t{1} << 26U;
    /// Attributes of one element of the parameter file.
    std::size_t elementAttributes = 1000;
    /// Bytes of one axis name.
    std::size_t axisName = 255;
};

}  // namespace torvel
