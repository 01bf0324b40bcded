#pragma once

#include <array>
#include <cstdint>
#include <iterator>
#include <optional>
#include <span>
#include <string_view>

namespace torvel {

/// A row of a table of names by legacy number. An empty name: there was such a thing, and it is gone.
struct NumberedName {
    std::uint32_t number;
    std::string_view name;
};

/// The highest number of the rows.
constexpr std::uint32_t highestNumber(std::span<const NumberedName> rows) {
    std::uint32_t highest = 0;
    for (const NumberedName& row : rows) {
        highest = row.number > highest ? row.number : highest;
    }
    return highest;
}

/// Names by number, made at compile time; numbers without a row have no name. Two rows of one number
/// do not compile.
template <std::uint32_t highest>
class NameTable {
public:
    explicit constexpr NameTable(std::span<const NumberedName> rows) {
        for (const NumberedName& row : rows) {
            if (names_[row.number].has_value()) {
                throw "a number has two rows";
            }
            names_[row.number] = row.name;
        }
    }

    /// The name; empty if what had the number is gone; nothing if there never was any.
    constexpr std::optional<std::string_view> find(std::uint32_t number) const {
        return number <= highest ? names_[number] : std::nullopt;
    }

private:
    std::array<std::optional<std::string_view>, highest + 1> names_{};
};

}  // namespace torvel
