#include "src/migrate/report-sarif.h"

#include <fmt/format.h>

#include <map>
#include <vector>

#include "src/base/characters.h"
#include "src/migrate/explanations.h"
#include "src/migrate/finding-names.h"
#include "src/migrate/finding-order.h"
#include "src/migrate/json-writer.h"
#include "src/migrate/text-decoding.h"

namespace torvel::migrate {

namespace {

/// By which code hosts know the format.
constexpr std::string_view schemaName =
    "https://docs.oasis-open.org/sarif/sarif/v2.1.0/errata01/os/schemas/sarif-schema-2.1.0.json";
/// Where relative URIs begin: the project's folder, wherever it lies.
constexpr std::string_view baseId = "SRCROOT";
/// Wide enough that no paragraph is cut into lines.
constexpr std::size_t noLimit = 1U << 20U;

std::string_view levelName(Urgency urgency) {
    switch (urgency) {
        case Urgency::error: return "error";
        case Urgency::warning: return "warning";
        default: return "note";
    }
}

bool hasDrive(std::string_view key) {
    return key.size() >= 2 && isLetter(key[0]) && key[1] == ':';
}

bool isAbsolute(std::string_view key) {
    return key.starts_with('/') || hasDrive(key);
}

/// The text of a message, in which "[text](1)" would be a link.
std::string messageText(std::string_view bytes) {
    std::string text = decodedText(bytes);
    if (text.find("](") == std::string::npos) {
        return text;
    }
    std::string escaped;
    for (const char c : text) {
        if (c == '[' || c == ']' || c == '\\') {
            escaped += '\\';
        }
        escaped += c;
    }
    return escaped;
}

void writeText(std::string_view name, std::string_view text, JsonWriter& json) {
    json.name(name).beginObject().member("text", text).endObject();
}

/// Writes the report level by level.
class SarifWriter {
public:
    SarifWriter(const Report& report, const Places& places, const ReportTotals& totals,
                const TextSink& sink)
        : report_(report), places_(places), totals_(totals), json_(sink) {}

    void write() {
        json_.beginObject().member("$schema", schemaName).member("version", "2.1.0");
        json_.name("runs").beginList().beginObject();
        writeTool();
        json_.member("columnKind", "utf16CodeUnits");
        json_.name("originalUriBaseIds").beginObject().name(baseId).beginObject();
        writeText("description", "The folder of the project.", json_);
        json_.endObject().endObject();
        json_.name("results").beginList();
        std::vector<bool> isWritten(places_.count());
        for (const Urgency urgency : {Urgency::error, Urgency::warning, Urgency::note}) {
            writeResults(urgency, isWritten);
        }
        json_.endList().endObject().endList().endObject().finish();
    }

private:
    void writeTool() {
        json_.name("tool").beginObject().name("driver").beginObject();
        json_.member("name", "torvel-migrate")
            .member("version", TORVEL_VERSION)
            .member("semanticVersion", TORVEL_VERSION)
            .name("rules")
            .beginList();
        std::uint64_t index = 0;
        for (const auto& [code, count] : totals_.byCode) {
            ruleIndex_.emplace(code, index++);
            writeRule(code);
        }
        json_.endList().endObject().endObject();
    }

    void writeRule(const std::string& code) {
        json_.beginObject().member("id", code);
        const auto entry = explanations().find(code);
        if (entry == explanations().end()) {
            writeText("shortDescription", code, json_);
        } else {
            const Explanation& explanation = entry->second;
            writeText("shortDescription", explanation.title, json_);
            writeText("fullDescription",
                      explanation.sectionText.empty() ? explanation.section + '.'
                                                      : explanation.sectionText,
                      json_);
            json_.name("help")
                .beginObject()
                .member("text", plainMarkdown(explanation.body, noLimit))
                .member("markdown", explanation.body)
                .endObject();
        }
        json_.endObject();
    }

    void writeResults(Urgency urgency, std::vector<bool>& isWritten) {
        Places::Cursor cursor(places_);
        report_.forEachProgram([&](const ReportProgram& program) {
            for (const ReportFinding& finding : program.findings) {
                const Place& place = cursor.next(finding.row);
                const bool isMeant = finding.isOpen && urgencyOf(finding.row) == urgency;
                if (isMeant && !isWritten[place.number]) {
                    isWritten[place.number] = true;
                    writeResult(finding.row, levelName(urgency), places_.fingerprint(place));
                }
            }
        });
    }

    void writeResult(const FindingRow& row, std::string_view level,
                     const std::string& fingerprint) {
        json_.beginObject()
            .member("ruleId", row.code)
            .member("ruleIndex", ruleIndex_.at(row.code))
            .member("level", level);
        json_.name("message").beginObject().member("text", messageText(row.text)).endObject();
        json_.name("locations").beginList().beginObject();
        writePlace(row.file, row.line, utf16Columns(row.lineText, row.columns));
        json_.endObject().endList();
        if (!row.includedFrom.empty() || !row.lines.empty()) {
            writeRelated(row);
        }
        json_.name("partialFingerprints")
            .beginObject()
            .member("torvelFinding/v1", fingerprint)
            .endObject();
        json_.name("properties")
            .beginObject()
            .member("origin", originName(row.origin))
            .member("todo", todoName(row.todo))
            .member("severity", severityName(row.severity))
            .endObject()
            .endObject();
    }

    /// The chain of includes, and further lines of the file.
    void writeRelated(const FindingRow& row) {
        json_.name("relatedLocations").beginList();
        for (const IncludedFrom& from : row.includedFrom) {
            json_.beginObject();
            writePlace(from.file, from.line, {});
            writeText("message", "Included here.", json_);
            json_.endObject();
        }
        for (const std::uint32_t line : row.lines) {
            json_.beginObject();
            writePlace(row.file, line, {});
            writeText("message", "This line too.", json_);
            json_.endObject();
        }
        json_.endList();
    }

    void writePlace(std::string_view file, std::uint32_t line, ColumnRange columns) {
        json_.name("physicalLocation").beginObject().name("artifactLocation").beginObject();
        json_.member("uri", uriOf(file));
        if (!isAbsolute(file)) {
            json_.member("uriBaseId", baseId);
        }
        json_.endObject();
        if (line != 0) {
            json_.name("region").beginObject().member("startLine", std::uint64_t{line});
            if (columns.first != 0) {
                json_.member("startColumn", std::uint64_t{columns.first})
                    .member("endColumn", std::uint64_t{columns.last} + 1);
            }
            json_.endObject();
        }
        json_.endObject();
    }

    const Report& report_;
    const Places& places_;
    const ReportTotals& totals_;
    JsonWriter json_;
    std::map<std::string, std::uint64_t> ruleIndex_;
};

}  // namespace

std::string uriOf(std::string_view key) {
    std::string uri;
    if (hasDrive(key)) {
        uri = "file:///" + std::string(key.substr(0, 2));
        key.remove_prefix(2);
    } else if (key.starts_with("//")) {
        // A server's share.
        uri = "file:";
    } else if (key.starts_with('/')) {
        uri = "file://";
    }
    for (const char c : decodedText(key)) {
        if (isLetter(c) || isDigit(c) ||
            std::string_view("-._~/").find(c) != std::string_view::npos) {
            uri += c;
        } else {
            uri += fmt::format("%{:02X}", static_cast<unsigned>(static_cast<unsigned char>(c)));
        }
    }
    return uri;
}

void writeSarif(const Report& report, const Places& places, const ReportTotals& totals,
                const TextSink& sink) {
    SarifWriter(report, places, totals, sink).write();
}

}  // namespace torvel::migrate
