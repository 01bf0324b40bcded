#include "src/migrate/program-conversion.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "src/app/conversion.h"
#include "src/base/characters.h"
#include "src/base/output-marks.h"
#include "src/base/parse-exception.h"
#include "src/checks/finding-telling.h"
#include "src/migrate/recorded-source.h"
#include "src/migrate/text-lines.h"
#include "src/preprocess/preprocessor.h"

namespace torvel::migrate {

namespace {

/// What findings say of their file.
struct FileOfFindings {
    std::string key;
    SourceLines lines;
};

/// A program in memory while its result is put together.
struct Conversion {
    const ConversionSettings& settings;
    Program& program;
    ProgramOutput output{};
    /// By line of the program: the number of its first line of output, from 1, and one behind the last.
    std::vector<std::uint32_t> firstOutputLines{};
    /// The files that somebody asked about.
    std::unordered_map<const SourceFile*, FileOfFindings> files{};
};

FileOfFindings& fileOf(Conversion& conversion, const SourceFile& file) {
    const auto [entry, isNew] = conversion.files.try_emplace(&file);
    if (isNew) {
        entry->second = {keyOf(file.path, conversion.settings.folder),
                         SourceLines(conversion.program.text.view(file.text))};
    }
    return entry->second;
}

void countOutputLines(Conversion& conversion) {
    const std::string_view text = conversion.output.text;
    conversion.firstOutputLines.reserve(conversion.output.lineEnds.size() + 1);
    std::uint32_t number = 1;
    std::size_t lineFeed = text.find('\n');
    for (const std::size_t end : conversion.output.lineEnds) {
        conversion.firstOutputLines.push_back(number);
        for (; lineFeed < end; lineFeed = text.find('\n', lineFeed + 1)) {
            ++number;
        }
    }
    conversion.firstOutputLines.push_back(number);
}

std::uint32_t depthOf(const Inclusion* inclusion) {
    std::uint32_t depth = 0;
    for (inclusion = inclusion->includedFrom.inclusion; inclusion != nullptr;
         inclusion = inclusion->includedFrom.inclusion) {
        ++depth;
    }
    return depth;
}

/// The line map, and the distinct lines of source behind markers.
void mapLines(const Conversion& conversion, ProgramResult& result) {
    const ProgramLines& lines = conversion.program.lines;
    std::unordered_map<const SourceFile*, std::uint32_t> numbers;
    for (const SourceFile& file : conversion.program.files) {
        numbers.emplace(&file, static_cast<std::uint32_t>(numbers.size()));
    }
    std::unordered_set<std::uint64_t> refused;
    const std::string_view text = conversion.output.text;
    std::size_t begin = 0;
    const Inclusion* inclusion = nullptr;
    MappedLine mapped;
    result.lineMap.reserve(lines.size());
    LinePositions positions(lines);
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const SourcePosition position = positions.of(i);
        if (position.inclusion != inclusion) {
            inclusion = position.inclusion;
            mapped.file = numbers.at(inclusion->file);
            mapped.depth = depthOf(inclusion);
        }
        const std::size_t end = conversion.output.lineEnds[i];
        mapped.line = position.lineNumber;
        mapped.outputLineCount =
            conversion.firstOutputLines[i + 1] - conversion.firstOutputLines[i];
        mapped.isConverted = !isMarkerLine(text.substr(begin, end - begin));
        if (!mapped.isConverted) {
            refused.insert(std::uint64_t{mapped.file} << 32U | mapped.line);
        }
        result.lineMap.push_back(mapped);
        begin = end;
    }
    result.convertedLines = result.lines - std::min<std::uint64_t>(refused.size(), result.lines);
}

FindingRow rowOf(Conversion& conversion, const Finding& finding) {
    FindingRow row;
    row.line = finding.position.lineNumber;
    row.columns = finding.columns;
    row.code = finding.code;
    row.origin = finding.origin;
    row.todo = finding.todo;
    row.severity = finding.severity;
    row.text = finding.text;
    row.lines.assign(finding.lines.begin(), finding.lines.end());
    if (finding.position.inclusion == nullptr) {
        return row;
    }
    FileOfFindings& file = fileOf(conversion, *finding.position.inclusion->file);
    row.file = file.key;
    row.lineText = file.lines.line(finding.position.lineNumber);
    for (SourcePosition from = finding.position.inclusion->includedFrom; from.inclusion != nullptr;
         from = from.inclusion->includedFrom) {
        row.includedFrom.push_back(
            {fileOf(conversion, *from.inclusion->file).key, from.lineNumber});
    }
    const std::size_t number = finding.programLine;
    if (number < conversion.output.lineEnds.size() &&
        conversion.program.lines.positionOf(number) == finding.position) {
        row.outputLine = conversion.firstOutputLines[number];
        row.outputLineCount = conversion.firstOutputLines[number + 1] - row.outputLine;
    }
    return row;
}

void convertRead(Conversion& conversion, CheckRecord& record, const FindingTaker& taker,
                 ProgramResult& result) {
    MessageLog messages = messagesOfReading(conversion.program);
    ConversionContext context{conversion.program,
                              conversion.settings.axes,
                              conversion.settings.limits,
                              messages,
                              {},
                              0,
                              &record,
                              conversion.settings.reference.get()};
    convertProgram(context, conversion.output, WorkSharing{.helpers = 0});
    TextBuffer log;
    for (const ConversionMessage& message : messages) {
        appendLogLine(message, log);
    }
    result.logText = log.toString();
    countOutputLines(conversion);
    for (const SourceFile& file : conversion.program.files) {
        result.lines += file.codeLines;
    }
    mapLines(conversion, result);
    tellFindings(conversion.program, record, messages, taker);
}

}  // namespace

ProgramResult convertOne(const NativePath& path, const ConversionSettings& settings,
                         ConvertedNames* names) {
    ProgramResult result;
    const FileSource source = recordedSource(settings.source, settings.folder, result.inputs);
    ConvertedNames own;
    ConvertedNames& kept = names != nullptr ? *names : own;
    Conversion conversion{settings, kept.program};
    CheckRecord& record = kept.record;
    record.places = names != nullptr ? &names->places : nullptr;
    result.program = keyOf(path, settings.folder);
    const auto takeFinding = [&](const Finding& finding) {
        result.findings.push_back(rowOf(conversion, finding));
        if (result.findings.back().file.empty()) {
            result.findings.back().file = result.program;
        }
    };
    try {
        const PredefinedTable& predefined =
            settings.constants ? settings.constants->table() : predefinedConstants();
        preprocessProgram(conversion.program, narrowPath(path), settings.axes, settings.limits,
                          predefined, source, &record);
        convertRead(conversion, record, takeFinding, result);
    } catch (const ParseException& error) {
        result.status = ProgramStatus::unreadable;
        takeFinding(unreadableFinding(error));
    }
    for (const SourceFile& file : conversion.program.files) {
        const std::string_view text = conversion.program.text.view(file.text);
        result.files.push_back(
            {keyOf(file.path, settings.folder), hashOf(text), std::string(text)});
    }
    result.outputText = conversion.output.text.toString();
    return result;
}

}  // namespace torvel::migrate
