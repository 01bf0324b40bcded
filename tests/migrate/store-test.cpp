// The store: what is written is read again, and whatever is wrong with the file has its sentence.

#include "src/migrate/store.h"

#include <gtest/gtest.h>
#include <zlib.h>

#include <array>
#include <filesystem>

#include "src/migrate/compressed-text.h"
#include "src/migrate/database.h"
#include "src/migrate/packed-findings.h"
#include "src/migrate/packed-numbers.h"
#include "src/migrate/store-lock.h"
#include "src/migrate/store-schema.h"
#include "tests/support/temporary-directory.h"

namespace torvel::migrate::test {

namespace {

using torvel::test::readFile;
using torvel::test::TemporaryDirectory;
using torvel::test::writeFile;

/// What stands in place of the path in messages.
std::string without(std::string message, const NativePath& path) {
    const std::string name = path.string();
    for (std::size_t at = 0; (at = message.find(name)) != std::string::npos;) {
        message.replace(at, name.size(), "STORE");
    }
    return message;
}

/// What is said when a store is opened; empty: it opens.
std::string refusal(const NativePath& path, StoreUse use) {
    try {
        const Store store(path, use);
        return "";
    } catch (const StoreError& error) {
        return without(error.what(), path);
    }
}

/// As older versions kept a text.
std::string compressedByZlib(std::string_view text) {
    std::string bytes(compressBound(static_cast<uLong>(text.size())), '\0');
    auto length = static_cast<uLong>(bytes.size());
    EXPECT_EQ(
        compress(reinterpret_cast<Bytef*>(bytes.data()), &length,
                 reinterpret_cast<const Bytef*>(text.data()), static_cast<uLong>(text.size())),
        Z_OK);
    std::string packed;
    appendNumber(packed, text.size());
    return packed.append(bytes, 0, length);
}

PackedText packed(std::string_view text) {
    return {hashOf(text), std::make_shared<const std::string>(compressed(text, CheckSum::no))};
}

FindingRow findingOf(const std::string& file, std::uint32_t line) {
    FindingRow row;
    row.file = file;
    row.line = line;
    row.columns = {3, 300};
    row.code = "value-cut";
    row.origin = FindingOrigin::define;
    row.todo = FindingTodo::fixSource;
    row.severity = Severity::reads;
    row.text = "text with \n and \xb0";
    row.lineText = "\t$a = 1e3";
    row.lines = {1, 70000};
    row.includedFrom = {{"a.pgm", 4}, {file, 1}};
    row.outputLine = 12;
    row.outputLineCount = 3;
    return row;
}

PackedProgram programOf(const std::string& name) {
    ProgramResult result;
    result.program = name;
    result.output = "out/" + name + ".torvel";
    result.lines = 7;
    result.convertedLines = 5;
    result.inputs = {{name, hashOf("source of " + name)}, {"missing.inc", std::nullopt}};
    result.files = {{name, hashOf("source of " + name), "source of " + name}};
    result.findings = {findingOf(name, 2), findingOf("part.inc", 9)};
    result.lineMap = {
        {0, 1, 0, 1, true}, {0, 2, 0, 1, true}, {1, 1, 1, 2, false}, {0, 3, 0, 1, true}};
    PackedProgram program = packedProgram(result);
    program.machine = "line2";
    program.key = hashOf("key of " + name);
    program.texts = {packed("source of " + name), packed("output of " + name)};
    program.generated = hashOf("output of " + name);
    OutputRecord record;
    record.output = result.output;
    record.program = name;
    record.pending = program.generated;
    record.placed = hashOf("placed");
    record.placedConflict = hashOf("placed conflict");
    record.conflict = hashOf("output of " + name);
    record.conflictFile = hashOf("conflict file");
    record.leftAlone = noFile;
    record.log = hashOf("log");
    record.pendingLog = hashOf("newer log");
    program.outputRecord = record;
    return program;
}

}  // namespace

TEST(Store, WhatIsWrittenIsRead) {
    const TemporaryDirectory folder;
    const NativePath path = folder.path() / "migration.sqlite";
    {
        Store store(path, StoreUse::write);
        store.beginRun({"1.0.0", 100, 0, 0, 0, 0, 0, 0});
        EXPECT_TRUE(store.wasCutOff());
        store.replaceNotices({{"old", "one that goes"}});
        store.replaceNotices({{"a\nb", "first"}, {"", "second"}});
        store.write(programOf("b\xff.pgm"));
        store.write(programOf("a.pgm"));
        store.endRun({"1.0.0", 100, 107, 2, 2, 14, 10, 4});
        EXPECT_FALSE(store.wasCutOff());
    }
    EXPECT_FALSE(std::filesystem::exists(path.string() + "-wal"));

    const Store store(path, StoreUse::read);
    const std::vector<RunRow> runs = store.runs();
    ASSERT_EQ(runs.size(), 1U);
    EXPECT_EQ(runs[0].version, "1.0.0");
    EXPECT_EQ(runs[0].ended, 107);
    EXPECT_EQ(runs[0].openFindings, 4U);
    const std::vector<Notice> notices = store.notices();
    ASSERT_EQ(notices.size(), 2U);
    EXPECT_EQ(notices[0].path, "a\nb");
    EXPECT_EQ(notices[1].text, "second");
    std::vector<std::string> names;
    store.forEachProgram([&](const StoredProgram& program) {
        const PackedProgram written = programOf(program.program);
        names.push_back(program.program);
        EXPECT_EQ(program.output, written.output);
        EXPECT_EQ(program.machine, "line2");
        EXPECT_EQ(program.status, ProgramStatus::converted);
        EXPECT_EQ(program.key, written.key);
        EXPECT_EQ(program.lines, 7U);
        EXPECT_EQ(program.convertedLines, 5U);
        EXPECT_EQ(program.generated, written.generated);
        EXPECT_EQ(program.outputRecord, written.outputRecord);
        EXPECT_EQ(store.inputs(program), written.inputs);
        const std::vector<StoredFile> files = store.files(program);
        ASSERT_EQ(files.size(), 1U);
        EXPECT_EQ(files[0].path, program.program);
        EXPECT_EQ(store.text(files[0].text), "source of " + program.program);
        const std::vector<FindingRow> findings{findingOf(program.program, 2),
                                               findingOf("part.inc", 9)};
        EXPECT_EQ(store.findings(program), findings);
        const std::vector<MappedLine> lines{
            {0, 1, 0, 1, true}, {0, 2, 0, 1, true}, {1, 1, 1, 2, false}, {0, 3, 0, 1, true}};
        EXPECT_EQ(store.lineMap(program), lines);
    });
    EXPECT_EQ(names, (std::vector<std::string>{"a.pgm", "b\xff.pgm"}));
    EXPECT_EQ(store.textHashes().size(), 4U);
}

TEST(Store, ReplacedProgramLeavesNothingBehind) {
    const TemporaryDirectory folder;
    Store store(folder.path() / "s", StoreUse::write);
    store.write(programOf("a.pgm"));
    PackedProgram changed = programOf("a.pgm");
    changed.inputs = {{"a.pgm", hashOf("new source")}};
    changed.files = {{"a.pgm", hashOf("new source")}};
    changed.texts = {packed("new source"), packed("new output")};
    changed.generated = hashOf("new output");
    changed.outputRecord->base = hashOf("output of a.pgm");
    changed.outputRecord->conflict = std::nullopt;
    changed.outputRecord->pending = hashOf("new output");
    store.write(changed);
    store.removeUnusedTexts();
    EXPECT_EQ(store.textHashes().size(), 3U);  // the base, the new source and the new output
    store.forEachProgram([&](const StoredProgram& program) {
        EXPECT_EQ(store.inputs(program), changed.inputs);
        EXPECT_EQ(store.files(program).size(), 1U);
        store.removePrograms({program.number});
    });
    const std::vector<OutputRecord> left = store.leftOutputs();
    ASSERT_EQ(left.size(), 1U);
    EXPECT_EQ(left[0], *changed.outputRecord);
    store.removeOutputs({left[0].output});
    store.removeUnusedTexts();
    EXPECT_EQ(store.textHashes().size(), 0U);
}

TEST(Store, OneThatIsNotThere) {
    const TemporaryDirectory folder;
    const NativePath path = folder.path() / "none.sqlite";
    EXPECT_EQ(
        refusal(path, StoreUse::read),
        "There is no store \"STORE\". Run \"torvel-migrate convert\" first, or name another place "
        "with --store.");
    EXPECT_FALSE(std::filesystem::exists(path));
    const NativePath inNone = folder.path() / "no" / "s";
    EXPECT_EQ(
        refusal(inNone, StoreUse::write),
        "The store \"STORE\" cannot be written: its folder is not there or is read-only. Change "
        "that, or name another place with --store.");
}

TEST(Store, FileThatIsNoDatabase) {
    const TemporaryDirectory folder;
    const NativePath path = folder.path() / "s";
    writeFile(path, std::string(5000, 'x'));
    const std::string sentence =
        "The store \"STORE\" is no database. Name another place with --store, or make it anew with "
        "--rebuild, which keeps the file beside it. (file is not a database)";
    EXPECT_EQ(refusal(path, StoreUse::read), sentence);
    EXPECT_EQ(refusal(path, StoreUse::write), sentence);
    EXPECT_EQ(readFile(path), std::string(5000, 'x'));
    EXPECT_EQ(refusal(path, StoreUse::anew), "");
    EXPECT_EQ(readFile(path.string() + ".old"), std::string(5000, 'x'));
    // Each that is put aside is kept, with what is beside it.
    const std::string second = readFile(path);
    EXPECT_EQ(refusal(path, StoreUse::anew), "");
    EXPECT_EQ(readFile(path.string() + ".old2"), second);
    writeFile(path.string() + ".old3-wal", "of another one");
    EXPECT_EQ(refusal(path, StoreUse::anew), "");
    EXPECT_EQ(readFile(path.string() + ".old"), std::string(5000, 'x'));
    EXPECT_EQ(readFile(path.string() + ".old3-wal"), "of another one");
    EXPECT_TRUE(std::filesystem::exists(path.string() + ".old4"));
    EXPECT_EQ(refusal(path, StoreUse::write), "");
}

TEST(Store, DatabaseOfAnotherProgram) {
    const TemporaryDirectory folder;
    const NativePath path = folder.path() / "s";
    {
        Database other(path, DatabaseUse::write);
        other.execute("CREATE TABLE letters (a)");
    }
    const std::string before = readFile(path);
    const std::string sentence =
        "The database \"STORE\" is no store of torvel-migrate. Name another place with --store.";
    EXPECT_EQ(refusal(path, StoreUse::read), sentence);
    EXPECT_EQ(refusal(path, StoreUse::write), sentence);
    EXPECT_EQ(readFile(path), before);
}

TEST(Store, OneOfANewerVersion) {
    const TemporaryDirectory folder;
    const NativePath path = folder.path() / "s";
    EXPECT_EQ(refusal(path, StoreUse::write), "");
    {
        Database newer(path, DatabaseUse::write);
        newer.execute(("PRAGMA user_version = " + std::to_string(storeSteps().size() + 1)).c_str());
    }
    const std::string before = readFile(path);
    const std::string sentence =
        "The store \"STORE\" was made by a newer version of torvel-migrate. Take that version, or "
        "name "
        "another place with --store.";
    EXPECT_EQ(refusal(path, StoreUse::read), sentence);
    EXPECT_EQ(refusal(path, StoreUse::write), sentence);
}

TEST(Store, TheProjectsIdentityStays) {
    const TemporaryDirectory folder;
    const NativePath path = folder.path() / "s";
    std::string identity;
    {
        Store store(path, StoreUse::write);
        EXPECT_EQ(store.projectIdentity(), "");
        store.setProjectFolder("..");
        identity = store.projectIdentity();
        EXPECT_EQ(identity.size(), 32U);
        store.setProjectFolder("../..");
        EXPECT_EQ(store.projectIdentity(), identity);
    }
    EXPECT_EQ(Store(path, StoreUse::read).projectIdentity(), identity);
    {
        Store store(path, StoreUse::anew);
        store.setProjectFolder("..");
        EXPECT_EQ(store.projectIdentity(), identity);
        EXPECT_EQ(store.projectFolder(), "..");
    }
    Store other(folder.path() / "t", StoreUse::write);
    other.setProjectFolder("..");
    EXPECT_NE(other.projectIdentity(), identity);
}

TEST(Store, TheFirstVersionIsReadAndBroughtUpToDate) {
    const TemporaryDirectory folder;
    const NativePath path = folder.path() / "s";
    {
        Database first(path, DatabaseUse::write);
        first.execute(storeSteps()[0]);
        first.execute("INSERT INTO project VALUES (1, '..')");
        first.execute("PRAGMA user_version = 1");
    }
    const std::string before = readFile(path);
    {
        const Store store(path, StoreUse::read);
        EXPECT_EQ(store.projectFolder(), "..");
        EXPECT_EQ(store.projectIdentity(), "");
    }
    EXPECT_EQ(readFile(path), before);
    {
        const Store store(path, StoreUse::write);
        EXPECT_EQ(store.projectFolder(), "..");
        EXPECT_EQ(store.projectIdentity().size(), 32U);
    }
    EXPECT_EQ(Store(path, StoreUse::read).projectIdentity().size(), 32U);
}

TEST(Store, TheSecondVersionKnowsNothingOfLogs) {
    const TemporaryDirectory folder;
    const NativePath path = folder.path() / "s";
    {
        Database second(path, DatabaseUse::write);
        second.execute(storeSteps()[0]);
        second.execute(storeSteps()[1]);
        second.execute(
            "INSERT INTO program VALUES (1, CAST('a.pgm' AS BLOB), CAST('a.torvel' AS BLOB), x'',"
            " 0, x'', 1, 1, x'', x'', NULL);"
            "INSERT INTO output (path, program) VALUES (CAST('a.torvel' AS BLOB),"
            " CAST('a.pgm' AS BLOB)); PRAGMA user_version = 2");
    }
    for (const StoreUse use : {StoreUse::read, StoreUse::write, StoreUse::read}) {
        const Store store(path, use);
        std::vector<OutputRecord> records;
        store.forEachProgram([&](const StoredProgram& program) {
            records.push_back(program.outputRecord.value_or(OutputRecord()));
        });
        store.forEachOutput([&](const OutputRecord& record) { records.push_back(record); });
        ASSERT_EQ(records.size(), 2U);
        for (const OutputRecord& record : records) {
            EXPECT_EQ(record.output, "a.torvel");
            EXPECT_EQ(record.log, std::nullopt);
            EXPECT_EQ(record.pendingLog, std::nullopt);
        }
    }
}

TEST(Store, TextsOfTheFourthVersionStayAsTheyAre) {
    const TemporaryDirectory folder;
    const NativePath path = folder.path() / "s";
    const PackedProgram program = programOf("a.pgm");
    const std::string source = "source of a.pgm";
    {
        Store(path, StoreUse::write).write(program);
        Database fourth(path, DatabaseUse::write);
        Query text(fourth, "UPDATE text SET bytes = ? WHERE hash = ?");
        const ContentHash hash = hashOf(source);
        const std::string bytes = compressedByZlib(source);
        text.bind(0, bytes);
        text.bind(1, {reinterpret_cast<const char*>(hash.data()), hash.size()}).run();
        Query findings(fourth, "UPDATE program SET findings = ?");
        const std::string packedRows = compressedByZlib(packedFindings({findingOf("a.pgm", 2)}));
        findings.bind(0, packedRows).run();
        fourth.execute("PRAGMA user_version = 4");
    }
    const auto expectAll = [&](const Store& store) {
        EXPECT_EQ(store.text(hashOf(source)), source);
        EXPECT_EQ(store.text(hashOf("output of a.pgm")), "output of a.pgm");
        store.forEachProgram([&](const StoredProgram& stored) {
            EXPECT_EQ(store.findings(stored), (std::vector<FindingRow>{findingOf("a.pgm", 2)}));
        });
    };
    const std::string before = readFile(path);
    expectAll(Store(path, StoreUse::read));
    EXPECT_EQ(readFile(path), before);
    expectAll(Store(path, StoreUse::write));
    EXPECT_EQ(Database(path, DatabaseUse::read).number("PRAGMA user_version"), 5);
    expectAll(Store(path, StoreUse::read));
}

TEST(Store, OlderVersionsGoThroughTheStepsThatTheyLack) {
    const TemporaryDirectory folder;
    const NativePath path = folder.path() / "s";
    Database database(path, DatabaseUse::write);
    const std::array first{"CREATE TABLE a (x); INSERT INTO a VALUES (7)"};
    const std::array second{first[0], "ALTER TABLE a ADD y; UPDATE a SET y = x + 1"};
    bringUpToDate(database, first, DatabaseUse::write, "S");
    EXPECT_EQ(database.number("PRAGMA user_version"), 1);
    EXPECT_THROW(bringUpToDate(database, second, DatabaseUse::read, "S"), StoreError);
    bringUpToDate(database, second, DatabaseUse::write, "S");
    EXPECT_EQ(database.number("PRAGMA user_version"), 2);
    EXPECT_EQ(database.number("SELECT y FROM a"), 8);
    bringUpToDate(database, second, DatabaseUse::read, "S");
    EXPECT_EQ(database.number("SELECT count(*) FROM a"), 1);
    // A step that fails leaves the version before it as it was.
    const std::array faulty{second[0], second[1], "DELETE FROM a; SELECT * FROM nothing"};
    EXPECT_THROW(bringUpToDate(database, faulty, DatabaseUse::write, "S"), StoreError);
    EXPECT_EQ(database.number("PRAGMA user_version"), 2);
    EXPECT_EQ(database.number("SELECT count(*) FROM a"), 1);
}

TEST(Store, DamagedFile) {
    const TemporaryDirectory folder;
    const NativePath path = folder.path() / "s";
    {
        Store store(path, StoreUse::write);
        for (int i = 0; i < 50; ++i) {
            store.write(programOf("p" + std::to_string(i)));
        }
    }
    std::string bytes = readFile(path);
    ASSERT_GT(bytes.size(), 8192U);
    std::fill(bytes.begin() + 4096, bytes.end(), 'x');
    writeFile(path, bytes);
    try {
        const Store store(path, StoreUse::read);
        store.forEachProgram([](const StoredProgram&) {});
        FAIL() << "it was read";
    } catch (const StoreError& error) {
        EXPECT_EQ(
            without(error.what(), path),
            "The store \"STORE\" is damaged. Make it anew with --rebuild; outputs that were edited "
            "are left as they are. (database disk image is malformed)");
    }
}

TEST(Store, TextThatIsMissingOrDamaged) {
    const TemporaryDirectory folder;
    const NativePath path = folder.path() / "s";
    {
        Store store(path, StoreUse::write);
        store.write(programOf("a"));
    }
    Database database(path, DatabaseUse::write);
    database.execute("UPDATE text SET bytes = x'05010203'; UPDATE program SET findings = x'ff'");
    const Store store(path, StoreUse::read);
    const auto said = [&](auto read) {
        try {
            read();
            return std::string("nothing");
        } catch (const StoreError& error) {
            return without(error.what(), path);
        }
    };
    const std::string advice =
        ". Make it anew with --rebuild; outputs that were edited are left as they are.";
    EXPECT_EQ(said([&] { store.text(hashOf("source of a")); }),
              "The store \"STORE\" is damaged: a text cannot be read" + advice);
    EXPECT_EQ(said([&] { store.text(hashOf("never")); }),
              "The store \"STORE\" is damaged: a text is missing" + advice);
    store.forEachProgram([&](const StoredProgram& program) {
        EXPECT_EQ(said([&] { store.findings(program); }),
                  "The store \"STORE\" is damaged: what it has of \"a\" cannot be read" + advice);
    });
}

TEST(Store, FullDisk) {
    const TemporaryDirectory folder;
    const NativePath path = folder.path() / "s";
    Database database(path, DatabaseUse::write);
    database.execute("CREATE TABLE a (x); PRAGMA max_page_count = 4");
    try {
        database.execute("INSERT INTO a VALUES (zeroblob(100000))");
        FAIL() << "there was room";
    } catch (const StoreError& error) {
        EXPECT_EQ(
            without(error.what(), path),
            "The store \"STORE\" cannot grow: there is no more room. Make room and run the command "
            "again; what was done so far is kept. (database or disk is full)");
    }
}

TEST(Store, NobodyReadsWhileACommandWrites) {
    const TemporaryDirectory folder;
    const NativePath path = folder.path() / "s";
    const Store writer(path, StoreUse::write);
    const std::string message = refusal(path, StoreUse::read);
    EXPECT_TRUE(message.starts_with("The store \"STORE\" is in use by another command: process "))
        << message;
    EXPECT_TRUE(message.ends_with(" UTC. Wait until that has ended.")) << message;
    EXPECT_EQ(refusal(path, StoreUse::write), message);
    EXPECT_EQ(refusal(path, StoreUse::anew), message);
}

TEST(Store, NobodyWritesWhileACommandReads) {
    const TemporaryDirectory folder;
    const NativePath path = folder.path() / "s";
    Store(path, StoreUse::write).setProjectFolder("..");
    {
        const Store reader(path, StoreUse::read);
        const Store other(path, StoreUse::read);
        const std::string message = refusal(path, StoreUse::write);
        EXPECT_TRUE(message.starts_with("The store \"STORE\" is in use by another command."))
            << message;
        EXPECT_EQ(reader.projectFolder(), "..");
        EXPECT_EQ(other.projectFolder(), "..");
    }
    EXPECT_EQ(refusal(path, StoreUse::write), "");
}

TEST(Store, LockOfADeadProcessIsNoObstacle) {
    const TemporaryDirectory folder;
    const NativePath path = folder.path() / "s";
    writeFile(path.string() + ".lock", "process 1 on nowhere since 1999-01-01 00:00:00 UTC\nmore");
    EXPECT_EQ(lockHolder(path), "process 1 on nowhere since 1999-01-01 00:00:00 UTC");
    {
        const StoreLock lock(path);
        EXPECT_NE(lockHolder(path).find("process "), std::string::npos);
        EXPECT_EQ(lockHolder(path).find("nowhere"), std::string::npos);
    }
    EXPECT_FALSE(std::filesystem::exists(path.string() + ".lock"));
}

TEST(PackedFindings, EveryCutOfTheBytesIsFoundOut) {
    const std::vector<FindingRow> findings{findingOf("a", 1), findingOf("b", 400)};
    const std::string bytes = packedFindings(findings);
    EXPECT_EQ(unpackedFindings(bytes), findings);
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        EXPECT_EQ(unpackedFindings(bytes.substr(0, length)), std::nullopt) << length;
    }
    EXPECT_EQ(unpackedFindings(bytes + "x"), std::nullopt);
    EXPECT_EQ(unpackedFindings(packedFindings({})), std::vector<FindingRow>());
}

