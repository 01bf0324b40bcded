#pragma once

#include <cstddef>

// What InputFile and OutputFile need of an open file of the platform.

namespace torvel {

/// Reads some bytes, at least one unless the file ends there: 0. Negative: the system reports an error.
std::ptrdiff_t readSome(int descriptor, char* data, std::size_t length);

/// Writes some of the bytes and tells how many. 0 or negative: it cannot be done.
std::ptrdiff_t writeSome(int descriptor, const char* data, std::size_t length);

/// Takes a file's content away; a device or a pipe keeps what it has.
void emptyFile(int descriptor);

/// False: something that was written before is lost.
bool closeDescriptor(int descriptor);

}  // namespace torvel
