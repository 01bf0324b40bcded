#include "bench/corpus-files.h"

#include <fstream>
#include <stdexcept>

namespace torvel::bench {

void writeCorpus(const Corpus& corpus, const std::filesystem::path& folder) {
    for (const CorpusFile& file : corpus) {
        const std::filesystem::path path = folder / file.path;
        std::filesystem::create_directories(path.parent_path());
        std::ofstream out(path, std::ios::binary);
        out << file.text;
        if (!out.flush()) {
            throw std::runtime_error("cannot write " + path.string());
        }
    }
}

}  // namespace torvel::bench
