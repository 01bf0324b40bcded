#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

#include "src/base/short-name-table.h"

namespace torvel {

/// How the names of a program are spelled, in the order in which they stand there. Capital letters are no others for
/// it. Only views of names are kept.
class Spellings {
public:
    /// Whether a name that stands here for the first time is a word of Torvel, or was spelled otherwise before. As in
    /// every text store sixteen bytes can be read from its first one on.
    bool isShadow(std::string_view name);

private:
    bool isOther(std::string_view name);

    static constexpr std::size_t fewestSlots = 64;

    /// By names in small letters how they were spelled first.
    ShortNameTable<ShortName> shortNames_{fewestSlots};
    /// The same for long names.
    std::unordered_map<std::string, std::string_view> longNames_;
    /// Spellings that are not the first of their name.
    std::unordered_set<std::string_view> others_;
};

}  // namespace torvel
