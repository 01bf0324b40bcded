// Names of defines that are longer than the lengths which substitution knows by heart, against a plain
// reading of the rule: at every cut, from the longest span to the shortest.

#include <gtest/gtest.h>

#include <algorithm>
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

/// Defines names and cuts texts in turns.
class Substitution {
public:
    void define(const std::string& name) {
        const TextSpan span = program_.text.add(name);
        defines_.table().enter(
            program_.text.view(span), DefineTable::Kind::define,
            defines_.storePreserved(TokenType::NUMBER_DEFINE, {span, program_.text.add("1")}));
    }
    void undefine(const std::string& name) {
        defines_.table().enter(program_.text.view(program_.text.add(name)),
                               DefineTable::Kind::undefined);
    }
    /// The text with every name in it as <name>.
    std::string cut(const std::string& text) {
        const TextSpan span = program_.text.add(text);
        SubstitutedText cut;
        if (!defines_.substitute(span, cut)) {
            cut.addPlain(span);
        }
        std::string result;
        defines_.visitPieces(cut.pieces, [&](const Piece& piece) {
            if (piece.kind == Piece::Kind::token) {
                result += "<" + std::string(program_.textOf(piece.token)) + ">";
            } else {
                result += program_.text.view(piece.text);
            }
        });
        return result;
    }

private:
    Program program_;
    Defines defines_{program_, predefinedConstants()};
};

std::string substituted(const std::string& text, const std::set<std::string>& names) {
    Substitution substitution;
    for (const std::string& name : names) {
        substitution.define(name);
    }
    return substitution.cut(text);
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

TEST(LongNames, AShorterOneThatTheLongestBeginsWith) {
    const std::string shorter = repeated("a+", 40) + "b";
    const std::string longer = shorter + repeated("+c", 40);
    EXPECT_EQ(substituted(longer, {shorter, longer}), "<" + longer + ">");
    EXPECT_EQ(substituted(shorter + repeated("+c", 39), {shorter, longer}),
              "<" + shorter + ">" + repeated("+c", 39));
    // No cut: the longer name's last letter goes on.
    EXPECT_EQ(substituted(longer + "c", {shorter, longer}),
              "<" + shorter + ">" + repeated("+c", 39) + "+cc");
    Substitution substitution;
    substitution.define(shorter);
    substitution.define(longer);
    substitution.undefine(longer);
    EXPECT_EQ(substitution.cut(longer), "<" + shorter + ">" + repeated("+c", 40));
}

TEST(LongNames, EnteredOneByOneBetweenTexts) {
    Substitution substitution;
    std::string text = repeated("a+", 150) + "a";
    // The longest that is known so far, of names that come in an order of their own.
    std::size_t longest = 0;
    for (const std::size_t length : {70U, 40U, 90U, 80U, 35U, 149U, 120U, 32U, 100U}) {
        substitution.define(repeated("a+", length) + "a");
        longest = std::max(longest, length);
        const std::string name = repeated("a+", longest) + "a";
        const std::string cut = substitution.cut(text);
        EXPECT_TRUE(cut.starts_with("<" + name + ">")) << cut;
    }
}

/// The sequence of Thue and Morse: 2^`order` characters. It and its complement have one hash when they are long.
std::string thueMorse(unsigned order, char zero, char one) {
    std::string text(1, zero);
    for (unsigned i = 0; i < order; ++i) {
        std::string complement = text;
        for (char& c : complement) {
            c = c == zero ? one : zero;
        }
        text += complement;
    }
    return text;
}

TEST(LongNames, WhoseHashesAreEqual) {
    const std::string name = thueMorse(11, 'a', '+');
    const std::string complement = thueMorse(11, '+', 'a');
    const std::string beginning = complement.substr(0, 69);
    ASSERT_TRUE(isCut(complement[68], complement[69]));
    EXPECT_EQ(substituted(complement, {name}), complement);
    EXPECT_EQ(substituted(complement, {name, beginning}), marked(complement, {name, beginning}));
    EXPECT_EQ(substituted(complement + "/" + name, {name, complement, beginning}),
              "<" + complement + ">/<" + name + ">");
}

TEST(LongNames, AsThePlainRuleSays) {
    std::mt19937 random(7);
    const std::string alphabet = "ab1+$";
    const auto letters = [&](std::size_t length, std::size_t kinds) {
        std::string text;
        while (text.size() < length) {
            // Few letters and long repeats, so that names overlap and begin alike.
            text += std::string(1 + random() % 3, alphabet[random() % kinds]);
        }
        text.resize(length);
        return text;
    };
    std::size_t found = 0;
    for (int round = 0; round < 90; ++round) {
        const std::size_t kinds = round % 3 == 0 ? 1 : alphabet.size();
        const std::string source = kinds == 1 ? repeated("a+", 150) : letters(300, kinds);
        const std::string text = source + " " + letters(40, 5) + source.substr(100, 150);
        std::set<std::string> names;
        Substitution substitution;
        while (names.size() < 12) {
            const std::size_t length = random() % 3 == 0 ? 1 + random() % 5 : 60 + random() % 60;
            const std::string name = source.substr(random() % (source.size() - length), length);
            names.insert(name);
            substitution.define(name);
            if (names.size() % 3 == 0) {
                const std::string expected = marked(text, names);
                ASSERT_EQ(substitution.cut(text), expected) << "round " << round;
                found += expected.find('<') != std::string::npos ? 1 : 0;
            }
        }
    }
    EXPECT_GT(found, 250U);
}

}  // namespace

}  // namespace torvel
