#include "src/migrate/left-outputs.h"

#include "src/migrate/output-owners.h"
#include "src/migrate/output-records.h"
#include "src/migrate/outputs.h"
#include "src/migrate/recorded-source.h"
#include "src/migrate/text-layout.h"
#include "src/migrate/text-lines.h"

namespace torvel::migrate {

namespace {

/// Whether an output is what the converter wrote there last. One that cannot be read is not.
bool isAsGenerated(OutputRecord record, const NativePath& path, const Store& store) {
    settleRecord(record, path);
    std::string ignored;
    const std::optional<OutputFiles> files = readOutputFiles(path, ignored);
    return files && files->output && record.base &&
           haveSameLines(*files->output, store.text(*record.base));
}

/// What has become of the program.
std::string programPart(const OutputRecord& record, const Project& project) {
    const bool isThere = isOnDisk(pathOf(record.program, project.folder));
    return "ts program \"" + record.program +
           (isThere ? "\" was not converted by this run, or has another output now."
                    : "\" is not there any more.");
}

}  // namespace

LeftOutputs leftOutputs(const Project& project, const Store& store) {
    LeftOutputs left;
    for (const OutputRecord& record : store.leftOutputs()) {
        const NativePath path = pathOf(record.output, project.folder);
        const std::string part = programPart(record, project);
        if (fileKind(path) == FileKind::missing) {
            left.gone.push_back(record.output);
        } else if (isAsGenerated(record, path, store)) {
            left.asGenerated.push_back({record.output, "I" + part +
                                                           " It is as it was generated: delete it "
                                                           "if it is of no more use."});
        } else {
            left.edited.push_back(
                {record.output,
                 (record.base ? "It was edited by hand, and i" : "It was written by hand, and i") +
                     part +
                     " Look whether what was written there is still needed before you "
                     "delete it."});
        }
    }
    if (left.edited.size() > 1) {
        left.edited.insert(left.edited.begin(),
                           {"", counted(left.edited.size(), "output", "outputs") +
                                    " that belong to no program any more were edited or written "
                                    "by hand; delete none of them without a look."});
    }
    return left;
}

}  // namespace torvel::migrate
