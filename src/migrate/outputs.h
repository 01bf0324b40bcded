#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_set>

#include "src/base/file-system.h"
#include "src/migrate/output-decision.h"

// Puts outputs in place, in two steps, so that the store can be written in between.
//
// - A symbolic link in an output's place is followed: the file that it leads to is replaced, the link stays. One that
//   leads nowhere is refused. Of a file with several names (hard links) only the output's name gets the new text.
// - The permissions of a file that is replaced are kept; one that nobody may write is left as it is.
// - No source is ever replaced, and no log that a person wrote or changed.
// - A merged output is flushed to the disk before it takes its place, since it holds what a person wrote. Flushing each
//   generated one would take longer than converting it: `settled` finds what a power cut left of those that are not
//   confirmed, and a run flushes the folder (new-file.h) before it confirms.

namespace torvel::migrate {

struct FileIdentityHash {
    std::size_t operator()(const FileIdentity& identity) const {
        return static_cast<std::size_t>(identity.file * 0x9e3779b97f4a7c15U ^ identity.device);
    }
};

/// The files that programs are converted from.
using SourceFiles = std::unordered_set<FileIdentity, FileIdentityHash>;

/// Tells whether a file is one of them; none: no file is. Asked only where a file is in the place of an output.
using IsSource = std::function<bool(const FileIdentity& file)>;

struct OutputPlan {
    OutputDecision decision;
    /// Where the output and its conflict file are, symbolic links followed.
    NativePath output;
    NativePath conflict;
    /// What was there when it was decided; none: no file.
    std::optional<ContentHash> outputHash;
    std::optional<ContentHash> conflictHash;
    /// A sentence for a person, empty if nothing is to be told.
    std::string message;
};

/// The path of the conflict file beside an output.
NativePath conflictPath(const NativePath& output);

/// Reads what is at an output's place. None: it cannot be read, `message` says why.
std::optional<OutputFiles> readOutputFiles(const NativePath& output, std::string& message);

/// Looks at the disk and decides. `history` is as the store has it; `generated` has line feeds. The store writes
/// `decision.history` before the plan is carried out, and `confirmed(decision.history)`, now or later, when it was. Both
/// have the texts that were given, which have to live as long.
OutputPlan planOutput(const NativePath& output, const OutputHistory& history,
                      std::string_view generated, const IsSource& isSource);

/// What the store knows of a log, by the hashes of its lines.
struct LogHistory {
    /// The log that was put in place last; `noFile`: none was; none: nobody knows, so that any may be replaced.
    std::optional<ContentHash> written;
    /// One that was to be put in place when the store was last written.
    std::optional<ContentHash> pending;
};

enum class LogAction : std::uint8_t {
    nothing,       // it is there already
    write,         // nothing is there, or what was written last
    leaveForeign,  // a person wrote what is there
    refuse,        // it cannot be read, or must not be written
};

struct LogPlan {
    LogAction action = LogAction::nothing;
    /// Where the log is, symbolic links followed.
    NativePath path;
    /// With line feeds; it is somebody else's.
    std::string_view text;
    /// What was there when it was decided; none: no file.
    std::optional<ContentHash> there;
    std::string message;
};

/// The path of the log beside an output.
NativePath logPath(const NativePath& output);

/// The hash of the lines of a log: line ends do not count.
ContentHash logHash(std::string_view text);
/// That of a file; none: it cannot be read.
std::optional<ContentHash> logHashAt(const NativePath& path);

/// Looks at the disk and decides. `text` has line feeds.
LogPlan planLog(const NativePath& path, const LogHistory& history, std::string_view text,
                const IsSource& isSource);

struct CarriedOut {
    /// The files are as the plan has them.
    bool isDone = false;
    /// A sentence for a person, empty if nothing is to be told.
    std::string message;
};

/// Writes what the plan has, unless the files have changed since it was made.
CarriedOut carryOut(const OutputPlan& plan);

/// The same of a log. `message` is that of the plan if it is not written on purpose.
CarriedOut carryOut(const LogPlan& plan);

}  // namespace torvel::migrate
