#include "tests/migrate/report-example.h"

#include <utility>

#include "src/migrate/places.h"

namespace torvel::migrate::test {

namespace {

ReportFinding findingOf(const std::string& file, std::uint32_t line, const std::string& lineText) {
    ReportFinding finding;
    finding.row.file = file;
    finding.row.line = line;
    finding.row.lineText = lineText;
    return finding;
}

ReportFinding from(ReportFinding finding, const std::string& program, std::uint32_t line) {
    finding.row.includedFrom.push_back({program, line});
    return finding;
}

ReportFinding finished(ReportFinding finding) {
    finding.isOpen = false;
    return finding;
}

ReportProgram notConverted(const std::string& program, ProgramStatus status) {
    ReportProgram result;
    result.program = program;
    result.output = "out/" + program.substr(0, program.rfind('.')) + ".torvel";
    result.status = status;
    return result;
}

}  // namespace

std::string hostileName() {
    return "=cmd|' /C calc'!A0\n\"</script><!--<script>,;\xB0.pgm";
}

std::string hostileLine() {
    return std::string("=1+1;\"a\"\t</script>\x01\x00\x1B[31m ", 26) + "\xB0 ]]>&<'>" +
           std::string(1U << 20U, 'x');
}

Report reportOf(std::vector<ReportProgram> programs) {
    Report report;
    report.forEachProgram = [programs = std::move(programs)](const ReportProgramTaker& take) {
        for (const ReportProgram& program : programs) {
            take(program);
        }
    };
    return report;
}

ReportProgram converted(const std::string& program, std::uint64_t lines,
                        std::uint64_t convertedLines, std::vector<ReportFinding> findings) {
    ReportProgram result = notConverted(program, ProgramStatus::converted);
    result.outputState = OutputState::asGenerated;
    result.lines = lines;
    result.convertedLines = convertedLines;
    result.findings = std::move(findings);
    return result;
}

ReportFinding rewrite(const std::string& file, std::uint32_t line, const std::string& lineText) {
    ReportFinding finding = findingOf(file, line, lineText);
    finding.row.code = "numeric-expression-expected";
    finding.row.origin = FindingOrigin::message;
    finding.row.todo = FindingTodo::rewrite;
    finding.row.text = "Expected a numeric expression.";
    finding.row.outputLine = line;
    finding.row.outputLineCount = 1;
    return finding;
}

ReportFinding valueCut(const std::string& file, std::uint32_t line, const std::string& lineText,
                       ColumnRange columns) {
    ReportFinding finding = findingOf(file, line, lineText);
    finding.row.code = "value-cut";
    finding.row.severity = Severity::moves;
    finding.row.columns = columns;
    finding.row.text = "Text behind the value of an assignment is dropped.";
    return finding;
}

Report plant() {
    const ReportFinding shared = valueCut("shared/io.pgm", 2, "\xB0 $a = 1e3", {8, 9});
    ReportProgram main =
        converted("line1/main.pgm", 10, 9,
                  {rewrite("line1/main.pgm", 3, "$a = = $b"), from(shared, "line1/main.pgm", 1)});
    ReportProgram second = converted("line1/second.pgm", 5, 4,
                                     {finished(rewrite("line1/second.pgm", 7, "$c = = $d")),
                                      from(shared, "line1/second.pgm", 4)});
    second.outputState = OutputState::edited;
    ReportProgram broken = notConverted("line2/broken.pgm", ProgramStatus::unreadable);
    broken.machine = "line2";
    broken.findings = {findingOf("line2/broken.pgm", 1, "#include \"gone.pgm\"")};
    broken.findings[0].row.code = "file-missing";
    broken.findings[0].row.origin = FindingOrigin::message;
    broken.findings[0].row.todo = FindingTodo::fixSource;
    broken.findings[0].row.text = "'gone.pgm' does not exist.";

    Report report =
        reportOf({main, second, broken, notConverted("top.pgm", ProgramStatus::collides),
                  notConverted("top.prg", ProgramStatus::collides)});
    report.runs = {{"1.0.0", 1700000000, 1700000002, 5, 2, 15, 13, 4}};
    report.notices = {"top.pgm and top.prg have the same output."};
    return report;
}

Report hostileReport() {
    ReportFinding finding = rewrite(hostileName(), 1, hostileLine());
    // The separators of lines and paragraphs of Unicode, in valid UTF-8.
    finding.row.text = "-1+1 \xE2\x80\xA8\xE2\x80\xA9 </script>\n\x1B seen.";
    finding.row.columns = {1, 5};
    finding.row.includedFrom = {{hostileName(), 9}};
    finding.row.lines = {4, 5};
    ReportProgram program = converted(hostileName(), 1, 0, {finding});
    program.machine = hostileName();
    Report report = reportOf({program});
    report.notices = {hostileName()};
    return report;
}

std::vector<std::string> fingerprintsOf(const Report& report) {
    const Places places(report);
    Places::Cursor cursor(places);
    std::vector<std::string> all;
    report.forEachProgram([&](const ReportProgram& program) {
        for (const ReportFinding& finding : program.findings) {
            all.push_back(places.fingerprint(cursor.next(finding.row)));
        }
    });
    return all;
}

Report largeReport(std::uint32_t findings) {
    Report report;
    report.forEachProgram = [findings](const ReportProgramTaker& take) {
        constexpr std::uint32_t each = 100;
        for (std::uint32_t i = 0; i < findings; i += each) {
            const std::string name = "p" + std::to_string(1000000 + i) + ".pgm";
            ReportProgram program = converted(name, each, 0, {});
            for (std::uint32_t line = 1; line <= each; ++line) {
                program.findings.push_back(rewrite(name, line, "$a = = " + std::to_string(line)));
            }
            take(program);
        }
    };
    return report;
}

}  // namespace torvel::migrate::test
