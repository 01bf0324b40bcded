#include "src/checks/spellings.h"

#include <algorithm>
#include <utility>

#include "src/base/characters.h"

namespace torvel {

namespace {

constexpr std::string_view torvelWords[] = {
    "$rglobal",
    "$sglobal",
#define WORD(text) text,
#include "src/checks/torvel-words.def"
};

constexpr std::size_t fewestSlots = 1024;
static_assert(2 * std::size(torvelWords) < fewestSlots);

std::string textInLowerCase(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), lowerCase);
    return lower;
}

}  // namespace

Spellings::Spellings() : slots_(fewestSlots) {
    for (const std::string_view word : torvelWords) {
        addWord(word);
    }
}

void Spellings::addWord(std::string_view word) {
    if (word.size() > ShortName::longest) {
        longNames_.emplace(textInLowerCase(word), std::string_view());
        return;
    }
    char text[ShortName::longest] = {};
    std::copy(word.begin(), word.end(), text);
    const ShortName lower = inLowerCase(shortName({text, word.size()}));
    Slot& slot = slotOf(lower);
    count_ += slot.lower == lower ? 0 : 1;
    slot.lower = lower;
}

bool Spellings::isShadow(std::string_view name) {
    if (name.size() > ShortName::longest) {
        const auto [entry, isNew] = longNames_.try_emplace(textInLowerCase(name), name);
        return !isNew && entry->second != name && isOther(name);
    }
    const ShortName spelling = shortName(name);
    const ShortName lower = inLowerCase(spelling);
    Slot& slot = slotOf(lower);
    if (slot.lower == lower) {
        return slot.spelling != spelling && isOther(name);
    }
    slot = {lower, spelling};
    if (2 * ++count_ > slots_.size()) {
        grow();
    }
    return false;
}

bool Spellings::isOther(std::string_view name) {
    return others_.insert(name).second;
}

/// The slot that has the name, or the free one where it belongs.
Spellings::Slot& Spellings::slotOf(const ShortName& lower) {
    const std::size_t last = slots_.size() - 1;
    std::size_t slot = hashOf(lower) & last;
    while (slots_[slot].lower.low != 0 && slots_[slot].lower != lower) {
        slot = (slot + 1) & last;
    }
    return slots_[slot];
}

void Spellings::grow() {
    const std::vector<Slot> slots = std::exchange(slots_, std::vector<Slot>(2 * slots_.size()));
    for (const Slot& slot : slots) {
        if (slot.lower.low != 0) {
            slotOf(slot.lower) = slot;
        }
    }
}

}  // namespace torvel
