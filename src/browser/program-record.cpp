#include "src/browser/program-record.h"

#include <stdexcept>

#include "src/migrate/packed-findings.h"
#include "src/migrate/packed-numbers.h"

namespace torvel::browser {

namespace {

using migrate::OutputState;
using migrate::ProgramStatus;
using migrate::ReportProgram;

void append(std::string& bytes, std::string_view text) {
    migrate::appendNumber(bytes, text.size());
    bytes += text;
}

std::uint64_t takeNumber(std::string_view& bytes) {
    const auto number = migrate::takeNumber(bytes);
    if (!number) {
        throw std::runtime_error("The record of a program is broken.");
    }
    return *number;
}

std::string takeText(std::string_view& bytes) {
    const auto length = static_cast<std::size_t>(takeNumber(bytes));
    std::string text(bytes.substr(0, length));
    bytes.remove_prefix(text.size());
    return text;
}

}  // namespace

std::string packedRecord(const migrate::ProgramResult& result, std::string_view machine) {
    std::string bytes;
    append(bytes, result.program);
    append(bytes, result.output);
    append(bytes, machine);
    migrate::appendNumber(bytes, static_cast<std::uint64_t>(result.status));
    migrate::appendNumber(bytes, result.lines);
    migrate::appendNumber(bytes, result.convertedLines);
    return bytes += packedFindings(result.findings);
}

ReportProgram unpackedRecord(std::string_view bytes) {
    ReportProgram program;
    program.program = takeText(bytes);
    program.output = takeText(bytes);
    program.machine = takeText(bytes);
    const std::uint64_t status = takeNumber(bytes);
    program.status = static_cast<ProgramStatus>(status);
    program.lines = takeNumber(bytes);
    program.convertedLines = takeNumber(bytes);
    auto findings = migrate::unpackedFindings(bytes);
    if (!findings || status > static_cast<std::uint64_t>(ProgramStatus::collides)) {
        throw std::runtime_error("The record of a program is broken.");
    }
    program.outputState =
        program.status == ProgramStatus::converted ? OutputState::asGenerated : OutputState::none;
    for (migrate::FindingRow& row : *findings) {
        program.findings.push_back({std::move(row), true});
    }
    return program;
}

}  // namespace torvel::browser
