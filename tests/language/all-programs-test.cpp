// What holds for the names of every program of the golden cases: each stands where it is said to stand.

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <map>

#include "src/base/characters.h"
#include "src/language/requests.h"
#include "src/migrate/text-decoding.h"
#include "src/migrate/text-lines.h"
#include "tests/language/questions.h"
#include "tests/support/case-run.h"

namespace torvel::language::test {

namespace {

namespace fs = std::filesystem;
using nlohmann::json;

constexpr std::size_t numbersOfName = 8;
constexpr std::size_t numbersOfLine = 5;

/// The units of UTF-16 from `begin` to `end` of a line; a character of two units counts as two.
std::string unitsOf(const std::string& line, std::size_t begin, std::size_t end) {
    std::string text;
    std::size_t unit = 0;
    for (std::size_t at = 0; at < line.size();) {
        const std::size_t size = migrate::characterSize(line, at);
        if (unit >= begin && unit < end) {
            text += line.substr(at, size);
        }
        unit += size == 4 ? 2 : 1;
        at += size;
    }
    return text;
}

/// As names are compared here: a jump to "n 7" is one to the label "N7".
std::string comparable(std::string_view text) {
    std::string result;
    for (const char c : text) {
        if (c != ' ' && c != '\t') {
            result += lowerCase(c);
        }
    }
    return result;
}

/// The lines of the files of a case as an editor shows them, by path.
using Lines = std::map<std::string, std::vector<std::string>>;

std::vector<std::string> decodedLinesOf(std::string_view text) {
    if (text.starts_with("\xEF\xBB\xBF")) {
        text.remove_prefix(3);
    }
    const bool isUtf8 = migrate::isUtf8(text);
    std::vector<std::string> lines;
    for (const std::string_view line : migrate::sourceLinesOf(text)) {
        std::string shown;
        for (const char c : line) {
            // In any other file each byte is a character, whichever it is.
            shown += isUtf8 || static_cast<unsigned char>(c) < 0x80 ? std::string(1, c)
                                                                    : std::string("\xC2\xB0");
        }
        lines.push_back(std::move(shown));
    }
    return lines;
}

/// How many names were looked at.
std::size_t checkNames(const json& program, const Answer& answer, const Lines& lines,
                       const std::string& where) {
    const json names = json::parse(answer.json);
    std::size_t count = 0;
    for (std::size_t at = 0; at + numbersOfName <= answer.names.size(); at += numbersOfName) {
        const auto number = [&](std::size_t column) { return answer.names[at + column]; };
        const std::string path = program.at("files").at(number(2)).at("path");
        const auto file = lines.find(path);
        if (file == lines.end() || number(5) == 0) {
            continue;
        }
        const std::string text = names.at("texts").at(number(6));
        const std::string place = where + ' ' + path + ':' + std::to_string(number(3) + 1);
        EXPECT_LT(number(3), file->second.size()) << place;
        EXPECT_LT(number(4), number(5)) << place << ' ' << text;
        if (number(3) >= file->second.size()) {
            return count;
        }
        const std::string shown = unitsOf(file->second[number(3)], number(4), number(5));
        const bool isItem = number(0) == static_cast<unsigned>(NamePlace::Kind::item);
        EXPECT_EQ(isItem ? shown.substr(0, text.size()) : comparable(shown),
                  isItem ? text : comparable(text))
            << place;
        ++count;
    }
    return count;
}

/// The lines of the output, each of which comes from some line, in order.
void checkLines(const Answer& answer, const std::string& where) {
    const json names = json::parse(answer.json);
    const auto output = names.at("output").get<std::string>();
    std::size_t next = 0;
    for (std::size_t at = 0; at + numbersOfLine <= answer.lines.size(); at += numbersOfLine) {
        EXPECT_EQ(answer.lines[at + 2], next) << where;
        next += answer.lines[at + 3];
    }
    EXPECT_EQ(next, static_cast<std::size_t>(std::count(output.begin(), output.end(), '\n')))
        << where;
}

TEST(AllPrograms, NamesStandWhereTheyAreSaidToStand) {
    std::size_t programs = 0;
    std::size_t names = 0;
    torvel::test::visitCases(
        fs::path(TORVEL_SOURCE_DIR) / "tests/golden",
        [&](const std::string&, const std::string& name, const fs::path& path) {
            const torvel::test::Case golden = torvel::test::readCase(path);
            Requests requests;
            Lines lines;
            for (const torvel::test::CaseEntry& file : golden.files) {
                const std::string at = "/nowhere/" + file.path;
                requests.setDocument(at, file.content);
                lines[at] = decodedLinesOf(file.content.substr(0, file.content.find('\0')));
            }
            requests.answer(R"({"do": "project", "folder": "/nowhere"})");
            for (const torvel::test::CaseEntry& file : golden.files) {
                if (!torvel::test::isSourceText(file.path)) {
                    continue;
                }
                const json question = {
                    {"do", "convert"}, {"project", 0}, {"program", "/nowhere/" + file.path}};
                const json program = json::parse(requests.answer(question.dump()).json);
                const Answer answer = requests.answer(R"({"do": "names"})");
                names += checkNames(program, answer, lines, name);
                checkLines(answer, name);
                ++programs;
            }
        });
    EXPECT_GT(programs, 500U);
    EXPECT_GT(names, 3000U);
}

}  // namespace

}  // namespace torvel::language::test
