// A line's conversion needs nothing of the other lines, so the lines are converted in parts of some
// thousands, by several threads where the machine has several processors. The layout, which counts
// the open blocks, goes through the parts in order, as do the messages.

#include "src/app/conversion.h"

#include <memory>
#include <mutex>
#include <vector>

#include "src/app/output-layout.h"
#include "src/checks/line-record.h"
#include "src/lex/lexer.h"
#include "src/stmt/statement.h"

namespace torvel {

namespace {

/// What became of a line. It waits with those of many other lines to be written, so it is small.
struct ConvertedLine {
    /// Where its text ends in the part's; it begins where the text before it ends.
    std::uint64_t textEnd : 48;
    std::uint64_t isConverted : 8;
    std::uint64_t effect : 8;
};
static_assert(sizeof(ConvertedLine) == 8);

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

/// The lines of a part, converted but not yet laid out.
struct ConvertedPart {
    const ProgramPart* source = nullptr;
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

/// Converts the lines of a part. Where nobody asks for findings it is a loop of its own, since what a line costs beside
/// its conversion counts.
template <bool isRecorded>
void convertLines(ConversionContext& context, ConvertedPart& part) {
    const LineList& list = part.source->list;
    const std::size_t count = list.lines.size();
    StatementText text;
    GrowingArray<Token> room;
    LinePositions positions(list);
    LineMark mark;
    std::vector<ConvertedLine>& lines = part.room.lines;
    TextBuffer& partText = part.room.text;
    const auto note = [&](bool isConverted, BlockEffect effect) {
        ConvertedLine& line = lines.emplace_back();
        line.textEnd = std::uint64_t{partText.size()} & ((std::uint64_t{1} << 48U) - 1);
        line.isConverted = isConverted ? 1 : 0;
        line.effect = static_cast<std::uint8_t>(effect);
    };
    lines.reserve(count);
    for (std::size_t number = 0; number < count; ++number) {
        const SourceLine& source = list.lines[number];
        if (source.content == 0 && !(isRecorded && isCommentToNote(context, source))) {
            note(true, BlockEffect::None);  // nothing but a comment
            continue;
        }
        context.position = positions.of(number);
        if constexpr (isRecorded) {
            beginLine(context, source, part.source->first + number);
        }
        const LineTokens tokens = tokensOf(context.program, list, number, context.axes, room);
        BlockEffect effect{};
        const bool isConverted = convertStatement(context, tokens, text, effect);
        if (isConverted) {
            partText.appendStored(text);
        }
        if constexpr (isRecorded) {
            recordLine(context, mark, source, tokens, isConverted, text, effect);
        }
        note(isConverted, effect);
    }
}

ConvertedPart convertPart(const ConversionContext& run, PartRoom&& room,
                          const ProgramPart& source) {
    const std::size_t count = source.list.lines.size();
    ConvertedPart part;
    part.source = &source;
    part.room = std::move(room);
    part.room.text.reserve(count * expectedTextLength);
    ConversionContext context{run.program, run.axes, run.limits, part.log, {}};
    context.reference = run.reference;
    if (run.record != nullptr) {
        part.record = std::make_unique<CheckRecord>();
        part.record->recordedVariables = run.record->variablesOfParts.take(source.first);
        part.record->places = run.record->places;
        part.record->facts.reserve(count / linesPerFact);
        part.record->blocks.reserve(count / linesPerBlock);
        part.record->variables.reserve(count / linesPerVariable);
        context.record = part.record.get();
        convertLines<true>(context, part);
        run.record->variablesOfParts.giveBack(std::move(part.record->recordedVariables),
                                              source.first);
    } else {
        convertLines<false>(context, part);
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
    const LineList& list = part.source->list;
    const char* const texts = part.room.text.data();
    std::size_t start = 0;
    std::size_t number = 0;
    for (const ConvertedLine& line : part.room.lines) {
        const auto end = static_cast<std::size_t>(line.textEnd);
        std::optional<std::string_view> text;
        if (line.isConverted != 0) {
            text = std::string_view(texts + start, end - start);
        }
        layout.write(program, list, number++, text, static_cast<BlockEffect>(line.effect),
                     target.buffer());
        target.endLine();
        start = end;
    }
}

}  // namespace

struct ProgramConversion::Parts {
    Parts(ConversionContext& run, const WorkSharing& sharing)
        : context(run), inOrder(sharing, [this](const ProgramPart* part) {
              return convertPart(context, rooms.take(), *part);
          }) {}

    template <typename Target>
    void write(Target target) {
        OutputLayout layout;
        while (std::optional<ConvertedPart> part = inOrder.next()) {
            writePart(context.program, *part, layout, target);
            rooms.giveBack(std::move(part->room));
            if (context.record != nullptr) {
                append(*context.record, std::move(*part->record), context.log.size());
            }
            context.log.take(std::move(part->log));
        }
        if (context.record != nullptr) {
            finishRecord(context.program, *context.record);
        }
    }

    ConversionContext& context;
    SpareRooms rooms;
    PartsInOrder<const ProgramPart*, ConvertedPart> inOrder;
};

ProgramConversion::ProgramConversion(ConversionContext& context, const WorkSharing& sharing)
    : parts_(std::make_unique<Parts>(context, sharing)) {}

ProgramConversion::~ProgramConversion() = default;

void ProgramConversion::add(const ProgramPart& part) {
    parts_->inOrder.add(&part, false);
}

void ProgramConversion::addRest() {
    const ProgramLines& lines = parts_->context.program.lines;
    for (std::size_t part = parts_->inOrder.added(); part < lines.partCount(); ++part) {
        parts_->inOrder.add(&lines.part(part), part + 1 == lines.partCount());
    }
}

void ProgramConversion::write(OutputFile& output) {
    addRest();
    parts_->write(FileTarget{output});
}

void ProgramConversion::write(ProgramOutput& output) {
    addRest();
    output.lineEnds.reserve(parts_->context.program.lines.size());
    parts_->write(MemoryTarget{output});
}

void convertProgram(ConversionContext& context, OutputFile& output, const WorkSharing& sharing) {
    ProgramConversion(context, sharing).write(output);
}

void convertProgram(ConversionContext& context, ProgramOutput& output, const WorkSharing& sharing) {
    ProgramConversion(context, sharing).write(output);
}

void appendLogLine(const ConversionMessage& message, TextBuffer& log) {
    appendDiagnostic(message.position, message.text, log);
    log += '\n';
}

MessageLog messagesOfReading(const Program& program) {
    MessageLog messages;
    for (const SourcePosition& position : program.nulCharacters) {
        messages.add(Message::NulCharacter, {}, position);
    }
    return messages;
}

}  // namespace torvel
