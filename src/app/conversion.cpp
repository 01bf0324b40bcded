// A line's conversion needs nothing of the other lines, so the lines are converted in parts of some
// thousands, by several threads where the machine has several processors. The layout, which counts
// the open blocks, goes through the parts in order, as do the messages.

#include "src/app/conversion.h"

#include <iterator>
#include <memory>
#include <mutex>
#include <vector>

#include "src/app/output-layout.h"
#include "src/checks/line-record.h"
#include "src/lex/lexer.h"
#include "src/stmt/statement.h"

namespace torvel {

namespace {

/// What became of a line.
struct ConvertedLine {
    /// Where its text ends in the part's; it begins where the text before it ends.
    std::size_t textEnd = 0;
    bool isConverted = false;
    BlockEffect effect{};
};

/// What the lines of a part became.
struct PartRoom {
    std::vector<ConvertedLine> lines;
    TextBuffer text;
};

/// Rooms of parts that are written, for further parts: the system takes about as long to give memory as it takes to
/// fill it.
class SpareRooms {
public:
    PartRoom take() {
        const std::lock_guard lock(mutex_);
        if (rooms_.empty()) {
            return {};
        }
        PartRoom room = std::move(rooms_.back());
        rooms_.pop_back();
        return room;
    }

    void giveBack(PartRoom&& room) {
        room.lines.clear();
        room.text.clear();
        const std::lock_guard lock(mutex_);
        rooms_.push_back(std::move(room));
    }

private:
    std::mutex mutex_;
    std::vector<PartRoom> rooms_;
};

/// The lines from `first` on, converted but not yet laid out.
struct ConvertedPart {
    std::size_t first = 0;
    PartRoom room;
    MessageLog log;
    /// Null: nobody asks for findings.
    std::unique_ptr<CheckRecord> record;
};

/// Bytes of a line's text for which room is made.
constexpr std::size_t expectedTextLength = 32;
/// And facts, blocks and variables: most programs have fewer, and room that is not used costs nothing.
constexpr std::size_t linesPerFact = 16;
constexpr std::size_t linesPerBlock = 4;
constexpr std::size_t linesPerVariable = 8;

/// Converts the lines from `first` up to `last`. Where nobody asks for findings it is a loop of its own, since what
/// a line costs beside its conversion counts.
template <bool isRecorded>
void convertLines(ConversionContext& context, std::size_t first, std::size_t last,
                  ConvertedPart& part) {
    const LineList& list = context.program.list;
    StatementText text;
    GrowingArray<Token> room;
    LinePositions positions(list);
    LineMark mark;
    std::vector<ConvertedLine>& lines = part.room.lines;
    TextBuffer& partText = part.room.text;
    lines.resize(last - first);
    for (std::size_t number = first; number < last; ++number) {
        ConvertedLine& line = lines[number - first];
        if (list.lines[number].content == 0 &&
            !(isRecorded && isCommentToNote(context, list.lines[number]))) {
            line = {partText.size(), true, BlockEffect::None};  // nothing but a comment
            continue;
        }
        context.position = positions.of(number);
        if constexpr (isRecorded) {
            beginLine(context, number);
        }
        const std::span<const Token> tokens =
            tokensOf(context.program, list, number, context.axes, room);
        line.isConverted = convertStatement(context, tokens, text, line.effect);
        if (line.isConverted) {
            partText.appendStored(text);
        }
        if constexpr (isRecorded) {
            recordLine(context, mark, number, tokens, line.isConverted, text, line.effect);
        }
        line.textEnd = partText.size();
    }
}

ConvertedPart convertPart(const ConversionContext& run, PartRoom&& room, std::size_t first,
                          std::size_t last) {
    ConvertedPart part;
    part.first = first;
    part.room = std::move(room);
    part.room.text.reserve((last - first) * expectedTextLength);
    ConversionContext context{run.program, run.axes, run.limits, part.log, {}};
    context.reference = run.reference;
    if (run.record != nullptr) {
        part.record = std::make_unique<CheckRecord>();
        part.record->run = run.record;
        part.record->recordedVariables = run.record->variablesOfParts.take(first);
        part.record->places = run.record->places;
        part.record->facts.reserve((last - first) / linesPerFact);
        part.record->blocks.reserve((last - first) / linesPerBlock);
        part.record->variables.reserve((last - first) / linesPerVariable);
        context.record = part.record.get();
        convertLines<true>(context, first, last, part);
        run.record->variablesOfParts.giveBack(std::move(part.record->recordedVariables), first);
    } else {
        convertLines<false>(context, first, last, part);
    }
    return part;
}

/// Where the lines of the output go: a file.
struct FileTarget {
    OutputFile& file;

    TextBuffer& buffer() { return file.buffer(); }
    void endLine() {}
};

/// The same: memory.
struct MemoryTarget {
    ProgramOutput& output;

    TextBuffer& buffer() { return output.text; }
    void endLine() { output.lineEnds.push_back(output.text.size()); }
};

template <typename Target>
void writePart(const Program& program, const ConvertedPart& part, OutputLayout& layout,
               Target& target) {
    std::size_t textStart = 0;
    const SourceLine* source = program.list.lines.begin() + part.first;
    for (const ConvertedLine& line : part.room.lines) {
        std::optional<std::string_view> text;
        if (line.isConverted) {
            text = std::string_view(part.room.text).substr(textStart, line.textEnd - textStart);
        }
        layout.write(program, *source++, text, line.effect, target.buffer());
        target.endLine();
        textStart = line.textEnd;
    }
}

template <typename Target>
void convertInto(ConversionContext& context, Target target, const WorkSharing& sharing) {
    const std::size_t lineCount = context.program.list.lines.size();
    const std::size_t partSize = std::max<std::size_t>(sharing.linesPerPart, 1);
    const std::size_t partCount = (lineCount + partSize - 1) / partSize;
    SpareRooms rooms;
    const auto makePart = [&](std::size_t number) {
        const std::size_t first = number * partSize;
        return convertPart(context, rooms.take(), first, std::min(first + partSize, lineCount));
    };
    PartsInOrder<ConvertedPart> parts(partCount, sharing, makePart);
    OutputLayout layout;
    while (std::optional<ConvertedPart> part = parts.next()) {
        writePart(context.program, *part, layout, target);
        rooms.giveBack(std::move(part->room));
        if (context.record != nullptr) {
            append(*context.record, std::move(*part->record), context.log.size());
        }
        context.log.insert(context.log.end(), std::make_move_iterator(part->log.begin()),
                           std::make_move_iterator(part->log.end()));
    }
    if (context.record != nullptr) {
        finishRecord(context.program, *context.record);
    }
}

}  // namespace

void convertProgram(ConversionContext& context, OutputFile& output, const WorkSharing& sharing) {
    convertInto(context, FileTarget{output}, sharing);
}

void convertProgram(ConversionContext& context, ProgramOutput& output, const WorkSharing& sharing) {
    output.lineEnds.reserve(context.program.list.lines.size());
    convertInto(context, MemoryTarget{output}, sharing);
}

void appendLogLine(const ConversionMessage& message, TextBuffer& log) {
    appendDiagnostic(message.position, message.text, log);
    log += '\n';
}

MessageLog messagesOfReading(const Program& program) {
    MessageLog messages;
    for (const SourcePosition& position : program.nulCharacters) {
        messages.push_back({messageText(Message::NulCharacter), position, Message::NulCharacter});
    }
    return messages;
}

}  // namespace torvel
