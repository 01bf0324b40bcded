#include "bench/corpus-shares.h"

#include <algorithm>
#include <set>
#include <string_view>

namespace torvel::bench {

namespace {

constexpr std::string_view nameCharacters =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_";
constexpr std::string_view defineDirective = "#define ";

/// Calls `visit` with every line, without its line feed.
template <typename Visit>
void visitLines(const Corpus& corpus, Visit visit) {
    for (const CorpusFile& file : corpus) {
        std::string_view rest = file.text;
        while (!rest.empty()) {
            const std::size_t end = std::min(rest.find('\n'), rest.size());
            visit(rest.substr(0, end));
            rest.remove_prefix(std::min(end + 1, rest.size()));
        }
    }
}

std::string_view withoutIndentation(std::string_view line) {
    return line.substr(std::min(line.find_first_not_of(' '), line.size()));
}

/// What stands in front of a line's comment.
std::string_view codeOf(std::string_view line) {
    std::string_view code = withoutIndentation(line);
    if (code.starts_with("/*")) {
        code = withoutIndentation(code.substr(code.find("*/") + 2));
    }
    for (const std::string_view marker : {";", "//", "'"}) {
        code = code.substr(0, code.find(marker));
    }
    return code;
}

/// Calls `visit` with every word of letters, digits and "_".
template <typename Visit>
void visitWords(std::string_view code, Visit visit) {
    for (std::size_t start = code.find_first_of(nameCharacters); start != std::string_view::npos;) {
        const std::size_t end =
            std::min(code.find_first_not_of(nameCharacters, start), code.size());
        visit(code.substr(start, end - start));
        start = code.find_first_of(nameCharacters, end);
    }
}

}  // namespace

CorpusShares countShares(const Corpus& corpus) {
    CorpusShares shares;
    shares.files = corpus.size();
    for (const CorpusFile& file : corpus) {
        shares.bytes += file.text.size();
    }
    std::set<std::string_view> names;
    visitLines(corpus, [&](std::string_view line) {
        if (line.starts_with(defineDirective)) {
            ++shares.defines;
            const std::string_view rest = line.substr(defineDirective.size());
            names.insert(rest.substr(0, rest.find(' ')));
        }
    });
    visitLines(corpus, [&](std::string_view line) {
        ++shares.lines;
        const std::string_view code = codeOf(line);
        shares.commentLines += code.empty() && !withoutIndentation(line).empty() ? 1 : 0;
        if (!line.starts_with(defineDirective)) {
            bool used = false;
            visitWords(code, [&](std::string_view word) { used = used || names.contains(word); });
            shares.linesWithNames += used ? 1 : 0;
        }
    });
    return shares;
}

}  // namespace torvel::bench
