#include "fuzz/words.h"

#include "src/lex/keywords.h"

namespace torvel::fuzz {

namespace {

constexpr std::string_view spellings[] = {
#define UNSPELLED(enumerator, spelling)
#define KEYWORD(enumerator, spelling) spelling,
#define DIRECTIVE(enumerator, spelling) spelling,
#include "src/base/token-kinds.def"
#define SPELLING(spelling, kind) spelling,
#include "src/lex/keyword-spellings.def"
};

struct Example {
    TokenType kind;
    std::string_view word;
};

constexpr Example examples[] = {
    {TokenType::AXIS_DEFINE, "AXD"},
    {TokenType::NUMBER_DEFINE, "NUMD"},
    {TokenType::STRING_DEFINE, "STRD"},
    {TokenType::PROGRAM_VARIABLE_DEFINE, "VARD"},
    {TokenType::GLOBAL_VARIABLE_DEFINE, "GLOBD"},
    {TokenType::GLOBAL_STRING_DEFINE, "GSTRD"},
    {TokenType::INTEGER_LITERAL, "1"},
    {TokenType::HEX_LITERAL, "0x1F"},
    {TokenType::FLOAT_LITERAL, "1.5"},
    {TokenType::STRING_LITERAL, "\"text\""},
    {TokenType::IDENTIFIER, "name"},
    {TokenType::VARIABLE, "$v"},
    {TokenType::GLOBAL_VARIABLE, "$GLOBAL[1]"},
    {TokenType::TASK_VARIABLE, "$TASK[1]"},
    {TokenType::INFO_VARIABLE, "$INFO[1]"},
    {TokenType::RETURN_VARIABLE, "$RETURN"},
    {TokenType::STRGLOB_VARIABLE, "$STRGLOB[1]"},
    {TokenType::STRTASK_VARIABLE, "$STRTASK[1]"},
    {TokenType::APTGLOB_VARIABLE, "$APTGLOB[1]"},
    {TokenType::APTTASK_VARIABLE, "$APTTASK[1]"},
    {TokenType::BO_VARIABLE, "$BO[1]"},
    {TokenType::BI_VARIABLE, "$BI[1]"},
    {TokenType::RO_VARIABLE, "$RO[1]"},
    {TokenType::RI_VARIABLE, "$RI[1]"},
    {TokenType::DO_VARIABLE, "$DO[1].X"},
    {TokenType::DI_VARIABLE, "$DI[1].X"},
    {TokenType::WO_VARIABLE, "$WO[1]"},
    {TokenType::WI_VARIABLE, "$WI[1]"},
    {TokenType::AO_VARIABLE, "$AO[1].X"},
    {TokenType::AI_VARIABLE, "$AI[1].X"},
    {TokenType::PORT_VARIABLE, "$PORT[1]"},
    {TokenType::TASKINDEX_VARIABLE, "$TASKINDEX"},
    {TokenType::SYSTEM_PARAMETER, "$PGLOBAL[1]"},
    {TokenType::AXIS_PARAMETER, "$PAXIS[1].X"},
    {TokenType::TASK_PARAMETER, "$PTASK[1].2"},
    {TokenType::AXISSTATUS_VARIABLE, "$AXISSTATUS[1].X"},
    {TokenType::TASKSTATUS_VARIABLE, "$TASKSTATUS[1].2"},
    {TokenType::SYSTEMSTATUS_VARIABLE, "$SYSTEMSTATUS[1]"},
    {TokenType::AXIS_NAME, "X"},
    {TokenType::AXIS_FEEDRATE, "XF"},
    {TokenType::GCODE_WORD, "G1"},
};

constexpr std::string_view numbers[] = {"0",           "1",
                                        "2",           "3",
                                        "10",          "100",
                                        "256",         "1001",
                                        "1032",        "010",
                                        "08",          "0x",
                                        "0x10",        "0hFF",
                                        "&h7",         "1.",
                                        ".5",          "0.25",
                                        "1e5",         "-1",
                                        "2147483647",  "2147483648",
                                        "-2147483648", "4294967296",
                                        "99999",       "1.7976931348623157"};

constexpr std::string_view operands[] = {"X",
                                         "Y",
                                         "Z",
                                         "U",
                                         "x",
                                         "XX",
                                         "X Y",
                                         "X10",
                                         "XF100",
                                         "@1",
                                         "@(1)",
                                         "@$v",
                                         "$v",
                                         "$pos1",
                                         "$GLOB3",
                                         "$STRGLOB2",
                                         "$DO1.X",
                                         "$v[1]",
                                         "$v.DEFINED",
                                         "\"\"",
                                         "\"a b\"",
                                         "NUMD",
                                         "AXD",
                                         "STRD",
                                         "VARD",
                                         "GLOBD",
                                         "GSTRD",
                                         "TRUE",
                                         "FALSE",
                                         "ON",
                                         "OFF",
                                         "G1",
                                         "G90",
                                         "G[1]",
                                         "M0",
                                         "M30",
                                         "F100",
                                         "E10",
                                         "S1000",
                                         "N10",
                                         "N",
                                         "name",
                                         "name:",
                                         ":name",
                                         "T1",
                                         "D1",
                                         "I1",
                                         "J1",
                                         "K1",
                                         "R1",
                                         "P1",
                                         "L1",
                                         "O1",
                                         "SIN(",
                                         "ATAN2(",
                                         "LOG(",
                                         "STRLEN(",
                                         "STRCMP(",
                                         "STRMID(",
                                         "STRFIND(",
                                         "DBLTOSTR(",
                                         "STRUPR(",
                                         "ISDONE(",
                                         "RAND(",
                                         "TIMER(",
                                         "MASKTODBL",
                                         "INDEXTOMASK(",
                                         "AXISSTATUS(",
                                         "TASKSTATUS(",
                                         "SYSTEMSTATUS(",
                                         "AXISSTATUSFAST(",
                                         "TASKSTATUSFAST(",
                                         "UNITSTOCOUNTS(",
                                         "COUNTSTOUNITS(",
                                         "FILESIZE(",
                                         "DATAITEM_PositionFeedback",
                                         "PARAMETERID_PositionFeedbackType",
                                         "CALLBACK 1032",
                                         "MAC(1, 2)"};

constexpr std::string_view operators[] = {
    ",",  ",",  "(",  "(",  ")",   ")",   "[",   "]",  "=",   "=",    "+",     "-",    "*",
    "/",  "**", "^",  "%",  "@",   ".",   ":",   "!",  "~",   "<",    ">",     "<=",   ">=",
    "==", "<>", "!=", "&&", "||",  "&",   "|",   "<<", ">>",  "++",   "--",    "+=",   "-=",
    "*=", "/=", "|=", "&=", "<<=", ">>=", "AND", "OR", "NOT", "BAND", "BNAND", "BNOR", "MOD"};

}  // namespace

std::string wordOf(TokenType kind) {
    for (const Example& example : examples) {
        if (example.kind == kind) {
            return std::string(example.word);
        }
    }
    for (const std::string_view spelling : spellings) {
        if (keywordKind(spelling) == kind) {
            return std::string(spelling);
        }
    }
    return isAddressLetter(kind) ? std::string(tokenTypeName(kind).substr(0, 1)) : std::string();
}

const std::vector<std::string>& allKeywords() {
    static const std::vector<std::string> words(std::begin(spellings), std::end(spellings));
    return words;
}

const std::vector<std::string>& commonWords() {
    static const std::vector<std::string> words = [] {
        std::vector<std::string> made(std::begin(operands), std::end(operands));
        made.insert(made.end(), std::begin(numbers), std::end(numbers));
        made.insert(made.end(), std::begin(operators), std::end(operators));
        for (const Example& example : examples) {
            made.emplace_back(example.word);
        }
        return made;
    }();
    return words;
}

const std::vector<std::string>& directiveWords() {
    static const std::vector<std::string> words = {"\n#define A ",
                                                   "\n#define B ",
                                                   "\n#undef A",
                                                   "\n#ifdef A\n",
                                                   "\n#ifndef B\n",
                                                   "\n#elseif A\n",
                                                   "\n#else\n",
                                                   "\n#endif\n",
                                                   "\n#subst\n",
                                                   "\n#nosubst\n",
                                                   "A",
                                                   "B",
                                                   "A1",
                                                   "$a",
                                                   "$b",
                                                   "\\\n",
                                                   "; note",
                                                   "// note",
                                                   "/* note */",
                                                   "/*\n*/",
                                                   "#",
                                                   "\n#include \"b.pgm\"",
                                                   "\n--- b.pgm\n",
                                                   "\n--- sub/c.pgm\n",
                                                   "\"",
                                                   "\n#macro M($a, $b) ",
                                                   "\nM(1, 2)",
                                                   "\n#macro A() ",
                                                   "\nA()",
                                                   "\r\n"};
    return words;
}

const std::string_view prelude =
    "#define AXD X\n"
    "#define NUMD 5\n"
    "#define STRD \"text\"\n"
    "#define VARD $value\n"
    "#define GLOBD $GLOBAL[3]\n"
    "#define GSTRD $STRGLOB[2]\n"
    "#macro MAC($a, $b) MOVEINC X $a $b\n";

std::vector<std::string> splitWords(std::string_view row) {
    constexpr std::string_view separator = " | ";
    std::vector<std::string> words;
    for (std::size_t end = row.find(separator); end != std::string_view::npos;
         end = row.find(separator)) {
        words.emplace_back(row.substr(0, end));
        row.remove_prefix(end + separator.size());
    }
    if (!row.empty()) {
        words.emplace_back(row);
    }
    return words;
}

}  // namespace torvel::fuzz
