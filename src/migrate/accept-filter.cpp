#include "src/migrate/accept-filter.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "src/migrate/explain.h"
#include "src/migrate/recorded-source.h"
#include "src/migrate/source-walk.h"
#include "src/migrate/text-decoding.h"

namespace torvel::migrate {

namespace {

/// A name of the command line, and whether the report has it.
struct Named {
    std::string text;
    /// Of a program or a folder of programs: canonical.
    NativePath path;
    bool isFound = false;
};

std::vector<Named> namesOf(const std::vector<std::string>& texts) {
    std::vector<Named> names;
    std::transform(texts.begin(), texts.end(), std::back_inserter(names),
                   [](const std::string& text) {
                       return Named{text, canonicalPath(nativePath(text))};
                   });
    return names;
}

/// Marks what the program is named by. Whether it is.
bool takeProgram(std::vector<Named>& names, const NativePath& program) {
    bool isNamed = false;
    for (Named& name : names) {
        if (isPathInside(program, name.path)) {
            name.isFound = true;
            isNamed = true;
        }
    }
    return isNamed;
}

void takeCodes(std::vector<Named>& codes, const ReportProgram& program) {
    for (const ReportFinding& finding : program.findings) {
        for (Named& code : codes) {
            code.isFound = code.isFound || (countsInGate(finding) && finding.row.code == code.text);
        }
    }
}

std::string missingProgram(const Named& name) {
    return "The store has no program '" + name.text + "', and none in a folder of that name.";
}

std::string missingCode(const Named& code, bool hasPrograms) {
    if (!explainedCode(code.text, 0)) {
        return unknownCodeMessage(code.text);
    }
    return "There is no open finding with the code '" + code.text + "'" +
           (hasPrograms ? " in the programs that are named." : ".");
}

}  // namespace

AcceptFilter acceptFilterOf(const Options& options, const NativePath& folder,
                            const Report& report) {
    AcceptFilter filter{options.acceptedCodes, {}};
    std::vector<Named> programs = namesOf(options.acceptedPrograms);
    std::vector<Named> codes = namesOf(options.acceptedCodes);
    if (programs.empty() && codes.empty()) {
        return filter;
    }
    report.forEachProgram([&](const ReportProgram& program) {
        const NativePath path = pathOf(program.program, folder);
        const bool isNamed = takeProgram(programs, path);
        if (isNamed) {
            filter.programs.insert(program.program);
        }
        if (isNamed || programs.empty()) {
            takeCodes(codes, program);
        }
    });
    std::string fault;
    const auto add = [&fault](const std::string& sentence) {
        fault += (fault.empty() ? "" : " ") + sentence;
    };
    for (const Named& name : programs) {
        if (!name.isFound) {
            add(missingProgram(name));
        }
    }
    for (const Named& code : codes) {
        if (!code.isFound) {
            add(missingCode(code, !programs.empty()));
        }
    }
    if (!fault.empty()) {
        throw std::runtime_error(visibleText(decodedText(fault)) + " The baseline stays as it is.");
    }
    return filter;
}

}  // namespace torvel::migrate
