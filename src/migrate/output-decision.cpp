#include "src/migrate/output-decision.h"

#include "src/migrate/merge.h"
#include "src/migrate/new-file.h"
#include "src/migrate/text-lines.h"

namespace torvel::migrate {

namespace {

bool hasHash(const std::optional<std::string>& bytes, const std::optional<ContentHash>& hash) {
    return bytes && hash && hashOf(*bytes) == *hash;
}

/// A person took the conflict file away, and no conflict is left in the output.
bool isConflictOver(const OutputHistory& history, const OutputFiles& files) {
    return history.conflict && !files.conflict && files.output &&
           !hasConflictMarkers(*files.output);
}

/// The conflict file is as it was written.
bool isConflictAsWritten(const OutputHistory& history, const OutputFiles& files) {
    return history.conflict && hasHash(files.conflict, history.conflict->file);
}

/// The output's bytes, which are there or will be, are made from the pending text.
void place(OutputDecision& decision, OutputAction action, std::string bytes) {
    decision.action = action;
    decision.history.placed = hashOf(bytes);
    decision.bytes = std::move(bytes);
}

/// Of an output that is there and has a base.
void decideEdited(const OutputFiles& files, const std::string& generated, bool isConflictAsWritten,
                  OutputDecision& decision) {
    const std::string& output = *files.output;
    const std::string_view base = *decision.history.base;
    if (output == platformText(base)) {
        place(decision, OutputAction::writeGenerated, generated);
        return;
    }
    if (hasConflictMarkers(output)) {
        // A conflict file that was not edited to the end, in the output's place.
        decision.action = OutputAction::waitForPerson;
        return;
    }
    MergedText merged = mergeByLines(base, output, generated);
    if (!merged.hasConflicts) {
        const OutputAction action = merged.text == output         ? OutputAction::nothing
                                    : haveSameLines(base, output) ? OutputAction::writeGenerated
                                                                  : OutputAction::writeMerged;
        place(decision, action, std::move(merged.text));
        return;
    }
    if (files.conflict && *files.conflict != merged.text && !isConflictAsWritten) {
        decision.action = OutputAction::waitForPerson;
        return;
    }
    decision.action = OutputAction::writeConflict;
    decision.history.placedConflict = hashOf(merged.text);
    decision.bytes = std::move(merged.text);
}

}  // namespace

OutputHistory confirmed(const OutputHistory& history) {
    OutputHistory result{history.base, history.conflict, {}, {}, {}};
    if (history.placed) {
        result = {history.pending, {}, {}, {}, {}};
    } else if (history.placedConflict) {
        result.conflict = {*history.pending, *history.placedConflict};
    }
    return result;
}

OutputHistory settled(const OutputHistory& history, OutputFiles& files) {
    OutputHistory before{history.base, history.conflict, {}, {}, {}};
    if (!history.pending || hasHash(files.output, history.placed) ||
        hasHash(files.conflict, history.placedConflict)) {
        return history.pending ? confirmed(history) : before;
    }
    const std::string whole = platformText(*history.pending);
    if (files.output && history.placed == hashOf(whole) && isTorn(*files.output, whole)) {
        files.output.reset();
        before.base.reset();
    } else if (files.output && history.placed && !history.base) {
        // Nothing was there before, so a person has edited what was put there.
        before.base = history.pending;
    }
    return before;
}

bool isPendingInPlace(const OutputHistory& before, const OutputHistory& after) {
    const auto isPending = [&](const std::optional<std::string_view>& text) {
        return text && text->data() == before.pending->data();
    };
    return !before.pending || isPending(after.base) ||
           (after.conflict && isPending(after.conflict->generated));
}

OutputDecision decideOutput(const OutputHistory& history, const OutputFiles& files,
                            std::string_view generated) {
    OutputDecision decision;
    decision.history = {history.base, history.conflict, {}, {}, {}};
    if (!files.output && history.base) {
        decision.action = OutputAction::leaveDeleted;
        return decision;
    }
    if (isConflictOver(history, files)) {
        decision.history.base = history.conflict->generated;
        decision.history.conflict.reset();
    }
    const bool isAsWritten = isConflictAsWritten(history, files);
    std::string newText = platformText(generated);
    if (!files.output) {
        place(decision, OutputAction::writeGenerated, std::move(newText));
    } else if (haveSameLines(*files.output, newText)) {
        place(decision, OutputAction::nothing, *files.output);
    } else if (decision.history.base) {
        decideEdited(files, newText, isAsWritten, decision);
    } else {
        decision.action = OutputAction::leaveForeign;
    }
    if (decision.history.placed || decision.history.placedConflict) {
        decision.history.pending = generated;
    }
    decision.removesConflict = decision.history.placed && isAsWritten;
    return decision;
}

OutputState outputStateOf(const OutputHistory& history, const OutputFiles& files) {
    if (!files.output) {
        return history.base ? OutputState::deleted : OutputState::none;
    }
    if (!history.base) {
        return OutputState::foreign;
    }
    if (history.conflict && !isConflictOver(history, files)) {
        return OutputState::conflict;
    }
    if (haveSameLines(*files.output, *history.base)) {
        return OutputState::asGenerated;
    }
    return hasConflictMarkers(*files.output) ? OutputState::conflict : OutputState::edited;
}

}  // namespace torvel::migrate
