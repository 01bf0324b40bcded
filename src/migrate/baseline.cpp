#include "src/migrate/baseline.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <set>
#include <stdexcept>
#include <tuple>

#include "src/migrate/json-writer.h"
#include "src/migrate/places.h"
#include "src/migrate/replaced-file.h"

namespace torvel::migrate {

namespace {

constexpr std::uint64_t format = 1;
constexpr std::size_t hashDigits = 32;

auto sortKey(const BaselineEntry& entry) {
    return std::tie(entry.file, entry.code, entry.hash);
}

[[noreturn]] void fail(std::string_view name, const std::string& what) {
    throw std::runtime_error("The baseline '" + std::string(name) + "' cannot be used: " + what);
}

[[noreturn]] void failDamaged(std::string_view name, const std::string& what) {
    fail(name, what +
                   ". Take its last good version from version control, or remove it and write it "
                   "anew with `torvel-migrate accept`.");
}

BaselineEntry entryFrom(const nlohmann::json& json) {
    BaselineEntry entry;
    json.at("file").get_to(entry.file);
    json.at("code").get_to(entry.code);
    json.at("hash").get_to(entry.hash);
    const std::int64_t count = json.at("count").get<std::int64_t>();
    const std::int64_t line = json.at("line").get<std::int64_t>();
    json.at("text").get_to(entry.text);
    const bool hasDigits = entry.hash.size() == hashDigits &&
                           entry.hash.find_first_not_of("0123456789abcdef") == std::string::npos;
    constexpr std::int64_t most = UINT32_MAX;
    if (!hasDigits || count < 1 || count > most || line < 0 || line > most) {
        throw std::range_error("an entry of '" + entry.file + "' with the code '" + entry.code +
                               "' has a number or hash that cannot be");
    }
    entry.count = static_cast<std::uint32_t>(count);
    entry.line = static_cast<std::uint32_t>(line);
    return entry;
}

/// What nlohmann-json says, without the identifier of the exception in front.
std::string reasonOf(const nlohmann::json::exception& error) {
    const std::string_view text = error.what();
    const std::size_t begin = text.find("] ");
    return std::string(text.substr(begin == std::string_view::npos ? 0 : begin + 2));
}

void checkFormat(const nlohmann::json& json, std::string_view name) {
    const std::int64_t found = json.at("format").get<std::int64_t>();
    if (found > static_cast<std::int64_t>(format)) {
        const std::string writer = json.value("writer", "a newer torvel-migrate");
        fail(name, "it was written by " + writer +
                       ", in a newer format than this version knows. Use that version or a later "
                       "one.");
    }
    if (found != static_cast<std::int64_t>(format)) {
        failDamaged(name, "there is no format " + std::to_string(found));
    }
    if (!json.at("findings").is_array()) {
        failDamaged(name, "its findings are no list");
    }
}

/// Takes the entries while the text is parsed, so that they do not stay in memory as JSON too.
class EntryTaker {
public:
    explicit EntryTaker(Baseline& baseline) : baseline_(baseline) {}

    /// False for an entry that was taken.
    bool take(int depth, nlohmann::json::parse_event_t event, const nlohmann::json& parsed) {
        if (depth == 1 && event == nlohmann::json::parse_event_t::key) {
            isInFindings_ = parsed == "findings";
        }
        if (!isInFindings_ || depth != 2 || event != nlohmann::json::parse_event_t::object_end) {
            return true;
        }
        takeEntry(parsed);
        return false;
    }

    /// What is wrong with the first entry that is no good; empty if all are good. It is told only when the format is
    /// known to be this one.
    const std::string& fault() const { return fault_; }

private:
    void takeEntry(const nlohmann::json& parsed) {
        try {
            BaselineEntry entry = entryFrom(parsed);
            if (!known_.insert(groupKey(entry.file, entry.code, entry.hash)).second) {
                throw std::range_error("an entry of '" + entry.file + "' stands twice");
            }
            baseline_.entries.push_back(std::move(entry));
        } catch (const nlohmann::json::exception& error) {
            fault_ = fault_.empty() ? reasonOf(error) : fault_;
        } catch (const std::range_error& error) {
            fault_ = fault_.empty() ? error.what() : fault_;
        }
    }

    Baseline& baseline_;
    std::set<ContentHash> known_;
    std::string fault_;
    bool isInFindings_ = false;
};

}  // namespace

std::string baselineText(const Baseline& baseline) {
    std::vector<const BaselineEntry*> sorted;
    for (const BaselineEntry& entry : baseline.entries) {
        sorted.push_back(&entry);
    }
    std::sort(sorted.begin(), sorted.end(),
              [](const BaselineEntry* left, const BaselineEntry* right) {
                  return sortKey(*left) < sortKey(*right);
              });
    std::string text;
    const TextSink sink = [&text](std::string_view piece) { text += piece; };
    JsonWriter json(sink);
    json.beginObject()
        .member("format", format)
        .member("writer", "torvel-migrate " TORVEL_VERSION)
        .name("findings")
        .beginList();
    for (const BaselineEntry* entry : sorted) {
        json.beginObject()
            .member("file", entry->file)
            .member("code", entry->code)
            .member("text", entry->text)
            .member("count", std::uint64_t{entry->count})
            .member("line", std::uint64_t{entry->line})
            .member("hash", entry->hash)
            .endObject();
    }
    json.endList().endObject().finish();
    return text;
}

Baseline parseBaseline(std::string_view text, std::string_view name) {
    Baseline baseline;
    EntryTaker taker(baseline);
    try {
        const nlohmann::json json = nlohmann::json::parse(
            text,
            [&taker](int depth, nlohmann::json::parse_event_t event, const nlohmann::json& parsed) {
                return taker.take(depth, event, parsed);
            });
        checkFormat(json, name);
        if (!json.at("findings").empty()) {
            failDamaged(name, "one of its findings is no entry");
        }
    } catch (const nlohmann::json::exception& error) {
        failDamaged(name, reasonOf(error));
    }
    if (!taker.fault().empty()) {
        failDamaged(name, taker.fault());
    }
    return baseline;
}

Baseline readBaseline(const NativePath& path, bool& isThere) {
    isThere = fileKind(path) != FileKind::missing;
    if (!isThere) {
        return {};
    }
    const std::string name = narrowPath(path);
    std::ifstream stream(path, std::ios::binary);
    if (fileKind(path) != FileKind::regular || !stream) {
        fail(name, "it could not be opened. Make sure that it is a file that you may read.");
    }
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    if (stream.bad()) {
        fail(name, "it could not be read to its end.");
    }
    return parseBaseline(text, name);
}

void writeBaseline(const NativePath& path, const Baseline& baseline) {
    replaceFile(path, [&baseline](const TextSink& sink) { sink(baselineText(baseline)); });
}

}  // namespace torvel::migrate
