#include "src/migrate/store.h"

#include <algorithm>
#include <mutex>
#include <string>

#include "src/migrate/compressed-text.h"
#include "src/migrate/database.h"
#include "src/migrate/packed-findings.h"
#include "src/migrate/store-lock.h"
#include "src/migrate/store-opening.h"

namespace torvel::migrate {

namespace {

std::string_view bytesOf(const ContentHash& hash) {
    return {reinterpret_cast<const char*>(hash.data()), hash.size()};
}

std::optional<ContentHash> hashAt(const Query& row, int column) {
    const std::string_view bytes = row.bytes(column);
    ContentHash hash{};
    if (bytes.size() != hash.size()) {
        return std::nullopt;
    }
    std::copy(bytes.begin(), bytes.end(), hash.begin());
    return hash;
}

std::string textAt(const Query& row, int column) {
    return std::string(row.bytes(column));
}

std::uint64_t countAt(const Query& row, int column) {
    return static_cast<std::uint64_t>(row.number(column));
}

void bindHash(Query& query, int hole, const std::optional<ContentHash>& hash) {
    if (hash) {
        query.bind(hole, bytesOf(*hash));
    } else {
        query.bindNull(hole);
    }
}

/// The columns of an output as `outputAt` reads them, of a store that may be older.
std::string outputColumns(Database& database) {
    return std::string(
               "o.path, o.program, o.base, o.pending, o.placed, o.placed_conflict, o.conflict,"
               " o.conflict_file, o.left_alone, ") +
           (database.number("PRAGMA user_version") > 2 ? "o.log, o.pending_log" : "NULL, NULL");
}

/// The columns of an output from `first` on, its path in front.
OutputRecord outputAt(const Query& row, int first) {
    OutputRecord record;
    record.output = textAt(row, first);
    record.program = textAt(row, first + 1);
    record.base = hashAt(row, first + 2);
    record.pending = hashAt(row, first + 3);
    record.placed = hashAt(row, first + 4);
    record.placedConflict = hashAt(row, first + 5);
    record.conflict = hashAt(row, first + 6);
    record.conflictFile = hashAt(row, first + 7);
    record.leftAlone = hashAt(row, first + 8);
    record.log = hashAt(row, first + 9);
    record.pendingLog = hashAt(row, first + 10);
    return record;
}

StoredProgram programAt(const Query& row) {
    StoredProgram program;
    program.number = row.number(0);
    program.program = textAt(row, 1);
    program.output = textAt(row, 2);
    program.machine = textAt(row, 3);
    program.status = static_cast<ProgramStatus>(row.number(4));
    program.key = hashAt(row, 5).value_or(ContentHash{});
    program.lines = countAt(row, 6);
    program.convertedLines = countAt(row, 7);
    program.generated = hashAt(row, 8);
    program.machineHash = hashAt(row, 9);
    if (!row.isNull(10)) {
        program.outputRecord = outputAt(row, 10);
    }
    return program;
}

void bindRun(Query& query, const RunRow& run) {
    query.bind(0, run.version);
    query.bind(1, run.began);
    query.bind(2, run.ended);
    query.bind(3, static_cast<std::int64_t>(run.programs));
    query.bind(4, static_cast<std::int64_t>(run.converted));
    query.bind(5, static_cast<std::int64_t>(run.lines));
    query.bind(6, static_cast<std::int64_t>(run.convertedLines));
    query.bind(7, static_cast<std::int64_t>(run.openFindings));
}

/// The statement that gives programs with what is known of their outputs, as `programAt` reads them, of a store that may
/// be older.
std::string programsSql(Database& database, std::string_view which) {
    return "SELECT p.number, p.path, p.output, p.machine, p.status, p.key, p.lines,"
           " p.converted_lines, p.generated, " +
           std::string(database.number("PRAGMA user_version") > 3 ? "p.machine_hash, " : "NULL, ") +
           outputColumns(database) + " FROM program p LEFT JOIN output o ON o.path = p.output " +
           std::string(which);
}

/// A statement that several threads ask, made once.
class SharedQuery {
public:
    /// Calls take(row) with the first row, which stays meanwhile. False: there is none. `bind` fills the holes.
    template <typename Sql, typename Bind, typename Take>
    bool ask(Database& database, Sql sql, Bind bind, Take take) {
        const std::lock_guard lock(mutex_);
        if (!query_) {
            query_ = std::make_unique<Query>(database, std::string(sql()).c_str());
        }
        bind(*query_);
        return query_->stepOnce([&](const Query& row) { take(row); });
    }
    void close() { query_.reset(); }

private:
    std::mutex mutex_;
    std::unique_ptr<Query> query_;
};

/// The statements that write a program, made once.
struct WritingStatements {
    explicit WritingStatements(Database& database);

