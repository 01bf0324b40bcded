#include "src/base/name-set.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <utility>

#include "src/base/hash.h"

namespace torvel {

namespace {

constexpr std::size_t fewestSlots = 64;

/// The lowest bytes of eight that stand one behind the other, NULs in the place of the others. The first is the lowest.
std::uint64_t lowestBytes(const char* bytes, std::size_t count) {
    static_assert(std::endian::native == std::endian::little);
    std::uint64_t number = 0;
    std::memcpy(&number, bytes, sizeof number);
    const std::uint64_t mask = (std::uint64_t{1} << (8 * count % 64)) - 1;
    return number & (mask | (count < sizeof number ? 0 : UINT64_MAX));
}

}  // namespace

NameSet::ShortName NameSet::shortName(std::string_view name) {
    const std::size_t low = std::min(name.size(), sizeof(std::uint64_t));
    return {lowestBytes(name.data(), low),
            lowestBytes(name.data() + sizeof(std::uint64_t), name.size() - low)};
}

/// A product's bits depend on those below them only, so both halves are put together first.
std::uint64_t NameSet::hashOf(const ShortName& name) {
    const std::uint64_t both = name.low ^ name.high * fnvPrime;
    return (both ^ both >> 32U) * 0x9e3779b97f4a7c15U >> 32U;
}

bool NameSet::insert(std::string_view name) {
    if (name.size() > sizeof(ShortName)) {
        return longNames_.insert(name).second;
    }
    if (2 * (count_ + 1) > slots_.size()) {
        grow();
    }
    return insertShort(shortName(name));
}

bool NameSet::insertShort(const ShortName& name) {
    const std::size_t last = slots_.size() - 1;
    for (std::size_t slot = hashOf(name) & last;; slot = (slot + 1) & last) {
        ShortName& found = slots_[slot];
        if (found.low == name.low && found.high == name.high) {
            return false;
        }
        if (found.low == 0) {
            found = name;
            ++count_;
            return true;
        }
    }
}

void NameSet::grow() {
    const std::vector<ShortName> names = std::exchange(slots_, {});
    slots_.resize(names.empty() ? fewestSlots : 2 * names.size());
    count_ = 0;
    for (const ShortName& name : names) {
        if (name.low != 0) {
            insertShort(name);
        }
    }
}

}  // namespace torvel
