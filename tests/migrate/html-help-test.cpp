// What the report page shows of an entry of the documentation has the forms that it knows.

#include "src/migrate/html-help.h"

#include <gtest/gtest.h>

#include "src/migrate/explanations.h"

namespace torvel::migrate::test {

namespace {

/// Takes paired signs out of a line, with what stands between them.
std::string without(std::string line, const std::string& sign) {
    for (std::size_t begin = line.find(sign); begin != std::string::npos; begin = line.find(sign)) {
        const std::size_t end = line.find(sign, begin + sign.size());
        if (end == std::string::npos) {
            return line;
        }
        line.erase(begin, end + sign.size() - begin);
    }
    return line;
}

/// What is wrong with a line outside of examples; empty: nothing.
std::string faultOf(const std::string& line) {
    for (const char* begin : {"#", "|", ">", "<", "1.", "    "}) {
        if (line.starts_with(begin)) {
            return "begins with " + std::string(begin);
        }
    }
    const std::string text = without(without(line, "`"), "**");
    if (line.find("``") != std::string::npos || text.find('`') != std::string::npos) {
        return "has code that does not end, or of two signs";
    }
    if (text.find("](") != std::string::npos || text.find("**") != std::string::npos) {
        return "has a link, or bold text that does not end";
    }
    return {};
}

}  // namespace

TEST(HtmlHelp, EmphasisBecomesBold) {
    EXPECT_EQ(helpOfPage("*moves*. What"), "**moves**. What");
    EXPECT_EQ(helpOfPage("a *b c* and *d*"), "a **b c** and **d**");
    EXPECT_EQ(helpOfPage("**bold** stays, 2 * $v and 2 * 3 too"),
              "**bold** stays, 2 * $v and 2 * 3 too");
    EXPECT_EQ(helpOfPage("`*a*` is code, `a` *b* `c*d` e*"), "`*a*` is code, `a` **b** `c*d` e*");
    EXPECT_EQ(helpOfPage("```brannic\n$a = *b*\n```\n*c*\n"), "```brannic\n$a = *b*\n```\n**c**");
}

TEST(HtmlHelp, TablesBecomeLists) {
    EXPECT_EQ(helpOfPage("Before:\n\n| number | what |\n|---|---|\n| 26 | the `0x1A` *mark* |\n"
                         "| -1, -2 | other |\n\nBehind.\n\n```\n| no | table |\n```"),
              "Before:\n\n- 26 – the `0x1A` **mark**\n- -1, -2 – other\n\nBehind.\n\n"
              "```\n| no | table |\n```");
}

TEST(HtmlHelp, EveryEntryHasKnownForms) {
    ASSERT_GT(explanations().size(), 200U);
    for (const auto& [code, explanation] : explanations()) {
        std::string help = helpOfPage(explanation.body) + '\n';
        bool isInExample = false;
        for (std::size_t end = help.find('\n'); end != std::string::npos; end = help.find('\n')) {
            const std::string line = help.substr(0, end);
            help.erase(0, end + 1);
            if (line.starts_with("```")) {
                isInExample = !isInExample;
            } else if (!isInExample) {
                EXPECT_EQ(faultOf(line), "") << code << ": " << line;
            }
        }
        EXPECT_FALSE(isInExample) << code;
    }
}

}  // namespace torvel::migrate::test
