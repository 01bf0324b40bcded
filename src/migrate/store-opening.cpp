#include "src/migrate/store-opening.h"

#include <algorithm>
#include <array>
#include <memory>
#include <system_error>

#include "src/migrate/store-lock.h"
#include "src/migrate/store-schema.h"

namespace torvel::migrate {

namespace {

bool isThere(const NativePath& path) {
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    return !error && size > 0;
}

/// Refuses a database of another program before anything is changed in it.
void expectStore(Database& database, const NativePath& path) {
    if (database.number("PRAGMA application_id") == storeApplication) {
        return;
    }
    const bool isEmpty = database.number("SELECT count(*) FROM sqlite_schema") == 0;
    if (!isEmpty || database.number("PRAGMA user_version") != 0) {
        throw StoreError("The database \"" + narrowPath(path) +
                         "\" is no store of torvel-migrate. Name another place with --store.");
    }
}

Database openToWrite(const NativePath& path) {
    Database database(path, DatabaseUse::write);
    // Whoever wrote a program before may be gone for a moment only.
    database.execute("PRAGMA busy_timeout = 1000");
    // In front of the log's mode: then it needs no memory that is shared, which there is none of on network drives.
    database.execute("PRAGMA locking_mode = EXCLUSIVE");
    expectStore(database, path);
    database.execute("PRAGMA journal_mode = WAL");
    // A power cut may take the last transactions, and nothing else: they are found out by the next run.
    database.execute("PRAGMA synchronous = NORMAL");
    // The log is taken over seldom, since each time waits for the disk.
    database.execute("PRAGMA wal_autocheckpoint = 16000");
    bringUpToDate(database, storeSteps(), DatabaseUse::write, narrowPath(path));
    return database;
}

Database openToRead(const NativePath& path, DatabaseUse use) {
    Database database(path, use);
    // What is read belongs together, and the system is asked once whether it may be read, not for each statement.
    database.execute("PRAGMA locking_mode = EXCLUSIVE");
    expectStore(database, path);
    if (database.number("SELECT count(*) FROM sqlite_schema") == 0) {
        throw StoreError("The store \"" + narrowPath(path) +
                         R"(" is empty. Run "torvel-migrate convert" first.)");
    }
    const std::int64_t version = database.number("PRAGMA user_version");
    if (version < oldestReadableStore || version > static_cast<std::int64_t>(storeSteps().size())) {
        bringUpToDate(database, storeSteps(), DatabaseUse::read, narrowPath(path));
    }
    return database;
}

/// Whether the file says that there is a log beside it: a command writes it, or was cut off.
bool saysLog(const NativePath& path) {
    InputFile file;
    std::array<char, 20> head{};
    bool hasFailed = false;
    return file.open(path) && file.read(head.data(), head.size(), hasFailed) == head.size() &&
           head[18] == 2;
}

/// The lock of a store; nothing if nothing can be written beside it. Throws StoreInUse.
std::unique_ptr<StoreLock> lockIfWritable(const NativePath& path) {
    try {
        return std::make_unique<StoreLock>(path);
    } catch (const StoreInUse&) {
        throw;
    } catch (const StoreError&) {
        return nullptr;
    }
}

/// Settles a store whose run was cut off. False: nothing can be written there.
bool settleCutOff(const NativePath& path) {
    const std::unique_ptr<StoreLock> lock = lockIfWritable(path);
    if (lock) {
        Database database = openToWrite(path);
        settleStore(database);
    }
    return lock != nullptr;
}

Database openWithLog(const NativePath& path) {
    if (settleCutOff(path)) {
        return openToRead(path, DatabaseUse::read);
    }
    if (isThere(withEnding(path, "-wal")) || isThere(withEnding(path, "-journal"))) {
        throw StoreError("The store \"" + narrowPath(path) +
                         "\" is of a run that was cut off, and cannot be read where nothing can be "
                         "written. Copy it with the files beside it to another folder.");
    }
    return openToRead(path, DatabaseUse::readFixed);
}

/// The identity of the project of a store that is made anew; empty if it has none, or cannot be read.
std::string identityBefore(const NativePath& path) {
    std::string identity;
    try {
        // As if it could not change: nothing is brought together, since it is kept as it is.
        Database database(path, DatabaseUse::readFixed);
        Query(database, "SELECT identity FROM project").stepOnce([&identity](const Query& row) {
            identity = row.bytes(0);
        });
    } catch (const StoreError&) {
        identity.clear();
    }
    return identity;
}

void takeOverIdentity(Database& database, const std::string& identity) {
    if (!identity.empty()) {
        Query query(database, "INSERT INTO project (number, folder, identity) VALUES (1, '', ?)");
        query.bind(0, identity).run();
    }
}

constexpr std::array storeEndings{"", "-wal", "-journal"};

/// The first of the names with ".old", ".old2", ".old3" behind it that nothing has.
NativePath freePathAside(const NativePath& path) {
    for (unsigned number = 1;; ++number) {
        const std::string ending = number == 1 ? ".old" : ".old" + std::to_string(number);
        NativePath aside = withEnding(path, ending);
        const bool isFree =
            std::all_of(storeEndings.begin(), storeEndings.end(), [&](const char* file) {
                return fileKind(withEnding(aside, file)) == FileKind::missing;
            });
        if (isFree) {
            return aside;
        }
    }
}

/// Keeps a file that is made anew, whatever it is.
void putStoreAside(const NativePath& path) {
    const NativePath free = freePathAside(path);
    for (const char* const ending : storeEndings) {
        const NativePath file = withEnding(path, ending);
        const NativePath aside = withEnding(free, ending);
        std::error_code error;
        if (fileKind(file) != FileKind::missing) {
            std::filesystem::rename(file, aside, error);
            if (error) {
                throw StoreError("The store \"" + narrowPath(file) +
                                 "\" cannot be put aside as \"" + narrowPath(aside) +
                                 "\": " + error.message() +
                                 ". Change that, or name another place with --store.");
            }
        }
    }
}

}  // namespace

Database openStore(const NativePath& path, StoreUse use) {
    if (use == StoreUse::anew) {
        const std::string identity = identityBefore(path);
        putStoreAside(path);
        Database database = openToWrite(path);
        takeOverIdentity(database, identity);
        return database;
    }
    if (use != StoreUse::read) {
        return openToWrite(path);
    }
    if (fileKind(path) == FileKind::missing) {
        throw StoreError(
            "There is no store \"" + narrowPath(path) +
            R"(". Run "torvel-migrate convert" first, or name another place with --store.)");
    }
    const bool hasLog =
        saysLog(path) || isThere(withEnding(path, "-wal")) || isThere(withEnding(path, "-journal"));
    return hasLog ? openWithLog(path) : openToRead(path, DatabaseUse::read);
}

void settleStore(Database& database) {
    database.execute("PRAGMA wal_checkpoint(TRUNCATE)");
    database.execute("PRAGMA journal_mode = DELETE");
}

}  // namespace torvel::migrate
