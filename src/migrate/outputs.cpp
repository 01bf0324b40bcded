#include "src/migrate/outputs.h"

#include <utility>

#include "src/migrate/new-file.h"
#include "src/migrate/text-lines.h"

namespace torvel::migrate {

namespace {

std::string sentence(const NativePath& path, std::string_view rest) {
    return narrowPath(path) + std::string(rest);
}

/// The bytes of a regular file; none: it cannot be read.
std::optional<std::string> readBytes(const NativePath& path) {
    InputFile file;
    if (!file.open(path)) {
        return std::nullopt;
    }
    std::string bytes(static_cast<std::size_t>(file.size()) + 1, '\0');
    std::size_t length = 0;
    bool failed = false;
    while (!failed) {
        length += file.read(bytes.data() + length, bytes.size() - length, failed);
        if (length < bytes.size()) {
            break;
        }
        bytes.resize(bytes.size() * 2);
    }
    bytes.resize(length);
    return failed ? std::nullopt : std::optional(std::move(bytes));
}

/// Where a file is to be written.
struct FilePlace {
    NativePath path;
    /// Nothing is there, not even a link: the usual case, which is told by one question to the system.
    bool isFree = false;
};

/// The file that a path leads to. A sentence if it may not be an output's.
FilePlace placeOf(const NativePath& path, std::string& message) {
    using std::filesystem::file_type;
    std::error_code error;
    const file_type type = std::filesystem::symlink_status(unboundedPath(path), error).type();
    if (type == file_type::not_found) {
        return {path, true};
    }
    const FileKind kind = fileKind(path);
    if (kind == FileKind::directory || kind == FileKind::other) {
        message = sentence(path, kind == FileKind::directory
                                     ? " is a folder: take it away, so that a file can be written."
                                     : " is no regular file: take it away, so that one can be "
                                       "written.");
        return {path};
    }
    if (type != file_type::symlink) {
        return {path};
    }
    if (kind == FileKind::missing) {
        message = sentence(path,
                           " is a symbolic link that leads to no file: take it away, so that a "
                           "file can be written.");
        return {path};
    }
    return {canonicalPath(path)};
}

/// Reads a file if one is there. False: that cannot be done.
bool read(const NativePath& path, std::optional<std::string>& bytes, std::string& message) {
    if (fileKind(path) == FileKind::missing) {
        return true;
    }
    bytes = readBytes(path);
    if (!bytes && fileKind(path) != FileKind::missing) {
        message = sentence(path,
                           " cannot be read, so it is left as it is: make it readable, and "
                           "convert again.");
        return false;
    }
    return true;
}

bool readAt(const FilePlace& place, std::optional<std::string>& bytes, std::string& message) {
    return place.isFree || read(place.path, bytes, message);
}

bool isWriteProtected(const NativePath& path) {
    std::error_code error;
    const auto status = std::filesystem::status(unboundedPath(path), error);
    constexpr auto write = std::filesystem::perms::owner_write |
                           std::filesystem::perms::group_write |
                           std::filesystem::perms::others_write;
    return status.type() == std::filesystem::file_type::regular &&
           (status.permissions() & write) == std::filesystem::perms::none;
}

/// Why nothing may be written there; empty: it may.
std::string objection(const FilePlace& place, const IsSource& isSource) {
    if (place.isFree) {
        return {};
    }
    const NativePath& path = place.path;
    const FileIdentity identity = fileIdentity(path);
    if (identity != FileIdentity() && isSource && isSource(identity)) {
        return sentence(path,
                        " is a source of the programs, so nothing is written to it: give the "
                        "outputs another folder.");
    }
    if (isWriteProtected(path)) {
        return sentence(path,
                        " is write-protected, so it is left as it is: give the right to write "
                        "it, and convert again.");
    }
    return {};
}

std::string messageOf(const OutputPlan& plan) {
    const std::string conflict = narrowPath(plan.conflict.filename());
    switch (plan.decision.action) {
        case OutputAction::writeConflict:
            return sentence(
                plan.output,
                " was edited in lines that the converter generates in another way now. "
                "It stays as it is; " +
                    conflict +
                    " beside it shows both. Bring them together in either of the two, put the "
                    "result in the output's place, delete the conflict file, and convert again.");
        case OutputAction::waitForPerson:
            return sentence(
                plan.output,
                " and what the converter generates now wait to be brought together, so it "
                "stays as it is. " +
                    (plan.conflictHash
                         ? "Put the result in its place, without conflict markers, delete " +
                               conflict + ", and convert again."
                         : std::string("It has conflict markers: take them out, and convert "
                                       "again.")));
        case OutputAction::leaveDeleted:
            return sentence(
                plan.output,
                " was deleted, so it is not written again. To have it back, convert with "
                "--restore.");
        case OutputAction::leaveForeign:
            return sentence(plan.output,
                            " is there, and the store does not know from what it was made, so it "
                            "stays as it is. To "
                            "have it written, move it away and convert again.");
        default: return {};
    }
}

std::optional<ContentHash> hashOf(const std::optional<std::string>& bytes) {
    return bytes ? std::optional(migrate::hashOf(*bytes)) : std::nullopt;
}

bool writesOutput(OutputAction action) {
    return action == OutputAction::writeGenerated || action == OutputAction::writeMerged;
}

void refuse(OutputPlan& plan, std::string message) {
    OutputHistory& history = plan.decision.history;
    history.pending.reset();
    history.placed.reset();
    history.placedConflict.reset();
    plan.decision = {OutputAction::refuse, {}, history, false};
    plan.message = std::move(message);
}

/// Whether the file has changed since it had that hash.
bool hasChanged(const NativePath& path, const std::optional<ContentHash>& hash) {
    std::string ignored;
    std::optional<std::string> bytes;
    return !read(path, bytes, ignored) || hashOf(bytes) != hash;
}

/// Whether a log may be replaced.
bool isLogOfOurs(std::string_view bytes, const LogHistory& history, std::string_view text) {
    if (!history.written) {
        return true;
    }
    const ContentHash hash = logHash(bytes);
    return hash == *history.written || hash == history.pending ||
           (history.pending && isTorn(bytes, platformText(text)));
}

CarriedOut replaceBytes(const NativePath& path, const std::optional<ContentHash>& old,
                        std::string_view bytes, Flush flush) {
    if (!old && bytes.empty() && flush == Flush::no && createEmptyFile(path)) {
        return {true, {}};
    }
    NewFile file(path);
    if (!file.write(bytes, flush, !old)) {
        return {false, sentence(path, " cannot be written (" + file.error() + ").")};
    }
    if (hasChanged(path, old)) {
        return {false, sentence(path,
                                " was changed by somebody else just now, so it is left as it is: "
                                "convert again.")};
    }
    if (!file.putInPlace()) {
        return {false,
                sentence(path, " cannot be replaced (" + file.error() +
                                   "). If it is open somewhere, close it, and convert again.")};
    }
    return {true, {}};
}

}  // namespace

NativePath conflictPath(const NativePath& output) {
    return withEnding(output, ".conflict");
}

std::optional<OutputFiles> readOutputFiles(const NativePath& output, std::string& message) {
    OutputFiles files;
    return read(output, files.output, message) &&
                   read(conflictPath(output), files.conflict, message)
               ? std::optional(std::move(files))
               : std::nullopt;
}

OutputPlan planOutput(const NativePath& output, const OutputHistory& history,
                      std::string_view generated, const IsSource& isSource) {
    OutputPlan plan;
    plan.decision.history = history;
    std::string message;
    const FilePlace outputPlace = placeOf(output, message);
    const FilePlace conflictPlace = placeOf(conflictPath(output), message);
    plan.output = outputPlace.path;
    plan.conflict = conflictPlace.path;
    OutputFiles files;
    if (!message.empty() || !readAt(outputPlace, files.output, message) ||
        !readAt(conflictPlace, files.conflict, message)) {
        plan.decision.action = OutputAction::refuse;
        plan.message = std::move(message);
        return plan;
    }
    plan.outputHash = hashOf(files.output);
    plan.conflictHash = hashOf(files.conflict);
    const OutputHistory now = settled(history, files);
    plan.decision = decideOutput(now, files, generated);
    const OutputAction action = plan.decision.action;
    if (writesOutput(action) || action == OutputAction::writeConflict) {
        message = objection(writesOutput(action) ? outputPlace : conflictPlace, isSource);
    }
    if (!message.empty()) {
        refuse(plan, std::move(message));
        return plan;
    }
    plan.message = messageOf(plan);
    return plan;
}

CarriedOut carryOut(const OutputPlan& plan) {
    const OutputDecision& decision = plan.decision;
    CarriedOut result{decision.action != OutputAction::refuse, {}};
    if (writesOutput(decision.action)) {
        const bool flushes = decision.action == OutputAction::writeMerged || !canFlushFolder();
        result = replaceBytes(plan.output, plan.outputHash, decision.bytes,
                              flushes ? Flush::yes : Flush::no);
    } else if (decision.action == OutputAction::writeConflict &&
               plan.conflictHash != decision.history.placedConflict) {
        result = replaceBytes(plan.conflict, plan.conflictHash, decision.bytes, Flush::yes);
    }
    if (result.isDone && decision.removesConflict &&
        !hasChanged(plan.conflict, plan.conflictHash)) {
        std::error_code ignored;
        std::filesystem::remove(unboundedPath(plan.conflict), ignored);
    }
    return result;
}

NativePath logPath(const NativePath& output) {
    NativePath path = output;
    return path.replace_extension(".log");
}

ContentHash logHash(std::string_view text) {
    std::string lines = withLineFeeds(std::string(text));
    if (lines.ends_with('\n')) {
        lines.pop_back();
    }
    return migrate::hashOf(lines);
}

std::optional<ContentHash> logHashAt(const NativePath& path) {
    const std::optional<std::string> bytes = readBytes(path);
    return bytes ? std::optional(logHash(*bytes)) : std::nullopt;
}

LogPlan planLog(const NativePath& path, const LogHistory& history, std::string_view text,
                const IsSource& isSource) {
    LogPlan plan;
    plan.text = text;
    std::optional<std::string> bytes;
    const FilePlace place = placeOf(path, plan.message);
    plan.path = place.path;
    if (!plan.message.empty() || !readAt(place, bytes, plan.message)) {
        plan.action = LogAction::refuse;
        return plan;
    }
    plan.there = hashOf(bytes);
    if (bytes && haveSameLines(*bytes, text)) {
        return plan;
    }
    if (bytes && !isLogOfOurs(*bytes, history, text)) {
        plan.action = LogAction::leaveForeign;
        plan.message = sentence(plan.path,
                                " is there, and it is not the log that was written last, so it "
                                "stays as it is. To have the log written, move it away and "
                                "convert again.");
        return plan;
    }
    plan.message = objection(place, isSource);
    plan.action = plan.message.empty() ? LogAction::write : LogAction::refuse;
    return plan;
}

CarriedOut carryOut(const LogPlan& plan) {
    switch (plan.action) {
        case LogAction::nothing: return {true, {}};
        case LogAction::write:
            return replaceBytes(plan.path, plan.there, platformText(plan.text), Flush::no);
        default: return {false, plan.message};
    }
}

}  // namespace torvel::migrate
