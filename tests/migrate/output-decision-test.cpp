// What is to become of an output, from what the store remembers and what is on the disk.

#include "src/migrate/output-decision.h"

#include <gtest/gtest.h>

namespace torvel::migrate::test {

namespace {

constexpr std::string_view first = "a\nb\nc\nd\n";
constexpr std::string_view second = "a\nB\nc\nd\n";
/// Edits the line that the second generation does not touch, and the one that it does.
const std::string apart = "a\nb\nc\nD\n";
const std::string together = "a\nmine\nc\nd\n";
const std::string conflictText =
    "a\n"
    "<<<<<<< edited\n"
    "mine\n"
    "||||||| last generated\n"
    "b\n"
    "=======\n"
    "B\n"
    ">>>>>>> newly generated\n"
    "c\n"
    "d\n";

OutputHistory generatedFrom(std::string_view base) {
    OutputHistory history;
    history.base = base;
    return history;
}

OutputHistory inConflict() {
    OutputHistory history = generatedFrom(first);
    history.conflict = {second, hashOf(conflictText)};
    return history;
}

OutputFiles file(std::string output) {
    return {std::move(output), std::nullopt};
}

/// The decision made something of the generated text: it is the base, once that is carried out.
void expectPlaced(const OutputDecision& decision, OutputAction action, std::string_view bytes,
                  std::string_view generated) {
    EXPECT_EQ(decision.action, action);
    EXPECT_EQ(decision.bytes, bytes);
    EXPECT_EQ(decision.history.pending, generated);
    EXPECT_EQ(decision.history.placed, hashOf(bytes));
    EXPECT_EQ(decision.history.placedConflict, std::nullopt);
    const OutputHistory after = confirmed(decision.history);
    EXPECT_EQ(after.base, generated);
    EXPECT_FALSE(after.conflict);
    EXPECT_FALSE(after.pending);
}

/// The decision leaves the output and what the store remembers of it.
void expectLeft(const OutputDecision& decision, OutputAction action, const OutputHistory& before) {
    EXPECT_EQ(decision.action, action);
    EXPECT_EQ(decision.bytes, "");
    EXPECT_EQ(decision.history.base, before.base);
    EXPECT_EQ(decision.history.conflict.has_value(), before.conflict.has_value());
    EXPECT_FALSE(decision.history.pending);
    EXPECT_FALSE(decision.history.placed);
    EXPECT_FALSE(decision.history.placedConflict);
    EXPECT_FALSE(decision.removesConflict);
    EXPECT_EQ(confirmed(decision.history).base, before.base);
}

}  // namespace

TEST(OutputDecision, NothingIsThere) {
    expectPlaced(decideOutput({}, {}, first), OutputAction::writeGenerated, first, first);
    EXPECT_EQ(outputStateOf({}, {}), OutputState::none);
}

TEST(OutputDecision, AsGenerated) {
    const OutputFiles files = file(std::string(first));
    expectPlaced(decideOutput(generatedFrom(first), files, second), OutputAction::writeGenerated,
                 second, second);
    expectPlaced(decideOutput(generatedFrom(first), files, first), OutputAction::nothing, first,
                 first);
    EXPECT_EQ(outputStateOf(generatedFrom(first), files), OutputState::asGenerated);
}

TEST(OutputDecision, OtherLineEndsAreNoEdit) {
    const OutputFiles files = file("a\r\nb\r\nc\r\nd");
    expectPlaced(decideOutput(generatedFrom(first), files, second), OutputAction::writeGenerated,
                 "a\r\nB\r\nc\r\nd", second);
    expectPlaced(decideOutput(generatedFrom(first), files, first), OutputAction::nothing,
                 "a\r\nb\r\nc\r\nd", first);
    EXPECT_EQ(outputStateOf(generatedFrom(first), files), OutputState::asGenerated);
}

TEST(OutputDecision, EditedWhereNothingElseChanged) {
    expectPlaced(decideOutput(generatedFrom(first), file(apart), second), OutputAction::writeMerged,
                 "a\nB\nc\nD\n", second);
    expectPlaced(decideOutput(generatedFrom(first), file(apart), first), OutputAction::nothing,
                 apart, first);
    EXPECT_EQ(outputStateOf(generatedFrom(first), file(apart)), OutputState::edited);
}

TEST(OutputDecision, EditedToWhatIsGeneratedNow) {
    expectPlaced(decideOutput(generatedFrom(first), file(std::string(second)), second),
                 OutputAction::nothing, second, second);
    // Also after the store was lost.
    expectPlaced(decideOutput({}, file("a\r\nB\r\nc\r\nd\r\n"), second), OutputAction::nothing,
                 "a\r\nB\r\nc\r\nd\r\n", second);
}

TEST(OutputDecision, Deleted) {
    expectLeft(decideOutput(generatedFrom(first), {}, second), OutputAction::leaveDeleted,
               generatedFrom(first));
    expectLeft(decideOutput(inConflict(), {std::nullopt, conflictText}, second),
               OutputAction::leaveDeleted, inConflict());
    EXPECT_EQ(outputStateOf(generatedFrom(first), {}), OutputState::deleted);
}

TEST(OutputDecision, AfterALostStore) {
    expectLeft(decideOutput({}, file(apart), first), OutputAction::leaveForeign, {});
    EXPECT_EQ(outputStateOf({}, file(apart)), OutputState::foreign);
}

TEST(OutputDecision, ConflictLeavesTheOutputAndTheBase) {
    const OutputDecision decision = decideOutput(generatedFrom(first), file(together), second);
    EXPECT_EQ(decision.action, OutputAction::writeConflict);
    EXPECT_EQ(decision.bytes, conflictText);
    EXPECT_FALSE(decision.history.placed);
    EXPECT_EQ(decision.history.placedConflict, hashOf(conflictText));
    const OutputHistory after = confirmed(decision.history);
    EXPECT_EQ(after.base, first);
    ASSERT_TRUE(after.conflict);
    EXPECT_EQ(after.conflict->generated, second);
    EXPECT_EQ(after.conflict->file, hashOf(conflictText));
    EXPECT_EQ(outputStateOf(after, {together, conflictText}), OutputState::conflict);
}

TEST(OutputDecision, ConflictLastsWhileItsFileIsThere) {
    const OutputFiles files{together, conflictText};
    const OutputDecision decision = decideOutput(inConflict(), files, second);
    EXPECT_EQ(decision.action, OutputAction::writeConflict);
    EXPECT_EQ(decision.bytes, conflictText);
    EXPECT_EQ(confirmed(decision.history).base, first);
}

TEST(OutputDecision, ConflictIsOverWhenThePersonSaysSo) {
    // The person found a third way, and took the conflict file away.
    const OutputFiles files = file("a\nboth\nc\nd\n");
    EXPECT_EQ(outputStateOf(inConflict(), files), OutputState::edited);
    expectPlaced(decideOutput(inConflict(), files, second), OutputAction::nothing,
                 "a\nboth\nc\nd\n", second);
    // What is generated next is merged with it.
    expectPlaced(decideOutput(inConflict(), files, "a\nB\nc\nd\ne\n"), OutputAction::writeMerged,
                 "a\nboth\nc\nd\ne\n", "a\nB\nc\nd\ne\n");
}

TEST(OutputDecision, ANewConflictAfterOneThatIsOver) {
    const OutputDecision decision = decideOutput(inConflict(), file(together), "a\nBB\nc\nd\n");
    EXPECT_EQ(decision.action, OutputAction::writeConflict);
    EXPECT_EQ(decision.history.base, second);
    EXPECT_FALSE(decision.history.conflict);
    EXPECT_EQ(decision.bytes,
              "a\n<<<<<<< edited\nmine\n||||||| last generated\nB\n=======\nBB\n"
              ">>>>>>> newly generated\nc\nd\n");
}

TEST(OutputDecision, AnUnfinishedConflictFileInTheOutputsPlace) {
    expectLeft(decideOutput(inConflict(), file(conflictText), second), OutputAction::waitForPerson,
               inConflict());
    EXPECT_EQ(outputStateOf(inConflict(), file(conflictText)), OutputState::conflict);
    // Also if the conflict was never confirmed.
    expectLeft(decideOutput(generatedFrom(first), file(conflictText), second),
               OutputAction::waitForPerson, generatedFrom(first));
    EXPECT_EQ(outputStateOf(generatedFrom(first), file(conflictText)), OutputState::conflict);
}

TEST(OutputDecision, AConflictFileThatWasEditedIsLeft) {
    const OutputFiles files{together, "half of the work\n"};
    expectLeft(decideOutput(inConflict(), files, second), OutputAction::waitForPerson,
               inConflict());
    expectLeft(decideOutput(inConflict(), files, "a\nBB\nc\nd\n"), OutputAction::waitForPerson,
               inConflict());
    // Neither is one that nobody knows.
    expectLeft(decideOutput(generatedFrom(first), files, second), OutputAction::waitForPerson,
               generatedFrom(first));
}

TEST(OutputDecision, AConflictThatCanBeMergedNowIsOver) {
    // The person took the own edit back in that line, and made another one.
    const OutputDecision decision = decideOutput(inConflict(), {apart, conflictText}, second);
    expectPlaced(decision, OutputAction::writeMerged, "a\nB\nc\nD\n", second);
    EXPECT_TRUE(decision.removesConflict);
    // The source was changed back.
    const OutputDecision back = decideOutput(inConflict(), {together, conflictText}, first);
    expectPlaced(back, OutputAction::nothing, together, first);
    EXPECT_TRUE(back.removesConflict);
    // The person took what is generated.
    const OutputDecision taken =
        decideOutput(inConflict(), {std::string(second), conflictText}, second);
    expectPlaced(taken, OutputAction::nothing, second, second);
    EXPECT_TRUE(taken.removesConflict);
    // A conflict file with a person's work is not removed.
    EXPECT_FALSE(decideOutput(inConflict(), {apart, "work\n"}, second).removesConflict);
}

TEST(OutputDecision, AConflictAboutANewerText) {
    const OutputDecision decision =
        decideOutput(inConflict(), {together, conflictText}, "a\nBB\nc\nd\n");
    EXPECT_EQ(decision.action, OutputAction::writeConflict);
    const OutputHistory after = confirmed(decision.history);
    EXPECT_EQ(after.base, first);
    ASSERT_TRUE(after.conflict);
    EXPECT_EQ(after.conflict->generated, "a\nBB\nc\nd\n");
}

TEST(OutputDecision, ARunThatWasCutOff) {
    OutputHistory history = generatedFrom(first);
    history.pending = second;
    history.placed = hashOf(second);
    // In front of the renaming.
    OutputFiles files = file(std::string(first));
    EXPECT_EQ(settled(history, files).base, first);
    EXPECT_FALSE(settled(history, files).pending);
    // Behind it: the base is the new text, and the output no edit.
    files = file(std::string(second));
    EXPECT_EQ(settled(history, files).base, second);
    // Behind it, and a person edited it: merging finds the same change on both sides.
    files = file("a\nB\nc\nD\n");
    expectPlaced(decideOutput(settled(history, files), files, second), OutputAction::nothing,
                 "a\nB\nc\nD\n", second);
    // A merge.
    history.placed = hashOf("a\nB\nc\nD\n");
    EXPECT_EQ(settled(history, files).base, second);
}

TEST(OutputDecision, TheFirstRunWasCutOff) {
    OutputHistory history;
    history.pending = first;
    history.placed = hashOf(first);
    OutputFiles files;
    expectPlaced(decideOutput(settled(history, files), files, second), OutputAction::writeGenerated,
                 second, second);
    // Behind the renaming, and a person edited it.
    files = file(apart);
    expectPlaced(decideOutput(settled(history, files), files, second), OutputAction::writeMerged,
                 "a\nB\nc\nD\n", second);
}

TEST(OutputDecision, AConflictThatWasCutOff) {
    OutputHistory history = generatedFrom(first);
    history.pending = second;
    history.placedConflict = hashOf(conflictText);
    // The conflict file was never written: that is no sign from a person.
    OutputFiles files = file(together);
    OutputHistory now = settled(history, files);
    EXPECT_FALSE(now.conflict);
    EXPECT_EQ(decideOutput(now, files, second).action, OutputAction::writeConflict);
    // It was.
    files.conflict = conflictText;
    now = settled(history, files);
    EXPECT_EQ(now.base, first);
    ASSERT_TRUE(now.conflict);
    EXPECT_EQ(now.conflict->generated, second);
}

TEST(OutputDecision, WhatAPowerCutLeft) {
    using std::string_literals::operator""s;
    OutputHistory history = generatedFrom(first);
    history.pending = second;
    history.placed = hashOf(second);
    for (const std::string& torn : {""s, "a\nB\n"s, "a\nB\n\0\0d\n"s, "\0\0\0\0\0\0\0\0"s}) {
        OutputFiles files = file(torn);
        const OutputHistory now = settled(history, files);
        EXPECT_FALSE(files.output);
        expectPlaced(decideOutput(now, files, second), OutputAction::writeGenerated, second,
                     second);
    }
    // What is no part of it is an edit.
    for (const std::string& edit : {"a\nb\n"s, "a\nB\nc\nd\ne\n"s, "a\n\nB"s}) {
        OutputFiles files = file(edit);
        EXPECT_EQ(settled(history, files).base, first);
        EXPECT_EQ(files.output, edit);
    }
    // So is everything when a merged text, which is flushed, was to be put in place.
    history.placed = hashOf("a\nB\nc\nD\n");
    OutputFiles files = file("a\n");
    EXPECT_EQ(settled(history, files).base, first);
    EXPECT_EQ(files.output, "a\n");
}

}  // namespace torvel::migrate::test
