// A family is a list of line templates. A hole "{x}" in a template is filled at random: {v} a variable,
// {i} an integer, {r} a real number, {e} an expression, {c} a condition, {s} a string expression, {w} a
// word, {a} an axis, {m} a macro's name; {d}, {x} and {t} a name that stands for a number, an axis and a
// string. Lines of a family with blocks open and close these, so every program is well formed. A new
// kind of statement is a new row here.
//
// The weights make the shares that a program of the default families has, whatever its size: a fifth of
// the lines are comments, 15 % of them use a defined name, 5 % are refused. A test holds that.

#include "bench/corpus.h"

#include <algorithm>
#include <array>
#include <span>
#include <stdexcept>

namespace torvel::bench {

namespace {

struct Block {
    std::string_view open;
    std::string_view middle;  // may be empty
    std::string_view close;
};

struct Family {
    std::string_view name;
    bool byDefault;
    unsigned weight;
    std::span<const std::string_view> templates;
    std::span<const Block> blocks = {};
};

constexpr std::string_view assignments[] = {
    "{v} = {i}",
    "{v} = {r}",
    "{v} = {v}",
    "{v} = {v} + {i}",
    "{v} += {r}",
    "{v}++",
    "{v}[{i}] = {v}",
    "$GLOBAL[{i}] = {v}",
    "$GLOBAL{i} = {v} * {r}",
    "$BO[{i}] = {i}",
    "$DO[{i}].{a} = {i}",
    "$AO[{i}].{a} = {v}",
    "/* {w} {w} */ {v} = {i}",
};

constexpr std::string_view expressions[] = {
    "{v} = {e}",
    "{v} = {e} + {e}",
    "{v} = SQRT({e}) * SIN({v})",
    "{v} = ({e}) / ({v} + {i})",
    "{v} = ABS({v} - {r}) + $GLOBAL[{v}]",
    "{v} = ATAN2({v}, {e})",
    "{v} = $DI[{i}].{a} && !$BI[{i}]",
    "{v} = ({v} << {i}) | ({v} & 0xFF) ^ {i}",
};

constexpr std::string_view strings[] = {
    "$STRGLOB[{i}] = {s}",
    "$STRGLOB[{i}] = {s} + {s}",
    "$STRGLOB{i} = STRUPR({s})",
    "{v} = STRLEN({s})",
};

constexpr std::string_view declarations[] = {
    "DVAR {v}",
    "DVAR {v}, {v}",
    "DVAR {v}[{i}]",
    "DVARS {v}",
};

constexpr std::string_view calls[] = {
    "CALL {w}", "CALL {w}()", "{w}{i}_: {v} = {i}", "N{i} {v} = {r}", "RETURN",
};

constexpr std::string_view comments[] = {
    "; {w} {w} {w} {w}",
    "// {w} the {w} of {w} {i}",
    "' {w} {i} {w}",
    "/* {w} the {w} */",
};

constexpr std::string_view blankLines[] = {""};

constexpr std::string_view defines[] = {
    "#define {d} {i}",
    "#define {d} {r}",
    "#define {d} {v} * {i}",
};

constexpr std::string_view defineUses[] = {
    "{v} = {d} + {i}",      "{v} = {d} * {d}",   "$DO[{d}].{a} = {i}", "MOVEINC {a} {d} {i}",
    "MOVEABS {x} {d}, {i}", "WAIT MOVEDONE {x}", "{x}{d} F{i}",        "$STRGLOB[{i}] = {t} + {s}",
};

constexpr std::string_view macros[] = {
    "{m}({i}, {v})",
    "{m}({v} + {i}, {r})",
};

constexpr std::string_view motion[] = {
    "MOVEINC {a} {r} {i}",
    "MOVEABS {a} {r}, {i}",
    "HOME {a}",
    "ENABLE {a}",
    "WAIT MOVEDONE {a}",
    "DWELL {r}",
    "WAIT ({c}) {i}",
    "FREERUN {a} {r}",
    "PVT {a} {r}, {i} TIME {r}",
    "CW X {r} Y {r} I {r} J 1",
    "MOVEDELAY {a}, {i}",
    "MOVETOLIM {a} CCW",
};

constexpr std::string_view gcode[] = {
    "G1 {a}{r} F{i}", "G1 X{r} Y{r} F{i}", "G90", "G4 P{r}", "M3 S{i}", "G1 X({e}) Y={v}",
};

constexpr std::string_view ramps[] = {
    "RAMP RATE {r}", "RAMP TIME X {r} Y {r}",  "RAMP MODE RATE", "RAMP TYPE LINEAR",
    "VELOCITY ON",   "ROUNDING TOLERANCE {r}", "ABSOLUTE",       "INCREMENTAL",
};

constexpr std::string_view status[] = {
    "{v} = AXISSTATUS({a}, DATAITEM_PositionFeedback)",
    "{v} = $PAXIS[2].{a}",
    "CountsPerUnit.{a} = {i}",
    "{v} = ISDONE({a})",
    "IF_{w}: {v} = TASKSTATE_Idle",
};

constexpr std::string_view drives[] = {
    "BRAKE {a} 1",
    "SETPOSCMD {a} {r}",
    "SETPARM {a}, CountsPerUnit, {i}",
    "GEAR {a} RATIO {i}, {i}",
    "AUTOFOCUS {a} ON",
    "ARRAY {a} READ {v}[0] {i} {i}",
    "DSPMEM {a} FLOAT {i}, {r}",
    "POSOFFSET SET {a} {r}",
};

constexpr std::string_view galvo[] = {
    "GALVO LASERMODE {a} {i}",
    "GALVO LASEROVERRIDE {a} AUTO",
    "GALVO WOBBLE {a} CONFIG {r}, {r}, {i}, 1, 2",
    "GALVO ROTATION {a} {r}",
    "IFOV SIZE {r}",
    "IFOV SYNCAXES {a}",
};

constexpr std::string_view dataCollection[] = {
    "DATACOLLECT ITEM {i}, {a}, DATAITEM_PositionCommand",
    "DATACOLLECT STOP",
    "DATAACQ {a} ARRAY {i}, {i}",
    "DATAACQ {a} OFF",
};

constexpr std::string_view tasks[] = {
    "FEEDHOLD {i} ON", "MFO {i}",           "CRITICAL START",
    "SAFEZONE {i} ON", "THERMOCOMP ON",     "AXISFAULT {a}, {i}",
    "TIMER {i} CLEAR", "NORMALCY ON RIGHT", "TASKERROR {i}, {i}, {i}",
};

constexpr std::string_view programs[] = {
    "PROGRAM {i} STOP",
    "PROGRAM {i} RUN {s}",
    "PROGRAM START",
    "ADDPROGRAM {s}",
};

constexpr std::string_view values[] = {
    "{v} = FILESIZE({s})",
    "{v} = DSPMEM {a} LONG, {i}",
    "{v} = FLASHPARAM {a} GET {i}",
    "{v} = AXISSTATUSFAST({a}, DATAITEM_PositionFeedback)",
};

constexpr std::string_view unconvertible[] = {
    "$TASK[{i}] = {e}",
    "FARGOTO {w}",
    "{v} = {v} BNOR {v}",
    "GOTO",
    "PROBE {a}",
    "MSGHIDE",
    "G45",
    "PSOCONTROL {a} ON",
    "CALLBACK 1015, {i}",
};

/// What the largest programs are made of: a path, point by point.
constexpr std::string_view points[] = {
    "G1 X{r} Y{r}", "G1 X{r} Y{r}",       "G1 X{r} Y{r} Z{r}", "X{r} Y{r}",
    "X{r} Y-{r}",   "G1 X-{r} Y{r} F{i}", "N{i} G1 X{r} Y{r}", "G2 X{r} Y{r} I{r} J{r}",
    "G0 X{r} Y{r}",
};

constexpr Block flowBlocks[] = {
    {"IF {c} THEN", "ELSE", "ENDIF"}, {"IF {c}", "ELSEIF {c} THEN", "ENDIF"},
    {"WHILE {c}", "", "ENDWHILE"},    {"FOR {v} = {i} TO {e} STEP {i}", "", "NEXT {v}"},
    {"REPEAT {i}", "", "ENDREPEAT"},  {"DFS {w}", "", "ENDDFS"},
};

constexpr Block conditionals[] = {
    {"#ifdef {d}", "#else", "#endif"},
    {"#ifndef {d}", "", "#endif"},
    {"#ifdef {w}", "#elseif {d}", "#endif"},
};

constexpr Family families[] = {
    {"assignments", true, 42, assignments},
    {"expressions", true, 27, expressions},
    {"comments", true, 67, comments},
    {"blank-lines", true, 6, blankLines},
    {"flow-control", true, 24, {}, flowBlocks},
    {"conditionals", true, 3, {}, conditionals},
    {"strings", true, 9, strings},
    {"declarations", true, 5, declarations},
    {"calls", true, 9, calls},
    {"includes", true, 0, {}},
    {"define-uses", true, 56, defineUses},
    {"macros", true, 3, macros},
    {"motion", true, 18, motion},
    {"gcode", true, 12, gcode},
    {"ramps", true, 6, ramps},
    {"status", true, 5, status},
    {"drives", true, 6, drives},
    {"galvo", true, 3, galvo},
    {"data-collection", true, 3, dataCollection},
    {"tasks", true, 5, tasks},
    {"programs", true, 3, programs},
    {"values", true, 3, values},
    {"unconvertible", true, 17, unconvertible},
    // Names that get another meaning on the way. They would grow in number with the program.
    {"defines", false, 6, defines},
    {"points", false, 1, points},
};

constexpr std::string_view words[] = {
    "station", "shift",    "gantry",    "nozzle", "stage",   "sample",  "tray",
    "width",   "height",   "speed",     "power",  "opening", "corner",  "shutter",
    "vacuum",  "pressure", "laserhead", "marker", "counter", "retries", "waiting",
    "tilt",    "pitch",    "depth",     "layer",
};

/// What the names "D_" word "_" number stand for, by number: 200 defines in all.
constexpr std::string_view defineValues[] = {
    "{i}", "{r}", "{i}", "{r}", "$GLOBAL[{i}]", "({v} + {i})", "{a}", "\"{w} {w}\"",
};
constexpr std::size_t numberNames = 6;  // the first of them
constexpr std::size_t axisName = 6;
constexpr std::size_t stringName = 7;

constexpr std::size_t macroCount = 8;

constexpr std::string_view axes[] = {"X", "Y", "Z", "U", "XX", "YY"};

constexpr std::string_view operators[] = {" + ", " - ", " * ", " / ", " + ", " * ", " ** ", " % "};

constexpr std::string_view comparisons[] = {" < ", " <= ", " > ", " == ", " != ", " >= "};

constexpr std::size_t deepestBlock = 5;
constexpr std::size_t bytesPerFile = 200'000;  // of a corpus with includes

/// splitmix64: the same numbers everywhere.
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    std::size_t below(std::size_t bound) {
        state_ += 0x9E3779B97F4A7C15U;
        std::uint64_t mixed = state_;
        mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
        mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
        return static_cast<std::size_t>((mixed ^ (mixed >> 31U)) % bound);
    }

