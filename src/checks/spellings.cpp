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

std::string textInLowerCase(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), lowerCase);
    return lower;
}

/// The words of Torvel in small letters.
class TorvelWords {
public:
    TorvelWords() {
        for (const std::string_view word : torvelWords) {
            if (word.size() > ShortName::longest) {
                longWords_.insert(textInLowerCase(word));
                continue;
            }
            char text[ShortName::longest] = {};
            std::copy(word.begin(), word.end(), text);
            shortWords_.insert(inLowerCase(shortName({text, word.size()})), {});
        }
    }

    bool contains(const ShortName& lower) const { return shortWords_.contains(lower); }
    bool contains(const std::string& lower) const { return longWords_.contains(lower); }

private:
    struct Nothing {};
    static constexpr std::size_t fewestSlots = 1024;
    static_assert(2 * std::size(torvelWords) < fewestSlots);

    ShortNameTable<Nothing> shortWords_{fewestSlots};
    std::unordered_set<std::string> longWords_;
};

/// They are put together once, for all programs of a run.
const TorvelWords& words() {
    static const TorvelWords words;
    return words;
}

}  // namespace

bool Spellings::isShadow(std::string_view name) {
    if (name.size() > ShortName::longest) {
        const auto [entry, isNew] = longNames_.try_emplace(textInLowerCase(name), name);
        const bool isSpelledOtherwise = !isNew && entry->second != name;
        return (isSpelledOtherwise || words().contains(entry->first)) && isOther(name);
    }
    const ShortName spelling = shortName(name);
    const ShortName lower = inLowerCase(spelling);
    if (words().contains(lower)) {
        return isOther(name);
    }
    const auto [first, isNew] = shortNames_.insert(lower, spelling);
    return !isNew && first != spelling && isOther(name);
}

bool Spellings::isOther(std::string_view name) {
    return others_.insert(name).second;
}

}  // namespace torvel
