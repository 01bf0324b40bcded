#include "src/migrate/output-placing.h"

#include <memory>
#include <mutex>
#include <utility>

#include "src/migrate/output-records.h"
#include "src/migrate/recorded-source.h"

namespace torvel::migrate {

namespace {

/// Whether the text of the conflict has become the base.
bool isConflictOver(const OutputHistory& before, const OutputHistory& after) {
    return before.conflict && !after.conflict && after.base &&
           after.base->data() == before.conflict->generated.data();
}

/// What an output is that is left as it is until it changes.
std::optional<ContentHash> leftAlone(const OutputPlan& plan) {
    switch (plan.decision.action) {
        case OutputAction::leaveDeleted:
        case OutputAction::leaveForeign: return plan.outputHash.value_or(noFile);
        default: return std::nullopt;
    }
}

PlacedOutput placeBoth(const OutputPlan& plan, const LogPlan& log) {
    const CarriedOut logDone = carryOut(log);
    const CarriedOut done = carryOut(plan);
    std::string message = done.message;
    if (!message.empty() && !logDone.message.empty()) {
        message += ' ';
    }
    const bool hasLogFailed = !logDone.isDone && log.action != LogAction::leaveForeign;
    return {done.isDone, message + logDone.message, logDone.isDone, hasLogFailed};
}

}  // namespace

SourceFiles sourceFilesOf(const Project& project, const Discovery& discovery) {
    SourceFiles files;
    const auto add = [&](const std::string& key) {
        if (!key.empty()) {
            files.insert(fileIdentity(projectPath(project, key)));
        }
    };
    for (const auto& [key, hash] : discovery.otherFiles) {
        add(key);
    }
    for (const FoundProgram& program : discovery.programs) {
        files.insert(fileIdentity(pathOf(program.program, project.folder)));
    }
    add(project.parameters.value_or(""));
    for (const MachineFolder& folder : project.folders) {
        add(folder.parameters.value_or(""));
    }
    if (!project.file.empty()) {
        files.insert(fileIdentity(project.file));
    }
    files.erase(FileIdentity());
    return files;
}

PlanOutput placingOutputs(std::function<SourceFiles()> sources) {
    struct Asked {
        std::once_flag once;
        SourceFiles files;
    };
    const IsSource isSource = [asked = std::make_shared<Asked>(),
                               sources = std::move(sources)](const FileIdentity& file) {
        std::call_once(asked->once, [&] { asked->files = sources(); });
        return asked->files.contains(file);
    };
    return [isSource](const OutputTask& task) {
        const OutputHistory history = historyOf(task.record, task.texts);
        auto plan = std::make_shared<const OutputPlan>(
            planOutput(task.path, history, task.generated, isSource));
        const OutputHistory& after = plan->decision.history;
        PlannedOutput planned;
        planned.isConflictOver = isConflictOver(history, after);
        planned.placed = after.placed;
        planned.placedConflict = after.placedConflict;
        planned.isAsGenerated = plan->decision.action == OutputAction::writeGenerated;
        planned.leftAlone = leftAlone(*plan);
        planned.message = plan->message;
        if (plan->decision.action != OutputAction::refuse) {
            const LogHistory known{task.record.log, task.record.pendingLog};
            planned.pendingLog = logHash(task.log);
            planned.place = [plan, log = planLog(logPath(task.path), known, task.log, isSource)] {
                return placeBoth(*plan, log);
            };
        }
        return planned;
    };
}

}  // namespace torvel::migrate
