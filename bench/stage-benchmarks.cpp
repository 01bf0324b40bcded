// Throughput of each stage by itself, in bytes of source per second, on a generated program; and of the
// conversion of each family of statements.

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>

#include "bench/corpus-files.h"
#include "bench/corpus.h"
#include "src/app/command.h"
#include "src/app/conversion.h"
#include "src/app/output-layout.h"
#include "src/expr/expressions.h"
#include "src/lex/lexer.h"
#include "src/preprocess/defines.h"
#include "src/preprocess/line-splitter.h"
#include "src/preprocess/preprocessor.h"
#include "src/stmt/statement.h"

namespace torvel::bench {

namespace {

constexpr std::size_t corpusBytes = std::size_t{1} << 20U;

void countBytes(benchmark::State& state, std::size_t bytes) {
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes) * state.iterations());
}

/// A folder with files that are converted, in memory where that is possible, and gone at the end.
class Folder {
public:
    explicit Folder(const Corpus& files) {
        const std::filesystem::path inMemory = "/dev/shm";
        path_ = (std::filesystem::is_directory(inMemory) ? inMemory
                                                         : std::filesystem::temp_directory_path()) /
                "torvel-stage-benchmarks";
        writeCorpus(files, path_);
        for (const CorpusFile& file : files) {
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

/// A generated program in memory: preprocessed, and its files' lines as the splitter finds them.
struct Sample {
    explicit Sample(const std::vector<std::string>& families) : Sample(families, corpusBytes) {}
    Sample(const std::vector<std::string>& families, std::size_t size) {
        const Folder folder(generateCorpus({size, 1, families}));
        bytes = folder.bytes();
        program.lines.setPartSize(SIZE_MAX);
        preprocessProgram(program, folder.program(), axes, limits);
        for (const Inclusion& inclusion : program.inclusions) {
            LineSplitter splitter(program, inclusion);
            for (ScannedLine line; splitter.next(line);) {
                lines.push_back(line);
            }
        }
    }

    Program program;
    AxisNames axes;
    Limits limits;
    std::size_t bytes = 0;
    std::vector<ScannedLine> lines;
};

Sample& everyFamily() {
    static Sample sample({});
    return sample;
}

void readingFiles(benchmark::State& state) {
    const Folder folder(generateCorpus({corpusBytes, 1, {}}));
    std::string text;
    for (auto _ : state) {
        for (const auto& entry :
             std::filesystem::recursive_directory_iterator(folder.directory())) {
            if (entry.is_regular_file()) {
                InputFile file;
                bool failed = !file.open(entry.path());
                text.resize(static_cast<std::size_t>(file.size()));
                file.read(text.data(), text.size(), failed);
                benchmark::DoNotOptimize(text.data());
            }
        }
    }
    countBytes(state, folder.bytes());
}
BENCHMARK(readingFiles);

void splitting(benchmark::State& state) {
    Sample& sample = everyFamily();
    for (auto _ : state) {
        for (const Inclusion& inclusion : sample.program.inclusions) {
            LineSplitter splitter(sample.program, inclusion);
            for (ScannedLine line; splitter.next(line);) {
                benchmark::DoNotOptimize(line);
            }
        }
    }
    countBytes(state, sample.bytes);
}
BENCHMARK(splitting);

/// The lines of the program, with the names of its own defines and the predefined ones.
void substituting(benchmark::State& state) {
    Sample& sample = everyFamily();
    Defines defines(sample.program, predefinedConstants());
    constexpr std::string_view directive = "#define ";
    for (const ScannedLine& line : sample.lines) {
        const std::string_view code = sample.program.text.view(line.code);
        if (code.starts_with(directive)) {
            const std::string_view rest = code.substr(directive.size());
            const std::string_view name = rest.substr(0, rest.find(' '));
            const TextSpan text = sample.program.text.add(name);
            defines.table().enter(name, DefineTable::Kind::define,
                                  defines.storePreserved(TokenType::NUMBER_DEFINE,
                                                         {text, sample.program.text.add("1")}));
        }
    }
    SubstitutedText cut;
    for (auto _ : state) {
        for (const ScannedLine& line : sample.lines) {
            defines.substitute(line.code, cut);
            benchmark::DoNotOptimize(cut.pieces.data());
        }
    }
    countBytes(state, sample.bytes);
}
BENCHMARK(substituting);

void lexing(benchmark::State& state) {
    Sample& sample = everyFamily();
    GrowingArray<Token> tokens;
    for (auto _ : state) {
        for (const ScannedLine& line : sample.lines) {
            tokens.clear();
            if (!sample.program.text.view(line.code).starts_with('#')) {
                lexLine(sample.program.text, sample.axes, line.code, {}, tokens);
            }
            benchmark::DoNotOptimize(tokens.data());
        }
    }
    countBytes(state, sample.bytes);
}
BENCHMARK(lexing);

/// Reading, splitting, directives and substitution together.
void preprocessing(benchmark::State& state) {
    const Folder folder(generateCorpus({corpusBytes, 1, {}}));
    const AxisNames axes;
    for (auto _ : state) {
        Program program;
        preprocessProgram(program, folder.program(), axes, Limits());
        benchmark::DoNotOptimize(program.lines.size());
    }
    countBytes(state, folder.bytes());
}
BENCHMARK(preprocessing);

/// Expressions alone: "$x = ..." is an equality.
void expressions(benchmark::State& state) {
    Sample sample({"expressions"});
    const LineList& list = sample.program.lines.part(0).list;
    ExpressionText out;
    GrowingArray<Token> room;
    for (auto _ : state) {
        MessageLog log;
        ConversionContext context{sample.program, sample.axes, sample.limits, log, {}};
        for (std::size_t line = 0; line + 1 < list.lines.size(); ++line) {
            out.clear();
            Statement statement{context,
                                TokenCursor(sample.program, tokensOf(sample.program, list, line,
                                                                     sample.axes, room)),
                                out};
            translateExpression(statement, out);
            benchmark::DoNotOptimize(out.data());
        }
        if (!log.empty()) {
            state.SkipWithError("an expression is refused");
        }
    }
    countBytes(state, sample.bytes);
}
BENCHMARK(expressions);

/// Indentation, comments, markers and writing of lines whose statements are converted.
void layout(benchmark::State& state) {
    Sample& sample = everyFamily();
    struct Converted {
        std::optional<StatementText> text;
        BlockEffect effect{};
    };
    std::vector<Converted> converted;
    GrowingArray<Token> room;
    StatementText text;
    MessageLog log;
    ConversionContext context{sample.program, sample.axes, sample.limits, log, {}};
    const LineList& list = sample.program.lines.part(0).list;
    for (std::size_t line = 0; line < list.lines.size(); ++line) {
        Converted& row = converted.emplace_back();
        if (convertStatement(context, tokensOf(sample.program, list, line, sample.axes, room), text,
                             row.effect)) {
            row.text = text;
        }
    }
    const Folder folder({});
    std::filesystem::create_directories(folder.directory());
    for (auto _ : state) {
        OutputFile file;
        if (!file.open(folder.directory() + "/out")) {
            state.SkipWithError("the output cannot be opened");
        }
        OutputLayout output;
        for (std::size_t line = 0; line < list.lines.size(); ++line) {
            const Converted& row = converted[line];
            output.write(sample.program, list, line, row.text, row.effect, file.buffer());
        }
        file.close();
    }
    countBytes(state, sample.bytes);
}
BENCHMARK(layout);

/// From code to Torvel text, lexing and messages included.
void convertStatements(benchmark::State& state, const std::string& family) {
    Sample sample({family});
    const LineList& list = sample.program.lines.part(0).list;
    GrowingArray<Token> room;
    StatementText text;
    for (auto _ : state) {
        MessageLog log;
        ConversionContext context{sample.program, sample.axes, sample.limits, log, {}};
        for (std::size_t line = 0; line < list.lines.size(); ++line) {
            BlockEffect effect{};
            convertStatement(context, tokensOf(sample.program, list, line, sample.axes, room), text,
                             effect);
            benchmark::DoNotOptimize(text.data());
        }
    }
    countBytes(state, sample.bytes);
}

/// The whole run, files read and written.
void convertFiles(benchmark::State& state, const std::vector<std::string>& families) {
    const Folder folder(generateCorpus({corpusBytes, 1, families}));
    for (auto _ : state) {
        const CommandResult result = runCommand({"-o", folder.directory(), folder.program()});
        if (result.status != 0) {
            state.SkipWithError(result.standardError.c_str());
        }
    }
    countBytes(state, folder.bytes());
}
BENCHMARK_CAPTURE(convertFiles, everyFamily, {});

void registerFamilies() {
    for (const std::string_view name : corpusFamilies()) {
        const std::string family(name);
        if (family == "includes") {
            continue;  // no lines of its own
        }
        benchmark::RegisterBenchmark(("statements/" + family).c_str(), convertStatements, family);
    }
    for (const std::string_view name : corpusFamilies()) {
        const std::string family(name);
        if (family == "includes") {
            continue;
        }
        benchmark::RegisterBenchmark(("wholeRun/" + family).c_str(), convertFiles,
                                     std::vector<std::string>{family});
    }
}

}  // namespace

}  // namespace torvel::bench

int main(int argc, char** argv) {
    torvel::bench::registerFamilies();
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 1;
    }
    benchmark::RunSpecifiedBenchmarks();
}
