#include "src/migrate/places.h"

#include <algorithm>
#include <stdexcept>
#include <tuple>

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

/// What a place is told by, in the order of its group and file.
auto identityOf(const Place& place) {
    return std::tie(place.group, place.line, place.column, place.detail);
}

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

Places::Places(const Report& report) {
    // A place for each finding, with the finding's number; equal ones are joined when all are there.
    report.forEachProgram([this](const ReportProgram& program) {
        for (const ReportFinding& finding : program.findings) {
            Place place;
            place.group = groupOf(finding.row);
            place.detail = detailOf(finding.row);
            place.line = finding.row.line;
            place.column = finding.row.columns.first;
            place.number = static_cast<std::uint32_t>(places_.size());
            place.todo = finding.row.todo;
            place.severity = finding.row.severity;
            place.isOpen = finding.isOpen;
            places_.push_back(place);
            sequence_.push_back(0);
        }
    });
    join();
}

void Places::join() {
    std::sort(places_.begin(), places_.end(), [](const Place& left, const Place& right) {
        return identityOf(left) < identityOf(right);
    });
    std::uint32_t kept = 0;
    for (const Place& each : places_) {
        Place* const last = kept == 0 ? nullptr : &places_[kept - 1];
        const std::uint32_t finding = each.number;
        if (last != nullptr && identityOf(*last) == identityOf(each)) {
            last->isOpen = last->isOpen || each.isOpen;
        } else {
            Place& place = places_[kept] = each;
            place.number = kept++;
            if (last != nullptr && last->group == place.group) {
                place.ordinal = last->ordinal + 1;
                place.openBefore = last->openBefore + (last->isOpen ? 1 : 0);
            }
        }
        sequence_[finding] = kept - 1;
    }
    places_.resize(kept);
    places_.shrink_to_fit();
}

std::string Places::fingerprint(const Place& place) const {
    KeyBuilder key;
    key.add("group", hexadecimal(place.group));
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
