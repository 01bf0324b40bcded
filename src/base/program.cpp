#include "src/base/program.h"

#include <algorithm>

namespace torvel {

namespace {

auto firstBehind(const std::vector<PredefinedText>& texts, std::uint32_t offset) {
    return std::upper_bound(
        texts.begin(), texts.end(), offset,
        [](std::uint32_t place, const PredefinedText& each) { return place < each.text.offset; });
}

constexpr std::uint32_t pageOf(std::uint32_t offset) {
    return offset >> 16U;
}

}  // namespace

void enterPredefinedText(Program& program, TextSpan text, bool isComposed) {
    std::vector<PredefinedText>& texts = program.predefinedTexts;
    texts.insert(firstBehind(texts, text.offset), {text, isComposed});
    const std::uint32_t last = pageOf(text.offset + text.length);
    program.predefinedPages.resize(
        std::max<std::size_t>(program.predefinedPages.size(), std::size_t{last} + 1));
    for (std::uint32_t page = pageOf(text.offset); page <= last; ++page) {
        program.predefinedPages[page] = true;
    }
}

const PredefinedText* findPredefinedText(const Program& program, TextSpan text) {
    const std::vector<PredefinedText>& texts = program.predefinedTexts;
    const std::uint32_t page = pageOf(text.offset);
    if (page >= program.predefinedPages.size() || !program.predefinedPages[page]) {
        return nullptr;
    }
    auto behind = firstBehind(texts, text.offset);
    if (behind == texts.begin()) {
        return nullptr;
    }
    const PredefinedText& found = *--behind;
    return text.offset + text.length <= found.text.offset + found.text.length ? &found : nullptr;
}

Token makeDefineToken(Program& program, TokenType type, const DefineTexts& texts) {
    const auto number = static_cast<std::uint32_t>(program.defineTexts.size());
    program.defineTexts.push_back(texts);
    return makeNumberedToken(type, number);
}

}  // namespace torvel
