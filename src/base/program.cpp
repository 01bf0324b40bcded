#include "src/base/program.h"

#include <algorithm>
#include <mutex>
#include <new>

namespace torvel {

namespace {

auto firstBehind(const std::vector<PredefinedText>& texts, std::uint32_t offset) {
    return std::upper_bound(
        texts.begin(), texts.end(), offset,
        [](std::uint32_t place, const PredefinedText& each) { return place < each.text.offset; });
}

/// Where no further part begins: one has some more lines than it should at most.
constexpr std::size_t mostLines = UINT32_MAX - (std::size_t{1} << 24U);

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

/// Throws std::bad_alloc where the numbers of lines might not fit into 32 bits.
void ProgramLines::beginPart() {
    const std::size_t first = size();
    if (first > mostLines) {
        throw std::bad_alloc();
    }
    ProgramPart& begun = parts_.append();
    begun.first = first;
    last_ = &begun.list;
    if (first != 0) {
        last_->lines.reserve(partSize_);
    }
}

void ProgramLines::clear() {
    parts_.clear();
    last_ = nullptr;
}

const ProgramPart& ProgramLines::partOf(std::size_t line) const {
    std::size_t found = 0;
    for (std::size_t count = parts_.size(); count > 1;) {
        const std::size_t half = count / 2;
        if (parts_[found + half].first <= line) {
            found += half;
            count -= half;
        } else {
            count = half;
        }
    }
    return parts_[found];
}

void LinePositions::findRun(std::size_t line) {
    std::size_t first = 0;
    if (lines_ != nullptr) {
        const ProgramPart& part = lines_->partOf(line);
        list_ = &part.list;
        first = part.first;
    }
    const std::size_t next = list_->runBehind(line - first);
    const LineRun& run = list_->runs_[next - 1];
    behindRun_ =
        first + (next < list_->runs_.size() ? list_->runs_[next].firstLine : list_->lines.size());
    inclusion_ = run.position.inclusion;
    lineNumberOfFirst_ =
        run.position.lineNumber - run.firstLine - static_cast<std::uint32_t>(first);
}

void PredefinedTexts::enter(TextSpan text, bool isComposed) {
    const std::unique_lock lock(mutex_);
    texts_.insert(firstBehind(texts_, text.offset), {text, isComposed});
    const std::uint32_t last = pageOf(text.offset + text.length);
    for (std::uint32_t page = pageOf(text.offset); page <= last; ++page) {
        pages_[page / bits] |= std::uint64_t{1} << page % bits;
    }
}

std::optional<PredefinedText> PredefinedTexts::find(TextSpan text) const {
    const std::uint32_t page = pageOf(text.offset);
    if ((pages_[page / bits].load(std::memory_order_acquire) >> page % bits & 1U) == 0) {
        return std::nullopt;
    }
    const std::shared_lock lock(mutex_);
    auto behind = firstBehind(texts_, text.offset);
    if (behind == texts_.begin()) {
        return std::nullopt;
    }
    const PredefinedText& found = *--behind;
    if (text.offset + text.length > found.text.offset + found.text.length) {
        return std::nullopt;
    }
    return found;
}

Token makeDefineToken(Program& program, TokenType type, const DefineTexts& texts) {
    const auto number = static_cast<std::uint32_t>(program.defineTexts.size());
    program.defineTexts.append(texts);
    return makeNumberedToken(type, number);
}

}  // namespace torvel
