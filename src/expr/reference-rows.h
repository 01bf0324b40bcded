#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

namespace torvel {

/// What a reference row of a site names.
enum class ReferenceKind : std::uint8_t {
    axisParameter,
    taskParameter,
    systemParameter,
    axisItem,
    taskItem,
    systemItem,
};

/// Whether Torvel could have something of this name: a letter, then letters and digits.
bool isTorvelName(std::string_view text);

/// What a controller calls its parameters and data items by their legacy numbers, over the rows of data/. They count
/// for numbers that a program writes; a legacy name goes through the built-in rows, which know which Torvel name is
/// its own.
class ReferenceRows {
public:
    /// Enters a name without its prefix: "ServoLoopGainKp". Throws std::invalid_argument with a sentence if the
    /// number has a row of that kind, or if the name is none of Torvel's.
    void add(ReferenceKind kind, std::uint32_t number, std::string_view name);

    /// The name; nothing if there is no row.
    std::optional<std::string_view> find(ReferenceKind kind, std::uint32_t number) const;

    bool empty() const;

private:
    std::array<std::unordered_map<std::uint32_t, std::string>, 6> names_;
};

}  // namespace torvel
