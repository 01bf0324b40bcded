#include "fuzz/mutation.h"

#include <algorithm>
#include <random>
#include <vector>

#include "fuzz/words.h"
#include "src/base/characters.h"

namespace torvel::fuzz {

namespace {

class Mutation {
public:
    Mutation(const Target& target, std::string_view text, unsigned seed)
        : target_(target), random_(seed) {
        cutIntoPieces(text);
    }

    std::string run() {
        const std::size_t steps = 1 + below(4);
        for (std::size_t i = 0; i < steps; ++i) {
            step();
        }
        std::string text;
        for (const std::string& piece : pieces_) {
            text += piece;
        }
        return text;
    }

private:
    std::size_t below(std::size_t bound) {
        return bound == 0 ? 0 : std::size_t{random_()} / 7 % bound;
    }

    /// Words, numbers, runs of blanks, strings and single characters.
    void cutIntoPieces(std::string_view text) {
        while (!text.empty()) {
            std::size_t length = 1;
            if (isWordCharacter(text[0]) || text[0] == '$' || text[0] == '#') {
                while (length < text.size() && isWordCharacter(text[length])) {
                    ++length;
                }
            } else if (isBlank(text[0])) {
                while (length < text.size() && isBlank(text[length])) {
                    ++length;
                }
            } else if (text[0] == '"') {
                length = std::min(text.find_first_of("\"\n", 1), text.size() - 1) + 1;
            }
            pieces_.emplace_back(text.substr(0, length));
            text.remove_prefix(length);
        }
    }

    const std::string& oneOf(const std::vector<std::string>& words) {
        static const std::string none = "X";
        return words.empty() ? none : words[below(words.size())];
    }

    const std::string& word() {
        const std::size_t choice = below(20);
        if (choice < 8 && !target_.words.empty()) {
            return oneOf(target_.words);
        }
        if (choice < 10 && !target_.leads.empty()) {
            return oneOf(target_.leads);
        }
        return choice < 18 ? oneOf(commonWords()) : oneOf(allKeywords());
    }

    void insert(std::size_t at, std::string text) {
        pieces_.insert(pieces_.begin() + static_cast<std::ptrdiff_t>(at), std::move(text));
    }
    void erase(std::size_t at, std::size_t count) {
        const auto first = pieces_.begin() + static_cast<std::ptrdiff_t>(at);
        pieces_.erase(first,
                      first + static_cast<std::ptrdiff_t>(std::min(count, pieces_.size() - at)));
    }

    /// The first piece of a line.
    std::size_t lineStart() {
        std::size_t at = below(pieces_.size() + 1);
        while (at > 0 && pieces_[at - 1] != "\n") {
            --at;
        }
        return at;
    }

    void insertLine() {
        std::string line = oneOf(target_.leads);
        for (std::size_t count = below(9); count > 0; --count) {
            line += (below(8) == 0 ? "" : " ") + word();
        }
        insert(lineStart(), line + '\n');
    }

    void step() {
        const std::size_t at = below(pieces_.size());
        if (pieces_.empty()) {
            insertLine();
            return;
        }
        switch (below(12)) {
            case 0:
            case 1:
            case 2: insert(below(pieces_.size() + 1), (below(4) == 0 ? "" : " ") + word()); break;
            case 3:
            case 4: pieces_[at] = word(); break;
            case 5: erase(at, 1 + below(3)); break;
            case 6: {
                const std::vector<std::string> range(
                    pieces_.begin() + static_cast<std::ptrdiff_t>(at),
                    pieces_.begin() +
                        static_cast<std::ptrdiff_t>(std::min(at + 1 + below(8), pieces_.size())));
                const auto to = static_cast<std::ptrdiff_t>(below(pieces_.size() + 1));
                pieces_.insert(pieces_.begin() + to, range.begin(), range.end());
                break;
            }
            case 7: std::swap(pieces_[at], pieces_[below(pieces_.size())]); break;
            case 8:
                pieces_.insert(pieces_.begin() + static_cast<std::ptrdiff_t>(at),
                               below(20) == 0 ? 80 : 1 + below(4), pieces_[at]);
                break;
            case 9:
                if (const std::size_t start = lineStart(); start < pieces_.size()) {
                    pieces_[start] = oneOf(target_.leads);
                }
                break;
            default: insertLine(); break;
        }
    }

    const Target& target_;
    std::minstd_rand random_;
    std::vector<std::string> pieces_;
};

}  // namespace

std::string mutateWords(const Target& target, std::string_view text, unsigned seed) {
    return Mutation(target, text, seed).run();
}

}  // namespace torvel::fuzz
