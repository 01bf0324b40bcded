#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "src/migrate/content-hash.h"
#include "src/migrate/report.h"

// What is to become of an output: decided from what the store remembers of it, what is on the disk, and the text that
// was newly generated. Nothing that a person wrote is lost or overwritten.
//
// The base is the text that the output on the disk was made from. A row of the store remembers it, and what was about
// to be put in place when it was last written: it is written before the files are, so a run that ends between the two
// is found out by their hashes (`settled`).
//
// A conflict begins when a person and the converter changed the same or neighbouring lines of an output. The merged
// text with conflict markers is put beside it, in `<output>.conflict`; the output stays as it is, and so does the base.
// The conflict is over
//
// - when the person has taken the conflict file away and the output has no conflict markers: edited to the end, or
//   replaced by the conflict file after that was edited. The base is now the text that the conflict was about;
// - when the output and what is newly generated can be merged, because the person made the same change, took the own
//   one back, or the source changed again. The conflict file is removed.
//
// While a conflict lasts, the conflict file is written anew when the output or what is generated changes, as long as
// it is as it was written. One that a person edited is left alone until it is gone.

namespace torvel::migrate {

/// A conflict that a conflict file tells of.
struct OutputConflict {
    /// The generated text that could not be merged.
    std::string_view generated;
    /// The hash of the conflict file's bytes.
    ContentHash file{};
};

/// What the store remembers of an output. Texts have line feeds; they are somebody else's.
struct OutputHistory {
    /// None: the converter has put nothing in place.
    std::optional<std::string_view> base;
    std::optional<OutputConflict> conflict;

    /// A text that was newly generated when the row was last written, if that was not confirmed since.
    std::optional<std::string_view> pending;
    /// The hash of the output's bytes that make `pending` the base.
    std::optional<ContentHash> placed;
    /// The hash of the conflict file's bytes that make a conflict about `pending`.
    std::optional<ContentHash> placedConflict;
};

/// The bytes of the two files that may stand at an output's place; none: there is no such file.
struct OutputFiles {
    std::optional<std::string> output;
    std::optional<std::string> conflict;
};

enum class OutputAction : std::uint8_t {
    nothing,         // what is there was made from the generated text
    writeGenerated,  // nothing is there, or it is as it was generated
    writeMerged,     // a person edited it
    writeConflict,   // the edits and the generated text cannot be merged: a conflict file
    waitForPerson,   // so they could not before, and a person is at work in the conflict file
    leaveDeleted,    // a person took it away
    leaveForeign,    // nobody knows from what it was made
    refuse,          // it cannot be read, or must not be written
};

struct OutputDecision {
    OutputAction action = OutputAction::nothing;
    /// What is put in the output's place, or the conflict file's.
    std::string bytes;
    /// What the store is to remember before the decision is carried out; the generated text is pending, unless nothing
    /// is made from it. Its texts are those that were given.
    OutputHistory history;
    /// The conflict file is of no use any more, and nobody edited it: it is removed.
    bool removesConflict = false;
};

/// The history after what happened to the pending text, which it has no more. An output that a power cut left
/// incomplete has no base, and `files` no such output.
OutputHistory settled(const OutputHistory& history, OutputFiles& files);

/// Whether the pending text, if there was one, has come to its place, or to the conflict file. `after` is what
/// `settled` made of `before`.
bool isPendingInPlace(const OutputHistory& before, const OutputHistory& after);

/// The history after a decision was carried out.
OutputHistory confirmed(const OutputHistory& history);

/// `history` is settled. `generated` has line feeds.
OutputDecision decideOutput(const OutputHistory& history, const OutputFiles& files,
                            std::string_view generated);

/// What stands at the place of an output of a program that was converted. `history` is settled.
OutputState outputStateOf(const OutputHistory& history, const OutputFiles& files);

}  // namespace torvel::migrate
