#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "src/migrate/text-sink.h"

namespace torvel::migrate {

/// How JSON is laid out: with the elements of the outer levels in lines of their own, or without a blank.
enum class JsonLayout : bool { lines, compact };

/// Writes JSON piece by piece, so that a report need not fit into memory.
class JsonWriter {
public:
    explicit JsonWriter(const TextSink& sink, JsonLayout layout = JsonLayout::lines)
        : buffer_(sink), layout_(layout) {}

    JsonWriter& beginObject() { return begin('{'); }
    JsonWriter& endObject() { return end('}'); }
    JsonWriter& beginList() { return begin('['); }
    JsonWriter& endList() { return end(']'); }
    JsonWriter& name(std::string_view name);
    /// Bytes; they are decoded here.
    JsonWriter& text(std::string_view bytes);
    /// The same of a text that is UTF-8.
    JsonWriter& utf8(std::string_view text);
    JsonWriter& number(std::uint64_t number) { return plain(std::to_string(number)); }
    JsonWriter& number(std::int64_t number) { return plain(std::to_string(number)); }
    JsonWriter& number(double number);
    JsonWriter& boolean(bool value) { return plain(value ? "true" : "false"); }
    JsonWriter& null() { return plain("null"); }

    JsonWriter& member(std::string_view key, std::string_view bytes) {
        return name(key).text(bytes);
    }
    JsonWriter& member(std::string_view key, std::uint64_t value) {
        return name(key).number(value);
    }

    /// Ends the text with a line feed and hands over what is left.
    void finish();

private:
    JsonWriter& begin(char bracket);
    JsonWriter& end(char bracket);
    JsonWriter& plain(std::string_view value);
    /// Writes the comma in front of a further value.
    void separate();
    bool hasLines() const;

    /// Brackets down to this depth have lines of their own.
    static constexpr std::size_t depthOfLines = 2;

    TextBuffer buffer_;
    JsonLayout layout_;
    /// By depth: nothing was written yet.
    std::vector<bool> isEmpty_;
    bool isBehindName_ = false;
};

/// A decoded text in quotes, with everything escaped that JSON does not take, and what would end a script of a page.
std::string quotedJson(std::string_view text);

}  // namespace torvel::migrate
