#include <algorithm>

#include "fuzz/families.h"
#include "fuzz/target.h"
#include "fuzz/words.h"
#include "src/base/characters.h"

namespace torvel::fuzz {

namespace {

std::vector<std::string> joined(std::vector<std::string> a, const std::vector<std::string>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

const std::vector<std::string> parameterWords = {"<Parameters>",
                                                 "</Parameters>",
                                                 "<Axes>",
                                                 "</Axes>",
                                                 "<Axis>",
                                                 "</Axis>",
                                                 "<P n=\"AxisName\">",
                                                 "<P id=\"1\" n=\"AxisName\">",
                                                 "</P>",
                                                 "<P n=\"Other\"/>",
                                                 "<Axis/>",
                                                 "<Axes/>",
                                                 "X",
                                                 "Y1",
                                                 "&lt;",
                                                 "<?xml version=\"1.0\"?>",
                                                 "<!-- note -->",
                                                 "<![CDATA[X]]>",
                                                 "\n",
                                                 "\"",
                                                 "<",
                                                 ">",
                                                 "/"};

const std::vector<std::string> expressionWords = {
    "SQRT(",       "EXP(",     "FRAC(", "COS(",    "CEIL(",  "INT(",       "STRTODBL(",
    "STRTOASCII(", "STRCHAR(", "-(",    "((",      "))",     "[(",         ")]",
    "**-",         "@(",       "$v[",   "\"a\" +", "NORMAL", "PERFORMANCE"};

std::string upperCased(std::string_view text) {
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(), upperCase);
    return upper;
}

std::vector<Target> makeTargets() {
    std::vector<std::string> allLeads;
    for (const Family& family : statementFamilies()) {
        allLeads.insert(allLeads.end(), family.leads.begin(), family.leads.end());
    }
    std::vector<Target> made = {
        {"conversion", checkConversion, joined(allLeads, directiveWords()), directiveWords()},
        {"line-splitter", checkLineSplitter, {}, directiveWords()},
        {"lexer", checkLexer, {}, {"axes X1 Y2 E1 SIN", "\"", "#", "_", "&H", "0x", "XF", "Xf1"}},
        {"define-table", checkDefineTable, {}, {}, false},
        {"substitution",
         checkSubstitution,
         {"#define A ", "#define $a ", "#define A1 ", "#undef A"},
         directiveWords()},
        {"classification",
         checkClassification,
         {},
         {"$GLOB", "$STRGLOB1", "[", "]", "0x", ".", "\""}},
        {"expressions", checkExpressions, {"", "(", "-"}, expressionWords},
        {"parameter-file", checkParameterFile, {}, parameterWords},
    };
    for (const Family& family : statementFamilies()) {
        made.push_back({family.name, checkStatements, family.leads, family.words});
    }
    for (Target& target : made) {
        for (const std::string& lead : target.leads) {
            target.marks.push_back(upperCased(lead));
        }
    }
    return made;
}

}  // namespace

const std::vector<Target>& targets() {
    static const std::vector<Target> all = makeTargets();
    return all;
}

const Target* findTarget(std::string_view name) {
    for (const Target& target : targets()) {
        if (target.name == name) {
            return &target;
        }
    }
    return nullptr;
}

Limits lowLimits() {
    Limits limits;
    limits.includeDepth = 6;
    limits.includedFiles = 24;
    limits.defineExpansion = 2048;
    limits.composedValue = 64;
    limits.lineExpansion = 2048;
    limits.programText = std::uint64_t{1} << 16U;
    limits.expressionNesting = 64;
    return limits;
}

bool isOfTarget(const Target& target, std::string_view line) {
    const std::string upper = upperCased(line);
    return target.marks.empty() ||
           std::any_of(target.marks.begin(), target.marks.end(), [&](const std::string& mark) {
               return upper.find(mark) != std::string::npos;
           });
}

}  // namespace torvel::fuzz
