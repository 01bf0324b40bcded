#include "tests/migrate/html-decoding.h"

#include <zlib.h>

#include <stdexcept>

namespace torvel::migrate::test {

namespace {

constexpr std::string_view digits =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

std::string bytesOf(std::string_view base64) {
    if (base64.size() % 4 != 0) {
        throw std::runtime_error("no groups of four");
    }
    std::string bytes;
    for (; !base64.empty(); base64.remove_prefix(4)) {
        std::uint32_t bits = 0;
        std::size_t count = 0;
        for (const char c : base64.substr(0, 4)) {
            const std::size_t digit = digits.find(c);
            if (digit == std::string_view::npos && (c != '=' || base64.size() != 4 || count < 2)) {
                throw std::runtime_error("no digit of base64");
            }
            bits = bits << 6U | static_cast<std::uint32_t>(c == '=' ? 0 : digit);
            count += c == '=' ? 0 : 1;
        }
        const std::string three = {static_cast<char>(bits >> 16U & 255U),
                                   static_cast<char>(bits >> 8U & 255U),
                                   static_cast<char>(bits & 255U)};
        bytes += three.substr(0, count - 1);
    }
    return bytes;
}

}  // namespace

std::string unpacked(std::string_view base64) {
    const std::string bytes = bytesOf(base64);
    z_stream stream{};
    if (inflateInit2(&stream, 15 + 16) != Z_OK) {
        throw std::runtime_error("no memory");
    }
    std::string text;
    std::string room(1U << 16U, '\0');
    std::string input = bytes;
    stream.next_in = reinterpret_cast<Bytef*>(input.data());
    stream.avail_in = static_cast<uInt>(input.size());
    int code = Z_OK;
    while (code == Z_OK) {
        stream.next_out = reinterpret_cast<Bytef*>(room.data());
        stream.avail_out = static_cast<uInt>(room.size());
        code = inflate(&stream, Z_NO_FLUSH);
        text.append(room, 0, room.size() - stream.avail_out);
    }
    const bool isComplete = code == Z_STREAM_END && stream.avail_in == 0;
    inflateEnd(&stream);
    if (!isComplete) {
        throw std::runtime_error("no gzip");
    }
    return text;
}

std::map<std::string, std::string> elementsOf(const std::string& page) {
    constexpr std::string_view begin = "<script type=\"text/plain\" id=\"";
    constexpr std::string_view end = "</script>";
    std::map<std::string, std::string> elements;
    std::string rest = page;
    for (std::size_t at = rest.find(begin); at != std::string::npos; at = rest.find(begin)) {
        const std::size_t id = at + begin.size();
        const std::size_t idEnd = rest.find("\">", id);
        const std::size_t textEnd = rest.find(end, idEnd);
        if (textEnd == std::string::npos) {
            throw std::runtime_error("an element without an end");
        }
        const std::string name = rest.substr(id, idEnd - id);
        if (!elements.emplace(name, rest.substr(idEnd + 2, textEnd - idEnd - 2)).second) {
            throw std::runtime_error("two elements " + name);
        }
        rest.replace(at, textEnd + end.size() - at, "DATA");
    }
    elements[""] = rest;
    return elements;
}

nlohmann::json dataOf(const std::string& page, const std::string& id) {
    return nlohmann::json::parse(unpacked(elementsOf(page).at(id)));
}

ProgramCall programCallOf(const std::string& script) {
    constexpr std::string_view begin = "torvelProgram(";
    const std::size_t comma = script.find(",\"");
    const std::size_t second = script.find("\",\"", comma + 2);
    if (!script.starts_with(begin) || second == std::string::npos || !script.ends_with("\");\n")) {
        throw std::runtime_error("no call: " + script.substr(0, 100));
    }
    return {script.substr(begin.size(), comma - begin.size()),
            nlohmann::json::parse(unpacked(script.substr(comma + 2, second - comma - 2))),
            script.substr(second + 3, script.size() - second - 7)};
}

}  // namespace torvel::migrate::test
