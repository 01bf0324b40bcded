// docs/messages.md: every message has an entry, and each entry's example raises that message. The form
// of the page is told at its end.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "src/app/command.h"
#include "tests/support/case-run.h"
#include "tests/support/escapes.h"
#include "tests/support/message-rows.h"
#include "tests/support/temporary-directory.h"
#include "tests/support/text-difference.h"

namespace torvel::test {

namespace {

constexpr ExcusedMessage withoutEntry[] = {
    {"UnknownException", "nothing in the program throws what is no std::exception"},
};

constexpr ExcusedMessage withoutExample[] = {
    {"OutOfMemory", "a run that takes all memory would take the machine's"},
    {"LogOverwritesOutput", "needs a link"},
    {"OutputNotWritten", "needs a disk that is full"},
    {"FileNotOpened", "needs a file that the user running it may not read"},
};

/// An entry of the page.
struct Entry {
    std::string heading;
    std::string section;  // the class of the section that it stands in
    std::string symbol;
    Case example;
    bool hasExample = false;
    bool hasText = false;
    /// Messages that come beside this one.
    std::vector<std::string> company;
};

/// What stands behind `name` in a line "<!-- name: value -->"; empty if it is none.
std::string markerValue(std::string_view line, std::string_view name) {
    const std::string lead = "<!-- " + std::string(name) + ": ";
    if (!line.starts_with(lead) || !line.ends_with(" -->")) {
        return {};
    }
    return std::string(line.substr(lead.size(), line.size() - lead.size() - 4));
}

std::vector<std::string> wordsOf(const std::string& text) {
    std::vector<std::string> words;
    std::istringstream stream(text);
    for (std::string word; stream >> word;) {
        words.push_back(word);
    }
    return words;
}

void setLimit(Limits& limits, const std::string& text) {
    const std::vector<std::string> words = wordsOf(text);
    const unsigned value = words.size() == 2 ? static_cast<unsigned>(std::stoul(words[1])) : 0;
    const std::map<std::string, std::function<void()>> setters = {
        {"includedFiles", [&] { limits.includedFiles = value; }},
        {"defineExpansion", [&] { limits.defineExpansion = value; }},
        {"programText", [&] { limits.programText = value; }},
        {"parameterFile", [&] { limits.parameterFile = value; }},
        {"expressionNesting", [&] { limits.expressionNesting = value; }},
    };
    setters.at(words.front())();
}

/// Takes the markers of a line that is none of text.
bool readMarker(Entry& entry, std::string_view line) {
    if (const std::string symbol = markerValue(line, "message"); !symbol.empty()) {
        entry.symbol = symbol;
    } else if (const std::string company = markerValue(line, "with"); !company.empty()) {
        entry.company = wordsOf(company);
    } else if (const std::string limit = markerValue(line, "limit"); !limit.empty()) {
        setLimit(entry.example.limits, limit);
    } else {
        return false;
    }
    return true;
}

/// A fenced block: a file of the example, its command, or Torvel text.
void addBlock(Entry& entry, const std::string& info, const std::string& content) {
    std::vector<std::string> words = wordsOf(info);
    const bool isEscaped = !words.empty() && words.back() == "escaped";
    if (isEscaped) {
        words.pop_back();
    }
    const std::string kind = words.empty() ? "" : words.front();
    const std::string text = isEscaped ? decodeEscapes(content) : content;
    if (kind == "brannic" || kind == "xml") {
        entry.example.files.push_back({words.size() > 1 ? words[1] : "main.pgm", text});
        entry.hasExample = true;
    } else if (kind == "command") {
        entry.example.arguments = wordsOf(text);
        if (entry.example.arguments.empty() ||
            entry.example.arguments.front() != "BrannicToTorvel64") {
            throw std::runtime_error(entry.symbol + ": a command begins with the program's name");
        }
        entry.example.arguments.erase(entry.example.arguments.begin());
        entry.hasExample = true;
    } else if (kind != "torvel") {
        throw std::runtime_error(entry.symbol + ": unknown kind of block '" + info + "'");
    }
}

std::vector<Entry> readPage() {
    const std::string page =
        readFile(std::filesystem::path(TORVEL_SOURCE_DIR) / "docs/messages.md");
    std::vector<Entry> entries;
    std::string section;
    bool isInEntry = false;
    std::string info;
    std::string content;
    bool isInBlock = false;
    for (const std::string_view line : splitLines(page)) {
        if (isInBlock) {
            isInBlock = line != "```";
            if (isInBlock) {
                content += std::string(line) + '\n';
            } else if (isInEntry) {
                addBlock(entries.back(), info, content);
            }
        } else if (line.starts_with("```")) {
            isInBlock = true;
            info = line.substr(3);
            content.clear();
        } else if (line.starts_with("## ")) {
            isInEntry = false;
            section.clear();
        } else if (line.starts_with("### ")) {
            isInEntry = true;
            entries.push_back({std::string(line.substr(4)), section, {}, {}, false, false, {}});
        } else if (const std::string name = markerValue(line, "class"); !name.empty()) {
            section = name;
        } else if (isInEntry && !readMarker(entries.back(), line) && !line.empty()) {
            entries.back().hasText = true;
        }
    }
    return entries;
}

const std::vector<Entry>& pageEntries() {
    static const std::vector<Entry> entries = readPage();
    return entries;
}

/// What the example gives: its messages in order, and how the run ended.
struct ExampleResult {
    std::vector<std::string> symbols;
    Outcome outcome;
};

ExampleResult runExample(const Entry& entry) {
    Case example = entry.example;
    if (example.arguments.empty()) {
        example.arguments = {"-o", "out", "main.pgm"};
    }
    ExampleResult result;
    result.outcome = runCase(example, example.files, runCommand);
    std::vector<std::string> messages = messagesOfLog(result.outcome.log.value_or(""));
    if (!result.outcome.standardError.empty()) {
        messages.push_back(messageOfStandardError(result.outcome.standardError));
    }
    for (const std::string& message : messages) {
        const MessageRow* row = rowOfMessage(message);
        result.symbols.emplace_back(row == nullptr ? message : row->symbol);
    }
    return result;
}

bool isConvertedBeside(std::string_view messageClass) {
    return messageClass == "advisory" || messageClass == "placeholder";
}

bool endsRun(std::string_view messageClass) {
    return messageClass == "fatal" || messageClass == "commandLine";
}

TEST(MessagesPage, EveryMessageHasAnEntry) {
    std::set<std::string> symbols;
    for (const Entry& entry : pageEntries()) {
        EXPECT_NE(findMessageRow(entry.symbol), nullptr)
            << "the entry '" << entry.heading << "' names no message: '" << entry.symbol << "'";
        EXPECT_TRUE(symbols.insert(entry.symbol).second) << entry.symbol << " has two entries";
    }
    for (const MessageRow& row : messageRows()) {
        const bool isExcused = !reasonOf(withoutEntry, row.symbol).empty();
        EXPECT_NE(symbols.contains(std::string(row.symbol)), isExcused)
            << row.symbol << (isExcused ? " needs no excuse" : " has no entry: ") << row.text;
    }
}

TEST(MessagesPage, EntriesHaveTheMessageAsHeadingAndStandWithTheirClass) {
    for (const Entry& entry : pageEntries()) {
        const MessageRow* row = findMessageRow(entry.symbol);
        if (row == nullptr) {
            continue;
        }
        EXPECT_EQ(entry.heading, replaceAll(row->text, "{}", "…")) << entry.symbol;
        EXPECT_EQ(entry.section, row->messageClass) << entry.symbol;
        EXPECT_TRUE(entry.hasText) << entry.symbol << " has nothing to say";
    }
}

TEST(MessagesPage, EveryExampleRaisesItsMessageAndNoOther) {
    for (const Entry& entry : pageEntries()) {
        const bool isExcused = !reasonOf(withoutExample, entry.symbol).empty();
        EXPECT_NE(entry.hasExample, isExcused)
            << entry.symbol << (isExcused ? " needs no excuse" : " has no example");
        if (!entry.hasExample) {
            continue;
        }
        std::multiset<std::string> expected(entry.company.begin(), entry.company.end());
        expected.insert(entry.symbol);
        const ExampleResult result = runExample(entry);
        EXPECT_EQ(std::multiset<std::string>(result.symbols.begin(), result.symbols.end()),
                  expected)
            << entry.symbol << "\nlog:\n"
            << result.outcome.log.value_or("") << result.outcome.standardError;
    }
}

/// What is told at the head of each section of the page.
TEST(MessagesPage, ExamplesEndAsTheirClassSays) {
    for (const Entry& entry : pageEntries()) {
        const MessageRow* row = findMessageRow(entry.symbol);
        if (row == nullptr || !entry.hasExample) {
            continue;
        }
        const ExampleResult result = runExample(entry);
        EXPECT_EQ(result.outcome.status, endsRun(row->messageClass) ? 1 : 0) << entry.symbol;
        if (!endsRun(row->messageClass)) {
            const bool isMarked = result.outcome.output.value_or("").find("#error_unconvertible") !=
                                  std::string::npos;
            EXPECT_NE(isMarked, isConvertedBeside(row->messageClass)) << entry.symbol;
        }
    }
}

TEST(MessagesPage, ExcusesNameMessages) {
    for (const ExcusedMessage& excuse : withoutEntry) {
        EXPECT_NE(findMessageRow(excuse.symbol), nullptr) << excuse.symbol;
    }
    for (const ExcusedMessage& excuse : withoutExample) {
        EXPECT_NE(findMessageRow(excuse.symbol), nullptr) << excuse.symbol;
    }
}

}  // namespace

}  // namespace torvel::test
