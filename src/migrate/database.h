#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>

#include "src/base/file-system.h"

struct sqlite3;
struct sqlite3_stmt;

// SQLite in the few forms that the store needs. Paths and texts of programs are bytes, so they are blobs.

namespace torvel::migrate {

/// The store cannot be used. The message is complete: it names the file and says what to do.
class StoreError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Another command uses it.
class StoreInUse : public StoreError {
public:
    using StoreError::StoreError;
};

enum class DatabaseUse : std::uint8_t {
    read,
    readFixed,  // it cannot change, so nothing is written beside it either
    write,
};

/// An open database. Everything throws StoreError.
class Database {
public:
    Database(const NativePath& path, DatabaseUse use);

    /// Statements without results, separated by semicolons.
    void execute(const char* sql);
    /// The number that a statement gives; 0 if it gives none.
    std::int64_t number(const char* sql);
    /// The number of the row that was put in last.
    std::int64_t lastRow() const;
    sqlite3* handle() const { return database_.get(); }
    /// Throws what the last failure means for the user.
    [[noreturn]] void fail() const;

private:
    struct Close {
        void operator()(sqlite3* database) const;
    };

    std::string shownPath_;
    std::unique_ptr<sqlite3, Close> database_;
};

/// A statement that is prepared once and run many times. Columns and holes are numbered from 0.
class Query {
public:
    Query(Database& database, const char* sql);

    Query& bind(int hole, std::int64_t value);
    /// The bytes have to stay until the statement has run.
    Query& bind(int hole, std::string_view bytes);
    Query& bindNull(int hole);
    /// True: there is a row to be looked at. False: the statement has run, and can be run again.
    bool step();
    /// Runs a statement without results.
    void run();
    /// The first row only.
    bool stepOnce(const std::function<void(const Query&)>& take);

    std::int64_t number(int column) const;
    /// Stays until the next step.
    std::string_view bytes(int column) const;
    bool isNull(int column) const;
    void reset();

private:
    struct Finalize {
        void operator()(sqlite3_stmt* statement) const;
    };

    Database& database_;
    std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

/// Everything that is done until `commit` is done as a whole or not at all.
class Transaction {
public:
    explicit Transaction(Database& database) : database_(database) { database_.execute("BEGIN"); }
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void commit();

private:
    Database& database_;
    bool isOpen_ = true;
};

/// Brings a database to the newest version of its tables: `steps[n]` makes version n + 1 of version n. An empty
/// database goes through all of them. `shownPath` is for messages; one that is newer than the steps is refused, and so
/// is an older one if it may only be read.
void bringUpToDate(Database& database, std::span<const char* const> steps, DatabaseUse use,
                   std::string_view shownPath);

}  // namespace torvel::migrate