    Query putProgram;
    Query deleteInputs;
    Query deleteFiles;
    Query deleteProgram;
    Query putInput;
    Query putFile;
    Query putText;
    Query putOutput;
};

WritingStatements::WritingStatements(Database& database)
    : putProgram(
          database,
          "INSERT INTO program (path, output, machine, status, key, lines, converted_lines,"
          " findings, line_map, generated, machine_hash)"
          " VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?) ON CONFLICT "
          "(path) DO UPDATE"
          " SET output = excluded.output, machine = excluded.machine, status = excluded.status,"
          " key = excluded.key, lines = excluded.lines, converted_lines ="
          " excluded.converted_lines, findings = excluded.findings, line_map ="
          " excluded.line_map, generated = excluded.generated,"
          " machine_hash = excluded.machine_hash RETURNING number"),
      deleteInputs(database, "DELETE FROM input WHERE program = ?"),
      deleteFiles(database, "DELETE FROM file WHERE program = ?"),
      deleteProgram(database, "DELETE FROM program WHERE number = ?"),
      putInput(database, "INSERT INTO input VALUES (?, ?, ?, ?)"),
      putFile(database, "INSERT INTO file VALUES (?, ?, ?, ?)"),
      putText(database, "INSERT OR IGNORE INTO text VALUES (?, ?)"),
      putOutput(database,
                "INSERT OR REPLACE INTO output VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)") {}

}  // namespace

class Store::Tables {
public:
    Tables(const NativePath& path, StoreUse use)
        : path_(narrowPath(path)), lock_(lockFor(path, use)), database_(openStore(path, use)) {}

    Database& database() { return database_; }
    WritingStatements& writing() {
        if (!writing_) {
            writing_ = std::make_unique<WritingStatements>(database_);
        }
        return *writing_;
    }
    std::string text(const ContentHash& hash);
    void putOutput(const OutputRecord& record);
    std::int64_t putProgram(const PackedProgram& program);
    StoredProgram program(std::int64_t number);
    std::optional<OutputRecord> recordOf(const std::string& output);
    std::vector<FindingRow> findings(const StoredProgram& program);
    std::vector<MappedLine> lineMap(const StoredProgram& program);
    void close();
    [[noreturn]] void failAsDamaged(std::string_view what) const {
        throw StoreError(
            "The store \"" + path_ + "\" is damaged: " + std::string(what) +
            ". Make it anew with --rebuild; outputs that were edited are left as they are.");
    }

private:
    /// A column of one program that is packed. It is unpacked when others may ask again.
    template <typename Unpack>
    auto unpacked(SharedQuery& query, const char* sql, const StoredProgram& program,
                  Unpack unpack) {
        std::string bytes;
        const bool isThere = query.ask(
            database_, [&] { return sql; }, [&](Query& asked) { asked.bind(0, program.number); },
            [&](const Query& row) { bytes = row.bytes(0); });
        auto value = isThere ? unpack(std::string_view(bytes)) : std::nullopt;
        if (!value) {
            failAsDamaged("what it has of \"" + program.program + "\" cannot be read");
        }
        return std::move(*value);
    }
    static std::unique_ptr<StoreLock> lockFor(const NativePath& path, StoreUse use) {
        return use == StoreUse::read ? nullptr : std::make_unique<StoreLock>(path);
    }

