// What holds for every merge, tried with random texts, and the same merge by git.

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <map>
#include <random>
#include <ranges>

#include "src/migrate/line-changes.h"
#include "src/migrate/merge.h"
#include "src/migrate/text-lines.h"
#include "tests/migrate/other-program.h"
#include "tests/support/temporary-directory.h"

namespace torvel::migrate::test {

namespace {

using Lines = std::vector<std::string>;

class Random {
public:
    explicit Random(unsigned seed) : engine_(seed) {}
    std::size_t below(std::size_t bound) { return engine_() % bound; }

private:
    std::mt19937 engine_;
};

std::string textOf(const Lines& lines) {
    std::string text;
    for (const std::string& line : lines) {
        text += line + '\n';
    }
    return text;
}

Lines linesIn(std::string_view text) {
    Lines lines;
    for (const TextLine& line : linesOf(text)) {
        lines.emplace_back(line.text);
    }
    return lines;
}

/// Lines that repeat, as those of programs do.
Lines repeatingLines(Random& random) {
    constexpr std::array words{"", "end", "G1 X1", "\t#error_unconvertible (a.pgm:1): PROBE", "}"};
    Lines lines(random.below(16));
    for (std::string& line : lines) {
        line = words[random.below(words.size())];
    }
    return lines;
}

Lines distinctLines(std::size_t count) {
    Lines lines;
    for (std::size_t i = 0; i < count; ++i) {
        lines.push_back("base " + std::to_string(i));
    }
    return lines;
}

/// Takes lines away and adds some that only this side has, whose names begin with `name`. Seldom a line that both
/// sides may have.
Lines changed(const Lines& lines, const std::string& name, Random& random) {
    Lines result;
    const std::size_t rarity = 2 + random.below(12);
    for (std::size_t i = 0; i <= lines.size(); ++i) {
        if (random.below(rarity) == 0) {
            result.push_back(name + " adds in front of " + std::to_string(i));
        } else if (random.below(rarity) == 0) {
            result.push_back("both add in front of " + std::to_string(i));
        }
        if (i < lines.size() && random.below(rarity) != 0) {
            result.push_back(lines[i]);
        }
    }
    return result;
}

std::map<std::string, std::size_t> countsOf(const Lines& lines) {
    std::map<std::string, std::size_t> counts;
    for (const std::string& line : lines) {
        ++counts[line];
    }
    return counts;
}

/// git's merge, or nothing where there is no git.
std::optional<std::string> mergeByGit(const Lines& base, const Lines& edited,
                                      const Lines& generated) {
    const torvel::test::TemporaryDirectory folder;
    torvel::test::writeFile(folder.path() / "base", textOf(base));
    torvel::test::writeFile(folder.path() / "edited", textOf(edited));
    torvel::test::writeFile(folder.path() / "generated", textOf(generated));
    const std::string command = "cd '" + folder.path().string() +
                                "' && git merge-file -p --diff3 -L edited -L 'last generated' -L "
                                "'newly generated' edited base generated";
    std::FILE* pipe = popen(command.c_str(), "r");
    if (pipe == nullptr) {
        return std::nullopt;
    }
    std::string text;
    std::array<char, 4096> buffer{};
    while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe)) {
        text.append(buffer.data(), count);
    }
    // The number of conflicts; 127: no such program.
    const int status = pclose(pipe) / 256;
    return status < 127 ? std::optional(text) : std::nullopt;
}

}  // namespace

TEST(MergeProperties, EqualSidesGiveThatSide) {
    Random random(1);
    for (int i = 0; i < 2000; ++i) {
        const std::string base = textOf(repeatingLines(random));
        const std::string side = textOf(repeatingLines(random));
        for (const std::string& text : {side, side.substr(0, side.size() - !side.empty())}) {
            EXPECT_EQ(mergeByLines(base, text, text).text, text);
            EXPECT_EQ(mergeByLines(base, text, base).text, text);
        }
        EXPECT_EQ(mergeByLines(base, base, side).text, side);
    }
}

