// The tables of the store. docs/store.md tells of them at more length.
//
// Paths are keys (program-result.h), and they and all texts are bytes, so they are blobs. Hashes are those of
// content-hash.h, 16 bytes. Numbers of enumerations are their places in program-result.h and findings.h.
//
//   project       one row: the way from the store's folder to the project's, where paths begin, and an identity, which
//                 is chance, and stays
//   run           one row a run; `ended` is 0 while it is under way, and stays so if it was cut off
//   notice        what the last run told about the files as a whole
//   program       one row a program, as it was last converted. `key` is made of everything that its result depends on.
//                 `findings` and `line_map` are packed (packed-findings.h). `generated` is the text that it was
//                 converted to, which the line map is about. `machine_hash` is made of the part of it that its machine
//                 gave: its folder, its parameter file, the site's rows; none: nobody knows.
//   input         the files that its conversion asked for; no hash: nothing was there
//   file          the files of the program as they were converted; the line map counts them from 0
//   output        what is known of the place of an output, whether a program still has it or not:
//     base          the text that the file there was made from; none: it was never put in place
//     pending       a newer text that is not there: it was about to be put there, or something is in the way
//     placed        the hash of the bytes that were about to be put in place: a file that has it was made from `pending`
//     placed_conflict  the hash of the conflict file that was about to be written: one that has it is about `pending`
//     conflict       the text that a person's edits could not be merged with
//     conflict_file  the hash of the conflict file that says so
//     left_alone    the hash of the file that was left as it is, all zero for a file that was deleted; none: look again
//     log           the hash of the lines of the log that was put in place last, all zero: none was; none: nobody knows
//     pending_log   that of a newer log that is not there: it was about to be put there, or something is in the way
//   text          texts of files and outputs, each once, compressed (compressed-text.h) as the version did that wrote them
//
// One transaction writes all rows of a program, before its output is put in place.

#include "src/migrate/store-schema.h"

#include <array>

namespace torvel::migrate {

namespace {

constexpr std::array steps{
    R"(
        PRAGMA application_id = 0x546f7276;
        CREATE TABLE project (
            number INTEGER PRIMARY KEY CHECK (number = 1),
            folder BLOB NOT NULL
        );
        CREATE TABLE run (
            number INTEGER PRIMARY KEY,
            version BLOB NOT NULL,
            began INTEGER NOT NULL,
            ended INTEGER NOT NULL,
            programs INTEGER NOT NULL,
            converted INTEGER NOT NULL,
            lines INTEGER NOT NULL,
            converted_lines INTEGER NOT NULL,
            open_findings INTEGER NOT NULL
        );
        CREATE TABLE notice (
            number INTEGER PRIMARY KEY,
            path BLOB NOT NULL,
            text BLOB NOT NULL
        );
        CREATE TABLE program (
            number INTEGER PRIMARY KEY,
            path BLOB NOT NULL UNIQUE,
            output BLOB NOT NULL,
            machine BLOB NOT NULL,
            status INTEGER NOT NULL,
            key BLOB NOT NULL,
            lines INTEGER NOT NULL,
            converted_lines INTEGER NOT NULL,
            findings BLOB NOT NULL,
            line_map BLOB NOT NULL,
            generated BLOB
        );
        CREATE TABLE input (
            program INTEGER NOT NULL,
            number INTEGER NOT NULL,
            path BLOB NOT NULL,
            hash BLOB,
            PRIMARY KEY (program, number)
        ) WITHOUT ROWID;
        CREATE TABLE file (
            program INTEGER NOT NULL,
            number INTEGER NOT NULL,
            path BLOB NOT NULL,
            text BLOB NOT NULL,
            PRIMARY KEY (program, number)
        ) WITHOUT ROWID;
        CREATE TABLE output (
            path BLOB PRIMARY KEY NOT NULL,
            program BLOB NOT NULL,
            base BLOB,
            pending BLOB,
            placed BLOB,
            placed_conflict BLOB,
            conflict BLOB,
            conflict_file BLOB,
            left_alone BLOB
        ) WITHOUT ROWID;
        CREATE TABLE text (
            hash BLOB PRIMARY KEY NOT NULL,
            bytes BLOB NOT NULL
        );
    )",
    R"(
        ALTER TABLE project ADD COLUMN identity BLOB;
        UPDATE project SET identity = randomblob(16);
    )",
    R"(
        ALTER TABLE output ADD COLUMN log BLOB;
        ALTER TABLE output ADD COLUMN pending_log BLOB;
    )",
    R"(
        ALTER TABLE program ADD COLUMN machine_hash BLOB;
    )",
    // Texts are frames of LZ4 from here on; those of older stores stay in the format of zlib.
    "",
};

}  // namespace

std::span<const char* const> storeSteps() {
    return steps;
}

}  // namespace torvel::migrate
