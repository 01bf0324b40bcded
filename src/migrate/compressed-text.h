#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace torvel::migrate {

/// Compresses texts as the store keeps them: the length, and the bytes in the format of zlib. One that is used again
/// takes half of the time of a new one. For one thread at a time.
class Compressor {
public:
    Compressor();
    ~Compressor();
    Compressor(const Compressor&) = delete;
    Compressor& operator=(const Compressor&) = delete;

    std::string compressed(std::string_view text);

private:
    struct State;
    void forgetLargeRoom();

    std::unique_ptr<State> state_;
};

/// Compressors for several threads, which borrow them.
class Compressors {
public:
    using Lent = std::unique_ptr<Compressor, std::function<void(Compressor*)>>;

    /// One for the caller alone, which goes back when the caller lets it go.
    Lent borrow();

private:
    std::mutex mutex_;
    std::vector<std::unique_ptr<Compressor>> free_;
};

/// A text compressed by a compressor of its own.
std::string compressed(std::string_view text);

/// The text that `compressed` was given; nothing if the bytes are not of that kind.
std::optional<std::string> uncompressed(std::string_view bytes);

}  // namespace torvel::migrate
