#include "src/migrate/database.h"

#include <sqlite3.h>

namespace torvel::migrate {

namespace {

/// SQLite takes paths in UTF-8 everywhere; on POSIX systems they are bytes.
std::string sqlitePath(const NativePath& path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

/// The path as a URI with the words that tell SQLite that the file stays as it is.
std::string fixedUri(const NativePath& path) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    const std::u8string text = path.generic_u8string();
    std::string uri = "file:";
    if (text.size() > 1 && text[1] == ':') {
        uri += '/';
    }
    for (const char8_t c : text) {
        const bool isPlain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
                             (c >= '0' && c <= '9') || c == '/' || c == '.' || c == '_' || c == ':';
        if (isPlain) {
            uri += static_cast<char>(c);
        } else {
            uri += {'%', digits[c >> 4U], digits[c & 15U]};
        }
    }
    return uri + "?immutable=1";
}

int openFlags(DatabaseUse use) {
    switch (use) {
        case DatabaseUse::read: return SQLITE_OPEN_READONLY;
        case DatabaseUse::readFixed: return SQLITE_OPEN_READONLY | SQLITE_OPEN_URI;
        default: return SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE;
    }
}

std::string whatToDo(int code, const std::string& path) {
    const std::string store = "The store \"" + path + "\" ";
    switch (code & 0xff) {
        case SQLITE_BUSY:
        case SQLITE_LOCKED:
            return store + "is in use by another command. Wait until that has ended.";
        case SQLITE_CANTOPEN:
            return store +
                   "cannot be opened. See that its folder is there and may be used, or name "
                   "another place "
                   "with --store.";
        case SQLITE_READONLY:
        case SQLITE_PERM:
        case SQLITE_AUTH:
            return store +
                   "cannot be written: the file or its folder is read-only. Change that, or name "
                   "another "
                   "place with --store.";
        case SQLITE_FULL:
            return store +
                   "cannot grow: there is no more room. Make room and run the command again; what "
                   "was done "
                   "so far is kept.";
        case SQLITE_IOERR:
            return store +
                   "could not be read or written. See that its disk works and has room, and run "
                   "the "
                   "command again; what was done so far is kept.";
        case SQLITE_CORRUPT:
            return store +
                   "is damaged. Make it anew with --rebuild; outputs that were edited are left as "
                   "they are.";
        case SQLITE_NOTADB:
            return store +
                   "is no database. Name another place with --store, or make it anew with "
                   "--rebuild, which "
                   "keeps the file beside it.";
        default: return store + "could not be used.";
    }
}

}  // namespace

void Database::Close::operator()(sqlite3* database) const {
    sqlite3_close_v2(database);
}

Database::Database(const NativePath& path, DatabaseUse use) : shownPath_(narrowPath(path)) {
    const std::string name = use == DatabaseUse::readFixed ? fixedUri(path) : sqlitePath(path);
    sqlite3* database = nullptr;
    const int code =
        sqlite3_open_v2(name.c_str(), &database, openFlags(use) | SQLITE_OPEN_FULLMUTEX, nullptr);
    database_.reset(database);
    if (database == nullptr) {
        throw std::bad_alloc();
    }
    if (code != SQLITE_OK) {
        fail();
    }
    sqlite3_extended_result_codes(database, 1);
}

void Database::fail() const {
    const int code = sqlite3_extended_errcode(handle());
    if ((code & 0xff) == SQLITE_NOMEM) {
        throw std::bad_alloc();
    }
    const std::string message = whatToDo(code, shownPath_) + " (" + sqlite3_errmsg(handle()) + ")";
    if ((code & 0xff) == SQLITE_BUSY || (code & 0xff) == SQLITE_LOCKED) {
        throw StoreInUse(message);
    }
    throw StoreError(message);
}

void Database::execute(const char* sql) {
    if (sqlite3_exec(handle(), sql, nullptr, nullptr, nullptr) != SQLITE_OK) {
        fail();
    }
}

std::int64_t Database::number(const char* sql) {
    std::int64_t value = 0;
    Query(*this, sql).stepOnce([&](const Query& row) { value = row.number(0); });
    return value;
}

std::int64_t Database::lastRow() const {
    return sqlite3_last_insert_rowid(handle());
}

void Query::Finalize::operator()(sqlite3_stmt* statement) const {
    sqlite3_finalize(statement);
}

Query::Query(Database& database, const char* sql) : database_(database) {
    sqlite3_stmt* statement = nullptr;
    const int code = sqlite3_prepare_v3(database.handle(), sql, -1, SQLITE_PREPARE_PERSISTENT,
                                        &statement, nullptr);
    statement_.reset(statement);
    if (code != SQLITE_OK) {
        database_.fail();
    }
}

Query& Query::bind(int hole, std::int64_t value) {
    if (sqlite3_bind_int64(statement_.get(), hole + 1, value) != SQLITE_OK) {
        database_.fail();
    }
    return *this;
}

Query& Query::bind(int hole, std::string_view bytes) {
    // A null pointer would be bound as NULL, not as no bytes.
    const char* data = bytes.empty() ? "" : bytes.data();
    if (sqlite3_bind_blob64(statement_.get(), hole + 1, data, bytes.size(), SQLITE_STATIC) !=
        SQLITE_OK) {
        database_.fail();
    }
    return *this;
}

Query& Query::bindNull(int hole) {
    if (sqlite3_bind_null(statement_.get(), hole + 1) != SQLITE_OK) {
        database_.fail();
    }
    return *this;
}

bool Query::step() {
    const int code = sqlite3_step(statement_.get());
    if (code == SQLITE_ROW) {
        return true;
    }
    if (code != SQLITE_DONE) {
        // Told before the reset, which may change what the database says of its last failure.
        try {
            database_.fail();
        } catch (...) {
            reset();
            throw;
        }
    }
    reset();
    return false;
}

void Query::run() {
    while (step()) {
    }
}

bool Query::stepOnce(const std::function<void(const Query&)>& take) {
    if (!step()) {
        return false;
    }
    take(*this);
    reset();
    return true;
}

std::int64_t Query::number(int column) const {
    return sqlite3_column_int64(statement_.get(), column);
}

std::string_view Query::bytes(int column) const {
    const void* data = sqlite3_column_blob(statement_.get(), column);
    const int size = sqlite3_column_bytes(statement_.get(), column);
    return data == nullptr
               ? std::string_view()
               : std::string_view(static_cast<const char*>(data), static_cast<std::size_t>(size));
}

bool Query::isNull(int column) const {
    return sqlite3_column_type(statement_.get(), column) == SQLITE_NULL;
}

void Query::reset() {
    sqlite3_reset(statement_.get());
}

Transaction::~Transaction() {
    if (isOpen_) {
        // A failure may have ended it already.
        sqlite3_exec(database_.handle(), "ROLLBACK", nullptr, nullptr, nullptr);
    }
}

void Transaction::commit() {
    database_.execute("COMMIT");
    isOpen_ = false;
}

void bringUpToDate(Database& database, std::span<const char* const> steps, DatabaseUse use,
                   std::string_view shownPath) {
    const std::string store = "The store \"" + std::string(shownPath) + "\" ";
    const std::int64_t version = database.number("PRAGMA user_version");
    const auto newest = static_cast<std::int64_t>(steps.size());
    if (version > newest || version < 0) {
        throw StoreError(
            store +
            "was made by a newer version of torvel-migrate. Take that version, or name "
            "another place with --store.");
    }
    if (version < newest && use != DatabaseUse::write) {
        throw StoreError(store +
                         "was made by an older version of torvel-migrate. Run \"torvel-migrate "
                         "convert\" once, which brings it up to date.");
    }
    for (std::int64_t next = version; next < newest; ++next) {
        Transaction transaction(database);
        database.execute(steps[static_cast<std::size_t>(next)]);
        database.execute(("PRAGMA user_version = " + std::to_string(next + 1)).c_str());
        transaction.commit();
    }
}

}  // namespace torvel::migrate
