#include "src/migrate/report-csv.h"

#include <algorithm>
#include <array>
#include <initializer_list>

#include "src/base/characters.h"
#include "src/migrate/finding-names.h"
#include "src/migrate/text-decoding.h"
#include "src/migrate/text-layout.h"

namespace torvel::migrate {

namespace {

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
/// A cell of a spreadsheet takes 32,767 characters; there has to be room for what tells that more was there.
constexpr std::size_t longestCell = 32000;

/// Takes the digits off the front; tells how many there were.
std::size_t skipDigits(std::string_view& text) {
    const std::size_t count = std::min(text.find_first_not_of("0123456789"), text.size());
    text.remove_prefix(count);
    return count;
}

void skipOneOf(std::string_view& text, std::string_view characters) {
    if (!text.empty() && characters.find(text[0]) != std::string_view::npos) {
        text.remove_prefix(1);
    }
}

/// A sign, digits with a point or comma among them, and an exponent.
bool isNumber(std::string_view text) {
    skipOneOf(text, "+-");
    std::size_t digits = skipDigits(text);
    skipOneOf(text, ".,");
    digits += skipDigits(text);
    if (digits == 0 || text.empty()) {
        return digits != 0;
    }
    if (text[0] != 'e' && text[0] != 'E') {
        return false;
    }
    text.remove_prefix(1);
    skipOneOf(text, "+-");
    return skipDigits(text) > 0 && text.empty();
}

bool isTakenForFormula(std::string_view text) {
    // The signs, and their wide forms: U+FF1D, U+FF0B, U+FF0D and U+FF20.
    constexpr std::array<std::string_view, 11> signs = {"=",
                                                        "+",
                                                        "-",
                                                        "@",
                                                        "\t",
                                                        "\r",
                                                        "\n",
                                                        "\xEF\xBC\x9D",
                                                        "\xEF\xBC\x8B",
                                                        "\xEF\xBC\x8D",
                                                        "\xEF\xBC\xA0"};
    return !isNumber(text) &&
           std::any_of(signs.begin(), signs.end(),
                       [text](std::string_view sign) { return text.starts_with(sign); });
}

std::string cellText(std::string_view text) {
    if (text.size() <= longestCell) {
        return std::string(text);
    }
    const std::size_t length = characterCount(text);
    if (length <= longestCell) {
        return std::string(text);
    }
    return shortenedText(text, longestCell) + " (" +
           counted(length - longestCell + 1, "more character", "more characters") + ")";
}

std::string field(std::string_view bytes) {
    return csvField(decodedText(bytes));
}

/// Nothing for what is not known.
std::string position(std::uint64_t number) {
    return number == 0 ? std::string() : std::to_string(number);
}

std::string includedFrom(const FindingRow& row) {
    std::string text;
    for (const IncludedFrom& from : row.includedFrom) {
        text += text.empty() ? "" : "; ";
        text += decodedText(from.file) + ':' + std::to_string(from.line);
    }
    return text;
}

void writeRow(TextBuffer& buffer, std::initializer_list<std::string_view> fields) {
    bool isFirst = true;
    for (const std::string_view text : fields) {
        buffer << (isFirst ? "" : ",") << text;
        isFirst = false;
    }
    buffer << "\r\n";
}

void writeFinding(const ReportProgram& program, const ReportFinding& finding,
                  const std::string& fingerprint, TextBuffer& buffer) {
    const FindingRow& row = finding.row;
    writeRow(buffer, {field(program.program), field(program.output), field(program.machine),
                      field(row.file), position(row.line),
                      position(utf16Columns(row.lineText, row.columns).first), field(row.code),
                      originName(row.origin), todoName(row.todo), severityName(row.severity),
                      finding.isOpen ? "yes" : "no", field(row.text), field(row.lineText),
                      csvField(includedFrom(row)), position(row.outputLine), fingerprint});
}

void writeProgram(const ReportProgram& program, TextBuffer& buffer) {
    std::array<std::uint64_t, 4> byTodo{};
    std::array<std::uint64_t, 4> bySeverity{};
    std::uint64_t finished = 0;
    for (const ReportFinding& finding : program.findings) {
        if (finding.isOpen) {
            ++byTodo[static_cast<std::size_t>(finding.row.todo)];
            ++bySeverity[static_cast<std::size_t>(finding.row.severity)];
        } else {
            ++finished;
        }
    }
    const auto todo = [&byTodo](FindingTodo kind) {
        return std::to_string(byTodo[static_cast<std::size_t>(kind)]);
    };
    const auto severity = [&bySeverity](Severity kind) {
        return std::to_string(bySeverity[static_cast<std::size_t>(kind)]);
    };
    writeRow(buffer,
             {field(program.program), field(program.output), field(program.machine),
              programStatusName(program), outputStateName(program.outputState),
              std::to_string(program.lines), std::to_string(program.convertedLines),
              todo(FindingTodo::fixSource), todo(FindingTodo::rewrite), todo(FindingTodo::complete),
              todo(FindingTodo::look), severity(Severity::moves), severity(Severity::stops),
              severity(Severity::reads), std::to_string(finished)});
}

}  // namespace

std::string csvField(std::string_view text) {
    std::string cell = cellText(visibleText(text, "\t\r\n"));
    if (isTakenForFormula(cell)) {
        cell.insert(0, 1, '\'');
    }
    if (cell.find_first_of(",;\"\t\r\n") == std::string::npos && !cell.starts_with(' ') &&
        !cell.ends_with(' ')) {
        return cell;
    }
    std::string quoted = "\"";
    for (const char c : cell) {
        quoted += c;
        if (c == '"') {
            quoted += c;
        }
    }
    return quoted + '"';
}

void writeFindingsCsv(const Report& report, const Places& places, const TextSink& sink) {
    TextBuffer buffer(sink);
    buffer << byteOrderMark;
    writeRow(buffer, {"Program", "Output", "Machine", "File", "Line", "Column", "Code", "Origin",
                      "Todo", "Severity", "Open", "Text", "Line text", "Included from",
                      "Output line", "Fingerprint"});
    Places::Cursor cursor(places);
    report.forEachProgram([&places, &cursor, &buffer](const ReportProgram& program) {
        for (const ReportFinding& finding : program.findings) {
            writeFinding(program, finding, places.fingerprint(cursor.next(finding.row)), buffer);
        }
    });
    buffer.finish();
}

void writeProgramsCsv(const Report& report, const TextSink& sink) {
    TextBuffer buffer(sink);
    buffer << byteOrderMark;
    writeRow(buffer,
             {"Program", "Output", "Machine", "Status", "Output state", "Lines", "Converted lines",
              "Fix source", "Rewrite", "Complete", "Look", "Moves", "Stops", "Reads", "Finished"});
    report.forEachProgram(
        [&buffer](const ReportProgram& program) { writeProgram(program, buffer); });
    buffer.finish();
}

}  // namespace torvel::migrate
