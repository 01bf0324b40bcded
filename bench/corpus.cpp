// A family is a list of line templates. A hole "{x}" in a template is filled at random: {v} a variable,
// {i} an integer, {r} a real number, {e} an expression, {c} a condition, {s} a string expression, {w} a
// word, {a} an axis, {d} a name that a define of the corpus may have. Lines of the family "flow-control"
// open and close blocks, so every program is well formed. A new kind of statement is a new row here.

#include "bench/corpus.h"

#include <algorithm>
#include <array>
#include <span>
#include <stdexcept>

namespace torvel::bench {

namespace {

struct Family {
    std::string_view name;
    bool byDefault;
    unsigned weight;
    std::span<const std::string_view> templates;
};

struct Block {
    std::string_view open;
    std::string_view middle;  // may be empty
    std::string_view close;
};

constexpr std::string_view assignments[] = {
    "{v} = {i}",       "{v} = {r}",          "{v} = {v}",
    "{v} = {v} + {i}", "{v} += {r}",         "{v}++",
    "{v}[{i}] = {v}",  "$GLOBAL[{i}] = {v}", "$GLOBAL{i} = {v} * {r}",
    "$BO[{i}] = {i}",  "$DO[{i}].{a} = {i}", "$AO[{i}].{a} = {v}",
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
};

constexpr std::string_view calls[] = {
    "CALL {w}",
    "CALL {w}()",
    "{w}{i}_: {v} = {i}",
    "N{i} {v} = {r}",
};

constexpr std::string_view comments[] = {
    "; {w} {w} {w} {w}",
    "// {w} the {w} of {w} {i}",
    "/* {w} {w} */ {v} = {i}",
    "",
};

constexpr std::string_view defines[] = {
    "#define {d} {i}",
    "#define {d} {r}",
    "#define {d} {v} * {i}",
};

constexpr std::string_view defineUses[] = {
    "{v} = {d} + {i}",
    "{v} = {d} * {d}",
    "$DO[{d}].{a} = {i}",
    "MOVEINC {a} {d} {i}",
    "IF_{w}: {v} = TASKSTATE_Idle",
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
    "SETPARM {a}, CountsPerUnit, {i}",
};

constexpr std::string_view drives[] = {
    "BRAKE {a} 1",
    "SETPOSCMD {a} {r}",
    "GEAR {a} RATIO {i}, {i}",
    "AUTOFOCUS {a} ON",
    "DATAACQ {a} ARRAY {i}, {i}",
    "GALVO LASERMODE {a} {i}",
    "IFOV SIZE {r}",
    "DATACOLLECT ITEM {i}, {a}, DATAITEM_PositionCommand",
};

constexpr std::string_view tasks[] = {
    "FEEDHOLD ON",     "MFO {i}",       "PROGRAM {i} STOP",
    "SAFEZONE {i} ON", "THERMOCOMP ON", "AXISFAULT {a}, {i}",
};

constexpr std::string_view unconvertible[] = {
    "$TASK[{i}] = {e}", "FARGOTO {w}", "{v} = {v} BNOR {v}", "GOTO", "PROBE {a}",
    "MSGHIDE",          "G45",         "PSOCONTROL {a} ON",
};

constexpr Family families[] = {
    {"assignments", true, 22, assignments},
    {"expressions", true, 14, expressions},
    {"comments", true, 18, comments},
    {"flow-control", true, 10, {}},
    {"strings", true, 3, strings},
    {"declarations", true, 2, declarations},
    {"calls", true, 4, calls},
    {"includes", true, 0, {}},
    {"defines", true, 1, defines},
    {"define-uses", true, 15, defineUses},
    {"motion", true, 10, motion},
    {"gcode", true, 6, gcode},
    {"ramps", true, 3, ramps},
    {"status", true, 3, status},
    {"drives", true, 3, drives},
    {"tasks", true, 2, tasks},
    {"unconvertible", true, 6, unconvertible},
};

constexpr Block blocks[] = {
    {"IF {c} THEN", "ELSE", "ENDIF"}, {"IF {c}", "ELSEIF {c} THEN", "ENDIF"},
    {"WHILE {c}", "", "ENDWHILE"},    {"FOR {v} = {i} TO {e} STEP {i}", "", "NEXT {v}"},
    {"REPEAT {i}", "", "ENDREPEAT"},  {"DFS {w}", "", "ENDDFS"},
};

constexpr std::string_view words[] = {
    "station", "shift",    "gantry",    "nozzle", "stage",   "sample",  "tray",
    "width",   "height",   "speed",     "power",  "opening", "corner",  "shutter",
    "vacuum",  "pressure", "laserhead", "marker", "counter", "retries", "waiting",
    "tilt",    "pitch",    "depth",     "layer",  "wafer",   "border",
};

/// Names of defines that begin with each word: 216 in all.
constexpr unsigned namesPerWord = 8;

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
        std::string head = isWanted("define-uses") ? defineNames() : std::string();
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

    /// A define for each name that a hole {d} may be filled with.
    std::string defineNames() {
        std::string text;
        for (const std::string_view word : words) {
            for (unsigned number = 0; number < namesPerWord; ++number) {
                text += "#define D_" + std::string(word) + "_" + std::to_string(number);
                fill(number % 2 == 0 ? " {i}\n" : " {r}\n", text);
            }
        }
        return text;
    }

    /// Whole lines, about `bytes` of them; all blocks are closed.
    std::string lines(std::size_t bytes) {
        std::string text;
        std::vector<const Block*> open;
        while (text.size() < bytes) {
            const Family& family = pickFamily();
            if (family.name == "flow-control") {
                changeBlock(open, text);
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

    void changeBlock(std::vector<const Block*>& open, std::string& text) {
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
        if (!pattern.empty() && pattern[0] != ';' && pattern[0] != '/' && random_.below(8) == 0) {
            fill(" ; {w} {w}", text);
        }
        text += '\n';
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
            case 'd':
                text += "D_" + std::string(random_.pick(words)) + "_" +
                        std::to_string(random_.below(namesPerWord));
                break;
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
