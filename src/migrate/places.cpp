#include "src/migrate/places.h"

#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <tuple>
#include <unordered_map>

#include "src/base/characters.h"
#include "src/migrate/finding-names.h"
#include "src/migrate/text-decoding.h"

namespace torvel::migrate {

namespace {

std::uint64_t detailOf(const FindingRow& row) {
    KeyBuilder key;
    key.add("todo", todoName(row.todo));
    key.add("text", row.text);
    const ContentHash hash = key.key();
    std::uint64_t detail = 0;
    for (std::size_t i = 0; i < 8; ++i) {
        detail = detail << 8U | hash[i];
    }
    return detail;
}

bool isBefore(const Place& left, const Place& right) {
    return std::tie(left.line, left.column, left.detail) <
           std::tie(right.line, right.column, right.detail);
}

struct FirstBytes {
    std::size_t operator()(const ContentHash& hash) const {
        std::size_t value = 0;
        std::memcpy(&value, hash.data(), sizeof(value));
        return value;
    }
};

}  // namespace

std::string comparableLine(std::string_view lineText) {
    std::string line;
    bool hasBlank = false;
    for (const char c : lineText) {
        if (isWhiteSpace(c)) {
            hasBlank = !line.empty();
            continue;
        }
        if (hasBlank) {
            line += ' ';
            hasBlank = false;
        }
        line += c;
    }
    return line;
}

ContentHash groupKey(std::string_view file, std::string_view code, std::string_view textHash) {
    KeyBuilder key;
    key.add("file", file);
    key.add("code", code);
    key.add("line", textHash);
    return key.key();
}

ContentHash groupOf(const FindingRow& row) {
    return groupKey(decodedText(row.file), row.code,
                    hexadecimal(hashOf(comparableLine(row.lineText))));
}

/// Puts the places of a report together.
class Places::Builder {
public:
    explicit Builder(Places& result) : result_(result) {}

    void add(const ReportFinding& finding) {
        const FindingRow& row = finding.row;
        const ContentHash key = groupOf(row);
        const auto [entry, isNew] =
            numbers_.try_emplace(key, static_cast<std::uint32_t>(members_.size()));
        if (isNew) {
            result_.groups_.push_back(key);
            members_.emplace_back();
        }
        Place place;
        place.line = row.line;
        place.column = row.columns.first;
        place.detail = detailOf(row);
        place.group = entry->second;
        place.todo = row.todo;
        place.severity = row.severity;
        Place& found = result_.places_[numberOf(place, members_[place.group])];
        found.isOpen = found.isOpen || finding.isOpen;
        result_.sequence_.push_back(found.number);
    }

    void finish() {
        for (const std::vector<std::uint32_t>& members : members_) {
            std::uint32_t ordinal = 0;
            std::uint32_t open = 0;
            for (const std::uint32_t number : members) {
                Place& place = result_.places_[number];
                place.ordinal = ordinal++;
                place.openBefore = open;
                open += place.isOpen ? 1 : 0;
            }
        }
    }

private:
    /// The number of the place among the members of its group, which it joins if it is new.
    std::uint32_t numberOf(Place& place, std::vector<std::uint32_t>& members) {
        std::vector<Place>& places = result_.places_;
        const auto at = std::lower_bound(members.begin(), members.end(), place,
                                         [&places](std::uint32_t number, const Place& searched) {
                                             return isBefore(places[number], searched);
                                         });
        if (at != members.end() && !isBefore(place, places[*at])) {
            return *at;
        }
        place.number = static_cast<std::uint32_t>(places.size());
        members.insert(at, place.number);
        places.push_back(place);
        return place.number;
    }

    Places& result_;
    std::unordered_map<ContentHash, std::uint32_t, FirstBytes> numbers_;
    /// By group: the numbers of its places, in the order of the file.
    std::vector<std::vector<std::uint32_t>> members_;
};

Places::Places(const Report& report) {
    Builder builder(*this);
    report.forEachProgram([&builder](const ReportProgram& program) {
        for (const ReportFinding& finding : program.findings) {
            builder.add(finding);
        }
    });
    builder.finish();
}

std::string Places::fingerprint(const Place& place) const {
    KeyBuilder key;
    key.add("group", hexadecimal(group(place)));
    key.add("ordinal", std::to_string(place.ordinal));
    return hexadecimal(key.key());
}

const Place& Places::Cursor::next(const FindingRow& row) {
    if (at_ < places_.sequence_.size()) {
        const Place& place = places_.places_[places_.sequence_[at_++]];
        if (place.line == row.line && place.todo == row.todo) {
            return place;
        }
    }
    throw std::logic_error("The report gave other findings than when it was first read.");
}

}  // namespace torvel::migrate
