// Which lines have to be lexed before anything is written: those with a byte that begins no token. A byte of
// the kind in a string does no harm, but the line is lexed early all the same.

#include "src/lex/refused-bytes.h"

#include "src/lex/lexer.h"

namespace torvel {

bool mayBeRefused(std::string_view code) {
    const char* const end = code.data() + code.size();
    for (const char* at = code.data(); at < end; at += ByteBlock::size) {
        const ByteBlock bytes(at);
        // Bytes that begin no token, wherever they stand, and those that begin a comment.
        std::uint32_t refused = bytesOfNoToken<';', '\''>(bytes);
        if (end - at < static_cast<std::ptrdiff_t>(ByteBlock::size)) {
            refused &= (1U << (end - at)) - 1U;
        }
        if (refused != 0) {
            return true;
        }
    }
    return false;
}

}  // namespace torvel
