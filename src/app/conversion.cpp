// A line's conversion needs nothing of the other lines, so the lines are converted in parts of some
// thousands, by several threads where the machine has several processors. The layout, which counts
// the open blocks, goes through the parts in order, as do the messages.

#include "src/app/conversion.h"

#include <algorithm>
#include <chrono>
#include <deque>
#include <functional>
#include <future>
#include <iterator>
#include <system_error>
#include <thread>
#include <vector>

#include "src/lex/characters.h"

namespace torvel {

namespace {

void appendMarker(const Program& program, const SourceLine& line, std::string& out) {
    out += "#error_unconvertible (";
    out += line.inclusion->file->name;
    out += ':';
    out += std::to_string(line.lineNumber);
    out += "): ";
    out += program.text.view(line.text);
}

}  // namespace

void OutputLayout::write(const Program& program, const SourceLine& line,
                         std::optional<std::string_view> text, BlockEffect effect,
                         std::string& out) {
    const bool closes = effect == BlockEffect::Closes || effect == BlockEffect::Continues;
    const bool opens = effect == BlockEffect::Opens || effect == BlockEffect::Continues;
    if (closes && level_ > 0) {
        --level_;
    }
    const std::size_t start = out.size();
    out.append(level_, '\t');
    if (opens) {
        ++level_;
    }
    if (!text) {
        appendMarker(program, line, out);
    } else {
        const std::string_view trimmed = trimBlanks(*text);
        const bool isBlankLine = std::all_of(trimmed.begin(), trimmed.end(), isWhiteSpace);
        out += trimmed;
        if (!line.comment.empty()) {
            out += isBlankLine ? "// " : " // ";
            out += program.text.view(line.comment);
        } else if (isBlankLine) {
            out.resize(start);
        }
    }
    out += '\n';
}

namespace {

/// What became of a line.
struct ConvertedLine {
    /// Where its text ends in the part's; it begins where the text before it ends.
    std::size_t textEnd = 0;
    bool isConverted = false;
    BlockEffect effect{};
};

/// The lines from `first` on, converted but not yet laid out.
struct Part {
    std::size_t first = 0;
    std::vector<ConvertedLine> lines;
    std::string text;
    MessageLog log;
};

/// Bytes of a line's text for which room is made.
constexpr std::size_t expectedTextLength = 32;

/// Converts the lines from `first` up to `last`.
Part convertPart(const ConversionContext& run, std::size_t first, std::size_t last) {
    Part part;
    part.first = first;
    part.lines.reserve(last - first);
    part.text.reserve((last - first) * expectedTextLength);
    ConversionContext context{run.program, run.axes, run.limits, part.log, {}};
    const LineList& list = run.program.list;
    StatementText text;
    for (std::size_t number = first; number < last; ++number) {
        context.position = list.lines[number].position();
        BlockEffect effect{};
        const bool isConverted = convertStatement(context, list.tokensOf(number), text, effect);
        if (isConverted) {
            part.text += text;
        }
        part.lines.push_back({part.text.size(), isConverted, effect});
    }
    return part;
}

/// The parts of a program in order. Helpers convert some of them while the caller uses others.
class Parts {
public:
    Parts(const ConversionContext& context, const WorkSharing& sharing)
        : context_(context),
          linesPerPart_(std::max<std::size_t>(sharing.linesPerPart, 1)),
          lineCount_(context.program.list.lines.size()) {
        if (lineCount_ > linesPerPart_) {
            helpers_ =
                sharing.helpers.value_or(std::max(std::thread::hardware_concurrency(), 1U) - 1);
        }
    }

    /// The next part; nothing behind the last. While a helper has it, parts behind it are converted.
    std::optional<Part> next() {
        employHelpers();
        while (hasMore() && (begun_.empty() || (!isReady(begun_.front()) && !isFarAhead()))) {
            begin(std::launch::deferred);
            begun_.back().wait();
        }
        if (begun_.empty()) {
            return std::nullopt;
        }
        Part part = begun_.front().get();
        begun_.pop_front();
        return part;
    }

private:
    using BegunPart = std::future<Part>;

    static bool isReady(const BegunPart& part) {
        return part.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
    }
    bool hasMore() const { return firstLine_ < lineCount_; }
    /// Parts that wait take memory.
    bool isFarAhead() const { return begun_.size() > 4 * std::size_t{helpers_}; }

    void begin(std::launch policy) {
        const std::size_t last = std::min(firstLine_ + linesPerPart_, lineCount_);
        begun_.push_back(std::async(policy, convertPart, std::cref(context_), firstLine_, last));
        firstLine_ = last;
    }

    void employHelpers() {
        auto busy = static_cast<std::size_t>(
            std::count_if(begun_.begin(), begun_.end(), std::not_fn(isReady)));
        for (; busy < helpers_ && hasMore() && !isFarAhead(); ++busy) {
            try {
                begin(std::launch::async);
            } catch (const std::system_error&) {
                helpers_ = 0;  // the system has no more threads: it goes without
            }
        }
    }

    const ConversionContext& context_;
    std::size_t linesPerPart_;
    std::size_t lineCount_;
    std::size_t firstLine_ = 0;
    unsigned helpers_ = 0;
    std::deque<BegunPart> begun_;
};

void writePart(const Program& program, const Part& part, OutputLayout& layout, OutputFile& output) {
    std::size_t textStart = 0;
    for (std::size_t i = 0; i < part.lines.size(); ++i) {
        const ConvertedLine& line = part.lines[i];
        std::optional<std::string_view> text;
        if (line.isConverted) {
            text = std::string_view(part.text).substr(textStart, line.textEnd - textStart);
        }
        layout.write(program, program.list.lines[part.first + i], text, line.effect,
                     output.buffer());
        textStart = line.textEnd;
    }
}

}  // namespace

void convertProgram(ConversionContext& context, OutputFile& output, const WorkSharing& sharing) {
    OutputLayout layout;
    Parts parts(context, sharing);
    while (std::optional<Part> part = parts.next()) {
        writePart(context.program, *part, layout, output);
        context.log.insert(context.log.end(), std::make_move_iterator(part->log.begin()),
                           std::make_move_iterator(part->log.end()));
    }
}

}  // namespace torvel
