// The families' keywords and words come from the tables of src/stmt. What no table has stands here.

#include "fuzz/families.h"

#include <algorithm>
#include <filesystem>
#include <iterator>

#include "fuzz/words.h"
#include "src/base/characters.h"

namespace torvel::fuzz {

namespace {

enum class Place : std::uint8_t { lead, leadWithWord, inner };

/// A keyword or word of a table, the file being its family's, and the pattern of what follows it.
struct TableRow {
    std::string_view file;
    TokenType type;
    Place place;
    std::string_view pattern;
};

constexpr TableRow tableRows[] = {
#define LEAD(token, pattern) {__FILE__, TokenType::token, Place::lead, pattern},
#define INNER(token, pattern) {__FILE__, TokenType::token, Place::inner, pattern},
#define STATEMENT(token, convert) LEAD(token, "")
#define UNCHECKED(token, convert) LEAD(token, "")
#define FORM(token, pattern, text) LEAD(token, pattern)
#define FORM_ADVISED(token, pattern, text, message) LEAD(token, pattern)
#define REFUSED(token, message) LEAD(token, "")
#define BY_WORD(token, lead) {__FILE__, TokenType::token, Place::leadWithWord, lead},
#define WORD(token, word, pattern, text) INNER(word, pattern)
#define WORD_ADVISED(token, word, pattern, text, message) INNER(word, pattern)
#define WORD_ROUTINE(token, word, convert) INNER(word, "")
#define WORD_REFUSED(token, word, message) INNER(word, "")
#define OTHERWISE(token, pattern, text) INNER(INVALID, pattern)
#define WORD_BY_WORD(token, word, lead) INNER(word, lead)
#define SECOND(token, word, second, pattern, text) INNER(second, pattern)
#define SECOND_ROUTINE(token, word, second, convert) INNER(second, "")
#define SECOND_OTHERWISE(token, word, pattern, text) INNER(INVALID, pattern)
#include "src/stmt/statements.def"
#define VALUE(token, message) INNER(token, "")
#define VALUE_FORM(token, pattern, text) INNER(token, pattern)
#define VALUE_ROUTINE(token, translate) INNER(token, "")
#define STRING_VALUE(token, message) INNER(token, "")
#include "src/stmt/values.def"
#undef LEAD
#undef INNER
};

/// A word or number of a set that patterns name.
struct NamedOperand {
    std::string_view set;
    TokenType word = TokenType::INVALID;
    std::string_view number;
};

constexpr NamedOperand namedOperands[] = {
#define WORD_NAME(set, word, name) {#set, TokenType::word, {}},
#define NUMBER_NAME(set, number, name) {#set, TokenType::INVALID, #number},
#include "src/expr/named-operands.def"
};

constexpr std::string_view callbackWords[] = {
#define SERVICE(code, message) #code,
#define MESSAGE_COMMAND(value, message) #value,
#define LIBRARY_CALL(function, message) "\"" function "\"",
#include "src/stmt/callbacks.def"
};

constexpr std::string_view dataItems[] = {
#define AXIS_ITEM(number, legacy, signal) #number, "DATAITEM_" #legacy,
#define TASK_ITEM(number, legacy, signal) AXIS_ITEM(number, legacy, signal)
#define AXIS_AND_TASK_ITEM(number, legacy, signal) AXIS_ITEM(number, legacy, signal)
#define SYSTEM_ITEM(number, legacy, signal) AXIS_ITEM(number, legacy, signal)
#define SYSTEM_ITEM_MISSPELLED(number, legacy, signal) AXIS_ITEM(number, legacy, signal)
#define REMOVED_ITEM(number, legacy) AXIS_ITEM(number, legacy, )
#include "data/data-items.def"
};

struct HandRow {
    std::string_view family;
    std::string_view leads;
    std::string_view words;
};

// clang-format off
constexpr HandRow handRows[] = {
    {"assignments",
     "$v[1] | $GLOB2 | $STRGLOB2",
     "= | ++ | -- | += | -= | *= | /= | |= | &= | <<= | >>= | [ | ] | ."},
    {"axis-words",
     "PVT | PT | CW | CCW | POSOFFSET SET | RAMP RATE | RAMP TIME",
     "X1 | Y = 2 | Z($v) | I1 | J-1 | K(2) | R3 | TIME 1 | XF10 | AXD 3 | @1 4 | M3 | G4 | F5"},
    {"callbacks",
     "CALLBACK | $v = CALLBACK | $STRGLOB[1] = CALLBACK",
     "1001 | 1032 | \"Q54CBack.dll\" | \"KelCBackFileClose\""},
    {"data-signals",
     "DATACOLLECT ITEM | $v = AXISSTATUS( | $v = TASKSTATUS( | $v = SYSTEMSTATUS( | $v = AXISSTATUSFAST( | "
     "$v = $AXISSTATUS[",
     ""},
    {"declarations",
     "DIM",
     "$a | $b[3] | $c[2][2] | AS name | AS | = 1 | = \"text\" | , | VARD | [ | ]"},
    {"flow-control",
     "ELSE IF | DO WHILE | END IF | END WHILE | END DFS | END SUB | EXIT SUB",
     "THEN | GOTO | TO | STEP | DO | SUB | PROGRAM | = | name() | N10"},
    {"galvo",
     "",
     "AXES | PRIMARY | SECONDARY"},
    {"gcode",
     "",
     "G2 X1 I2 J3 | G4 F1 | G09 | G010 | G[$v] | M[1] | N20 | X($v) | X = 1 | S($v) | AXD 1"},
    {"joystick",
     "",
     "RUN | AXISGROUP | NONE"},
    {"labels",
     "name: | :name | N10 | / | /2 | /2/3 | // | %",
     "HOME X | : | / | N | 1 | name"},
    {"macros",
     "#macro M($a, $b) | #macro N() | MAC( | M( | N()",
     "$a | $b | \\\n | HOME X | IF $a | MOVEINC X $a $b | #nosubst | , | )"},
    {"motion",
     "",
     "NOWAIT | -1 | R | I1 | J1 | TIME"},
    {"programs",
     "",
     "START | STOP | PAUSE | RESET | RESTART | STEPINTO | STEPOVER | RUN | LOAD | ASSOCIATE | BUFFEREDRUN | "
     "\"path\""},
    {"ramps",
     "",
     "DEPENDENT | ACCEL | DECEL | LINEAR | SINE | SCURVE | X1 | Y = 2"},
    {"setparm",
     "",
     "CountsPerUnit | $PAXIS[2] | 2"},
    {"values",
     "$v = | $STRGLOB[1] = | FILESIZE | FLASHPARAM | DRIVEINFO | TEST",
     "FLASHPARAM X GET | DBLTOSTR( | STRMID( | STRUPR( | STRLWR("},
};
// clang-format on

Family& familyNamed(std::vector<Family>& families, std::string_view name) {
    for (Family& family : families) {
        if (family.name == name) {
            return family;
        }
    }
    families.push_back({std::string(name), {}, {}});
    return families.back();
}

template <typename Words>
void append(std::vector<std::string>& list, const Words& words) {
    list.insert(list.end(), std::begin(words), std::end(words));
}

/// The words that a pattern names, and those of its sets.
std::vector<std::string> wordsOfPattern(std::string_view pattern) {
    std::vector<std::string> words;
    std::string name;
    for (const char c : std::string(pattern) + ' ') {
        if (isLetter(c)) {
            name += c;
            continue;
        }
        if (!name.empty() && name.front() == upperCase(name.front())) {
            words.push_back(name);
        }
        for (const NamedOperand& operand : namedOperands) {
            if (operand.set == name) {
                words.push_back(operand.number.empty() ? wordOf(operand.word)
                                                       : std::string(operand.number));
            }
        }
        name.clear();
    }
    return words;
}

void appendWord(Family& family, Place place, const std::string& word) {
    (place == Place::inner ? family.words : family.leads).push_back(word);
}

void appendRow(std::vector<Family>& families, const TableRow& row) {
    Family& family = familyNamed(families, std::filesystem::path(row.file).stem().string());
    append(family.words, wordsOfPattern(row.pattern));
    const std::string word = wordOf(row.type);
    if (word.empty()) {
        return;
    }
    appendWord(family, row.place, word);
    if (row.place != Place::lead) {
        // What all statements with a word have in common is a file of its own.
        appendWord(familyNamed(families, "word-statements"), row.place, word);
    }
}

}  // namespace

std::vector<Family> statementFamilies() {
    std::vector<Family> families;
    for (const HandRow& row : handRows) {
        Family& family = familyNamed(families, row.family);
        append(family.leads, splitWords(row.leads));
        append(family.words, splitWords(row.words));
    }
    for (const TableRow& row : tableRows) {
        appendRow(families, row);
    }
    append(familyNamed(families, "callbacks").words, callbackWords);
    append(familyNamed(families, "data-signals").words, dataItems);
    return families;
}

}  // namespace torvel::fuzz
