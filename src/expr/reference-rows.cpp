#include "src/expr/reference-rows.h"

#include <algorithm>
#include <stdexcept>

#include "src/base/characters.h"

namespace torvel {

namespace {

constexpr std::array<std::string_view, 6> kindNames = {"axis parameter",   "task parameter",
                                                       "system parameter", "axis item",
                                                       "task item",        "system item"};

std::string rowText(ReferenceKind kind, std::uint32_t number) {
    return std::string(kindNames[static_cast<std::size_t>(kind)]) + ' ' + std::to_string(number);
}

}  // namespace

bool isTorvelName(std::string_view text) {
    const auto isNameByte = [](char c) { return isLetter(c) || isDigit(c); };
    return !text.empty() && isLetter(text[0]) && std::all_of(text.begin(), text.end(), isNameByte);
}

void ReferenceRows::add(ReferenceKind kind, std::uint32_t number, std::string_view name) {
    if (!isTorvelName(name)) {
        throw std::invalid_argument("The name '" + std::string(name) + "' of " +
                                    rowText(kind, number) +
                                    " is no name of Torvel: a letter, then letters and digits.");
    }
    if (!names_[static_cast<std::size_t>(kind)].emplace(number, name).second) {
        throw std::invalid_argument("There are two names of " + rowText(kind, number) + '.');
    }
}

std::optional<std::string_view> ReferenceRows::find(ReferenceKind kind,
                                                    std::uint32_t number) const {
    const auto& names = names_[static_cast<std::size_t>(kind)];
    const auto row = names.find(number);
    return row == names.end() ? std::nullopt : std::optional<std::string_view>(row->second);
}

bool ReferenceRows::empty() const {
    return std::all_of(names_.begin(), names_.end(),
                       [](const auto& names) { return names.empty(); });
}

}  // namespace torvel
