// The families' keywords and words come from the tables of src/stmt. What no table has stands here.

#include "fuzz/families.h"

#include <algorithm>

#include "fuzz/words.h"

namespace torvel::fuzz {

namespace {

enum class Place : std::uint8_t { lead, leadWithWord, inner };

struct TableRow {
    std::string_view family;
    TokenType type;
    Place place;
};

constexpr TableRow tableRows[] = {
#define STATEMENT(token, convert) {FAMILY, TokenType::token, Place::lead},
#define UNCHECKED(token, convert) {FAMILY, TokenType::token, Place::lead},
#define FORM(token, pattern, text) {FAMILY, TokenType::token, Place::lead},
#define FORM_ADVISED(token, pattern, text, message) {FAMILY, TokenType::token, Place::lead},
#define REFUSED(token, message) {FAMILY, TokenType::token, Place::lead},
#define BY_WORD(token, pattern) {FAMILY, TokenType::token, Place::leadWithWord},
#define WORD(token, word, pattern, text) {FAMILY, TokenType::word, Place::inner},
#define WORD_ADVISED(token, word, pattern, text, message) {FAMILY, TokenType::word, Place::inner},
#define WORD_ROUTINE(token, word, convert) {FAMILY, TokenType::word, Place::inner},
#define WORD_REFUSED(token, word, message) {FAMILY, TokenType::word, Place::inner},
#define VALUE(token, message) {FAMILY, TokenType::token, Place::inner},
#define FAMILY "data-collection"
#include "src/stmt/data-collection.def"
#undef FAMILY
#define FAMILY "drive"
#include "src/stmt/drive.def"
#undef FAMILY
#define FAMILY "galvo"
#include "src/stmt/galvo.def"
#undef FAMILY
#define FAMILY "gcode"
#include "src/stmt/gcode.def"
#undef FAMILY
#define FAMILY "motion"
#include "src/stmt/motion.def"
#undef FAMILY
#define FAMILY "ramps"
#include "src/stmt/ramps.def"
#undef FAMILY
#define FAMILY "tasks"
#include "src/stmt/tasks.def"
#undef FAMILY
#define FAMILY "unsupported"
#include "src/stmt/unsupported.def"
#undef FAMILY
#define FAMILY "values"
#include "src/stmt/values.def"
#undef FAMILY
};

/// All leading tokens, for finding out whether one has been forgotten.
constexpr TableRow allRows[] = {
#define FAMILY \
    {}
#include "src/stmt/statements.def"
#undef FAMILY
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
     "$v | $v[1] | $GLOBAL[1] | $GLOB2 | $TASK[1] | $INFO[1] | $RETURN | $BO[1] | $BI[1] | $RO[1] | $RI[1] | "
     "$DO[1].X | $DI[1].X | $WO[1] | $WI[1] | $AO[1].X | $AI[1].X | $PORT[1] | $TASKINDEX | $PGLOBAL[1] | "
     "$PAXIS[1].X | $PTASK[1].2 | $AXISSTATUS[1].X | $TASKSTATUS[1].2 | $SYSTEMSTATUS[1] | $STRGLOB[1] | "
     "$STRGLOB2 | $STRTASK[1] | $APTGLOB[1] | $APTTASK[1] | VARD | GLOBD | GSTRD",
     "= | ++ | -- | += | -= | *= | /= | |= | &= | <<= | >>= | [ | ] | . | CALLBACK | READPARMSTRING | "
     "GETPARMSTRING | READCONFIGSTRING | NETWORK | ERRORDECODE"},
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
     "DVAR | DIM | DVARS",
     "$a | $b[3] | $c[2][2] | AS name | AS | = 1 | = \"text\" | , | VARD | [ | ]"},
    {"drive",
     "",
     "SETPARM X, | MASTER | SLAVE | FAST | NONE | GET | SET | CLEAR | AXISGROUP | RUN"},
    {"drive-memory",
     "DSPMEM | $v = DSPMEM",
     "INT32 | LONG | FLOAT | SINGLE | DOUBLE"},
    {"flow-control",
     "IF | ELSE | ELSE IF | ELSEIF | ENDIF | FOR | NEXT | WHILE | ENDWHILE | DO | DO WHILE | LOOP | REPEAT | "
     "ENDREPEAT | DFS | ENDDFS | END | END IF | END WHILE | END DFS | END SUB | GOTO | CALL | EXIT SUB | "
     "RETURN | FARGOTO | FARCALL | ON | ONGOSUB",
     "THEN | GOTO | TO | STEP | DO | SUB | PROGRAM | = | name() | N10"},
    {"galvo",
     "",
     "AUTO | CONFIG | COEFFICIENTS | AXES | PRIMARY | SECONDARY"},
    {"gcode",
     "",
     "G2 X1 I2 J3 | G4 F1 | G09 | G010 | G[$v] | M[1] | N20 | X($v) | X = 1 | S($v) | AXD 1"},
    {"labels",
     "name: | :name | N10 | / | /2 | /2/3 | // | %",
     "HOME X | : | / | N | 1 | name"},
    {"macros",
     "#macro M($a, $b) | #macro N() | MAC( | M( | N()",
     "$a | $b | \\\n | HOME X | IF $a | MOVEINC X $a $b | #nosubst | , | )"},
    {"motion",
     "",
     "MODE | MOVEDONE | INPOS | AUTO | NOWAIT | CW | CCW | -1 | R | I1 | J1 | TIME"},
    {"program-control",
     "PROGRAM",
     "START | STOP | PAUSE | RESET | RESTART | STEPINTO | STEPOVER | RUN | LOAD | ASSOCIATE | BUFFEREDRUN | "
     "\"path\""},
    {"ramps",
     "",
     "DEPENDENT | ACCEL | DECEL | LINEAR | SINE | SCURVE | RATE | TIME | MODE | TYPE | X1 | Y = 2"},
    {"tasks",
     "",
     "NORMAL | PERFORMANCE | RESET | VALUES | UPDATEINTERVAL | MODE | ONCE | RESUME | PAUSE | TYPE | AXES"},
    {"values",
     "$v = | $STRGLOB[1] = | FILESIZE | FLASHPARAM | DRIVEINFO | TEST",
     "FILESIZE | FLASHPARAM X GET | DBLTOSTR( | STRMID( | STRUPR( | STRLWR( | DSPMEM | CALLBACK | GET"},
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

}  // namespace

