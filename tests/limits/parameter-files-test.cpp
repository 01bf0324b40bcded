// Parameter files that are large, hostile or odd: each gives axis names or a message.

#include "src/app/parameter-file.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "src/app/command.h"
#include "tests/limits/conversions.h"
#include "tests/support/case-run.h"
#include "tests/support/temporary-directory.h"

namespace torvel::test {

namespace {

const std::string notLoaded = "Failed to load or parse the parameter file.";
const std::string malformed = "Malformed parameter file.";

struct Loaded {
    AxisNames axes;
    std::string message;
};

Loaded load(const std::string& content) {
    const TemporaryDirectory directory;
    const std::string path = (directory.path() / "axes.xml").string();
    writeFile(path, content);
    Loaded loaded;
    try {
        loaded.axes = loadParameterFile(path);
    } catch (const std::runtime_error& error) {
        loaded.message = error.what();
    }
    EXPECT_EQ(readFile(path), content);
    return loaded;
}

std::string axis(const std::string& name) {
    return "<Axis><P n=\"AxisName\">" + name + "</P></Axis>";
}

/// A parameter file with axes, `front` before its root and `inside` before `Parameters`.
std::string file(const std::string& axes, const std::string& front = "",
                 const std::string& inside = "") {
    return front + "<M>" + inside + "<Parameters><Axes>" + axes + "</Axes></Parameters></M>";
}

/// What a program with these axes is converted to.
Outcome convertWith(const std::string& content, const std::string& program) {
    Case test;
    test.arguments = {"-p", "axes.xml", "-o", "out", "main.pgm"};
    test.files = {{"axes.xml", content}, {"main.pgm", program}};
    return runCase(test, test.files, runCommand);
}

TEST(ParameterFiles, TheSameNameTwice) {
    const Loaded loaded = load(file(axis("X") + axis("Y") + axis("X")));
    EXPECT_EQ(loaded.message, "");
    EXPECT_EQ(loaded.axes.axisIndex("X"), 2U);
    EXPECT_EQ(loaded.axes.axisIndex("Y"), 1U);
}

TEST(ParameterFiles, WhiteSpaceAroundNames) {
    const Loaded loaded =
        load(file(axis("\n\t X1 \r\n") + axis(" &#9;&#10;&#13;&#32;Y&#9; ") + axis("A B ")));
    EXPECT_EQ(loaded.message, "");
    EXPECT_EQ(loaded.axes.names(), (std::vector<std::string>{"X1", "Y", "A B"}));
    EXPECT_EQ(load(file(axis(std::string(300, ' ') + std::string(255, 'Q') + '\n'))).message, "");
    EXPECT_EQ(load(file(axis(' ' + std::string(256, 'Q')))).message, malformed);
}

TEST(ParameterFiles, EmptyNames) {
    const Loaded loaded = load(file(axis("X") + axis("") + axis(" \t\r\n") + axis("Y")));
    EXPECT_EQ(loaded.axes.names(), (std::vector<std::string>{"X", "", "", "Y"}));
    EXPECT_EQ(loaded.axes.axisIndex("Y"), 3U);
    EXPECT_FALSE(loaded.axes.contains(""));
    EXPECT_FALSE(loaded.axes.contains(" "));
}

TEST(ParameterFiles, NamesThatNoWordCanBe) {
    const std::string content = file(axis("") + axis("MOVEINC") + axis("12") + axis("$v") +
                                     axis("A B") + axis("\"") + axis("Theta") + axis("&lt;"));
    const Outcome outcome = convertWith(content, "MOVEINC Theta 12 5\n$v = 12\nHOME Theta\n\n");
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.output.value_or(""),
              "MoveIncremental(Theta, 12, 5)\n$v = 12\nHome(Theta)\n\n\n");
}

TEST(ParameterFiles, VeryManyAxes) {
    constexpr int count = 100'000;
    std::string axes;
    for (int i = 0; i < count; ++i) {
        axes += axis("spindle" + std::to_string(i));
    }
    const Loaded loaded = load(file(axes));
    EXPECT_EQ(loaded.message, "");
    for (const int i : {0, 1, count / 2, count - 1}) {
        EXPECT_EQ(loaded.axes.axisIndex("spindle" + std::to_string(i)), static_cast<unsigned>(i));
    }
    EXPECT_FALSE(loaded.axes.contains("spindle" + std::to_string(count)));
    EXPECT_EQ(convertWith(file(axes), "HOME spindle99999\n").output.value_or(""),
              "Home(spindle99999)\n\n");
}

TEST(ParameterFiles, VeryManyElements) {
    const Loaded loaded = load(file(axis("X"), "", repeated("<Q/>", 300'000)));
    EXPECT_EQ(loaded.message, "");
    EXPECT_TRUE(loaded.axes.contains("X"));
}

TEST(ParameterFiles, LongestName) {
    const Loaded within = load(file(axis(std::string(255, 'Q'))));
    EXPECT_EQ(within.message, "");
    EXPECT_TRUE(within.axes.contains(std::string(255, 'Q')));
    EXPECT_EQ(load(file(axis(std::string(256, 'Q')))).message, malformed);
    EXPECT_EQ(load(file(axis(std::string(5'000'000, 'Q')))).message, malformed);
}

/// At each place of the line a long name could begin that does not end as it should.
TEST(ParameterFiles, LongNamesInALongLine) {
    const std::string name = repeated("A1", 127) + "B";
    const std::string line = "$x = " + repeated("A1", 50'000);
    const Outcome outcome = convertWith(file(axis("A") + axis(name)),
                                        "HOME " + name + "\nHOME A " + name + "\n" + line);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(firstDifference("Home(" + name + ")\nHome([A, " + name +
                                  "])\n#error_unconvertible (main.pgm:3): " + line + '\n',
                              outcome.output.value_or("")),
              "");
    EXPECT_EQ(outcome.log, "main.pgm:3: Unexpected axis name seen.\n\n");
}

std::string withAttributes(int count) {
    std::string element = "<Q";
    for (int i = 0; i < count; ++i) {
        element += " a" + std::to_string(i) + "='='";
    }
    return element + "/>";
}

TEST(ParameterFiles, MostAttributes) {
    EXPECT_EQ(load(file(axis("X"), "", withAttributes(1000))).message, "");
    EXPECT_EQ(load(file(axis("X"), "", withAttributes(1001))).message, notLoaded);
    EXPECT_EQ(load(file(axis("X"), "", withAttributes(500'000))).message, notLoaded);
    // What looks like attributes and is none.
    EXPECT_EQ(load(file(axis("X"), "", "<!-- " + withAttributes(2000) + " -->")).message, "");
    EXPECT_EQ(load(file(axis("X"), "", "<![CDATA[" + withAttributes(2000) + "]]>")).message, "");
}

TEST(ParameterFiles, ElementsInEachOther) {
    const auto nested = [](std::size_t depth) {
        return file(axis("X"), "", repeated("<Q>", depth) + repeated("</Q>", depth));
    };
    EXPECT_EQ(load(nested(50)).message, "");
    EXPECT_EQ(load(nested(1'000)).message, notLoaded);
    EXPECT_EQ(load(nested(1'000'000)).message, notLoaded);
}

TEST(ParameterFiles, MarkupWithoutEnd) {
    for (const std::string part : {"<", "<Q>", "<Q ", "<Q a", "<Q a=", "<Q a='", "<!--",
                                   "<![CDATA[", "<?", "<!", "</", "&", "&#", "\""}) {
        SCOPED_TRACE(part);
        const std::string message = load(repeated(part, 200'000)).message;
        EXPECT_TRUE(message == notLoaded || message == malformed) << message;
        EXPECT_EQ(load("<M>" + repeated(part, 200'000)).message, notLoaded);
    }
}

// Entities are not expanded, and nothing is fetched.

TEST(ParameterFiles, EntitiesThatMultiply) {
    std::string definitions = "<!ENTITY e0 \"XXXXXXXXXX\">";
    for (int i = 1; i < 20; ++i) {
        definitions += "<!ENTITY e" + std::to_string(i) + " \"" +
                       repeated("&e" + std::to_string(i - 1) + ";", 10) + "\">";
    }
    const std::string front = "<?xml version=\"1.0\"?><!DOCTYPE M [" + definitions + "]>";
    const Loaded loaded = load(file(axis("&e19;") + axis("X"), front));
    EXPECT_LE(loaded.axes.longestName(), 5U);
    EXPECT_TRUE(loaded.message.empty() || loaded.message == notLoaded) << loaded.message;
}

TEST(ParameterFiles, EntityOfAnotherFile) {
    const TemporaryDirectory directory;
    writeFile(directory.path() / "secret.txt", "SECRET");
    const std::string entity =
        "<!DOCTYPE M SYSTEM \"" + (directory.path() / "secret.txt").string() + "\">";
    const Loaded loaded = load(file(axis("&e;"), entity));
    EXPECT_EQ(loaded.message, "");
    EXPECT_TRUE(loaded.axes.contains("&e;"));
    EXPECT_FALSE(loaded.axes.contains("SECRET"));
}

TEST(ParameterFiles, CharacterReferences) {
    const Loaded loaded = load(file(axis("A&#66;") + axis("A&#x43;") + axis("D&amp;") +
                                    axis("E&none;") + axis("&#xffffffffff;") + axis("&#;")));
    EXPECT_EQ(loaded.message, "");
    for (const char* name : {"AB", "AC", "D&", "E&none;"}) {
        EXPECT_TRUE(loaded.axes.contains(name)) << name;
    }
}

// Encodings: names are bytes, as programs are.

TEST(ParameterFiles, Encodings) {
    EXPECT_TRUE(load("\xEF\xBB\xBF" + file(axis("X"))).axes.contains("X"));
    const std::string declaration = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>";
    EXPECT_TRUE(load(file(axis("\xC4"
                               "chse"),
                          declaration))
                    .axes.contains("\xC4"
                                   "chse"));

    const std::string content = file(axis("X"));
    std::string lowFirst = "\xFF\xFE";
    std::string highFirst = "\xFE\xFF";
    for (const char c : content) {
        lowFirst += {c, '\0'};
        highFirst += {'\0', c};
    }
    EXPECT_EQ(load(lowFirst).message, notLoaded);
    EXPECT_EQ(load(highFirst).message, notLoaded);
    EXPECT_EQ(load(lowFirst.substr(2)).message, notLoaded);
}

TEST(ParameterFiles, NulCharacters) {
    std::string content = file(axis("X"));
    content[content.find('X')] = '\0';
    EXPECT_EQ(load(content).message, notLoaded);
    EXPECT_EQ(load(std::string(1000, '\0')).message, notLoaded);
}

/// Every byte in the place of every byte of a small file.
TEST(ParameterFiles, EveryByteEverywhere) {
    const std::string content = file(axis("X"));
    for (std::size_t at = 0; at < content.size(); at += 5) {
        for (int value = 0; value < 256; value += 3) {
            std::string changed = content;
            changed[at] = static_cast<char>(value);
            const std::string message = load(changed).message;
            EXPECT_TRUE(message.empty() || message == notLoaded || message == malformed) << message;
        }
    }
    for (std::size_t length = 0; length < content.size(); ++length) {
        EXPECT_EQ(load(content.substr(0, length)).message, notLoaded) << length;
    }
}

}  // namespace

}  // namespace torvel::test
