#include "tests/property/programs.h"

#include <filesystem>

#include "bench/corpus.h"
#include "tests/support/case-run.h"
#include "tests/support/escapes.h"
#include "tests/support/temporary-directory.h"

namespace torvel::test {

namespace {

namespace fs = std::filesystem;

SampleProgram generated(const std::string& name, const bench::CorpusOptions& options) {
    SampleProgram sample{name, "main.pgm", {}};
    for (const bench::CorpusFile& file : bench::generateCorpus(options)) {
        sample.files.push_back({file.path, file.text});
    }
    return sample;
}

void addGenerated(std::vector<SampleProgram>& samples) {
    for (std::uint64_t seed = 1; seed <= 3; ++seed) {
        samples.push_back(generated("generated " + std::to_string(seed),
                                    {std::size_t{20'000} << seed, seed, {}}));
    }
    bench::CorpusOptions everything{100'000, 4, {}};
    for (const std::string_view family : bench::corpusFamilies()) {
        everything.families.emplace_back(family);
    }
    samples.push_back(generated("generated of every family", everything));
}

/// Every program of the examples: a main.pgm, with all files of its folder.
void addExamples(std::vector<SampleProgram>& samples) {
    const fs::path root = fs::path(TORVEL_SOURCE_DIR) / "examples";
    for (const auto& entry : fs::recursive_directory_iterator(root)) {
        if (entry.path().filename() != "main.pgm") {
            continue;
        }
        const fs::path folder = entry.path().parent_path();
        SampleProgram sample{folder.lexically_relative(TORVEL_SOURCE_DIR).string(), "main.pgm", {}};
        for (const auto& file : fs::recursive_directory_iterator(folder)) {
            if (file.is_regular_file()) {
                sample.files.push_back(
                    {file.path().lexically_relative(folder).string(), readFile(file.path())});
            }
        }
        samples.push_back(sample);
    }
}

/// The golden cases that convert with default axes and limits, and need no more than their files.
void addGoldenCases(std::vector<SampleProgram>& samples) {
    const fs::path root = fs::path(TORVEL_SOURCE_DIR) / "tests/golden";
    visitCases(
        root, [&](const std::string& subject, const std::string& name, const fs::path& path) {
            const Case test = readCase(path);
            const bool isPlain = test.links.empty() && test.hardLinks.empty() && !test.hasLimits;
            if (test.expected.status == 0 && isPlain && test.arguments.size() == 3) {
                samples.push_back({"golden " + subject + "." + name,
                                   replaceAll(test.arguments.back(), "{dir}/", ""), test.files});
            }
        });
}

}  // namespace

const std::vector<SampleProgram>& samplePrograms() {
    static const std::vector<SampleProgram> samples = [] {
        std::vector<SampleProgram> made;
        addGenerated(made);
        addExamples(made);
        addGoldenCases(made);
        return made;
    }();
    return samples;
}

}  // namespace torvel::test
