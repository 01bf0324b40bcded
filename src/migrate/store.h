#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "src/base/file-system.h"
#include "src/migrate/discovery.h"
#include "src/migrate/program-result.h"

// What a migration remembers, in one SQLite file: docs/store.md has the schema. Text in it is compressed. Everything
// here throws StoreError (database.h), whose message is complete.

namespace torvel::migrate {

/// The hash that stands for a file that is not there.
constexpr ContentHash noFile{};

/// What is known of the place of an output. Hashes of texts are those of texts with line feeds.
struct OutputRecord {
    std::string output;
    /// The program that it was made from last.
    std::string program;
    /// The text that the output on the disk was made from, the base of the next merge; none: none was ever put there.
    std::optional<ContentHash> base;
    /// The text of a newer generation that is not the base yet: it was about to be put in place, or something is in the
    /// way; none: the base is the newest.
    std::optional<ContentHash> pending;
    /// The hash of the bytes that were about to be put in place. An output that has it was made from `pending`.
    std::optional<ContentHash> placed;
    /// The hash of a conflict file that was about to be written. One that has it is about `pending`.
    std::optional<ContentHash> placedConflict;
    /// The text that a person's edits could not be merged with, and the hash of the conflict file that was written.
    std::optional<ContentHash> conflict;
    std::optional<ContentHash> conflictFile;
    /// The hash of the bytes of an output that is left as it is, or `noFile`: nothing changes until it does.
    std::optional<ContentHash> leftAlone;
    /// The hash of the lines of the log that was put in place last; `noFile`: none was; none: nobody knows.
    std::optional<ContentHash> log = noFile;
    /// That of a newer log that was about to be put in place, or that something is in the way of.
    std::optional<ContentHash> pendingLog;

    bool operator==(const OutputRecord&) const = default;
};

/// What is known of a program, without its texts.
struct ProgramRow {
    std::string program;
    std::string output;
    std::string machine;
    ProgramStatus status{};
    /// What it was converted from and with: its inputs and everything else that counts.
    ContentHash key{};
    /// What its machine gave it (`machineHashOf`); none: nobody knows.
    std::optional<ContentHash> machineHash;
    std::uint64_t lines = 0;
    std::uint64_t convertedLines = 0;
    /// The text that it was converted to, which the line map is about; none: it was not converted.
    std::optional<ContentHash> generated;
    /// What is known of its output.
    std::optional<OutputRecord> outputRecord;
};

/// A program as the store has it.
struct StoredProgram : ProgramRow {
    /// What the store calls it.
    std::int64_t number = 0;
};

/// One run of the converter over the project.
struct RunRow {
    std::string version;
    /// Seconds since 1970. A run that was cut off has no end: 0.
    std::int64_t began = 0;
    std::int64_t ended = 0;
    /// What there was at its end: programs, those of them that can be converted, their lines.
    std::uint64_t programs = 0;
    std::uint64_t converted = 0;
    std::uint64_t lines = 0;
    std::uint64_t convertedLines = 0;
    std::uint64_t openFindings = 0;
};

/// A file of a program as it was converted.
struct StoredFile {
    std::string path;
    ContentHash text{};
};

/// A text with its hash, as the store takes it.
struct PackedText {
    ContentHash hash{};
    std::shared_ptr<const std::string> bytes;
};

/// A result in the form in which it is written, which any thread can make. Without a record of the output that stays as
/// it was.
struct PackedProgram : ProgramRow {
    std::vector<Input> inputs;
    std::vector<StoredFile> files;
    std::string findings;
    std::string lineMap;
    /// Texts of files and of the output that may not be in the store yet.
    std::vector<PackedText> texts;
};

/// All of a result but its texts.
PackedProgram packedProgram(const ProgramResult& result);

enum class StoreUse : std::uint8_t {
    read,   // as long as nobody writes, on media that cannot be written too
    write,  // nobody else can use it meanwhile
    anew,  // to write an empty one; what was there is kept beside it, with ".old", ".old2" and so on behind its name
};

class Store {
public:
    /// Opens a store. One for writing is made if it is not there, brought up to date if it is older, and locked.
    Store(const NativePath& path, StoreUse use);
    ~Store();
    Store(const Store&) = delete;
    Store& operator=(const Store&) = delete;
    Store(Store&&) noexcept;
    Store& operator=(Store&&) noexcept;

    // What there is. `take` may ask for more of the store.
    /// The way from the store's folder to that of its project, where keys begin; empty: nobody has said it yet.
    std::string projectFolder() const;
    /// What tells the project from others, wherever its folder is seen from: 32 hexadecimal digits; empty: nobody has
    /// said its folder yet, or the store is of an older version and was only read.
    std::string projectIdentity() const;
    std::vector<RunRow> runs() const;
    std::vector<Notice> notices() const;
    /// In the order of the programs' keys.
    void forEachProgram(const std::function<void(const StoredProgram&)>& take) const;
    /// What it calls the programs, and their keys, in the order of these.
    void forEachKey(
        const std::function<void(std::int64_t number, const std::string& program)>& take) const;
    std::vector<Input> inputs(const StoredProgram& program) const;
    /// The program that the store calls so. Several threads may ask.
    StoredProgram program(std::int64_t number) const;
    /// The inputs of all programs, with the numbers of these, each program's in order.
    void forEachInput(const std::function<void(std::int64_t program, const Input&)>& take) const;
    /// The programs, and the files that they were converted from.
    std::vector<std::string> sourceFiles() const;
    // Several threads may ask for files, findings, line maps and texts at once: the database lets one of them in at a
    // time.
    std::vector<StoredFile> files(const StoredProgram& program) const;
    std::vector<FindingRow> findings(const StoredProgram& program) const;
    std::vector<MappedLine> lineMap(const StoredProgram& program) const;
    /// Any thread may ask for a text while another one writes. Throws StoreError if it is not there.
    std::string text(const ContentHash& hash) const;
    std::vector<ContentHash> textHashes() const;
    /// In the order of their paths.
    void forEachOutput(const std::function<void(const OutputRecord&)>& take) const;
    bool hasOutputs() const;
    /// What is known of the place of an output. Any thread may ask while another one writes.
    std::optional<OutputRecord> recordOf(const std::string& output) const;
    /// Outputs that were generated and belong to no program any more.
    std::vector<OutputRecord> leftOutputs() const;

    // What a run writes, each in a transaction of its own.
    void setProjectFolder(std::string_view folder);
    /// A run that is under way. Runs before it that have no end were cut off.
    void beginRun(const RunRow& run);
    /// Replaces what `beginRun` wrote.
    void endRun(const RunRow& run);
    bool wasCutOff() const;
    /// What there is now, in a row without times.
    RunRow totals() const;
    void replaceNotices(const std::vector<Notice>& notices);
    /// Replaces what is known of the program. Its number.
    std::int64_t write(const PackedProgram& program);
    void writeOutputs(const std::vector<OutputRecord>& records);
    /// What the machines of programs gave them, by what the store calls these.
    void setMachineHashes(const std::vector<std::pair<std::int64_t, ContentHash>>& hashes);
    void removePrograms(const std::vector<std::int64_t>& numbers);
    void removeOutputs(const std::vector<std::string>& outputs);
    /// Takes away the texts that nothing needs any more.
    void removeUnusedTexts();
    /// Gives the file the form in which it can be read without writing. No use of the store may follow.
    void close();

private:
    class Tables;
    std::unique_ptr<Tables> tables_;
};

}  // namespace torvel::migrate
