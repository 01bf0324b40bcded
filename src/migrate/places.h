#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "src/migrate/report.h"

// A finding in a file that several programs include is found in each of them. Where the file is to be changed it is
// one place.

namespace torvel::migrate {

/// A place among those with the same file, code and text of the line.
struct Place {
    std::uint32_t line = 0;
    std::uint32_t column = 0;
    /// What tells findings of one place apart: a hash of the text and the todo.
    std::uint64_t detail = 0;
    FindingTodo todo = FindingTodo::look;
    Severity severity = Severity::none;
    /// At least one output holds it still.
    bool isOpen = false;
    /// How many open ones stand before it.
    std::uint32_t openBefore = 0;
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
    /// Those of each group, in the order of the file.
    using Groups = std::map<ContentHash, std::vector<Place>>;

    /// Reads the report once.
    explicit Places(const Report& report);

    const Groups& groups() const { return groups_; }

    /// One of the places.
    struct Found {
        const Place* place;
        /// Which of all places it is; less than `count`.
        std::size_t number;
        /// 32 hexadecimal digits that name the finding in reports of any date: they stay the same when lines are
        /// inserted or moved.
        std::string fingerprint() const;

        const ContentHash* group;
        /// Which one of its group.
        std::size_t ordinal;
    };
    /// The place of one of the report's findings.
    Found find(const FindingRow& row) const;
    std::size_t count() const { return count_; }

private:
    Groups groups_;
    /// By group: the number of its first place.
    std::map<ContentHash, std::size_t> firstNumbers_;
    std::size_t count_ = 0;
};

}  // namespace torvel::migrate
