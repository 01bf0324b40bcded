#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

// Texts by lines: sources as the converter counts their lines, outputs for comparing what a person wrote with what the
// converter generated. A view of a text points into it.

namespace torvel::migrate {

struct TextLine {
    std::string_view text;
    /// "\n", "\r\n", or empty behind the last line of a text that does not end in one.
    std::string_view end;
};

std::vector<TextLine> linesOf(std::string_view text);

/// The lines of a source without their ends, which are LF, CR LF or CR alone.
std::vector<std::string_view> sourceLinesOf(std::string_view text);

/// The same for who asks for few of them, mostly in their order: the text is gone through as far as it is asked for.
class SourceLines {
public:
    SourceLines() = default;
    explicit SourceLines(std::string_view text) : text_(text), rest_(text) {}

    /// A line by its number, from 1; empty if there is no such line.
    std::string_view line(std::size_t number);

private:
    std::string_view text_;
    /// What stands behind the lines that were gone through, and how many these are.
    std::string_view rest_;
    std::size_t count_ = 0;
    std::string_view last_;
};

/// The text with LF in place of CR LF.
std::string withLineFeeds(std::string text);

/// Whether texts differ in nothing but LF or CR LF at the ends of lines, and in whether the last line has one.
bool haveSameLines(std::string_view a, std::string_view b);

/// The parts of a line in front of and behind its position, which is the "(file:line): " of a line that could not be
/// converted. Any other line is all in front.
struct LineWithoutPosition {
    std::string_view front;
    std::string_view behind;
};

LineWithoutPosition withoutPosition(std::string_view line);

/// Whether a position makes a difference between lines.
enum class Positions : bool { ignored, compared };

/// Gives equal lines equal numbers.
class LineNumbers {
public:
    explicit LineNumbers(Positions positions) : positions_(positions) {}
    std::uint32_t numberOf(std::string_view line);
    std::vector<std::uint32_t> numbersOf(const std::vector<TextLine>& lines);

private:
    Positions positions_;
    std::unordered_map<std::string, std::uint32_t> numbers_;
};

}  // namespace torvel::migrate
