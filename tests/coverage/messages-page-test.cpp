// docs/messages.md: every message has an entry, each entry's example raises that message, and every message
// that an entry shows filled in is raised by one of its programs. The form of the page is told at its end.

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

/// An item that shows a message, or one sentence of it, as it is printed.
struct PrintedForm {
    std::string text;
    std::string program;
};

/// An entry of the page.
struct Entry {
    std::string heading;
    std::string section;  // the class of the section that it stands in
    std::string symbol;
    /// What links lead to.
    std::string anchor;
    Case example;
    bool hasExample = false;
    bool hasText = false;
    /// Messages that come beside this one.
    std::vector<std::string> company;
    std::vector<PrintedForm> forms;
    /// What stands in backquotes in its text.
    std::vector<std::string> quotes;
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
    } else if (line.starts_with("<a id=\"") && line.ends_with("\"></a>")) {
        entry.anchor = line.substr(7, line.size() - 13);
    } else {
        return false;
    }
    return true;
}

/// What stands in backquotes in a line.
std::vector<std::string> quotesOf(std::string_view line) {
    std::vector<std::string> quotes;
    for (std::size_t first = line.find('`'); first != std::string_view::npos;
         first = line.find('`')) {
        const std::size_t last = line.find('`', first + 1);
        if (last == std::string_view::npos) {
            break;
        }
        quotes.emplace_back(line.substr(first + 1, last - first - 1));
        line.remove_prefix(last + 1);
    }
    return quotes;
}

/// The lines of a program in "  for `line`, `line`: text".
std::string programOfItem(std::string_view line) {
    constexpr std::string_view lead = "  for `";
    if (!line.starts_with(lead)) {
        throw std::runtime_error("an item without a program: " + std::string(line));
    }
    std::string program;
    line.remove_prefix(lead.size() - 1);
    while (line.starts_with('`')) {
        const std::size_t last = line.find('`', 1);
        program += std::string(line.substr(1, last - 1)) + '\n';
        line.remove_prefix(last + 1);
        if (line.starts_with(", `")) {
            line.remove_prefix(2);
        }
    }
    return program;
}

/// Takes a line of an entry's text.
void addText(Entry& entry, std::string_view line) {
    entry.hasText = true;
    std::vector<PrintedForm>& forms = entry.forms;
    if (!forms.empty() && forms.back().program.empty()) {
        forms.back().program = programOfItem(line);
        return;
    }
    const std::vector<std::string> quotes = quotesOf(line);
    if (quotes.size() == 1 && line == "- `" + quotes.front() + "`") {
        forms.push_back({quotes.front(), ""});
    } else {
        entry.quotes.insert(entry.quotes.end(), quotes.begin(), quotes.end());
    }
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
            entries.emplace_back();
            entries.back().heading = line.substr(4);
            entries.back().section = section;
        } else if (const std::string name = markerValue(line, "class"); !name.empty()) {
            section = name;
        } else if (isInEntry && !readMarker(entries.back(), line) && !line.empty()) {
            addText(entries.back(), line);
        }
    }
    return entries;
}

const std::vector<Entry>& pageEntries() {
    static const std::vector<Entry> entries = readPage();
    return entries;
}

/// What an example gives: its messages in order, and how the run ended.
struct ExampleResult {
    std::vector<std::string> messages;
    std::vector<std::string> symbols;
    Outcome outcome;
};

ExampleResult runExample(Case example) {
    if (example.arguments.empty()) {
        example.arguments = {"-o", "out", "main.pgm"};
    }
    ExampleResult result;
    result.outcome = runCase(example, example.files, runCommand);
    result.messages = messagesOfLog(result.outcome.log.value_or(""));
    if (!result.outcome.standardError.empty()) {
        result.messages.push_back(messageOfStandardError(result.outcome.standardError));
    }
    for (const std::string& message : result.messages) {
        const MessageRow* row = rowOfMessage(message);
        result.symbols.emplace_back(row == nullptr ? message : row->symbol);
    }
    return result;
}

ExampleResult runProgram(const std::string& program) {
    Case example;
    example.files.push_back({"main.pgm", program});
    return runExample(example);
}

/// Whether `text` is the message, or the first or the last of its two sentences.
bool isSentenceOf(const std::string& text, const std::string& message) {
    return message == text || message.starts_with(text + " ") || message.ends_with(" " + text);
}

/// A piece of text for every kind of token that a line can hold and that begins no axis.
std::vector<std::string> wordsOfEveryKind() {
    std::vector<std::string> words = {
        "1",        "0x1F",     "1.5",        "\"a\"",       "word",
        "$a",       "$GLOBAL",  "$TASK",      "$INFO",       "$RETURN",
        "$STRGLOB", "$STRTASK", "$APTGLOB",   "$APTTASK",    "$BO",
        "$BI",      "$RO",      "$RI",        "$DO",         "$DI",
        "$WO",      "$WI",      "$AO",        "$AI",         "$PORT",
        "$PGLOB",   "$PAXIS",   "$PTASK",     "$AXISSTATUS", "$TASKSTATUS",
        "XF",       "G1",       "$TASKINDEX", "E",           "$SYSTEMSTATUS",
        "!",        "!=",       "(",          ")",           "*",
        "**",       "*=",       "+",          "++",          "+=",
        ",",        "-",        "--",         "-=",          ".",
        "/",        "/=",       ":",          "<",           "<<",
        "<<=",      "<=",       "=",          "==",          ">",
        ">=",       ">>",       ">>=",        "[",           "]",
        "^",        "|",        "|=",         "||",          "&",
        "&&",       "&=",       "~",          "F",           "G",
        "I",        "J",        "K",          "L",           "M",
        "N",        "O",        "P",          "Q",           "R",
        "S",        "T",        "#BEZIER",    "#PARMNAMES",  "#MAKENCODESLABELS",
    };
    const std::string keywords[] = {
#define KEYWORD(enumerator, spelling) spelling,
#include "src/base/token-kinds.def"
    };
    words.insert(words.end(), std::begin(keywords), std::end(keywords));
    return words;
}

