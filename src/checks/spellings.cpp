#include "src/checks/spellings.h"

#include <algorithm>

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

Spellings::Spellings() : shortNames_(fewestSlots) {
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
    shortNames_.insert(inLowerCase(shortName({text, word.size()})), {});
}

bool Spellings::isShadow(std::string_view name) {
    if (name.size() > ShortName::longest) {
        const auto [entry, isNew] = longNames_.try_emplace(textInLowerCase(name), name);
        return !isNew && entry->second != name && isOther(name);
    }
    const ShortName spelling = shortName(name);
    const auto [first, isNew] = shortNames_.insert(inLowerCase(spelling), spelling);
    return !isNew && first != spelling && isOther(name);
}

bool Spellings::isOther(std::string_view name) {
    return others_.insert(name).second;
}

}  // namespace torvel
