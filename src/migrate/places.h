#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>

#include "src/migrate/report.h"

// A finding in a file that several programs include is found in each of them. Where the file is to be changed it is
// one place.

namespace torvel::migrate {

/// A place. A plant may have millions of them, so a row is all that is kept of one.
struct Place {
    /// What it shares with others of the same file, code and text of the line, which are its group.
    ContentHash group{};
    /// What tells findings of one place apart: a hash of the text and the todo.
    std::uint64_t detail = 0;
    std::uint32_t line = 0;
    std::uint32_t column = 0;
    /// Which of all places it is.
    std::uint32_t number = 0;
    /// How many of its group stand before it in the file, and how many of these are open.
    std::uint32_t ordinal = 0;
    std::uint32_t openBefore = 0;
    FindingTodo todo = FindingTodo::look;
    Severity severity = Severity::none;
    /// At least one output holds it still.
    bool isOpen = false;
};

/// The text of a line as it counts for telling findings apart: blanks at its ends do not count, nor does how many
/// there are elsewhere.
std::string comparableLine(std::string_view lineText);

/// What findings of equal lines share, whatever their line's number. `file` is decoded; `textHash` is that of the
/// comparable line in hexadecimal digits.
ContentHash groupKey(std::string_view file, std::string_view code, std::string_view textHash);
ContentHash groupOf(const FindingRow& row);

/// All places of a report, each once.
class Places {
public:
    /// Reads the report once.
    explicit Places(const Report& report);

    std::size_t count() const { return places_.size(); }
    /// Names the place in reports of any date: it stays the same when lines are inserted or moved. 32 hexadecimal
    /// digits.
    std::string fingerprint(const Place& place) const;

    /// Tells the places of findings while the report is read again, every finding in its order.
    class Cursor {
    public:
        explicit Cursor(const Places& places) : places_(places) {}
        /// Throws std::logic_error if the report gives other findings than before.
        const Place& next(const FindingRow& row);

    private:
        const Places& places_;
        std::size_t at_ = 0;
    };

private:
    void join();

    // Lists that are never held twice while they grow.
    std::deque<Place> places_;
    /// By finding of the report: the number of its place.
    std::deque<std::uint32_t> sequence_;
};

}  // namespace torvel::migrate