/// The messages about a word of each kind left over behind a statement, about axes and `@` and `%`, which
/// cannot be left over there, where a value must begin, and about each word alone.
std::vector<std::string> messagesOfSingleWords() {
    std::string program = "DWELL X\nDWELL @\nDWELL %\n";
    for (const std::string& word : wordsOfEveryKind()) {
        program += "HOME X " + word + '\n' + word + '\n';
    }
    const ExampleResult result = runProgram(program);
    std::vector<std::string> messages;
    for (std::size_t i = 0; i < result.messages.size(); ++i) {
        if (result.symbols[i] == "UnexpectedToken") {
            messages.push_back(result.messages[i]);
        }
    }
    return messages;
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
        EXPECT_EQ(entry.anchor, row->code) << entry.symbol;
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
        const ExampleResult result = runExample(entry.example);
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
        const ExampleResult result = runExample(entry.example);
        EXPECT_EQ(result.outcome.status, endsRun(row->messageClass) ? 1 : 0) << entry.symbol;
        if (!endsRun(row->messageClass)) {
            const bool isMarked = result.outcome.output.value_or("").find("#error_unconvertible") !=
                                  std::string::npos;
            EXPECT_NE(isMarked, isConvertedBeside(row->messageClass)) << entry.symbol;
        }
    }
}

TEST(MessagesPage, PrintedFormsAreGivenByTheirPrograms) {
    std::size_t count = 0;
    for (const Entry& entry : pageEntries()) {
        for (const PrintedForm& form : entry.forms) {
            ++count;
            const ExampleResult result = runProgram(form.program);
            bool isGiven = false;
            for (std::size_t i = 0; i < result.messages.size(); ++i) {
                isGiven = isGiven || (result.symbols[i] == entry.symbol &&
                                      isSentenceOf(form.text, result.messages[i]));
            }
            EXPECT_TRUE(isGiven) << "not '" << form.text << "' but\n"
                                 << result.outcome.log.value_or("") << result.outcome.standardError
                                 << "for\n"
                                 << form.program;
        }
    }
    EXPECT_GT(count, 100U);
}

/// Quotes of the entry's own message with its holes filled.
TEST(MessagesPage, MessagesThatTheTextShowsAreGivenByAProgramOfTheEntry) {
    const std::vector<std::string> ofWords = messagesOfSingleWords();
    for (const Entry& entry : pageEntries()) {
        const MessageRow* own = findMessageRow(entry.symbol);
        if (own == nullptr || own->text.find("{}") == std::string_view::npos) {
            continue;
        }
        std::vector<std::string> given = ofWords;
        if (entry.hasExample) {
            const ExampleResult result = runExample(entry.example);
            given.insert(given.end(), result.messages.begin(), result.messages.end());
        }
        for (const PrintedForm& form : entry.forms) {
            given.push_back(form.text);
        }
        for (std::string quote : entry.quotes) {
            if (rowOfMessage(quote) != own || quote.find("…") != std::string::npos) {
                continue;
            }
            quote = replaceAll(quote, "/machine/progs", "{dir}");
            EXPECT_NE(std::find(given.begin(), given.end(), quote), given.end())
                << entry.symbol << ": no program of the entry gives " << quote;
        }
    }
}

bool isQuoted(std::string_view symbol, const std::string& text) {
    for (const Entry& entry : pageEntries()) {
        if (entry.symbol == symbol) {
            return std::find(entry.quotes.begin(), entry.quotes.end(), text) !=
                       entry.quotes.end() ||
                   std::any_of(entry.forms.begin(), entry.forms.end(),
                               [&](const PrintedForm& form) { return form.text == text; });
        }
    }
    return false;
}

TEST(MessagesPage, EveryKindAndWordIsFound) {
    const std::vector<std::string> messages = messagesOfSingleWords();
    EXPECT_GT(messages.size(), 500U);
    for (const std::string& message : messages) {
        EXPECT_TRUE(isQuoted("UnexpectedToken", message))
            << "the entry of UnexpectedToken in docs/messages.md does not have: " << message;
    }
}

/// "Expected a token of type ..." with every list of kinds that the golden cases meet.
TEST(MessagesPage, EveryListOfExpectedKindsIsFound) {
    std::set<std::string> sentences;
    visitCases(
        std::filesystem::path(TORVEL_SOURCE_DIR) / "tests/golden",
        [&](const std::string&, const std::string&, const std::filesystem::path& path) {
            const Case test = readCase(path);
            for (const std::string& message : messagesOfLog(test.expected.log.value_or(""))) {
                if (const std::size_t at = message.find("Expected a token of type ");
                    at != std::string::npos) {
                    sentences.insert(message.substr(at));
                }
            }
        });
    EXPECT_GT(sentences.size(), 50U);
    for (const std::string& sentence : sentences) {
        EXPECT_TRUE(isQuoted("UnexpectedTokenOf", sentence)) << sentence;
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
