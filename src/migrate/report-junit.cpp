#include "src/migrate/report-junit.h"

#include <map>
#include <utility>
#include <vector>

#include "src/migrate/finding-order.h"
#include "src/migrate/report-totals.h"
#include "src/migrate/text-decoding.h"
#include "src/migrate/text-layout.h"

namespace torvel::migrate {

namespace {

/// What fails in a program: what is to be done, told in one entry. The texts are decoded.
struct Failure {
    std::string code;
    std::string message;
    std::string text;
};

std::string attribute(std::string_view name, std::string_view text) {
    return ' ' + std::string(name) + "=\"" + escapedXml(text) + '"';
}

std::string placeText(const FindingRow& row) {
    std::string text = decodedText(row.file);
    if (row.line != 0) {
        text += ':' + std::to_string(row.line);
    }
    text += ": " + decodedText(row.text);
    for (const IncludedFrom& from : row.includedFrom) {
        text += " (included from " + decodedText(from.file) + ':' + std::to_string(from.line) + ')';
    }
    return text;
}

Failure failureOf(const std::string& code, const std::vector<const FindingRow*>& rows) {
    Failure failure{
        code, counted(rows.size(), "finding", "findings") + ": " + decodedText(rows[0]->text), {}};
    for (const FindingRow* row : rows) {
        failure.text += placeText(*row) + '\n';
    }
    return failure;
}

/// One for each code with open findings, the most urgent first.
std::vector<Failure> failuresOf(const ReportProgram& program) {
    std::map<std::pair<Urgency, std::string>, std::vector<const FindingRow*>> groups;
    for (const ReportFinding& finding : program.findings) {
        if (finding.isOpen) {
            groups[{urgencyOf(finding.row), finding.row.code}].push_back(&finding.row);
        }
    }
    std::vector<Failure> failures;
    if (program.outputState == OutputState::notWritten) {
        failures.push_back({"not-written",
                            "What the converter wrote could not be put in the output's place: "
                            "convert again to see why.",
                            decodedText(program.output) + '\n'});
    }
    if (program.outputState == OutputState::conflict) {
        failures.push_back({"conflict",
                            "The output was edited, and what the converter writes now changes the "
                            "same lines: bring the two together.",
                            decodedText(program.output) + '\n'});
    }
    for (const auto& [group, rows] : groups) {
        failures.push_back(failureOf(group.second, rows));
    }
    return failures;
}

bool isError(const ReportProgram& program) {
    return program.status != ProgramStatus::converted;
}

void writeFailure(const Failure& failure, std::string_view element, TextBuffer& buffer) {
    buffer << "      <" << element << attribute("type", failure.code)
           << attribute("message", failure.message) << ">" << escapedXml(failure.text) << "</"
           << element << ">\n";
}

void writeProgram(const ReportProgram& program, TextBuffer& buffer) {
    std::vector<Failure> failures = failuresOf(program);
    if (program.status == ProgramStatus::collides) {
        failures.insert(failures.begin(),
                        {"collides", "Another program has the same output: it was not converted.",
                         decodedText(program.output) + '\n'});
    } else if (isError(program) && failures.empty()) {
        failures.push_back({"unreadable", "It could not be read as a program.", {}});
    }
    buffer << "    <testcase" << attribute("classname", decodedText(folderOf(program.program)))
           << attribute("name", decodedText(program.program));
    if (failures.empty()) {
        buffer << "/>\n";
        return;
    }
    buffer << ">\n";
    for (const Failure& failure : failures) {
        writeFailure(failure, isError(program) ? "error" : "failure", buffer);
    }
    buffer << "    </testcase>\n";
}

/// How many test cases there are, and how many fail in which way.
std::string counts(const Report& report) {
    std::uint64_t tests = 0;
    std::uint64_t failures = 0;
    std::uint64_t errors = 0;
    report.forEachProgram([&](const ReportProgram& program) {
        ++tests;
        if (isError(program)) {
            ++errors;
        } else if (!failuresOf(program).empty()) {
            ++failures;
        }
    });
    return attribute("tests", std::to_string(tests)) +
           attribute("failures", std::to_string(failures)) +
           attribute("errors", std::to_string(errors));
}

}  // namespace

std::string escapedXml(std::string_view text) {
    std::string result;
    for (const char c : visibleText(text, "\t\r\n")) {
        switch (c) {
            case '&': result += "&amp;"; break;
            case '<': result += "&lt;"; break;
            case '>': result += "&gt;"; break;
            case '"': result += "&quot;"; break;
            case '\'': result += "&apos;"; break;
            // A reader makes a blank of these in an attribute, and a line feed of a carriage return.
            case '\t': result += "&#9;"; break;
            case '\n': result += "&#10;"; break;
            case '\r': result += "&#13;"; break;
            default: result += c; break;
        }
    }
    return result;
}

void writeJUnit(const Report& report, const TextSink& sink) {
    const std::string attributes = attribute("name", "torvel-migrate") + counts(report);
    TextBuffer buffer(sink);
    buffer << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";
    buffer << "<testsuites" << attributes << ">\n  <testsuite" << attributes << ">\n";
    report.forEachProgram(
        [&buffer](const ReportProgram& program) { writeProgram(program, buffer); });
    buffer << "  </testsuite>\n</testsuites>\n";
    buffer.finish();
}

}  // namespace torvel::migrate
