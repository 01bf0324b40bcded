// Names of defines that are longer than the lengths which substitution knows by heart, against a plain
// reading of the rule: at every cut, from the longest span to the shortest.

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <string>
#include <vector>

#include "src/base/characters.h"
#include "src/preprocess/defines.h"

namespace torvel {

namespace {

bool isDefineCharacter(char c) {
    return isWordCharacter(c) || c == '$';
}

bool isCut(char a, char b) {
    return !isDefineCharacter(a) || !isDefineCharacter(b) || (isDigit(a) && isLetter(b)) ||
           (isLetter(a) && isDigit(b)) || (a != '$' && b == '$');
}

/// The text with every name in it as <name>.
std::string marked(const std::string& text, const std::set<std::string>& names) {
    std::string result;
    for (std::size_t start = 0; start < text.size();) {
        const bool isStart = start == 0 || isCut(text[start - 1], text[start]);
        std::size_t length = isStart ? text.find(' ', start) : 0;
        length = isStart ? std::min(length, text.size()) - start : 0;
        while (length > 0 && !(names.contains(text.substr(start, length)) &&
                               (start + length == text.size() ||
                                isCut(text[start + length - 1], text[start + length])))) {
            --length;
        }
        if (length == 0) {
            result += text[start++];
        } else {
            result += "<" + text.substr(start, length) + ">";
            start += length;
            // Matching goes on behind the name, a cut by itself.
        }
    }
    return result;
}

std::string substituted(const std::string& text, const std::set<std::string>& names) {
    Program program;
    Defines defines(program, predefinedConstants());
    for (const std::string& name : names) {
        const TextSpan span = program.text.add(name);
        defines.table().enter(
            program.text.view(span), DefineTable::Kind::define,
            defines.storePreserved(TokenType::NUMBER_DEFINE, {span, program.text.add("1")}));
    }
    const TextSpan span = program.text.add(text);
    SubstitutedText cut;
    if (!defines.substitute(span, cut)) {
        cut.addPlain(span);
    }
    std::string result;
    defines.visitPieces(cut.pieces, [&](const Piece& piece) {
        if (piece.kind == Piece::Kind::token) {
            result += "<" + std::string(program.textOf(piece.token)) + ">";
        } else {
            result += program.text.view(piece.text);
        }
    });
    return result;
}

std::string repeated(std::string_view unit, std::size_t times) {
    std::string text;
    for (std::size_t i = 0; i < times; ++i) {
        text += unit;
    }
    return text;
}

TEST(LongNames, OfEveryLengthAroundTheBound) {
    for (std::size_t length = 60; length <= 70; ++length) {
        const std::string name(length, 'q');
        EXPECT_EQ(substituted("a+" + name + "+b", {name}), "a+<" + name + ">+b") << length;
        EXPECT_EQ(substituted("a+" + name + "q+b", {name}), "a+" + name + "q+b") << length;
        EXPECT_EQ(substituted(name + "1", {name}), "<" + name + ">1") << length;
    }
}

TEST(LongNames, TheLongestWinsOverAShortOne) {
    const std::string name = repeated("a+", 40) + "b";
    EXPECT_EQ(substituted("x*" + name + "*y", {name, "a"}), "x*<" + name + ">*y");
    EXPECT_EQ(substituted(repeated("a+", 40) + "c", {name, "a"}), repeated("<a>+", 40) + "c");
}

TEST(LongNames, LongerThanTheWord) {
    const std::string name(80, 'q');
    const std::string longer(90, 'r');
    EXPECT_EQ(substituted(name + " " + longer + " " + std::string(85, 'r'), {name, longer}),
              "<" + name + "> <" + longer + "> " + std::string(85, 'r'));
}

TEST(LongNames, NotInAStringThatIsNotClosed) {
    const std::string name(100, 'z');
    EXPECT_EQ(substituted(name + " \"" + name, {name}), "<" + name + "> \"" + name);
}

TEST(LongNames, AreFoundInEveryWordOfALine) {
    const std::string name(100, 'z');
    EXPECT_EQ(substituted(name + " " + name + "+" + name + " " + name, {name}),
              "<" + name + "> <" + name + ">+<" + name + "> <" + name + ">");
    EXPECT_EQ(substituted("\"" + name + "\" " + name, {name}), "\"" + name + "\" <" + name + ">");
}

TEST(LongNames, AsThePlainRuleSays) {
    std::mt19937 random(7);
    const std::string alphabet = "ab1+$";
    const auto letters = [&](std::size_t length) {
        std::string text;
        while (text.size() < length) {
            // Few letters and long repeats, so that names overlap and begin alike.
            text += std::string(1 + random() % 3, alphabet[random() % alphabet.size()]);
        }
        text.resize(length);
        return text;
    };
    std::size_t found = 0;
    for (int round = 0; round < 60; ++round) {
        const std::string source = letters(300);
        std::set<std::string> names;
        while (names.size() < 8) {
            const std::size_t length = random() % 2 == 0 ? 1 + random() % 5 : 60 + random() % 12;
            names.insert(source.substr(random() % (source.size() - length), length));
        }
        const std::string text = source + " " + letters(40) + source.substr(100, 150);
        const std::string expected = marked(text, names);
        ASSERT_EQ(substituted(text, names), expected) << "round " << round;
        found += expected.find('<') != std::string::npos ? 1 : 0;
    }
    EXPECT_GT(found, 40U);
}

}  // namespace

}  // namespace torvel
