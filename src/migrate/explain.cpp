#include "src/migrate/explain.h"

#include <algorithm>
#include <map>

#include "src/base/characters.h"
#include "src/migrate/explanations.h"
#include "src/migrate/text-decoding.h"
#include "src/migrate/text-layout.h"

namespace torvel::migrate {

namespace {

constexpr std::size_t mostSimilar = 5;
/// Longer words are no codes, and comparing them would take long.
constexpr std::size_t longestWord = 200;

std::string lowered(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), lowerCase);
    return result;
}

/// How many letters have to be put in, left out or exchanged to make one word of the other.
std::size_t distance(std::string_view left, std::string_view right) {
    std::vector<std::size_t> row(right.size() + 1);
    for (std::size_t i = 0; i < row.size(); ++i) {
        row[i] = i;
    }
    for (std::size_t i = 0; i < left.size(); ++i) {
        std::size_t diagonal = row[0];
        row[0] = i + 1;
        for (std::size_t j = 0; j < right.size(); ++j) {
            const std::size_t exchanged = diagonal + (left[i] == right[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({exchanged, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

}  // namespace

std::optional<std::string> explainedCode(std::string_view code, std::size_t width) {
    const auto entry = explanations().find(lowered(code));
    if (entry == explanations().end()) {
        return std::nullopt;
    }
    const Explanation& explanation = entry->second;
    const std::string text =
        wrapped(explanation.title, width) + '\n' + plainMarkdown(explanation.body, width) + '\n';
    if (explanation.sectionText.empty()) {
        return text + wrapped(explanation.section + '.', width);
    }
    return text + wrapped(explanation.section + ':', width) +
           plainMarkdown(explanation.sectionText, width);
}

std::vector<std::string> similarCodes(std::string_view code) {
    const std::string word = lowered(code.substr(0, longestWord));
    std::multimap<std::size_t, std::string> byDistance;
    for (const auto& [known, explanation] : explanations()) {
        const std::size_t far = std::max<std::size_t>(2, word.size() / 4);
        const std::size_t letters = distance(word, known);
        const bool isPart =
            word.size() >= 3 && (known.find(word) != std::string::npos ||
                                 lowered(explanation.title).find(word) != std::string::npos);
        if (letters <= far) {
            byDistance.emplace(letters, known);
        } else if (isPart) {
            byDistance.emplace(far + 1, known);
        }
    }
    std::vector<std::string> codes;
    for (const auto& [letters, known] : byDistance) {
        if (codes.size() < mostSimilar) {
            codes.push_back(known);
        }
    }
    return codes;
}

std::string unknownCodeMessage(std::string_view code) {
    std::string text = "There is no message or check with the code '" +
                       visibleText(decodedText(code.substr(0, longestWord))) + "'.";
    const std::vector<std::string> codes = similarCodes(code);
    if (codes.empty()) {
        return text + " `torvel-migrate explain --list` shows all.";
    }
    text += " Did you mean ";
    for (std::size_t i = 0; i < codes.size(); ++i) {
        if (i > 0) {
            text += i + 1 == codes.size() ? " or " : ", ";
        }
        text += codes[i];
    }
    return text + '?';
}

std::string listOfCodes(std::size_t width) {
    std::map<std::string, std::string> sections;
    for (const auto& [code, explanation] : explanations()) {
        std::string& lines = sections[explanation.section];
        lines += wrapped(code, width, "  ");
        lines += wrapped(explanation.title, width, "      ", "      ");
    }
    std::string text;
    for (const auto& [section, lines] : sections) {
        text += text.empty() ? "" : "\n";
        text += section;
        text += '\n';
        text += lines;
    }
    return text;
}

}  // namespace torvel::migrate
