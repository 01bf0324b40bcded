// Substitution goes through a text word by word, a word being what stands between white space and
// strings. Inside a word, names may begin and end at its cuts: between any two characters that are
// not both letters, digits, "$" or "_", between a letter and a digit, and in front of a "$". At each
// cut the longest name wins, and cutting goes on behind it.
//
// Only spans that a name could be are looked up: the lengths of the names that begin with a span's
// first two characters are known, and one hash runs along.

#include "src/preprocess/defines.h"

#include <algorithm>
#include <array>

#include "src/lex/characters.h"
#include "src/lex/hash.h"

namespace torvel {

namespace {

enum CutClass : std::uint8_t { otherCut, letterCut, digitCut, underscoreCut, dollarCut, gapCut };

/// How a character bears on cuts; white space and quotes end a word.
constexpr std::array<CutClass, 256> cutClasses = [] {
    std::array<CutClass, 256> classes{};
    for (unsigned c = 0; c < classes.size(); ++c) {
        const char character = static_cast<char>(c);
        classes[c] = isLetter(character)                           ? letterCut
                     : isDigit(character)                          ? digitCut
                     : character == '_'                            ? underscoreCut
                     : character == '$'                            ? dollarCut
                     : isWhiteSpace(character) || character == '"' ? gapCut
                                                                   : otherCut;
    }
    return classes;
}();

CutClass cutClassOf(char c) {
    return cutClasses[static_cast<unsigned char>(c)];
}

/// Whether a name may end behind a character of the first class and begin at one of the second.
constexpr std::array<std::array<bool, 6>, 6> cuts = [] {
    std::array<std::array<bool, 6>, 6> table{};
    for (std::uint8_t a = 0; a < 6; ++a) {
        for (std::uint8_t b = 0; b < 6; ++b) {
            const auto isWord = [](std::uint8_t c) { return c != otherCut && c != gapCut; };
            table[a][b] = !isWord(a) || !isWord(b) || (a == digitCut && b == letterCut) ||
                          (a == letterCut && b == digitCut) || (a != dollarCut && b == dollarCut);
        }
    }
    return table;
}();

bool isCut(char a, char b) {
    return cuts[cutClassOf(a)][cutClassOf(b)];
}

/// The length of the word that `text` begins with.
std::size_t wordLength(std::string_view text) {
    std::size_t length = 0;
    while (length < text.size() && cutClassOf(text[length]) != gapCut) {
        ++length;
    }
    return length;
}

}  // namespace

/// Looks for names in one text, from left to right.
class Defines::NameFinder {
public:
    NameFinder(Defines& defines, std::string_view text, std::size_t rowLimit, bool withProgramNames)
        : defines_(defines),
          text_(text),
          rowLimit_(rowLimit),
          withProgramNames_(withProgramNames),
          lengths_(withProgramNames ? defines.table_.lengths() : *defines.predefined_.lengths),
          hasLongNames_(withProgramNames && !defines.table_.longNames().lengths().empty()) {}

    /// The first name at or behind `at`; its place is then `at`. No expansion: there is none.
    Match next(std::size_t& at) {
        CutClass previous = gapCut;  // a word begins here, or a name has just ended
        for (; at < text_.size(); ++at) {
            const char c = text_[at];
            const CutClass current = cutClassOf(c);
            if (lengths_.begins[static_cast<unsigned char>(c)]) {
                if (cuts[previous][current]) {
                    if (const Match match = longestAt(at); match.expansion != nullptr) {
                        return match;
                    }
                }
            } else if (c == '"') {
                at = std::min(text_.find('"', at + 1), text_.size() - 1);
            }
            previous = current;
        }
        return {};
    }

private:
    /// Whether a name may end in front of the character `at`, which is not the first.
    bool isCutAt(std::size_t at) const {
        return at == text_.size() || isCut(text_[at - 1], text_[at]);
    }

    Match longestAt(std::size_t start) {
        if (hasLongNames_) {
            if (const Match match = longName(start); match.expansion != nullptr) {
                return match;
            }
        }
        Match best;
        std::uint64_t lengths =
            lengths_.of(text_[start], start + 1 < text_.size() ? text_[start + 1] : '\0');
        std::uint64_t hash = fnvOffsetBasis;
        for (std::size_t at = start; lengths != 0 && at < text_.size(); ++at) {
            if (cutClassOf(text_[at]) == gapCut) {
                break;
            }
            hash = extendHash(hash, text_[at]);
            lengths >>= 1U;
            if ((lengths & 1U) != 0 && isCutAt(at + 1)) {
                const std::size_t length = at + 1 - start;
                if (const Expansion* expansion = find(text_.substr(start, length), hash)) {
                    best = {length, expansion};
                }
                lengths ^= 1U;
            }
        }
        return best;
    }

    /// A name that is longer than the lengths tell.
    Match longName(std::size_t start) {
        if (start >= windowsEnd_) {
            windowsStart_ = start;
            windowsEnd_ = start + wordLength(text_.substr(start));
            windows_ = LongNameWindows(defines_.table_.longNames(),
                                       text_.substr(start, windowsEnd_ - start));
        }
        windows_.moveTo(start - windowsStart_);
        for (const std::size_t length : windows_.candidates()) {
            const std::string_view span = text_.substr(start, length);
            if (isCutAt(start + length)) {
                if (const Expansion* expansion = find(span, hashText(span))) {
                    return {length, expansion};
                }
            }
        }
        return {};
    }

