// src/checks/torvel-words.def has the words of Torvel that the converter writes: those that stand in the outputs of
// the golden cases, which meet every row of the tables, and no others.

#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>
#include <string>

#include "tests/support/case-run.h"
#include "tests/support/text-difference.h"

namespace torvel::test {

namespace {

using Words = std::set<std::string>;

const Words& listedWords() {
    static const Words words = {
#define WORD(text) text,
#include "src/checks/torvel-words.def"
    };
    return words;
}

bool isKeyword(const std::string& word) {
    return word[0] >= 'a' && word[0] <= 'z';
}

/// The line without strings, comment and N-code.
std::string codeOf(std::string_view line) {
    static const std::regex strings("\"[^\"]*\"");
    static const std::regex rest("//.*|^[ \t]*[Nn][0-9]+");
    return std::regex_replace(std::regex_replace(std::string(line), strings, "\"\""), rest, "");
}

void insertMatches(const std::string& text, const std::regex& pattern, Words& words) {
    for (std::sregex_iterator match(text.begin(), text.end(), pattern), end; match != end;
         ++match) {
        words.insert((*match)[1].str());
    }
}

/// Functions and enumerations, and the words that begin statements. An axis or an address in front of a function
/// belongs to no word.
void insertWritten(std::string_view output, Words& words) {
    static const std::regex own("(?:function|#macro) (\\w+)");
    static const std::regex callOrEnumeration("(?:^|[^\\w$@])([A-Z][a-z]\\w*)(?=[(.])");
    static const std::regex statement("^[ \t]*([a-z]+)(?= |$)");
    Words names;
    Words written;
    insertMatches(std::string(output), own, names);
    for (const std::string_view line : splitLines(output)) {
        if (line.find("#error_unconvertible") == std::string_view::npos) {
            const std::string code = codeOf(line);
            insertMatches(code, callOrEnumeration, written);
            insertMatches(code, statement, written);
        }
    }
    for (const std::string& word : written) {
        if (!names.contains(word)) {
            words.insert(word);
        }
    }
}

std::string outputsOfCases() {
    std::string outputs;
    visitCases(std::filesystem::path(TORVEL_SOURCE_DIR) / "tests/golden",
               [&](const std::string&, const std::string&, const std::filesystem::path& path) {
                   outputs += readCase(path).expected.output.value_or("");
               });
    return outputs;
}

}  // namespace

TEST(TorvelWords, AreThoseThatTheConverterWrites) {
    Words written;
    const std::string outputs = outputsOfCases();
    insertWritten(outputs, written);
    for (const std::string& word : written) {
        EXPECT_TRUE(listedWords().contains(word)) << word << " is not listed";
    }
    for (const std::string& word : listedWords()) {
        const std::regex asWord("(^|[^\\w$@])" + word + "(?!\\w)");
        EXPECT_TRUE(isKeyword(word) ? std::regex_search(outputs, asWord) : written.contains(word))
            << word << " is written nowhere";
    }
}

}  // namespace torvel::test
