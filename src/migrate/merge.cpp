#include "src/migrate/merge.h"

#include <algorithm>
#include <cstdint>
#include <vector>

#include "src/migrate/line-changes.h"
#include "src/migrate/text-lines.h"

namespace torvel::migrate {

namespace {

constexpr std::string_view conflictBegin = "<<<<<<< edited";
constexpr std::string_view conflictMiddle = "||||||| last generated";
constexpr std::string_view conflictHalf = "=======";
constexpr std::string_view conflictEnd = ">>>>>>> newly generated";

struct Side {
    std::vector<TextLine> lines;
    std::vector<std::uint32_t> numbers;
    /// From the base to this side. For the base itself: none.
    std::vector<LineChange> changes;

    Side(std::string_view text, LineNumbers& numbering)
        : lines(linesOf(text)), numbers(numbering.numbersOf(lines)) {}
};

/// Lines of a side, the end not included.
struct Range {
    std::size_t begin = 0;
    std::size_t end = 0;

    std::size_t size() const { return end - begin; }
};

/// Goes through one side's changes.
struct Walk {
    const Side& side;
    std::size_t next = 0;
    /// The line of this side behind what was taken.
    std::size_t line = 0;

    bool hasNext() const { return next < side.changes.size(); }
    /// The next change begins at the base's line `line` or in front of it.
    bool begins(std::size_t baseLine) const {
        return hasNext() && side.changes[next].oldBegin <= baseLine;
    }
};

/// The text that comes of the merge, line by line.
class Writer {
public:
    Writer(const std::vector<TextLine>& edited, const std::vector<TextLine>& generated) {
        for (const std::vector<TextLine>* lines : {&edited, &generated}) {
            if (lineEnd_.empty() && !lines->empty()) {
                lineEnd_ = lines->front().end;
            }
        }
        if (lineEnd_.empty()) {
            lineEnd_ = "\n";
        }
        const std::vector<TextLine>& last = edited.empty() ? generated : edited;
        endsInLineEnd_ = last.empty() || !last.back().end.empty();
    }
    void write(std::string_view line) {
        text_ += line;
        text_ += lineEnd_;
    }
    /// Takes over the way in which a line of the edited text ends.
    void endAs(const TextLine& line) {
        if (!line.end.empty()) {
            lineEnd_ = line.end;
        }
    }
    std::string takeText() {
        if (!endsInLineEnd_ && !text_.empty()) {
            text_.resize(text_.size() - lineEnd_.size());
        }
        return std::move(text_);
    }

private:
    std::string text_;
    std::string_view lineEnd_;
    bool endsInLineEnd_ = true;
};

class Merge {
public:
    Merge(std::string_view base, std::string_view edited, std::string_view generated)
        : base_(base, numbering_),
          edited_(edited, numbering_),
          generated_(generated, numbering_),
          writer_(edited_.lines, generated_.lines) {
        edited_.changes = changesBetween(base_.numbers, edited_.numbers);
        generated_.changes = changesBetween(base_.numbers, generated_.numbers);
    }

    MergedText run() {
        std::size_t line = 0;
        while (byEditing_.hasNext() || byGenerating_.hasNext()) {
            std::size_t begin = base_.lines.size();
            for (const Walk* walk : {&byEditing_, &byGenerating_}) {
                begin = walk->hasNext() ? std::min(begin, walk->side.changes[walk->next].oldBegin)
                                        : begin;
            }
            writeUnchanged(begin - line);
            line = writeRegion(begin);
        }
        writeUnchanged(base_.lines.size() - line);
        merged_.text = writer_.takeText();
        return std::move(merged_);
    }

private:
    /// Lines that all three have.
    void writeUnchanged(std::size_t count) {
        writeGenerated({byGenerating_.line, byGenerating_.line + count},
                       {byEditing_.line, byEditing_.line + count});
        byEditing_.line += count;
        byGenerating_.line += count;
    }

    /// Generated lines in the place of edited ones, with the line ends of those.
    void writeGenerated(Range generated, Range edited) {
        for (std::size_t i = 0; i < generated.size(); ++i) {
            if (i < edited.size()) {
                writer_.endAs(edited_.lines[edited.begin + i]);
            }
            writer_.write(generated_.lines[generated.begin + i].text);
        }
    }

    void writeEdited(Range edited) {
        for (std::size_t i = edited.begin; i < edited.end; ++i) {
            writer_.endAs(edited_.lines[i]);
            writer_.write(edited_.lines[i].text);
        }
    }

    /// The changes that begin at the base's line `begin`, and all that touch them. Returns the line behind them.
    std::size_t writeRegion(std::size_t begin) {
        const std::size_t firstEdit = byEditing_.next;
        const std::size_t firstGeneration = byGenerating_.next;
        std::size_t end = begin;
        while (byEditing_.begins(end) || byGenerating_.begins(end)) {
            Walk& walk = byEditing_.begins(end) ? byEditing_ : byGenerating_;
            end = std::max(end, walk.side.changes[walk.next].oldEnd);
            ++walk.next;
        }
        const Range old{begin, end};
        const Range edited = take(byEditing_, firstEdit, old);
        const Range generated = take(byGenerating_, firstGeneration, old);
        if (firstEdit == byEditing_.next || areEqual(edited, generated)) {
            writeGenerated(generated, edited);
            if (edited.size() > 0) {
                writer_.endAs(edited_.lines[edited.end - 1]);
            }
        } else if (firstGeneration == byGenerating_.next) {
            writeEdited(edited);
        } else {
            writeConflict(old, edited, generated);
        }
        return end;
    }

    /// What the base's lines `old` became on a side, by its changes from `first` on.
    static Range take(Walk& walk, std::size_t first, Range old) {
        Range lines{walk.line, walk.line + old.size()};
        for (std::size_t i = first; i < walk.next; ++i) {
            const LineChange& change = walk.side.changes[i];
            lines.end += change.newEnd - change.newBegin;
            lines.end -= change.oldEnd - change.oldBegin;
        }
        walk.line = lines.end;
        return lines;
    }

    bool areEqual(Range edited, Range generated) const {
        const auto numbersOf = [](const Side& side, Range range) {
            return std::span(side.numbers).subspan(range.begin, range.size());
        };
        return std::ranges::equal(numbersOf(edited_, edited), numbersOf(generated_, generated));
    }

    void writeConflict(Range old, Range edited, Range generated) {
        merged_.hasConflicts = true;
        writer_.write(conflictBegin);
        writeEdited(edited);
        writer_.write(conflictMiddle);
        for (std::size_t i = old.begin; i < old.end; ++i) {
            writer_.write(base_.lines[i].text);
        }
        writer_.write(conflictHalf);
        writeGenerated(generated, {});
        writer_.write(conflictEnd);
    }

    LineNumbers numbering_{Positions::ignored};
    Side base_;
    Side edited_;
    Side generated_;
    Walk byEditing_{edited_};
    Walk byGenerating_{generated_};
    Writer writer_;
    MergedText merged_;
};

}  // namespace

MergedText mergeByLines(std::string_view base, std::string_view edited,
                        std::string_view generated) {
    return Merge(base, edited, generated).run();
}

bool hasConflictMarkers(std::string_view text) {
    bool isOpen = false;
    for (const TextLine& line : linesOf(text)) {
        isOpen = isOpen || line.text == conflictBegin;
        if (isOpen && line.text == conflictEnd) {
            return true;
        }
    }
    return false;
}

}  // namespace torvel::migrate
