#include "src/migrate/json-writer.h"

#include <fmt/format.h>

#include <array>
#include <cmath>

#include "src/migrate/text-decoding.h"

namespace torvel::migrate {

namespace {

/// What stands for the byte; empty if it stands for itself.
std::string escaped(char c) {
    switch (c) {
        case '"': return "\\\"";
        case '\\': return "\\\\";
        case '\n': return "\\n";
        case '\r': return "\\r";
        case '\t': return "\\t";
        // A page that has the text in a script ends it at "</script", and takes "<!--" for a comment.
        case '<': return "\\u003c";
        default: break;
    }
    const unsigned byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F ? fmt::format("\\u{:04x}", byte) : std::string();
}

constexpr std::array<bool, 256> mayNeedEscape = [] {
    std::array<bool, 256> may{};
    for (std::size_t byte = 0; byte < 0x20; ++byte) {
        may[byte] = true;
    }
    for (const unsigned char byte : {'"', '\\', '<', '\x7F'}) {
        may[byte] = true;
    }
    // The first byte of U+2028 and U+2029.
    may[0xE2] = true;
    return may;
}();

/// What old readers of scripts take for the end of a line.
std::string_view escapedLineEnd(std::string_view text) {
    if (text.starts_with("\xE2\x80\xA8")) {
        return "\\u2028";
    }
    return text.starts_with("\xE2\x80\xA9") ? "\\u2029" : std::string_view();
}

}  // namespace

std::string quotedJson(std::string_view text) {
    std::string result = "\"";
    std::size_t begin = 0;
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (!mayNeedEscape[static_cast<unsigned char>(text[at])]) {
            continue;
        }
        const std::string_view lineEnd = escapedLineEnd(text.substr(at));
        const std::string escape = lineEnd.empty() ? escaped(text[at]) : std::string(lineEnd);
        if (escape.empty()) {
            continue;
        }
        result.append(text, begin, at - begin);
        result += escape;
        begin = at + (lineEnd.empty() ? 1 : 3);
    }
    result.append(text, begin);
    result += '"';
    return result;
}

void JsonWriter::separate() {
    if (isBehindName_) {
        isBehindName_ = false;
        return;
    }
    if (isEmpty_.empty()) {
        return;
    }
    const bool isFirst = isEmpty_.back();
    isEmpty_.back() = false;
    if (!isFirst) {
        buffer_ << ",";
    }
    if (hasLines()) {
        buffer_ << "\n" << std::string_view("    ", 2 * isEmpty_.size());
    } else if (!isFirst && layout_ == JsonLayout::lines) {
        buffer_ << " ";
    }
}

/// Whether the innermost bracket has a line for each element.
bool JsonWriter::hasLines() const {
    return layout_ == JsonLayout::lines && isEmpty_.size() <= depthOfLines;
}

JsonWriter& JsonWriter::begin(char bracket) {
    separate();
    buffer_ << std::string_view(&bracket, 1);
    isEmpty_.push_back(true);
    return *this;
}

JsonWriter& JsonWriter::end(char bracket) {
    const bool wasEmpty = isEmpty_.back();
    if (!wasEmpty && hasLines()) {
        buffer_ << "\n" << std::string_view("    ", 2 * (isEmpty_.size() - 1));
    }
    isEmpty_.pop_back();
    buffer_ << std::string_view(&bracket, 1);
    return *this;
}

JsonWriter& JsonWriter::plain(std::string_view value) {
    separate();
    buffer_ << value;
    return *this;
}

JsonWriter& JsonWriter::name(std::string_view name) {
    separate();
    buffer_ << quotedJson(name) << (layout_ == JsonLayout::compact ? ":" : ": ");
    isBehindName_ = true;
    return *this;
}

JsonWriter& JsonWriter::text(std::string_view bytes) {
    return plain(quotedJson(decodedText(bytes)));
}

JsonWriter& JsonWriter::utf8(std::string_view text) {
    return plain(quotedJson(text));
}

JsonWriter& JsonWriter::number(double number) {
    // JSON knows no infinity.
    return plain(std::isfinite(number) ? fmt::format("{}", number) : "null");
}

void JsonWriter::finish() {
    buffer_ << "\n";
    buffer_.finish();
}

}  // namespace torvel::migrate
