#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <stdexcept>
#include <string_view>

#include "src/base/hash.h"
#include "src/preprocess/define-table.h"

namespace torvel {

/// A name that every Brannic program may use without defining it.
struct PredefinedConstant {
    const char* name;
    /// The Brannic text that it stands for. Only names of rows before this one count in it.
    const char* value;
    /// The Torvel text that replaces it, or null.
    const char* replacement;
};

/// The constants in order, and the way from a name to its row. Nothing of it is made while the
/// program runs; a row is substituted when its name is first met.
struct PredefinedTable {
    std::span<const PredefinedConstant> rows;
    /// Row + 1 by hash, open addressing; 0 is free. A power of two.
    std::span<const std::uint16_t> slots;
    const NameLengths* lengths;
    /// By row; empty: none is composed.
    std::span<const bool> composedRows{};

    /// Whether a row's value is composed, not known.
    bool isComposed(std::size_t row) const {
        return row < composedRows.size() && composedRows[row];
    }
};

/// The table of the legacy language (data/predefined-constants.def).
const PredefinedTable& predefinedConstants();

/// The row of the constant called `name`, whose FNV-1a hash is `hash`.
std::optional<std::size_t> findPredefined(const PredefinedTable& table, std::string_view name,
                                          std::uint64_t hash);

/// Fills the slots and lengths of a table. A row without a name or a value is a fault of the table:
/// std::logic_error "Internal preprocessor error.", or at compile time no program.
constexpr void indexPredefined(std::span<const PredefinedConstant> rows,
                               std::span<std::uint16_t> slots, NameLengths& lengths) {
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (rows[row].name == nullptr || rows[row].value == nullptr) {
            throw std::logic_error("Internal preprocessor error.");
        }
        const std::string_view name = rows[row].name;
        std::size_t slot = hashText(name) & (slots.size() - 1);
        while (slots[slot] != 0) {
            slot = (slot + 1) & (slots.size() - 1);
        }
        slots[slot] = static_cast<std::uint16_t>(row + 1);
        lengths.add(name);
    }
}

}  // namespace torvel
