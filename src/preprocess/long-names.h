#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace torvel {

/// The names that are too long for the table of lengths (LongNames::shortest bytes and more), by
/// length and rolling hash. A window of each length glides over a word, so testing every place of
/// the word costs the same whatever the length of the names.
class LongNames {
public:
    static constexpr std::size_t shortest = 63;

    void add(std::string_view name);

    struct Length {
        std::size_t length = 0;
        /// The weight of a window's first byte when it leaves the window.
        std::uint64_t leadWeight = 1;
        std::unordered_set<std::uint64_t> hashes;
    };
    /// Lengths that occur, the longest first.
    const std::vector<Length>& lengths() const { return lengths_; }

    static constexpr std::uint64_t extend(std::uint64_t hash, char c) {
        return hash * base + static_cast<unsigned char>(c) + 1;
    }

private:
    static constexpr std::uint64_t base = 0x9E3779B97F4A7C15ULL;

    std::vector<Length> lengths_;
};

/// Windows of all long lengths over one word, at one place of it. They move forward together.
class LongNameWindows {
public:
    LongNameWindows() = default;
    LongNameWindows(const LongNames& names, std::string_view word);

    /// Moves the windows to `start`, which is not in front of their place.
    void moveTo(std::size_t start);
    /// The lengths, longest first, at which a long name may stand here. Equal hashes do not prove
    /// it: the caller compares.
    const std::vector<std::size_t>& candidates();

private:
    struct Window {
        const LongNames::Length* length;
        std::uint64_t hash;
    };

    std::string_view word_;
    std::size_t start_ = 0;
    std::vector<Window> windows_;
    std::vector<std::size_t> candidates_;
};

}  // namespace torvel
