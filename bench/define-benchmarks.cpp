// What defines cost: substitution of texts that are made to be hard, at two sizes each, whose time per
// byte must not differ; and start-up with and without the table of predefined constants.

#include <benchmark/benchmark.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "src/base/hash.h"
#include "src/expr/parser-core.h"
#include "src/lex/lexer.h"
#include "src/preprocess/defines.h"
#include "src/preprocess/preprocessor.h"
#include "src/stmt/statement.h"

namespace torvel::bench {

namespace {

std::string repeated(std::string_view unit, std::size_t bytes) {
    std::string text;
    while (text.size() < bytes) {
        text += unit;
    }
    return text;
}

/// A run's defines: `names`, each standing for a number.
struct DefineSet {
    explicit DefineSet(const std::vector<std::string>& names)
        : defines(program, predefinedConstants()) {
        for (const std::string& name : names) {
            const TextSpan text = program.text.add(name);
            const Expansion expansion =
                defines.storePreserved(TokenType::NUMBER_DEFINE, {text, program.text.add("1")});
            defines.table().enter(program.text.view(text), DefineTable::Kind::define, expansion);
        }
    }

    Program program;
    Defines defines;
};

std::vector<std::string> manyNames(std::size_t count) {
    std::vector<std::string> names;
    for (std::size_t i = 0; i < count; ++i) {
        names.push_back("station_" + std::to_string(i));
    }
    return names;
}

void substituting(benchmark::State& state, const std::vector<std::string>& names,
                  std::string_view unit) {
    DefineSet set(names);
    const std::string text = repeated(unit, static_cast<std::size_t>(state.range(0)));
    const TextSpan span = set.program.text.add(text);
    SubstitutedText cut;
    for (auto _ : state) {
        cut.clear();
        set.defines.substitute(span, cut);
        benchmark::DoNotOptimize(cut.pieces.data());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(text.size()) * state.iterations());
}

constexpr std::int64_t smallText = 100'000;
constexpr std::int64_t largeText = 1'000'000;

// One word without a blank, and a name that could begin at each of its letters.
BENCHMARK_CAPTURE(substituting, oneWordOfOperators, {"B"}, "A+")->Arg(smallText)->Arg(largeText);
// The word is made of what the name is made of, operators included, but never has its end.
BENCHMARK_CAPTURE(substituting, nameThatHoldsOperators, {repeated("A+", 1000) + "B"}, "A+")
    ->Arg(smallText)
    ->Arg(largeText);
BENCHMARK_CAPTURE(substituting, digits, {"B"}, "7")->Arg(smallText)->Arg(largeText);
BENCHMARK_CAPTURE(substituting, aHundredThousandDefines, manyNames(100'000),
                  "$x = station_77 + station_99999 * stations ")
    ->Arg(smallText)
    ->Arg(largeText);

/// Time per define of a table of many.
void entering(benchmark::State& state) {
    const std::vector<std::string> names = manyNames(static_cast<std::size_t>(state.range(0)));
    for (auto _ : state) {
        DefineSet set(names);
        benchmark::DoNotOptimize(&set);
    }
    state.SetItemsProcessed(state.range(0) * state.iterations());
}
BENCHMARK(entering)->Arg(10'000)->Arg(100'000);

/// A program of ten lines, preprocessed and converted; `predefined` are the constants that it could use.
void convertingTenLines(benchmark::State& state, const PredefinedTable& predefined) {
    const std::filesystem::path path =
        std::filesystem::temp_directory_path() / "torvel-ten-lines.pgm";
    std::ofstream(path) << repeated("$count = $count + 1 ; next\n", 270);
    const AxisNames axes;
    const Limits limits;
    for (auto _ : state) {
        Program program;
        preprocessProgram(program, path.string(), axes, limits, predefined);
        MessageLog log;
        ConversionContext context{program, axes, limits, log, {}};
        StatementText text;
        BlockEffect effect{};
        GrowingArray<Token> room;
        for (std::size_t line = 0; line < program.lines.size(); ++line) {
            convertStatement(context,
                             tokensOf(program, program.lines.part(0).list, line, axes, room), text,
                             effect);
            benchmark::DoNotOptimize(text.data());
        }
    }
    std::filesystem::remove(path);
}

constexpr PredefinedConstant oneRow[] = {{"NOTHING", "0", nullptr}};
constexpr auto oneRowIndex = [] {
    struct {
        std::array<std::uint16_t, 2> slots{};
        NameLengths lengths;
    } index;
    indexPredefined(oneRow, index.slots, index.lengths);
    return index;
}();
constexpr PredefinedTable almostEmpty = {oneRow, oneRowIndex.slots, &oneRowIndex.lengths};

BENCHMARK_CAPTURE(convertingTenLines, withPredefinedConstants, predefinedConstants());
BENCHMARK_CAPTURE(convertingTenLines, withoutPredefinedConstants, almostEmpty);

}  // namespace

}  // namespace torvel::bench