    template <typename Range>
    const auto& pick(const Range& range) {
        return range[below(std::size(range))];
    }

private:
    std::uint64_t state_;
};

class Generator {
public:
    explicit Generator(const CorpusOptions& options) : options_(options), random_(options.seed) {
        for (const Family& family : families) {
            if (isWanted(family)) {
                wanted_.push_back(&family);
                totalWeight_ += family.weight;
            }
        }
        for (const std::string& name : options.families) {
            const bool exists = std::any_of(std::begin(families), std::end(families),
                                            [&](const Family& f) { return f.name == name; });
            if (!exists) {
                throw std::invalid_argument("no family is called " + name);
            }
        }
        if (totalWeight_ == 0) {
            throw std::invalid_argument("the families have no lines");
        }
    }

    Corpus run() {
        corpus_.push_back({"main.pgm", {}});
        std::string head;
        if (isWanted("define-uses") || isWanted("conditionals")) {
            head += defineNames();
        }
        if (isWanted("macros")) {
            head += macroDefinitions();
        }
        if (!isWanted("includes")) {
            corpus_[0].text = head + lines(options_.bytes);
            return std::move(corpus_);
        }
        // The program includes parts, and every part includes a small file of its own.
        std::string main = std::move(head) + lines(std::min(options_.bytes / 4, bytesPerFile));
        std::size_t made = main.size();
        for (std::size_t number = 1; made < options_.bytes; ++number) {
            const std::string part = "parts/part" + std::to_string(number) + ".pgm";
            const std::string detail = "detail" + std::to_string(number) + ".pgm";
            const std::size_t rest = std::min(options_.bytes - made, bytesPerFile);
            std::string detailText = lines(rest / 8);
            std::string text =
                lines(rest / 2) + "#include \"" + detail + "\"\n" + lines(rest * 3 / 8);
            main += "#include \"" + part + "\" ; " + std::string(random_.pick(words)) + "\n" +
                    lines(100);
            made += detailText.size() + text.size() + 150;
            corpus_.push_back({part, std::move(text)});
            corpus_.push_back({"parts/" + detail, std::move(detailText)});
        }
        corpus_[0].text = std::move(main);
        return std::move(corpus_);
    }

private:
    bool isWanted(const Family& family) const {
        if (options_.families.empty()) {
            return family.byDefault;
        }
        return std::find(options_.families.begin(), options_.families.end(), family.name) !=
               options_.families.end();
    }
    bool isWanted(std::string_view name) const {
        return std::any_of(wanted_.begin(), wanted_.end(),
                           [name](const Family* family) { return family->name == name; });
    }

