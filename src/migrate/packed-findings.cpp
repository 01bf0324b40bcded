#include "src/migrate/packed-findings.h"

#include <limits>
#include <unordered_map>

#include "src/migrate/packed-numbers.h"

namespace torvel::migrate {

namespace {

/// More lines than a program can have whose text is bounded.
constexpr std::uint64_t mostLines = std::uint64_t{1} << 32U;

/// The texts of findings, each once.
class TextPool {
public:
    std::uint64_t numberOf(std::string_view text) {
        const auto [entry, isNew] = numbers_.try_emplace(text, numbers_.size());
        if (isNew) {
            appendNumber(bytes_, text.size());
            bytes_ += text;
        }
        return entry->second;
    }
    /// Their number, and each with its length.
    std::string packed() const {
        std::string all;
        appendNumber(all, numbers_.size());
        return all += bytes_;
    }

private:
    std::unordered_map<std::string_view, std::uint64_t> numbers_;
    std::string bytes_;
};

/// Reads what was packed. After the first fault everything is 0 or empty.
class Unpacker {
public:
    explicit Unpacker(std::string_view bytes) : bytes_(bytes) {}

    std::uint64_t number() {
        const std::optional<std::uint64_t> number = takeNumber(bytes_);
        if (!number) {
            isFaulty_ = true;
            bytes_ = {};
        }
        return number.value_or(0);
    }
    std::uint32_t number32() {
        const std::uint64_t wide = number();
        isFaulty_ |= wide > std::numeric_limits<std::uint32_t>::max();
        return static_cast<std::uint32_t>(wide);
    }
    /// A number of things that take a byte at least.
    std::uint64_t count() {
        const std::uint64_t count = number();
        isFaulty_ |= count > bytes_.size();
        return isFaulty_ ? 0 : count;
    }
    template <typename Enumeration>
    Enumeration enumerator(Enumeration last) {
        const std::uint64_t value = number();
        isFaulty_ |= value > static_cast<std::uint64_t>(last);
        return isFaulty_ ? Enumeration{} : static_cast<Enumeration>(value);
    }
    std::string_view text() {
        const auto length = static_cast<std::size_t>(count());
        const std::string_view text = bytes_.substr(0, length);
        bytes_.remove_prefix(length);
        return text;
    }
    void readPool() {
        const std::uint64_t size = count();
        for (std::uint64_t i = 0; i < size && !isFaulty_; ++i) {
            pool_.push_back(text());
        }
    }
    std::string pooledText() {
        const std::uint64_t index = number();
        isFaulty_ |= index >= pool_.size();
        return isFaulty_ ? std::string() : std::string(pool_[static_cast<std::size_t>(index)]);
    }
    bool isAtEnd() const { return bytes_.empty() && !isFaulty_; }
    bool isFaulty() const { return isFaulty_; }

private:
    std::string_view bytes_;
    std::vector<std::string_view> pool_;
    bool isFaulty_ = false;
};

void packFinding(std::string& bytes, TextPool& pool, const FindingRow& row) {
    appendNumber(bytes, pool.numberOf(row.file));
    appendNumber(bytes, row.line);
    appendNumber(bytes, row.columns.first);
    appendNumber(bytes, row.columns.last);
    appendNumber(bytes, pool.numberOf(row.code));
    appendNumber(bytes, static_cast<std::uint64_t>(row.origin));
    appendNumber(bytes, static_cast<std::uint64_t>(row.todo));
    appendNumber(bytes, static_cast<std::uint64_t>(row.severity));
    appendNumber(bytes, pool.numberOf(row.text));
    appendNumber(bytes, pool.numberOf(row.lineText));
    appendNumber(bytes, row.lines.size());
    for (const std::uint32_t line : row.lines) {
        appendNumber(bytes, line);
    }
    appendNumber(bytes, row.includedFrom.size());
    for (const IncludedFrom& from : row.includedFrom) {
        appendNumber(bytes, pool.numberOf(from.file));
        appendNumber(bytes, from.line);
    }
    appendNumber(bytes, row.outputLine);
    appendNumber(bytes, row.outputLineCount);
}

FindingRow unpackFinding(Unpacker& unpacker) {
    FindingRow row;
    row.file = unpacker.pooledText();
    row.line = unpacker.number32();
    row.columns.first = unpacker.number32();
    row.columns.last = unpacker.number32();
    row.code = unpacker.pooledText();
    row.origin = unpacker.enumerator(FindingOrigin::define);
    row.todo = unpacker.enumerator(FindingTodo::fixSource);
    row.severity = unpacker.enumerator(Severity::reads);
    row.text = unpacker.pooledText();
    row.lineText = unpacker.pooledText();
    const std::uint64_t lines = unpacker.count();
    for (std::uint64_t i = 0; i < lines; ++i) {
        row.lines.push_back(unpacker.number32());
    }
    const std::uint64_t inclusions = unpacker.count();
    for (std::uint64_t i = 0; i < inclusions; ++i) {
        std::string file = unpacker.pooledText();
        row.includedFrom.push_back({std::move(file), unpacker.number32()});
    }
    row.outputLine = unpacker.number32();
    row.outputLineCount = unpacker.number32();
    return row;
}

/// Whether a line goes on where the other one stands.
bool isNextOf(const MappedLine& line, const MappedLine& before) {
    return line.file == before.file && line.depth == before.depth && line.line == before.line + 1 &&
           line.outputLineCount == before.outputLineCount && line.isConverted == before.isConverted;
}

}  // namespace

std::string packedFindings(const std::vector<FindingRow>& findings) {
    TextPool pool;
    std::string rows;
    for (const FindingRow& row : findings) {
        packFinding(rows, pool, row);
    }
    std::string bytes = pool.packed();
    appendNumber(bytes, findings.size());
    return bytes += rows;
}

std::optional<std::vector<FindingRow>> unpackedFindings(std::string_view bytes) {
    Unpacker unpacker(bytes);
    unpacker.readPool();
    const std::uint64_t count = unpacker.count();
    std::vector<FindingRow> findings;
    for (std::uint64_t i = 0; i < count && !unpacker.isFaulty(); ++i) {
        findings.push_back(unpackFinding(unpacker));
    }
    return unpacker.isAtEnd() ? std::optional(std::move(findings)) : std::nullopt;
}

std::vector<MappedRun> mappedRuns(const std::vector<MappedLine>& lines) {
    std::vector<MappedRun> runs;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i == 0 || !isNextOf(lines[i], lines[i - 1])) {
            runs.push_back({0, lines[i]});
        }
        ++runs.back().count;
    }
    return runs;
}

