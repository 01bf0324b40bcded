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

std::size_t LineList::runBehind(std::size_t line) const {
    const LineRun* const behind = std::upper_bound(
        runs_.begin(), runs_.end(), line,
        [](std::size_t wanted, const LineRun& run) { return wanted < run.firstLine; });
    return static_cast<std::size_t>(behind - runs_.begin());
}

SourcePosition LineList::positionOf(std::size_t line) const {
    return LinePositions(*this).of(line);
}

void LinePositions::findRun(std::size_t line) {
    const std::size_t next = list_.runBehind(line);
    const LineRun& run = list_.runs_[next - 1];
    behindRun_ = next < list_.runs_.size() ? list_.runs_[next].firstLine : SIZE_MAX;
    inclusion_ = run.position.inclusion;
    lineNumberOfFirst_ = run.position.lineNumber - run.firstLine;
}

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
