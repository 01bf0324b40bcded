#include "src/migrate/found-program.h"

#include "src/migrate/program-conversion.h"
#include "src/migrate/program-faults.h"
#include "src/migrate/recorded-source.h"

namespace torvel::migrate {

namespace {

std::string sentenceOnCollision(const FoundProgram& found) {
    std::string others;
    for (const std::string& other : found.collidesWith) {
        others += (others.empty() ? "\"" : ", \"") + other + '"';
    }
    return "Its output \"" + found.output + "\" would be that of " + others +
           " too, so none of them was converted. Rename one, or set keep_extension.";
}

}  // namespace

std::string sentenceOnOwner(const FoundProgram& found) {
    return "Its output \"" + found.output + "\" belongs to \"" + found.outputOwner +
           "\", which is still there, so it was not converted. Convert the two in one run, or "
           "give one of them another output folder.";
}

FindingRow findingOfWhole(const FoundProgram& found, std::string_view code, std::string text) {
    FindingRow row;
    row.file = found.program;
    row.code = code;
    row.origin = FindingOrigin::message;
    row.todo = FindingTodo::fixSource;
    row.text = std::move(text);
    return row;
}

ProgramResult resultOf(const FoundProgram& found, const MachineSettings& settings,
                       ConvertedNames* names) {
    ProgramResult result;
    if (!found.collidesWith.empty()) {
        result.status = ProgramStatus::collides;
        result.findings = {findingOfWhole(found, outputCollides, sentenceOnCollision(found))};
    } else if (!found.outputOwner.empty()) {
        result.status = ProgramStatus::collides;
        result.findings = {findingOfWhole(found, outputCollides, sentenceOnOwner(found))};
    } else if (!settings.fault.empty()) {
        result.status = ProgramStatus::unreadable;
        result.findings = {findingOfWhole(found, parametersUnreadable, settings.fault)};
    } else {
        result = convertOne(pathOf(found.program, settings.conversion.folder), settings.conversion,
                            names);
    }
    result.program = found.program;
    result.output = found.output;
    return result;
}

}  // namespace torvel::migrate
