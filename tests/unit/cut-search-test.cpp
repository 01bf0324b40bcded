// Where names may begin and end, told for many bytes at once, against what is told of two bytes.

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

#include "src/base/text-store.h"
#include "src/preprocess/cut-search.h"

namespace torvel::test {

namespace {

constexpr std::string_view names[] = {"a", "Za", "_q", "$0", "q_9", "Z__a"};

/// Texts of the characters that make and part words, of every length up to a hundred.
std::string makeText(std::mt19937& random) {
    constexpr std::string_view characters = "aZ_$09. \"_$q";
    std::string text;
    for (std::size_t length = random() % 100; text.size() < length;) {
        text += characters[random() % characters.size()];
    }
    return text;
}

bool isUsualStart(char c) {
    return isLetter(c) || c == '_' || c == '$';
}

/// The places that are told from the front to the end.
std::vector<std::size_t> placesIn(std::string_view text, const NameLengths& lengths) {
    std::vector<std::size_t> places;
    NameStarts starts(text, lengths);
    for (const char* at = starts.find(); at != text.data() + text.size(); at = starts.find()) {
        places.push_back(static_cast<std::size_t>(at - text.data()));
        starts.stepOver();
    }
    return places;
}

/// Whether one of the names stands there.
bool isNameAt(std::string_view text, std::size_t at) {
    return (at == 0 || isCut(text[at - 1], text[at])) &&
           std::any_of(std::begin(names), std::end(names),
                       [&](std::string_view name) { return text.substr(at).starts_with(name); });
}

}  // namespace

TEST(NameStarts, AreAllPlacesWhereANameMayBegin) {
    NameLengths lengths;
    for (const std::string_view name : names) {
        lengths.add(name);
    }
    std::mt19937 random(1);
    TextStore store;
    for (int run = 0; run < 2000; ++run) {
        const std::string_view text = store.view(store.add(makeText(random)));
        const std::vector<std::size_t> places = placesIn(text, lengths);
        std::size_t next = 0;
        for (std::size_t at = 0; at < text.size(); ++at) {
            const bool isTold = next < places.size() && places[next] == at;
            next += isTold ? 1 : 0;
            if (text[at] == '"' || isNameAt(text, at)) {
                EXPECT_TRUE(isTold) << text << " at " << at;
            } else if (isTold) {
                EXPECT_TRUE(isUsualStart(text[at])) << text << " at " << at;
            }
        }
        EXPECT_EQ(next, places.size()) << text;
    }
}

TEST(NameStarts, GoOnWhereTheyAreTold) {
    NameLengths lengths;
    lengths.add("name");
    TextStore store;
    const std::string_view text =
        store.view(store.add("name + name + (name) + name * name + 12.5 - name"));
    for (std::size_t from = 0; from <= text.size(); ++from) {
        NameStarts starts(text, lengths);
        starts.moveTo(text.data() + from);
        const std::size_t expected = std::min(text.find("name", from), text.size());
        const auto found = static_cast<std::size_t>(starts.find() - text.data());
        EXPECT_EQ(found, expected) << from;
    }
}

TEST(CutDistances, AreThoseOfTheCuts) {
    std::mt19937 random(2);
    TextStore store;
    for (int run = 0; run < 300; ++run) {
        const std::string_view text = store.view(store.add(makeText(random)));
        for (std::size_t start = 0; start < text.size(); ++start) {
            const std::string_view rest = text.substr(start);
            const CutDistances distances = cutsBehind(rest.data(), text.data() + text.size());
            const std::size_t gap = std::min(rest.find_first_of(" \""), rest.size());
            for (std::size_t n = 1; n < CutDistances::known && n <= rest.size(); ++n) {
                const bool isExpected = n == rest.size() || isCut(rest[n - 1], rest[n]);
                EXPECT_EQ((distances.cuts >> n & 1U) != 0, isExpected) << rest << ' ' << n;
                EXPECT_EQ((distances.inWord >> n & 1U) != 0, n <= gap) << rest << ' ' << n;
            }
        }
    }
}

}  // namespace torvel::test