TEST(PackedFindings, LineMap) {
    std::vector<MappedLine> lines;
    for (std::uint32_t i = 1; i <= 1000; ++i) {
        lines.push_back({0, i, 0, 1, true});
    }
    const std::string long_run = packedLineMap(lines);
    EXPECT_LT(long_run.size(), 10U);
    EXPECT_EQ(unpackedLineMap(long_run), lines);
    lines.push_back({3, 7, 2, 0, false});
    lines.push_back({3, 4000000000, 2, 5, true});
    const std::string bytes = packedLineMap(lines);
    EXPECT_EQ(unpackedLineMap(bytes), lines);
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        EXPECT_EQ(unpackedLineMap(bytes.substr(0, length)), std::nullopt) << length;
    }
}

TEST(CompressedText, ComesBack) {
    for (const std::string& text :
         {std::string(), std::string("a"), std::string(1000000, 'a'), std::string("\0\xff\n", 3)}) {
        EXPECT_EQ(uncompressed(compressed(text, CheckSum::no)), text);
        EXPECT_EQ(uncompressed(compressed(text, CheckSum::yes)), text);
    }
    const std::string bytes = compressed("some text, some text, some text", CheckSum::yes);
    for (std::size_t length = 0; length < bytes.size(); ++length) {
        EXPECT_EQ(uncompressed(bytes.substr(0, length)), std::nullopt) << length;
    }
    EXPECT_EQ(uncompressed(bytes + "x"), std::nullopt);
    // No bit that is another one makes another text of it.
    std::size_t refused = 0;
    for (std::size_t bit = 8; bit < 8 * bytes.size(); ++bit) {
        std::string damaged = bytes;
        damaged[bit / 8] = static_cast<char>(damaged[bit / 8] ^ (1U << bit % 8));
        const std::optional<std::string> text = uncompressed(damaged);
        EXPECT_EQ(text.value_or("some text, some text, some text"),
                  "some text, some text, some text")
            << bit;
        refused += text ? 0 : 1;
    }
    EXPECT_GT(refused, 4 * bytes.size());
    const std::string older = compressedByZlib("some text, some text, some text");
    EXPECT_EQ(uncompressed(older), "some text, some text, some text");
    EXPECT_EQ(uncompressed(compressedByZlib("")), "");
    for (std::size_t length = 0; length < older.size(); ++length) {
        EXPECT_EQ(uncompressed(older.substr(0, length)), std::nullopt) << length;
    }
    EXPECT_EQ(uncompressed(older + "x"), std::nullopt);
    // A length that cannot be true takes no memory.
    EXPECT_EQ(uncompressed("\xff\xff\xff\xff\xff\x7f" + bytes), std::nullopt);
}

}  // namespace torvel::migrate::test
