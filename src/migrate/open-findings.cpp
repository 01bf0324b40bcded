#include "src/migrate/open-findings.h"

#include <algorithm>
#include <map>

#include "src/base/characters.h"
#include "src/base/output-marks.h"
#include "src/migrate/line-changes.h"
#include "src/migrate/text-lines.h"

namespace torvel::migrate {

namespace {

/// What is left to a person in a line of an output.
enum class Mark : std::uint8_t { none, marker, placeholder };

Mark markOf(std::string_view line) {
    return isMarkerLine(line)     ? Mark::marker
           : hasPlaceholder(line) ? Mark::placeholder
                                  : Mark::none;
}

/// A line with something that is left to a person.
struct MarkedLine {
    /// From 0.
    std::size_t line = 0;
    std::string_view text;
    Mark mark = Mark::none;
    /// What it was, or became, is found.
    bool isFound = false;
};

/// Lines without indentation, and what stands in them.
struct Side {
    std::vector<TextLine> lines;
    std::vector<std::uint32_t> numbers;

    Side(std::string_view text, LineNumbers& numbering) : lines(linesOf(text)) {
        for (TextLine& line : lines) {
            line.text = trimBlanks(line.text);
        }
        numbers = numbering.numbersOf(lines);
    }

    std::vector<MarkedLine> marked(std::size_t begin, std::size_t end) const {
        std::vector<MarkedLine> found;
        for (std::size_t i = begin; i < end; ++i) {
            const Mark mark = markOf(lines[i].text);
            if (mark != Mark::none) {
                found.push_back({i, lines[i].text, mark});
            }
        }
        return found;
    }
};

/// The marked lines of a change, on both sides.
struct MarkedChange {
    LineChange change;
    std::vector<MarkedLine> before;
    std::vector<MarkedLine> after;
};

void pair(MarkedLine& before, MarkedLine& after) {
    before.isFound = true;
    after.isFound = true;
}

/// Pairs lines that are equal, in their order.
void pairEqual(const std::vector<MarkedLine*>& before, const std::vector<MarkedLine*>& after,
               Positions positions) {
    LineNumbers numbering(positions);
    std::map<std::uint32_t, std::vector<MarkedLine*>> byNumber;
    // The first of equal lines stands last, where it is taken from.
    const std::vector<MarkedLine*> fromBehind(after.rbegin(), after.rend());
    for (MarkedLine* line : fromBehind) {
        if (!line->isFound) {
            byNumber[numbering.numberOf(line->text)].push_back(line);
        }
    }
    for (MarkedLine* line : before) {
        if (line->isFound) {
            continue;
        }
        const auto equal = byNumber.find(numbering.numberOf(line->text));
        if (equal != byNumber.end() && !equal->second.empty()) {
            pair(*line, *equal->second.back());
            equal->second.pop_back();
        }
    }
}

std::vector<MarkedLine*> pointersTo(std::vector<MarkedLine>& lines) {
    std::vector<MarkedLine*> pointers;
    pointers.reserve(lines.size());
    for (MarkedLine& line : lines) {
        pointers.push_back(&line);
    }
    return pointers;
}

/// Pairs equal lines of each change, and then those that were moved from one to another.
void pairEqual(std::vector<MarkedChange>& changes, Positions positions) {
    std::vector<MarkedLine*> before;
    std::vector<MarkedLine*> after;
    for (MarkedChange& change : changes) {
        const std::vector<MarkedLine*> old = pointersTo(change.before);
        const std::vector<MarkedLine*> young = pointersTo(change.after);
        pairEqual(old, young, positions);
        before.insert(before.end(), old.begin(), old.end());
        after.insert(after.end(), young.begin(), young.end());
    }
    pairEqual(before, after, positions);
}

/// How many bytes at the beginning and the end of two lines are equal; of long lines their beginning counts.
std::size_t likeness(std::string_view a, std::string_view b) {
    constexpr std::size_t most = 200;
    a = a.substr(0, most);
    b = b.substr(0, most);
    const auto front = static_cast<std::size_t>(std::ranges::mismatch(a, b).in1 - a.begin());
    a.remove_prefix(front);
    b.remove_prefix(front);
    const auto back = std::mismatch(a.rbegin(), a.rend(), b.rbegin(), b.rend()).first - a.rbegin();
    return front + static_cast<std::size_t>(back);
}

/// Pairs lines of a change that has as many lines as before, where a line stands in its place.
void pairInPlace(MarkedChange& change) {
    const LineChange& lines = change.change;
    if (lines.oldEnd - lines.oldBegin != lines.newEnd - lines.newBegin) {
        return;
    }
    auto before = change.before.begin();
    for (MarkedLine& after : change.after) {
        const std::size_t line = after.line - lines.newBegin + lines.oldBegin;
        before = std::find_if(before, change.before.end(),
                              [&](const MarkedLine& old) { return old.line >= line; });
        if (before != change.before.end() && before->line == line && before->mark == after.mark &&
            !before->isFound && !after.isFound) {
            pair(*before, after);
        }
    }
}

/// The line that has most likely become `after`; null: none of these lines.
MarkedLine* originOf(const MarkedLine& after, const std::vector<MarkedLine*>& before) {
    MarkedLine* best = nullptr;
    std::size_t bestLikeness = 0;
    for (MarkedLine* line : before) {
        if (line->isFound) {
            continue;
        }
        const std::size_t value = likeness(line->text, after.text);
        if (best == nullptr || value > bestLikeness) {
            best = line;
            bestLikeness = value;
        }
    }
    return best;
}

std::vector<MarkedLine*> notFound(std::vector<MarkedLine>& lines, Mark mark) {
    std::vector<MarkedLine*> left = pointersTo(lines);
    std::erase_if(left,
                  [&](const MarkedLine* line) { return line->isFound || line->mark != mark; });
    return left;
}

/// Pairs the lines with a mark that changed, and yet have one.
void pairChanged(MarkedChange& change) {
    pairInPlace(change);
    // So many lines at most are compared with each other; of more of them the first ones stay open.
    constexpr std::size_t most = 1000;
    for (const Mark mark : {Mark::marker, Mark::placeholder}) {
        const std::vector<MarkedLine*> before = notFound(change.before, mark);
        const std::vector<MarkedLine*> after = notFound(change.after, mark);
        const bool areTooMany = before.size() > most || after.size() > most;
        for (std::size_t i = 0; i < std::min(before.size(), after.size()); ++i) {
            pair(areTooMany ? *before[i] : *originOf(*after[i], before), *after[i]);
        }
    }
}

/// Marks the lines that changed.
void clearChanged(const std::vector<LineChange>& changes, std::vector<bool>& stands) {
    for (const LineChange& change : changes) {
        for (std::size_t i = change.oldBegin; i < change.oldEnd; ++i) {
            stands[i] = false;
        }
    }
}

/// By line of the generated text: whether it, or the mark in what it became, stands in the current text.
std::vector<bool> standingLines(const Side& generated, const Side& current, Positions positions) {
    const std::vector<LineChange> changes = changesBetween(generated.numbers, current.numbers);
    std::vector<bool> stands(generated.lines.size(), true);
    clearChanged(changes, stands);
    std::vector<MarkedChange> marked;
    marked.reserve(changes.size());
    for (const LineChange& change : changes) {
        marked.push_back({change, generated.marked(change.oldBegin, change.oldEnd),
                          current.marked(change.newBegin, change.newEnd)});
    }
    pairEqual(marked, positions);
    pairEqual(marked, Positions::ignored);
    for (MarkedChange& change : marked) {
        pairChanged(change);
    }
    for (const MarkedChange& change : marked) {
        for (const MarkedLine& line : change.before) {
            stands[line.line] = line.isFound;
        }
    }
    return stands;
}

/// Whether the lines of a finding with its mark stand; if it has none, nobody can close it.
bool isOpen(const FindingRow& row, const Side& generated, const std::vector<bool>& stands) {
    const Mark wanted = row.todo == FindingTodo::rewrite    ? Mark::marker
                        : row.todo == FindingTodo::complete ? Mark::placeholder
                                                            : Mark::none;
    if (wanted == Mark::none || row.outputLine == 0) {
        return true;
    }
    bool hasMark = false;
    const std::size_t begin = std::min<std::size_t>(row.outputLine - 1, generated.lines.size());
    const std::size_t end = std::min(generated.lines.size(), begin + row.outputLineCount);
    for (std::size_t i = begin; i < end; ++i) {
        if (markOf(generated.lines[i].text) == wanted) {
            hasMark = true;
            if (stands[i]) {
                return true;
            }
        }
    }
    return !hasMark;
}

}  // namespace

std::vector<bool> openFindings(const ComparedTexts& texts,
                               const std::vector<FindingRow>& findings) {
    std::vector<bool> open(findings.size(), true);
    if (findings.empty() || haveSameLines(texts.generated, texts.current)) {
        return open;
    }
    // Of markers that are equal but for their positions, those tell which one is meant, unless the source has changed.
    const bool isConflict = texts.base != texts.generated;
    const Positions positions = isConflict ? Positions::ignored : Positions::compared;
    LineNumbers numbering(positions);
    const Side generated(texts.generated, numbering);
    std::vector<bool> stands = standingLines(generated, Side(texts.current, numbering), positions);
    if (isConflict) {
        // A line that is new since the output was made was not there to be closed.
        std::vector<bool> wasThere(generated.lines.size(), true);
        clearChanged(changesBetween(generated.numbers, Side(texts.base, numbering).numbers),
                     wasThere);
        std::transform(stands.begin(), stands.end(), wasThere.begin(), stands.begin(),
                       [](bool isThere, bool was) { return isThere || !was; });
    }
    for (std::size_t i = 0; i < findings.size(); ++i) {
        open[i] = isOpen(findings[i], generated, stands);
    }
    return open;
}

}  // namespace torvel::migrate