    std::string path_;
    /// Null: the store is only read.
    std::unique_ptr<StoreLock> lock_;
    Database database_;
    std::unique_ptr<WritingStatements> writing_;
    SharedQuery readText_;
    SharedQuery readProgram_;
    SharedQuery readOutput_;
    SharedQuery readFindings_;
    SharedQuery readLineMap_;
};

std::string Store::Tables::text(const ContentHash& hash) {
    std::string bytes;
    const bool isThere = readText_.ask(
        database_, [] { return "SELECT bytes FROM text WHERE hash = ?"; },
        [&](Query& query) { query.bind(0, bytesOf(hash)); },
        [&](const Query& row) { bytes = textAt(row, 0); });
    if (!isThere) {
        failAsDamaged("a text is missing");
    }
    std::optional<std::string> text = uncompressed(bytes);
    if (!text || hashOf(*text) != hash) {
        failAsDamaged("a text cannot be read");
    }
    return std::move(*text);
}

StoredProgram Store::Tables::program(std::int64_t number) {
    StoredProgram program;
    const bool isThere = readProgram_.ask(
        database_, [&] { return programsSql(database_, "WHERE p.number = ?"); },
        [&](Query& query) { query.bind(0, number); },
        [&](const Query& row) { program = programAt(row); });
    if (!isThere) {
        failAsDamaged("a program is missing");
    }
    return program;
}

std::optional<OutputRecord> Store::Tables::recordOf(const std::string& output) {
    std::optional<OutputRecord> record;
    readOutput_.ask(
        database_,
        [&] { return "SELECT " + outputColumns(database_) + " FROM output o WHERE o.path = ?"; },
        [&](Query& query) { query.bind(0, output); },
        [&](const Query& row) { record = outputAt(row, 0); });
    return record;
}

std::vector<FindingRow> Store::Tables::findings(const StoredProgram& program) {
    return unpacked(readFindings_, "SELECT findings FROM program WHERE number = ?", program,
                    [](std::string_view bytes) {
                        const std::optional<std::string> text = uncompressed(bytes);
                        return text ? unpackedFindings(*text) : std::nullopt;
                    });
}

std::vector<MappedLine> Store::Tables::lineMap(const StoredProgram& program) {
    return unpacked(readLineMap_, "SELECT line_map FROM program WHERE number = ?", program,
                    unpackedLineMap);
}

void Store::Tables::putOutput(const OutputRecord& record) {
    Query& query = writing().putOutput;
    query.bind(0, record.output).bind(1, record.program);
    bindHash(query, 2, record.base);
    bindHash(query, 3, record.pending);
    bindHash(query, 4, record.placed);
    bindHash(query, 5, record.placedConflict);
    bindHash(query, 6, record.conflict);
    bindHash(query, 7, record.conflictFile);
    bindHash(query, 8, record.leftAlone);
    bindHash(query, 9, record.log);
    bindHash(query, 10, record.pendingLog);
    query.run();
}

std::int64_t Store::Tables::putProgram(const PackedProgram& program) {
    WritingStatements& sql = writing();
    for (const PackedText& packed : program.texts) {
        sql.putText.bind(0, bytesOf(packed.hash)).bind(1, *packed.bytes).run();
    }
    Query& row = sql.putProgram;
    row.bind(0, program.program).bind(1, program.output).bind(2, program.machine);
    row.bind(3, static_cast<std::int64_t>(program.status)).bind(4, bytesOf(program.key));
    row.bind(5, static_cast<std::int64_t>(program.lines));
    row.bind(6, static_cast<std::int64_t>(program.convertedLines));
    row.bind(7, program.findings).bind(8, program.lineMap);
    bindHash(row, 9, program.generated);
    bindHash(row, 10, program.machineHash);
    std::int64_t number = 0;
    while (row.step()) {
        number = row.number(0);
    }
    sql.deleteInputs.bind(0, number).run();
    sql.deleteFiles.bind(0, number).run();
    std::int64_t place = 0;
    for (const Input& input : program.inputs) {
        sql.putInput.bind(0, number).bind(1, place++).bind(2, input.path);
        bindHash(sql.putInput, 3, input.hash);
        sql.putInput.run();
    }
    place = 0;
    for (const StoredFile& file : program.files) {
        sql.putFile.bind(0, number).bind(1, place++).bind(2, file.path).bind(3, bytesOf(file.text));
        sql.putFile.run();
    }
    if (program.outputRecord) {
        putOutput(*program.outputRecord);
    }
    return number;
}

void Store::Tables::close() {
    writing_.reset();
    readText_.close();
    readProgram_.close();
    readOutput_.close();
    readFindings_.close();
    readLineMap_.close();
    if (lock_) {
        settleStore(database_);
        lock_.reset();
    }
}

PackedProgram packedProgram(const ProgramResult& result) {
    PackedProgram packed;
    packed.program = result.program;
    packed.output = result.output;
    packed.status = result.status;
    packed.lines = result.lines;
    packed.convertedLines = result.convertedLines;
    packed.inputs = result.inputs;
    for (const ConvertedFile& file : result.files) {
        packed.files.push_back({file.path, file.hash});
    }
    packed.findings = compressed(packedFindings(result.findings), CheckSum::yes);
    packed.lineMap = packedLineMap(result.lineMap);
    return packed;
}

Store::Store(const NativePath& path, StoreUse use) : tables_(std::make_unique<Tables>(path, use)) {}

Store::~Store() {
    if (tables_) {
        try {
            tables_->close();
        } catch (const StoreError&) {
            // What was written is in the log beside it, and is found there.
        }
    }
}

Store::Store(Store&&) noexcept = default;
Store& Store::operator=(Store&&) noexcept = default;

std::string Store::projectFolder() const {
    std::string folder;
    Query query(tables_->database(), "SELECT folder FROM project");
    while (query.step()) {
        folder = textAt(query, 0);
    }
    return folder;
}

std::string Store::projectIdentity() const {
    Database& database = tables_->database();
    std::string identity;
    if (database.number("PRAGMA user_version") > 1) {
        Query(database, "SELECT identity FROM project").stepOnce([&](const Query& row) {
            const std::optional<ContentHash> bytes = hashAt(row, 0);
            identity = bytes ? hexadecimal(*bytes) : std::string();
        });
    }
    return identity;
}

void Store::setProjectFolder(std::string_view folder) {
    if (projectFolder() != folder) {
        Query query(tables_->database(),
                    "INSERT INTO project (number, folder, identity) VALUES (1, ?, randomblob(16))"
                    " ON CONFLICT (number) DO UPDATE SET folder = excluded.folder");
        query.bind(0, folder).run();
    }
}

std::vector<RunRow> Store::runs() const {
    std::vector<RunRow> runs;
    Query query(tables_->database(),
                "SELECT version, began, ended, programs, converted, lines, converted_lines,"
                " open_findings FROM run ORDER BY number");
    while (query.step()) {
        runs.push_back({textAt(query, 0), query.number(1), query.number(2), countAt(query, 3),
                        countAt(query, 4), countAt(query, 5), countAt(query, 6),
                        countAt(query, 7)});
    }
    return runs;
}

std::vector<Notice> Store::notices() const {
    std::vector<Notice> notices;
    Query query(tables_->database(), "SELECT path, text FROM notice ORDER BY number");
    while (query.step()) {
        notices.push_back({textAt(query, 0), textAt(query, 1)});
    }
    return notices;
}

void Store::forEachProgram(const std::function<void(const StoredProgram&)>& take) const {
    const std::string sql = programsSql(tables_->database(), "ORDER BY p.path");
    Query query(tables_->database(), sql.c_str());
    while (query.step()) {
        take(programAt(query));
    }
}

void Store::forEachKey(
    const std::function<void(std::int64_t number, const std::string& program)>& take) const {
    Query query(tables_->database(), "SELECT number, path FROM program ORDER BY path");
    while (query.step()) {
        take(query.number(0), textAt(query, 1));
    }
}

std::vector<Input> Store::inputs(const StoredProgram& program) const {
    std::vector<Input> inputs;
    Query query(tables_->database(),
                "SELECT path, hash FROM input WHERE program = ? ORDER BY number");
    query.bind(0, program.number);
    while (query.step()) {
        inputs.push_back({textAt(query, 0), hashAt(query, 1)});
    }
    return inputs;
}

void Store::forEachInput(
    const std::function<void(std::int64_t program, const Input&)>& take) const {
    Query query(tables_->database(),
                "SELECT program, path, hash FROM input ORDER BY program, number");
    while (query.step()) {
        take(query.number(0), {textAt(query, 1), hashAt(query, 2)});
    }
}

std::vector<std::string> Store::sourceFiles() const {
    std::vector<std::string> paths;
    Query query(tables_->database(),
                "SELECT path FROM program UNION SELECT path FROM input WHERE hash IS NOT NULL");
    while (query.step()) {
        paths.push_back(textAt(query, 0));
    }
    return paths;
}

std::vector<StoredFile> Store::files(const StoredProgram& program) const {
    std::vector<StoredFile> files;
    Query query(tables_->database(),
                "SELECT path, text FROM file WHERE program = ? ORDER BY number");
    query.bind(0, program.number);
    while (query.step()) {
        files.push_back({textAt(query, 0), hashAt(query, 1).value_or(ContentHash{})});
    }
    return files;
}

StoredProgram Store::program(std::int64_t number) const {
    return tables_->program(number);
}

std::vector<FindingRow> Store::findings(const StoredProgram& program) const {
    return tables_->findings(program);
}

std::vector<MappedLine> Store::lineMap(const StoredProgram& program) const {
    return tables_->lineMap(program);
}

std::string Store::text(const ContentHash& hash) const {
    return tables_->text(hash);
}

std::vector<ContentHash> Store::textHashes() const {
    std::vector<ContentHash> hashes;
    Query query(tables_->database(), "SELECT hash FROM text ORDER BY hash");
    while (query.step()) {
        hashes.push_back(hashAt(query, 0).value_or(ContentHash{}));
    }
    return hashes;
}

void Store::forEachOutput(const std::function<void(const OutputRecord&)>& take) const {
    const std::string sql =
        "SELECT " + outputColumns(tables_->database()) + " FROM output o ORDER BY path";
    Query query(tables_->database(), sql.c_str());
    while (query.step()) {
        take(outputAt(query, 0));
    }
}

bool Store::hasOutputs() const {
    return tables_->database().number("SELECT EXISTS (SELECT 1 FROM output)") != 0;
}

std::optional<OutputRecord> Store::recordOf(const std::string& output) const {
    return tables_->recordOf(output);
}

std::vector<OutputRecord> Store::leftOutputs() const {
    std::vector<OutputRecord> records;
    const std::string sql =
        "SELECT " + outputColumns(tables_->database()) +
        " FROM output o WHERE path NOT IN (SELECT output FROM program) ORDER BY path";
    Query query(tables_->database(), sql.c_str());
    while (query.step()) {
        records.push_back(outputAt(query, 0));
    }
    return records;
}

void Store::beginRun(const RunRow& run) {
    Transaction transaction(tables_->database());
    Query query(tables_->database(), "INSERT INTO run VALUES (NULL, ?, ?, ?, ?, ?, ?, ?, ?)");
    bindRun(query, run);
    query.run();
    transaction.commit();
}

void Store::endRun(const RunRow& run) {
    Transaction transaction(tables_->database());
    Query query(tables_->database(),
                "UPDATE run SET version = ?, began = ?, ended = ?, programs = ?, converted = ?,"
                " lines = ?, converted_lines = ?, open_findings = ?"
                " WHERE number = (SELECT max(number) FROM run)");
    bindRun(query, run);
    query.run();
    transaction.commit();
}

bool Store::wasCutOff() const {
    return tables_->database().number("SELECT ended = 0 FROM run ORDER BY number DESC LIMIT 1") !=
           0;
}

RunRow Store::totals() const {
    RunRow row;
    Query query(tables_->database(),
                "SELECT count(*), count(*) FILTER (WHERE status = 0), coalesce(sum(lines), 0),"
                " coalesce(sum(converted_lines), 0) FROM program");
    query.stepOnce([&](const Query& sums) {
        row.programs = countAt(sums, 0);
        row.converted = countAt(sums, 1);
        row.lines = countAt(sums, 2);
        row.convertedLines = countAt(sums, 3);
    });
    return row;
}

void Store::replaceNotices(const std::vector<Notice>& notices) {
    Transaction transaction(tables_->database());
    tables_->database().execute("DELETE FROM notice");
    Query query(tables_->database(), "INSERT INTO notice VALUES (NULL, ?, ?)");
    for (const Notice& notice : notices) {
        query.bind(0, notice.path).bind(1, notice.text).run();
    }
    transaction.commit();
}

std::int64_t Store::write(const PackedProgram& program) {
    Transaction transaction(tables_->database());
    const std::int64_t number = tables_->putProgram(program);
    transaction.commit();
    return number;
}

void Store::writeOutputs(const std::vector<OutputRecord>& records) {
    if (records.empty()) {
        return;
    }
    Transaction transaction(tables_->database());
    for (const OutputRecord& record : records) {
        tables_->putOutput(record);
    }
    transaction.commit();
}

void Store::setMachineHashes(const std::vector<std::pair<std::int64_t, ContentHash>>& hashes) {
    Transaction transaction(tables_->database());
    Query query(tables_->database(), "UPDATE program SET machine_hash = ? WHERE number = ?");
    for (const auto& [number, hash] : hashes) {
        query.bind(0, bytesOf(hash)).bind(1, number).run();
    }
    transaction.commit();
}

void Store::removePrograms(const std::vector<std::int64_t>& numbers) {
    WritingStatements& sql = tables_->writing();
    Transaction transaction(tables_->database());
    for (const std::int64_t number : numbers) {
        sql.deleteInputs.bind(0, number).run();
        sql.deleteFiles.bind(0, number).run();
        sql.deleteProgram.bind(0, number).run();
    }
    transaction.commit();
}

void Store::removeOutputs(const std::vector<std::string>& outputs) {
    Transaction transaction(tables_->database());
    Query query(tables_->database(), "DELETE FROM output WHERE path = ?");
    for (const std::string& output : outputs) {
        query.bind(0, output).run();
    }
    transaction.commit();
}

void Store::removeUnusedTexts() {
    Transaction transaction(tables_->database());
    tables_->database().execute(
        "DELETE FROM text WHERE hash NOT IN (SELECT text FROM file"
        " UNION SELECT generated FROM program WHERE generated IS NOT NULL"
        " UNION SELECT base FROM output WHERE base IS NOT NULL"
        " UNION SELECT pending FROM output WHERE pending IS NOT NULL"
        " UNION SELECT conflict FROM output WHERE conflict IS NOT NULL)");
    transaction.commit();
}

void Store::close() {
    tables_->close();
}

}  // namespace torvel::migrate
