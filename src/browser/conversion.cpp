// Programs are converted one by one; what is known of the last one can be asked for.

#include <stdexcept>

#include "src/browser/exchange.h"
#include "src/browser/program-record.h"
#include "src/browser/session.h"
#include "src/migrate/finding-names.h"
#include "src/migrate/found-program.h"
#include "src/migrate/html-detail.h"
#include "src/migrate/json-writer.h"
#include "src/migrate/program-faults.h"
#include "src/migrate/text-decoding.h"

namespace torvel::browser {

namespace {

using migrate::FindingRow;
using migrate::FoundProgram;
using migrate::JsonWriter;
using migrate::ProgramResult;
using migrate::ProgramStatus;

std::string jsonText(const std::function<void(JsonWriter&)>& write) {
    std::string text;
    const migrate::TextSink sink = [&text](std::string_view piece) { text += piece; };
    JsonWriter json(sink, migrate::JsonLayout::compact);
    write(json);
    json.finish();
    return text;
}

/// Files that the program asked for in vain, where that ended its conversion.
void writeMissing(const ProgramResult& result, JsonWriter& json) {
    json.name("missing").beginList();
    if (result.status == ProgramStatus::unreadable) {
        for (const migrate::Input& input : result.inputs) {
            if (!input.hash) {
                json.text(input.path);
            }
        }
    }
    json.endList();
}

std::string resultJson(const ProgramResult& result) {
    return jsonText([&](JsonWriter& json) {
        json.beginObject()
            .member("path", result.program)
            .member("output", result.output)
            .member("status", statusName(result.status))
            .member("lines", result.lines)
            .member("convertedLines", result.convertedLines)
            .member("findings", std::uint64_t{result.findings.size()});
        writeMissing(result, json);
        json.endObject();
    });
}

void writeFinding(const FindingRow& row, JsonWriter& json) {
    const ColumnRange columns = migrate::utf16Columns(row.lineText, row.columns);
    json.beginObject()
        .member("file", row.file)
        .member("line", std::uint64_t{row.line})
        .member("firstColumn", std::uint64_t{columns.first})
        .member("lastColumn", std::uint64_t{columns.last})
        .member("code", row.code)
        .member("origin", migrate::originName(row.origin))
        .member("todo", migrate::todoName(row.todo))
        .member("severity", severityName(row.severity))
        .member("text", row.text)
        .member("lineText", row.lineText)
        .member("outputLine", std::uint64_t{row.outputLine})
        .member("outputLineCount", std::uint64_t{row.outputLineCount})
        .name("includedFrom")
        .beginList();
    for (const migrate::IncludedFrom& from : row.includedFrom) {
        json.beginObject()
            .member("file", from.file)
            .member("line", std::uint64_t{from.line})
            .endObject();
    }
    json.endList().endObject();
}

std::string findingsJson(const ProgramResult& result) {
    return jsonText([&](JsonWriter& json) {
        json.beginList();
        for (const FindingRow& row : result.findings) {
            writeFinding(row, json);
        }
        json.endList();
    });
}

/// Runs of lines as the page of reports has them.
std::string lineMapJson(const ProgramResult& result) {
    return jsonText([&](JsonWriter& json) {
        json.beginObject().name("files").beginList();
        for (const migrate::ConvertedFile& file : result.files) {
            json.text(file.path);
        }
        json.endList().name("lines");
        migrate::writeLineRuns(result.lineMap, json);
        json.endObject();
    });
}

void keep(const FoundProgram& found, ProgramResult result) {
    session().machine = found.machine;
    session().result = std::move(result);
}

/// A program at a path, whether it was found as one or is a part of others.
FoundProgram programAt(const std::string& key) {
    const auto& programs = session().discovery.programs;
    for (const FoundProgram& program : programs) {
        if (program.program == key) {
            return program;
        }
    }
    const migrate::Project& project = session().project;
    FoundProgram program;
    program.program = key;
    if (project.parameters) {
        program.parameters = *project.parameters;
    }
    auto& settings = session().settings;
    if (!settings.contains(program.parameters)) {
        migrate::Discovery alone;
        alone.programs = {program};
        settings.merge(settingsOfMachines(project, alone, session().options));
    }
    return program;
}

}  // namespace

}  // namespace torvel::browser

/// Converts the program of a number. Leaves behind as JSON what came of it.
TORVEL_EXPORT int torvelConvert(const char* bytes, std::size_t size) {
    using namespace torvel::browser;
    return answered([&] {
        const FoundProgram& found = foundProgram(Request(bytes, size).number());
        keep(found, converted(found));
        return resultJson(session().result);
    });
}

/// The same for the file of a key, which may be one that others include.
TORVEL_EXPORT int torvelConvertFile(const char* bytes, std::size_t size) {
    using namespace torvel::browser;
    return answered([&] {
        const FoundProgram found = programAt(Request(bytes, size).text());
        keep(found, converted(found));
        return resultJson(session().result);
    });
}

/// The program of a number could not be converted here, for the reason that is told.
TORVEL_EXPORT int torvelNoteFault(const char* bytes, std::size_t size) {
    using namespace torvel::browser;
    return answered([&] {
        Request request(bytes, size);
        const FoundProgram& found = foundProgram(request.number());
        ProgramResult result;
        result.program = found.program;
        result.output = found.output;
        result.status = ProgramStatus::unreadable;
        result.findings = {findingOfWhole(found, torvel::migrate::conversionEnded, request.text())};
        keep(found, std::move(result));
        return resultJson(session().result);
    });
}

TORVEL_EXPORT int torvelOutput(const char* /*bytes*/, std::size_t /*size*/) {
    using namespace torvel::browser;
    return answered([] { return session().result.outputText; });
}

TORVEL_EXPORT int torvelLog(const char* /*bytes*/, std::size_t /*size*/) {
    using namespace torvel::browser;
    return answered([] { return session().result.logText; });
}

/// What a report needs of the program; it can be given to another instance.
TORVEL_EXPORT int torvelRecord(const char* /*bytes*/, std::size_t /*size*/) {
    using namespace torvel::browser;
    return answered([] { return packedRecord(session().result, session().machine); });
}

TORVEL_EXPORT int torvelFindings(const char* /*bytes*/, std::size_t /*size*/) {
    using namespace torvel::browser;
    return answered([] { return findingsJson(session().result); });
}

TORVEL_EXPORT int torvelLineMap(const char* /*bytes*/, std::size_t /*size*/) {
    using namespace torvel::browser;
    return answered([] { return lineMapJson(session().result); });
}
