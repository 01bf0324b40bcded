#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace torvel {

/// The machine's axes: names in order, the position being the axis number, and a look-up by name that
/// is exact and case-sensitive. Made before a run and not changed by it.
class AxisNames {
public:
    /// The 32 default axes: X Y Z U A B C D, in lower case, doubled, doubled in lower case.
    AxisNames();
    /// The axes of a parameter file. Of a name that occurs twice the later number is found; an empty name
    /// keeps its number, and is found by no word.
    explicit AxisNames(std::vector<std::string> names);

    /// The number of the axis called `word`; nothing if there is none.
    std::optional<std::uint32_t> axisIndex(std::string_view word) const;
    bool contains(std::string_view word) const { return axisIndex(word).has_value(); }

    /// The length of the longest name that `word` is, or that it begins with in front of a digit; 0 if
    /// there is none. Takes time in proportion to the longest name.
    std::size_t lengthAt(std::string_view word) const;

    /// Whether some name begins with `c`.
    bool mayBegin(char c) const { return begins_[static_cast<unsigned char>(c)]; }

    /// Whether `c` is a name, and so it is in front of a digit, since no longer name goes on with one. No keyword
    /// is one letter or has a digit behind the first: such a word is the axis whatever follows.
    bool isLetter(char c) const { return letters_[static_cast<unsigned char>(c)]; }

    /// Whether some name is another one followed by `c`, whatever follows then.
    bool goesOnWith(char c) const { return continuations_[static_cast<unsigned char>(c)]; }

    const std::vector<std::string>& names() const { return names_; }
    /// Whether they are those of the machine, not the default ones.
    bool areOfParameterFile() const { return areOfParameterFile_; }
    /// Length of the longest name in bytes: no longer word needs to be looked up.
    std::size_t longestName() const { return longestName_; }

private:
    void findBeginnings();
    void findContinuations();
    std::optional<std::uint32_t> find(std::string_view word, std::uint64_t hash) const;

    std::vector<std::string> names_;
    std::vector<std::uint32_t> slots_;  // axis number + 1 by hash, open addressing; 0 is free
    std::size_t longestName_ = 0;
    bool areOfParameterFile_ = true;
    std::array<bool, 256> begins_{};
    std::array<bool, 256> letters_{};
    std::array<bool, 256> continuations_{};
};

}  // namespace torvel
