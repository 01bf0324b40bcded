#include "src/migrate/path-pattern.h"

#include <algorithm>

#include "src/base/characters.h"

namespace torvel::migrate {

namespace {

/// A set of bytes at the front of a pattern, which begins with "[": how long it is, and whether `c` is of it.
struct SetMatch {
    std::size_t length = 0;
    bool holds = false;
};

bool isBetween(char first, char last, char c) {
    const auto byte = [](char of) { return static_cast<unsigned char>(of); };
    return byte(first) <= byte(c) && byte(c) <= byte(last);
}

/// A "]" directly behind the opening is of the set, as everywhere else where such patterns are written. Without a
/// length the set is not closed.
SetMatch matchSet(std::string_view pattern, char c) {
    std::size_t at = 1;
    const bool isNegated = at < pattern.size() && (pattern[at] == '!' || pattern[at] == '^');
    at += isNegated ? 1 : 0;
    bool holds = false;
    for (const std::size_t first = at; at < pattern.size(); ++at) {
        if (pattern[at] == ']' && at > first) {
            return {at + 1, holds != isNegated};
        }
        const char from = pattern[at];
        char to = from;
        if (at + 2 < pattern.size() && pattern[at + 1] == '-' && pattern[at + 2] != ']') {
            at += 2;
            to = pattern[at];
        }
        holds = holds || isBetween(from, to, lowerCase(c)) || isBetween(from, to, upperCase(c));
    }
    return {};
}

/// How much of the pattern's front takes `c`; 0: it does not.
std::size_t matchOne(std::string_view pattern, char c) {
    if (pattern.empty()) {
        return 0;
    }
    if (pattern[0] == '?') {
        return 1;
    }
    if (pattern[0] == '[') {
        const SetMatch set = matchSet(pattern, c);
        return set.holds ? set.length : 0;
    }
    return lowerCase(pattern[0]) == lowerCase(c) ? 1 : 0;
}

/// Matches a name. Only the last "*" is ever tried again: what an earlier one could take, it can too.
bool matchesName(std::string_view pattern, std::string_view name) {
    std::size_t at = 0;
    std::size_t in = 0;
    std::size_t star = std::string_view::npos;
    std::size_t starTaken = 0;
    while (in < name.size()) {
        if (at < pattern.size() && pattern[at] == '*') {
            star = ++at;
            starTaken = in;
            continue;
        }
        const std::size_t length = matchOne(pattern.substr(at), name[in]);
        if (length > 0) {
            at += length;
            ++in;
        } else if (star != std::string_view::npos) {
            at = star;
            in = ++starTaken;
        } else {
            return false;
        }
    }
    at = pattern.find_first_not_of('*', at);
    return at == std::string_view::npos;
}

/// The names of a path, one by one from its front.
struct Names {
    std::string_view text;
    std::size_t at = 0;

    bool atEnd() const { return at > text.size(); }
    std::string_view current() const { return text.substr(at, end() - at); }
    void advance() { at = end() + 1; }
    std::size_t end() const { return std::min(text.find('/', at), text.size()); }
};

}  // namespace

std::string tidyPattern(std::string written) {
    std::replace(written.begin(), written.end(), '\\', '/');
    while (written.starts_with("./")) {
        written.erase(0, 2);
    }
    while (written.size() > 1 && written.ends_with('/')) {
        written.pop_back();
    }
    return written;
}

std::optional<std::string> faultOfPattern(std::string_view pattern) {
    if (pattern.empty()) {
        return "is empty";
    }
    for (Names names{pattern}; !names.atEnd(); names.advance()) {
        const std::string_view name = names.current();
        for (std::size_t at = 0; at < name.size(); ++at) {
            if (name[at] == '[') {
                const std::size_t length = matchSet(name.substr(at), ' ').length;
                if (length == 0) {
                    return "has a '[' that no ']' closes";
                }
                at += length - 1;
            }
        }
        if (name.find("**") != std::string_view::npos && name != "**") {
            return "has '**' beside other characters: it stands for whole names, as in '**/*.pgm'";
        }
    }
    return std::nullopt;
}

bool matchesPattern(std::string_view pattern, std::string_view path) {
    Names wanted{pattern};
    Names given{path};
    // Where to go on when something behind the last "**" does not match: it takes one name more.
    std::optional<Names> behindStars;
    Names taken{path};
    while (!given.atEnd()) {
        if (!wanted.atEnd() && wanted.current() == "**") {
            wanted.advance();
            behindStars = wanted;
            taken = given;
        } else if (!wanted.atEnd() && matchesName(wanted.current(), given.current())) {
            wanted.advance();
            given.advance();
        } else if (behindStars) {
            wanted = *behindStars;
            taken.advance();
            given = taken;
        } else {
            return false;
        }
    }
    while (!wanted.atEnd() && wanted.current() == "**") {
        wanted.advance();
    }
    return wanted.atEnd();
}

bool matchesAny(const std::vector<std::string>& patterns, std::string_view path) {
    return std::any_of(patterns.begin(), patterns.end(),
                       [&](const std::string& pattern) { return matchesPattern(pattern, path); });
}

}  // namespace torvel::migrate