    /// A define for each name that a hole may be filled with.
    std::string defineNames() {
        std::string text;
        for (const std::string_view word : words) {
            for (std::size_t number = 0; number < std::size(defineValues); ++number) {
                text += "#define " + defineName(word, number) + " ";
                fill(defineValues[number], text);
                text += "\n";
            }
        }
        return text;
    }

    static std::string defineName(std::string_view word, std::size_t number) {
        return "D_" + std::string(word) + "_" + std::to_string(number);
    }

    std::string macroDefinitions() {
        std::string text;
        for (std::size_t number = 0; number < macroCount; ++number) {
            text += "#macro " + macroName(number) + "($from, $to) ";
            fill("{v} = $from * {r} + $to\n", text);
        }
        return text;
    }

    static std::string macroName(std::size_t number) {
        return "Step_" + std::string(words[number]);
    }

    /// Whole lines, about `bytes` of them; all blocks are closed.
    std::string lines(std::size_t bytes) {
        std::string text;
        std::vector<const Block*> open;
        while (text.size() < bytes) {
            const Family& family = pickFamily();
            if (!family.blocks.empty()) {
                changeBlock(family.blocks, open, text);
            } else if (!family.templates.empty()) {
                line(random_.pick(family.templates), open.size(), text);
            }
        }
        while (!open.empty()) {
            close(open, text);
        }
        return text;
    }