std::vector<Family> statementFamilies() {
    std::vector<Family> families;
    for (const HandRow& row : handRows) {
        Family& family = familyNamed(families, row.family);
        append(family.leads, splitWords(row.leads));
        append(family.words, splitWords(row.words));
    }
    for (const TableRow& row : tableRows) {
        const std::string word = wordOf(row.type);
        Family& family = familyNamed(families, row.family);
        (row.place == Place::inner ? family.words : family.leads).push_back(word);
        // What all statements with a word have in common is a file of its own.
        Family& byWord = familyNamed(families, "word-statements");
        if (row.place == Place::leadWithWord) {
            byWord.leads.push_back(word);
        } else if (row.place == Place::inner) {
            byWord.words.push_back(word);
        }
    }
    append(familyNamed(families, "callbacks").words, callbackWords);
    append(familyNamed(families, "data-signals").words, dataItems);
    return families;
}

std::string keywordWithoutFamily() {
    std::vector<std::string> leads;
    for (const Family& family : statementFamilies()) {
        append(leads, family.leads);
    }
    for (const TableRow& row : allRows) {
        const std::string word = wordOf(row.type);
        const auto begins = [&](const std::string& lead) {
            return (lead + ' ').starts_with(word + ' ');
        };
        if (row.place != Place::inner && !word.empty() &&
            std::none_of(leads.begin(), leads.end(), begins)) {
            return word;
        }
    }
    return {};
}

}  // namespace torvel::fuzz