    const Expansion* find(std::string_view name, std::uint64_t hash) {
        return defines_.find(name, hash, rowLimit_, withProgramNames_);
    }

    Defines& defines_;
    std::string_view text_;
    std::size_t rowLimit_;
    bool withProgramNames_;
    const NameLengths& lengths_;
    bool hasLongNames_;
    /// The long names' windows over the word from `windowsStart_` to `windowsEnd_`.
    LongNameWindows windows_;
    std::size_t windowsStart_ = 0;
    std::size_t windowsEnd_ = 0;
};

/// What `name` stands for: the program's names first, then the predefined ones in front of row
/// `rowLimit`, then those of branches that were not taken.
const Expansion* Defines::find(std::string_view name, std::uint64_t hash, std::size_t rowLimit,
                               bool withProgramNames) {
    const auto expansionOf = [](const DefineTable::Entry* entry) {
        return entry->kind == DefineTable::Kind::define ? &entry->expansion : nullptr;
    };
    if (withProgramNames) {
        if (const DefineTable::Entry* entry = table_.find(name, hash)) {
            if (entry->kind == DefineTable::Kind::undefined && table_.isProgramWide(*entry)) {
                entry = table_.findUntaken(name, hash);
            }
            return entry == nullptr ? nullptr : expansionOf(entry);
        }
    }
    if (const auto row = findPredefined(predefined_, name, hash); row && *row < rowLimit) {
        return &predefinedExpansion(*row);
    }
    if (withProgramNames) {
        if (const DefineTable::Entry* entry = table_.findUntaken(name, hash)) {
            return expansionOf(entry);
        }
    }
    return nullptr;
}

const Expansion& Defines::predefinedExpansion(std::size_t row) {
    if (predefinedExpansions_.empty()) {
        predefinedExpansions_.resize(predefined_.rows.size());
    }
    if (!predefinedExpansions_[row].made) {
        const PredefinedConstant& constant = predefined_.rows[row];
        const TextSpan value = program_.text.add(constant.value);
        Expansion expansion;
        if (constant.replacement != nullptr) {
            expansion = keepDefine(TokenType::NUMBER_DEFINE,
                                   {value, program_.text.add(constant.replacement)});
        } else {
            Cut cut;
            cutText(value, row, false, cut);
            expansion = keep(cut, static_cast<std::uint32_t>(cut.plainBytes + cut.insertedBytes));
        }
        predefinedExpansions_[row] = {true, expansion};
    }
    return predefinedExpansions_[row].expansion;
}

void Defines::cutText(TextSpan text, std::size_t rowLimit, bool withProgramNames, Cut& cut) {
    cut.pieces.clear();
    cut.insertedBytes = 0;
    cut.plainBytes = 0;
    const std::string_view all = program_.text.view(text);
    std::size_t plainStart = 0;
    const auto keepPlain = [&](std::size_t end) {
        if (end > plainStart) {
            cut.pieces.push_back({Piece::Kind::plain,
                                  {TokenType::INVALID, text.part(plainStart, end - plainStart)}});
            cut.plainBytes += end - plainStart;
        }
    };

    NameFinder names(*this, all, rowLimit, withProgramNames);
    std::size_t at = 0;
    for (Match match = names.next(at); match.expansion != nullptr; match = names.next(at)) {
        const Expansion expansion = *match.expansion;
        keepPlain(at);
        if (expansion.pieceCount == 1) {
            cut.pieces.push_back(pieces_[expansion.firstPiece]);
        } else if (expansion.pieceCount > 1) {
            cut.pieces.push_back(
                {Piece::Kind::expansion,
                 {TokenType::INVALID, {expansion.firstPiece, expansion.pieceCount}}});
        }
        cut.insertedBytes += expansion.bytes;
        at += match.length;
        plainStart = at;
    }
    keepPlain(all.size());
}

Expansion Defines::keep(const Cut& cut, std::uint32_t bytes) {
    const auto first = static_cast<std::uint32_t>(pieces_.size());
    pieces_.insert(pieces_.end(), cut.pieces.begin(), cut.pieces.end());
    return {first, static_cast<std::uint32_t>(cut.pieces.size()), bytes};
}

Expansion Defines::keepDefine(TokenType type, const DefineTexts& texts) {
    const auto first = static_cast<std::uint32_t>(pieces_.size());
    pieces_.push_back({Piece::Kind::define, makeDefineToken(program_, type, texts)});
    return {first, 1, std::max(texts.value.length, std::uint32_t{1})};
}

bool Defines::isDefined(std::string_view name) const {
    const std::uint64_t hash = hashText(name);
    if (const DefineTable::Entry* entry = table_.find(name, hash)) {
        return entry->kind != DefineTable::Kind::undefined;
    }
    return findPredefined(predefined_, name, hash).has_value();
}

bool Defines::isMacro(std::string_view name) const {
    const std::uint64_t hash = hashText(name);
    const DefineTable::Entry* entry = table_.find(name, hash);
    if (entry == nullptr ||
        (entry->kind == DefineTable::Kind::undefined && table_.isProgramWide(*entry))) {
        entry = table_.findUntaken(name, hash);
    }
    return entry != nullptr && entry->kind == DefineTable::Kind::macro;
}

}  // namespace torvel