    const Family& pickFamily() {
        std::size_t place = random_.below(totalWeight_);
        for (const Family* family : wanted_) {
            if (place < family->weight) {
                return *family;
            }
            place -= family->weight;
        }
        return *wanted_.front();
    }

    void changeBlock(std::span<const Block> blocks, std::vector<const Block*>& open,
                     std::string& text) {
        if (open.size() < deepestBlock && (open.empty() || random_.below(2) == 0)) {
            open.push_back(&random_.pick(blocks));
            line(open.back()->open, open.size() - 1, text);
            return;
        }
        if (!open.back()->middle.empty() && random_.below(2) == 0) {
            line(open.back()->middle, open.size() - 1, text);
        }
        close(open, text);
    }

    void close(std::vector<const Block*>& open, std::string& text) {
        line(open.back()->close, open.size() - 1, text);
        open.pop_back();
    }

    void line(std::string_view pattern, std::size_t depth, std::string& text) {
        text.append(depth * 2, ' ');
        fill(pattern, text);
        if (!pattern.empty() && !isComment(pattern) && pattern[0] != '#' && random_.below(8) == 0) {
            fill(" ; {w} {w}", text);
        }
        text += '\n';
    }

    static bool isComment(std::string_view pattern) {
        return pattern[0] == ';' || pattern[0] == '/' || pattern[0] == '\'';
    }

    void fill(std::string_view pattern, std::string& text) {
        for (std::size_t hole = pattern.find('{'); hole != std::string_view::npos;
             hole = pattern.find('{')) {
            text += pattern.substr(0, hole);
            fillHole(pattern[hole + 1], text);
            pattern.remove_prefix(hole + 3);
        }
        text += pattern;
    }

    void fillHole(char hole, std::string& text) {
        switch (hole) {
            case 'v':
                text += "$" + std::string(random_.pick(words)) + "_" +
                        std::to_string(random_.below(40));
                break;
            case 'i': text += std::to_string(random_.below(100)); break;
            case 'r':
                text +=
                    std::to_string(random_.below(1000)) + "." + std::to_string(random_.below(1000));
                break;
            case 'e': expression(2, text); break;
            case 'c':
                fill("{v}", text);
                text += random_.pick(comparisons);
                fill("{e}", text);
                break;
            case 's': fill(random_.below(3) == 0 ? "$STRGLOB[{i}]" : "\"{w} {w}\"", text); break;
            case 'w': text += random_.pick(words); break;
            case 'a': text += random_.pick(axes); break;
            case 'd': text += defineName(random_.pick(words), random_.below(numberNames)); break;
            case 'x': text += defineName(random_.pick(words), axisName); break;
            case 't': text += defineName(random_.pick(words), stringName); break;
            case 'm': text += macroName(random_.below(macroCount)); break;
            default: throw std::logic_error("a hole of an unknown kind");
        }
    }

    void expression(unsigned depth, std::string& text) {
        const std::size_t choice = random_.below(depth == 0 ? 3 : 6);
        switch (choice) {
            case 0: fill("{v}", text); break;
            case 1: fill("{i}", text); break;
            case 2: fill("{r}", text); break;
            case 3:
                text += '(';
                expression(depth - 1, text);
                text += ')';
                break;
            default:
                expression(depth - 1, text);
                text += random_.pick(operators);
                expression(depth - 1, text);
        }
    }

    const CorpusOptions& options_;
    Random random_;
    std::vector<const Family*> wanted_;
    std::size_t totalWeight_ = 0;
    Corpus corpus_;
};

}  // namespace

Corpus generateCorpus(const CorpusOptions& options) {
    return Generator(options).run();
}

std::vector<std::string_view> corpusFamilies() {
    std::vector<std::string_view> names;
    for (const Family& family : families) {
        names.push_back(family.name);
    }
    return names;
}

}  // namespace torvel::bench