TEST(MergeProperties, NoLineThatASideAddedIsLost) {
    Random random(2);
    std::size_t conflicts = 0;
    for (int i = 0; i < 4000; ++i) {
        const Lines base = i % 2 == 0 ? repeatingLines(random) : distinctLines(random.below(30));
        const Lines edited = changed(base, "edited", random);
        const Lines generated = changed(base, "generated", random);
        const MergedText merged = mergeByLines(textOf(base), textOf(edited), textOf(generated));
        conflicts += merged.hasConflicts ? 1 : 0;
        auto found = countsOf(linesIn(merged.text));
        const auto bases = countsOf(base);
        for (const Lines* side : {&edited, &generated}) {
            for (const auto& [line, count] : countsOf(*side)) {
                const auto old = bases.find(line);
                if (old == bases.end()) {
                    EXPECT_GE(found[line], 1U) << line << " in\n" << merged.text;
                }
            }
        }
    }
    EXPECT_GT(conflicts, 1000U);
    EXPECT_LT(conflicts, 3500U);
}

TEST(MergeProperties, WithoutConflictTheChangesAddUp) {
    Random random(3);
    std::size_t withoutConflict = 0;
    for (int i = 0; i < 4000; ++i) {
        const Lines base = repeatingLines(random);
        Lines edited = changed(base, "edited", random);
        Lines generated = changed(base, "generated", random);
        const auto isShared = [](const std::string& line) { return line.starts_with("both"); };
        std::erase_if(edited, isShared);
        std::erase_if(generated, isShared);
        const MergedText merged = mergeByLines(textOf(base), textOf(edited), textOf(generated));
        if (merged.hasConflicts) {
            continue;
        }
        ++withoutConflict;
        auto found = countsOf(linesIn(merged.text));
        auto bases = countsOf(base);
        auto editeds = countsOf(edited);
        auto generateds = countsOf(generated);
        auto all = base;
        all.insert(all.end(), edited.begin(), edited.end());
        all.insert(all.end(), generated.begin(), generated.end());
        for (const std::string& line : all) {
            // What both took away or both added is counted once, so it may be more than the sum says.
            EXPECT_GE(found[line] + bases[line], editeds[line] + generateds[line]) << line;
            EXPECT_LE(found[line], std::max({bases[line], editeds[line], generateds[line]}) +
                                       std::min(editeds[line], generateds[line]))
                << line;
        }
    }
    EXPECT_GT(withoutConflict, 500U);
}

TEST(MergeProperties, AnEditOfLinesThatTheConverterLeftSurvives) {
    Random random(4);
    for (int i = 0; i < 2000; ++i) {
        const Lines base = distinctLines(20 + random.below(20));
        // The converter changes the first part, the person the last one; a line between them stays.
        const auto between = static_cast<std::ptrdiff_t>(1 + random.below(base.size() - 1));
        const Lines head(base.begin(), base.begin() + between);
        const Lines tail(base.begin() + between + 1, base.end());
        const Lines middle(1, base[static_cast<std::size_t>(between)]);
        const Lines newHead = changed(head, "generated", random);
        const Lines newTail = changed(tail, "edited", random);
        const auto join = [&](const Lines& first, const Lines& last) {
            return textOf(first) + textOf(middle) + textOf(last);
        };
        const bool editsTail = random.below(2) == 0;
        const MergedText merged =
            editsTail ? mergeByLines(textOf(base), join(head, newTail), join(newHead, tail))
                      : mergeByLines(textOf(base), join(newHead, tail), join(head, newTail));
        EXPECT_FALSE(merged.hasConflicts);
        EXPECT_EQ(merged.text, join(newHead, newTail));
    }
}

TEST(MergeProperties, MergesAsGitDoes) {
    Random random(5);
    std::size_t conflicts = 0;
    for (int i = 0; i < 150; ++i) {
        const Lines base = distinctLines(random.below(40));
        const Lines edited = changed(base, "edited", random);
        const Lines generated = changed(base, "generated", random);
        const std::optional<std::string> expected = mergeByGit(base, edited, generated);
        if (!expected) {
            TORVEL_TEST_NEEDS("git");
        }
        const MergedText merged = mergeByLines(textOf(base), textOf(edited), textOf(generated));
        EXPECT_EQ(merged.text, *expected);
        conflicts += merged.hasConflicts ? 1 : 0;
    }
    EXPECT_GT(conflicts, 50U);
    EXPECT_LT(conflicts, 145U);
}