std::string packedLineMap(const std::vector<MappedLine>& lines) {
    std::string bytes;
    appendNumber(bytes, lines.size());
    for (const auto& [count, first] : mappedRuns(lines)) {
        appendNumber(bytes, count);
        appendNumber(bytes, first.file);
        appendNumber(bytes, first.depth);
        appendNumber(bytes, first.line);
        appendNumber(bytes,
                     std::uint64_t{first.outputLineCount} << 1U | (first.isConverted ? 1 : 0));
    }
    return bytes;
}

std::optional<std::vector<MappedLine>> unpackedLineMap(std::string_view bytes) {
    Unpacker unpacker(bytes);
    const std::uint64_t count = unpacker.number();
    if (count > mostLines) {
        return std::nullopt;
    }
    std::vector<MappedLine> lines;
    while (lines.size() < count && !unpacker.isFaulty()) {
        const std::uint64_t length = unpacker.number();
        MappedLine line;
        line.file = unpacker.number32();
        line.depth = unpacker.number32();
        line.line = unpacker.number32();
        const std::uint64_t rest = unpacker.number();
        line.outputLineCount = static_cast<std::uint32_t>(rest >> 1U);
        line.isConverted = (rest & 1U) != 0;
        if (length == 0 || length > count - lines.size()) {
            return std::nullopt;
        }
        for (std::uint64_t i = 0; i < length; ++i, ++line.line) {
            lines.push_back(line);
        }
    }
    return unpacker.isAtEnd() ? std::optional(std::move(lines)) : std::nullopt;
}

}  // namespace torvel::migrate
