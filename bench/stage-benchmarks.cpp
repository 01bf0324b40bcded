// Throughput of each stage by itself, in bytes of source per second, on a generated program.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>

#include "bench/corpus.h"
#include "src/app/command.h"
#include "src/expr/expressions.h"
#include "src/lex/lexer.h"
#include "src/preprocess/line-splitter.h"
#include "src/preprocess/preprocessor.h"

namespace torvel::bench {

namespace {

constexpr std::size_t corpusBytes = std::size_t{1} << 20U;

std::string flatCorpus(std::vector<std::string> families) {
    return generateCorpus({corpusBytes, 1, std::move(families)})[0].text;
}

const std::string& mixedText() {
    static const std::string text =
        flatCorpus({"assignments", "expressions", "comments", "flow-control", "strings",
                    "declarations", "calls"});
    return text;
}

/// A program with one file that stands in memory.
struct MemoryProgram {
    explicit MemoryProgram(std::string_view content) {
        SourceFile file;
        file.displayPath = file.name = "main.pgm";
        file.text = program.text.add(content);
        inclusion = &program.inclusions.emplace_back(
            Inclusion{&program.files.emplace_back(std::move(file)), {}});
    }

    std::vector<ScannedLine> split() {
        LineSplitter splitter(program, *inclusion);
        std::vector<ScannedLine> lines;
        for (ScannedLine line; splitter.next(line);) {
            lines.push_back(line);
        }
        return lines;
    }

    Program program;
    const Inclusion* inclusion = nullptr;
};

void countBytes(benchmark::State& state, std::size_t bytes) {
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes) * state.iterations());
}

void splitting(benchmark::State& state) {
    for (auto _ : state) {
        MemoryProgram source(mixedText());
        LineSplitter splitter(source.program, *source.inclusion);
        for (ScannedLine line; splitter.next(line);) {
            benchmark::DoNotOptimize(line);
        }
    }
    countBytes(state, mixedText().size());
}
BENCHMARK(splitting);

void lexing(benchmark::State& state) {
    MemoryProgram source(mixedText());
    const std::vector<ScannedLine> lines = source.split();
    const AxisNames axes;
    for (auto _ : state) {
        source.program.list.tokens.clear();
        for (const ScannedLine& line : lines) {
            lexLine(source.program, source.program.list, axes, line.code,
                    {source.inclusion, line.lineNumber});
        }
        benchmark::DoNotOptimize(source.program.list.tokens.data());
    }
    countBytes(state, mixedText().size());
}
BENCHMARK(lexing);

/// A folder with files that are converted, gone at the end.
class Folder {
public:
    explicit Folder(const Corpus& files)
        : path_(std::filesystem::temp_directory_path() / "torvel-stage-benchmarks") {
        for (const CorpusFile& file : files) {
            const std::filesystem::path path = path_ / file.path;
            std::filesystem::create_directories(path.parent_path());
            std::ofstream(path, std::ios::binary) << file.text;
            bytes_ += file.text.size();
        }
    }
    ~Folder() { std::filesystem::remove_all(path_); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;

    std::string program() const { return (path_ / "main.pgm").string(); }
    std::string directory() const { return path_.string(); }
    std::size_t bytes() const { return bytes_; }

private:
    std::filesystem::path path_;
    std::size_t bytes_ = 0;
};

void preprocessFiles(benchmark::State& state, const std::vector<std::string>& families) {
    const Folder folder(generateCorpus({corpusBytes, 1, families}));
    const AxisNames axes;
    for (auto _ : state) {
        Program program;
        preprocessProgram(program, folder.program(), axes, Limits());
        benchmark::DoNotOptimize(program.list.lines.data());
    }
    countBytes(state, folder.bytes());
}
BENCHMARK_CAPTURE(preprocessFiles, plain, {});
BENCHMARK_CAPTURE(preprocessFiles, withDefines, {"assignments", "comments", "defines", "includes"});

void translatingExpressions(benchmark::State& state) {
    const CorpusOptions options{corpusBytes, 1, {"expressions"}};
    const std::string text = generateCorpus(options)[0].text;
    MemoryProgram source(text);
    const AxisNames axes;
    const Limits limits;
    LineList& list = source.program.list;
    for (const ScannedLine& line : source.split()) {
        list.lines.push_back({line.text,
                              {},
                              static_cast<std::uint32_t>(list.tokens.size()),
                              line.lineNumber,
                              source.inclusion});
        lexLine(source.program, list, axes, line.code, list.lines.back().position());
    }
    for (auto _ : state) {
        MessageLog log;
        ConversionContext context{source.program, axes, limits, log, {}};
        ExpressionText out;
        for (std::size_t line = 0; line + 1 < list.lines.size(); ++line) {
            TokenCursor cursor(source.program, list.tokensOf(line));
            out.clear();
            translateExpression(context, cursor, out);  // "$x = ..." is an equality
            benchmark::DoNotOptimize(out.data());
        }
        if (!log.empty()) {
            throw std::logic_error(log[0].text);
        }
    }
    countBytes(state, text.size());
}
BENCHMARK(translatingExpressions);

void wholeConversion(benchmark::State& state, const std::vector<std::string>& families) {
    const Folder folder(generateCorpus({corpusBytes, 1, families}));
    for (auto _ : state) {
        const CommandResult result = runCommand({"-o", folder.directory(), folder.program()});
        if (result.status != 0) {
            throw std::runtime_error(result.standardError);
        }
    }
    countBytes(state, folder.bytes());
}
BENCHMARK_CAPTURE(wholeConversion, plain, {});
BENCHMARK_CAPTURE(wholeConversion, allUnconvertible, {"unconvertible"});

}  // namespace

}  // namespace torvel::bench

BENCHMARK_MAIN();