TEST(LineChangeProperties, TheyMakeTheNewLinesOfTheOld) {
    Random random(6);
    for (int i = 0; i < 3000; ++i) {
        std::vector<std::uint32_t> before(random.below(40));
        std::vector<std::uint32_t> after(random.below(40));
        for (auto* side : {&before, &after}) {
            std::ranges::generate(*side, [&] { return std::uint32_t(random.below(6)); });
        }
        std::size_t x = 0;
        std::size_t y = 0;
        for (const LineChange& change : changesBetween(before, after)) {
            ASSERT_TRUE(x == 0 || change.oldBegin > x);
            ASSERT_EQ(change.oldBegin - x, change.newBegin - y);
            for (; x < change.oldBegin; ++x, ++y) {
                ASSERT_EQ(before[x], after[y]);
            }
            ASSERT_TRUE(change.oldEnd > x || change.newEnd > y);
            x = change.oldEnd;
            y = change.newEnd;
        }
        ASSERT_EQ(before.size() - x, after.size() - y);
        for (; x < before.size(); ++x, ++y) {
            ASSERT_EQ(before[x], after[y]);
        }
    }
}

TEST(LineChangeProperties, TheLongestCommonPartIsFound) {
    Random random(7);
    for (int i = 0; i < 1000; ++i) {
        std::vector<std::uint32_t> before(random.below(20));
        std::vector<std::uint32_t> after(random.below(20));
        for (auto* side : {&before, &after}) {
            std::ranges::generate(*side, [&] { return std::uint32_t(random.below(4)); });
        }
        std::vector<std::vector<std::size_t>> longest(before.size() + 1,
                                                      std::vector<std::size_t>(after.size() + 1));
        for (std::size_t x = 0; x < before.size(); ++x) {
            for (std::size_t y = 0; y < after.size(); ++y) {
                longest[x + 1][y + 1] = before[x] == after[y]
                                            ? longest[x][y] + 1
                                            : std::max(longest[x][y + 1], longest[x + 1][y]);
            }
        }
        std::size_t removed = 0;
        for (const LineChange& change : changesBetween(before, after)) {
            removed += change.oldEnd - change.oldBegin;
        }
        EXPECT_EQ(before.size() - removed, longest.back().back());
    }
}

TEST(LineChangeProperties, LargeAndVeryDifferentTexts) {
    // Few different lines in random order: nothing can be left out, and no way is short.
    Random random(8);
    const auto make = [&](std::size_t count) {
        std::vector<std::uint32_t> side(count);
        std::ranges::generate(side, [&] { return std::uint32_t(random.below(50)); });
        return side;
    };
    for (const auto& [old, young] : {std::pair(6'000, 6'000), {20'000, 1'000}, {1'000, 20'000}}) {
        const std::vector<std::uint32_t> before = make(old);
        const std::vector<std::uint32_t> after = make(young);
        const std::vector<LineChange> changes = changesBetween(before, after);
        std::size_t x = 0;
        std::size_t y = 0;
        for (const LineChange& change : changes) {
            ASSERT_TRUE(std::equal(before.begin() + x, before.begin() + change.oldBegin,
                                   after.begin() + y, after.begin() + change.newBegin));
            x = change.oldEnd;
            y = change.newEnd;
        }
        EXPECT_TRUE(std::equal(before.begin() + x, before.end(), after.begin() + y, after.end()));
        EXPECT_GT(changes.size(), 100U);
    }
    // Beyond what is compared: the part between what is equal at the ends is one change.
    std::vector<std::uint32_t> before = make(mostComparedLines / 2 + 9);
    std::vector<std::uint32_t> after = make(mostComparedLines / 2 + 9);
    before.front() = after.front() = before.back() = after.back() = 99;
    before[1] = before[before.size() - 2] = 7;
    after[1] = after[after.size() - 2] = 8;
    const LineChange whole{1, before.size() - 1, 1, after.size() - 1};
    // 7 and 8 are on both sides, so that nothing is left out.
    EXPECT_EQ(changesBetween(before, after), std::vector{whole});
}

}  // namespace torvel::migrate::test
