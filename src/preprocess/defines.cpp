// Substitution goes through a text word by word, a word being what stands between white space and
// strings. Inside a word, names may begin and end at its cuts: between any two characters that are
// not both letters, digits, "$" or "_", between a letter and a digit, and in front of a "$". At each
// cut the longest name wins, and cutting goes on behind it.
//
// Only spans that a name could be are looked up: the lengths of the names that begin with a span's
// first two characters are known, and one hash runs along. Where names begin with a letter, "_" or "$",
// and none is very long, cuts are told for many bytes at once (cut-search.h).

#include "src/preprocess/defines.h"

#include <algorithm>
#include <array>
#include <bit>
#include <optional>

#include "src/base/characters.h"
#include "src/base/hash.h"
#include "src/preprocess/cut-search.h"
#include "src/preprocess/name-cuts.h"

namespace torvel {

namespace {

/// A character's class as one bit, and the classes of the characters that go on behind it without a cut.
struct CutClasses {
    std::uint8_t own = 0;
    std::uint8_t joined = 0;
};

enum CutClass : std::uint8_t {
    letterCut = 1,
    digitCut = 2,
    underscoreCut = 4,
    dollarCut = 8,
    gapCut = 16,  // white space and quotes, which end a word
    otherCut = 32,
};

constexpr CutClasses cutClassesOfCharacter(char c) {
    if (isLetter(c)) {
        return {letterCut, letterCut | underscoreCut};
    }
    if (isDigit(c)) {
        return {digitCut, digitCut | underscoreCut};
    }
    if (c == '_') {
        return {underscoreCut, letterCut | digitCut | underscoreCut};
    }
    if (c == '$') {
        return {dollarCut, letterCut | digitCut | underscoreCut | dollarCut};
    }
    return {isWhiteSpace(c) || c == '"' ? gapCut : otherCut, 0};
}

constexpr std::array<CutClasses, 256> cutClasses = []() {
    std::array<CutClasses, 256> table{};
    for (unsigned c = 0; c < table.size(); ++c) {
        table[c] = cutClassesOfCharacter(static_cast<char>(c));
    }
    return table;
}();

const CutClasses& cutClassesOf(char c) {
    return cutClasses[static_cast<unsigned char>(c)];
}

bool isGap(char c) {
    return cutClassesOf(c).own == gapCut;
}

}  // namespace

bool isCut(char a, char b) {
    return (cutClassesOf(a).joined & cutClassesOf(b).own) == 0;
}

namespace {

/// Where the first cut behind `at` is, or `limit`.
const char* findCut(const char* at, const char* limit) {
    std::uint8_t joined = cutClassesOf(*at).joined;
    while (++at != limit) {
        const CutClasses classes = cutClassesOf(*at);
        if ((joined & classes.own) == 0) {
            break;
        }
        joined = classes.joined;
    }
    return at;
}

/// The length of the word that `text` begins with.
std::size_t wordLength(std::string_view text) {
    std::size_t length = 0;
    while (length < text.size() && !isGap(text[length])) {
        ++length;
    }
    return length;
}

}  // namespace

/// Looks for names in one text, from left to right.
class Defines::NameFinder {
public:
    /// `starts` are those of the text.
    NameFinder(Defines& defines, std::string_view text, const NameStarts& starts,
               std::size_t rowLimit, bool withProgramNames)
        : defines_(defines),
          text_(text),
          rowLimit_(rowLimit),
          withProgramNames_(withProgramNames),
          lengths_(defines.lengths(withProgramNames)),
          starts_(starts),
          hasLongNames_(withProgramNames && !defines.table_.longNames().empty()) {}

    /// The first name at or behind `at`, which is a cut; its place is then `at`. No expansion: there is
    /// none.
    Match next(std::size_t& at) {
        if (lengths_.hasOddNames || hasLongNames_) [[unlikely]] {
            return nextOfAny(at);
        }
        const char* const begin = text_.data();
        const char* const end = begin + text_.size();
        starts_.moveTo(begin + at);
        while (true) {
            const char* const start = starts_.find();
            if (start == end) {
                return {};
            }
            if (*start == '"') {
                starts_.moveTo(behindString(start));
                continue;
            }
            if (start == begin || isCut(start[-1], *start)) {
                if (const Match match = longestAt(start); match.expansion != nullptr) {
                    at = static_cast<std::size_t>(start - begin);
                    return match;
                }
            }
            starts_.stepOver();
        }
    }

private:
    /// Behind the string that begins at `quote`, or the end.
    const char* behindString(const char* quote) const {
        const char* const end = text_.data() + text_.size();
        const char* const closing = std::find(quote + 1, end, '"');
        return closing == end ? end : closing + 1;
    }

    /// The same where names begin with any character, or are long.
    Match nextOfAny(std::size_t& at) {
        const std::array<bool, 256>& begins = lengths_.begins;
        const char* const begin = text_.data();
        const char* const end = begin + text_.size();
        const char* place = begin + at;
        while (true) {
            while (place != end && !begins[static_cast<unsigned char>(*place)]) {
                ++place;
            }
            if (place == end) {
                return {};
            }
            if (*place == '"') {
                place = behindString(place);
                continue;
            }
            if (place == begin || isCut(place[-1], *place)) {
                at = static_cast<std::size_t>(place - begin);
                if (hasLongNames_) {
                    if (const Match match = longName(at); match.expansion != nullptr) {
                        return match;
                    }
                }
                if (const Match match = longestOfAny(place); match.expansion != nullptr) {
                    return match;
                }
            }
            place = findCut(place, end);
        }
    }

    /// The longest name at `start`, a cut.
    Match longestAt(const char* start) {
        const char* const end = text_.data() + text_.size();
        const CutDistances distances = cutsBehind(start, end);
        const std::uint64_t lengths = lengths_.of(start[0], start[1]) & distances.inWord;
        if (lengths >> CutDistances::known != 0) [[unlikely]] {
            return longestOfAny(start);
        }
        return longestOf(start, lengths & distances.cuts & ~std::uint64_t{1});
    }

    /// The longest name at `begin` of one of the lengths.
    Match longestOf(const char* begin, std::uint64_t lengths) {
        Match best;
        std::uint64_t hash = fnvOffsetBasis;
        const char* hashed = begin;
        for (; lengths != 0; lengths &= lengths - 1) {
            const auto length = static_cast<std::size_t>(std::countr_zero(lengths));
            for (; hashed != begin + length; ++hashed) {
                hash = extendHash(hash, *hashed);
            }
            if (const Expansion* expansion = find({begin, length}, hash)) {
                best = {length, expansion};
            }
        }
        return best;
    }

    /// The longest name at `begin`, whatever names are made of.
    Match longestOfAny(const char* begin) {
        const auto room = static_cast<std::size_t>(text_.data() + text_.size() - begin);
        const std::uint64_t lengths = lengths_.of(begin[0], room > 1 ? begin[1] : '\0');
        if (lengths >> 1U == 0) {
            return {};
        }
        const char* const limit = begin + std::min(room, NameLengths::bits);
        Match best;
        std::uint64_t hash = fnvOffsetBasis;
        const char* hashed = begin;
        const char* cut = findCut(begin, limit);
        while (true) {
            const auto length = static_cast<std::size_t>(cut - begin);
            if (length >= NameLengths::bits) {
                return best;
            }
            if ((lengths >> length & 1U) != 0) {
                for (; hashed != cut; ++hashed) {
                    hash = extendHash(hash, *hashed);
                }
                if (const Expansion* expansion = find({begin, length}, hash)) {
                    best = {length, expansion};
                }
            }
            if (lengths >> length <= 1 || cut == limit || isGap(*cut)) {
                return best;
            }
            cut = findCut(cut, limit);
        }
    }

    /// A name that is longer than the lengths tell.
    Match longName(std::size_t start) {
        if (start >= wordEnd_) {
            wordStart_ = start;
            wordEnd_ = start + wordLength(text_.substr(start));
            longNames_.reset();
        }
        if (wordEnd_ - start < LongNames::shortest) {
            return {};
        }
        if (!longNames_) {
            longNames_.emplace(defines_.table_.longNames(),
                               text_.substr(wordStart_, wordEnd_ - wordStart_));
        }
        longNames_->moveTo(start - wordStart_);
        while (const LongName* name = longNames_->next()) {
            if (const Expansion* expansion = find(name->text, name->hash)) {
                return {name->text.size(), expansion};
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
    NameStarts starts_;
    bool hasLongNames_;
    /// The long names in the word from `wordStart_` to `wordEnd_`.
    std::optional<LongNameSearch> longNames_;
    std::size_t wordStart_ = 0;
    std::size_t wordEnd_ = 0;
};

/// What the program has made of `name`, a branch that was not taken if nothing else; null: nothing.
const DefineTable::Entry* Defines::findInProgram(std::string_view name, std::uint64_t hash) {
    const DefineTable::Entry* entry = table_.find(name, hash);
    if (entry != nullptr &&
        (entry->kind != DefineTable::Kind::undefined || !table_.isProgramWide(*entry))) {
        return entry;
    }
    const DefineTable::Entry* untaken = table_.findUntaken(name, hash);
    return untaken != nullptr ? untaken : entry;
}

/// What `name` stands for: the program's names first, then the predefined ones in front of row
/// `rowLimit`.
const Expansion* Defines::find(std::string_view name, std::uint64_t hash, std::size_t rowLimit,
                               bool withProgramNames) {
    if (withProgramNames) {
        const DefineTable::Entry* entry = table_.find(name, hash);
        if (entry != nullptr && entry->kind == DefineTable::Kind::define) {
            return &entry->expansion;
        }
        entry = findInProgram(name, hash);
        if (entry != nullptr) {
            return entry->kind == DefineTable::Kind::define ? &entry->expansion : nullptr;
        }
    }
    if (const auto row = findPredefined(predefined_, name, hash); row && *row < rowLimit) {
        return &predefinedExpansion(*row);
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
        program_.predefinedTexts.enter(value, predefined_.isComposed(row));
        Expansion expansion;
        if (constant.replacement != nullptr) {
            expansion = storePreserved(TokenType::NUMBER_DEFINE,
                                       {value, program_.text.add(constant.replacement)});
        } else {
            SubstitutedText substituted;
            if (!substituteText(value, program_.text.view(value), row, false, substituted)) {
                substituted.addPlain(value);
            }
            expansion =
                storeExpansion(substituted, static_cast<std::uint32_t>(substituted.bytes()));
        }
        predefinedExpansions_[row] = {true, expansion};
    }
    return predefinedExpansions_[row].expansion;
}

bool Defines::replaceNames(TextSpan text, std::string_view bytes, const NameStarts& starts,
                           std::size_t rowLimit, bool withProgramNames, SubstitutedText& out) {
    NameFinder names(*this, bytes, starts, rowLimit, withProgramNames);
    std::size_t at = 0;
    std::size_t plainStart = 0;
    bool isFound = false;
    while (true) {
        const Match match = names.next(at);
        if (match.expansion == nullptr) {
            break;
        }
        isFound = true;
        const Expansion expansion = *match.expansion;
        out.addPlain(text.subspan(plainStart, at - plainStart));
        if (gathersUses_ && withProgramNames) [[unlikely]] {
            const bool isToken = expansion.pieces.count == 1 &&
                                 pieces_[expansion.pieces.first].kind == Piece::Kind::token;
            uses_.push_back({text.subspan(at, match.length), isToken});
        }
        if (expansion.pieces.count == 1) {
            out.pieces.push_back(pieces_[expansion.pieces.first]);
        } else if (expansion.pieces.count > 1) {
            out.pieces.emplace_back(expansion.pieces);
        }
        out.insertedBytes += expansion.bytes;
        at += match.length;
        plainStart = at;
    }
    if (isFound) {
        out.addPlain(text.subspan(plainStart, text.length - plainStart));
    }
    return isFound;
}

Expansion Defines::storeExpansion(const SubstitutedText& value, std::uint32_t bytes) {
    const auto first = static_cast<std::uint32_t>(pieces_.size());
    pieces_.insert(pieces_.end(), value.pieces.begin(), value.pieces.end());
    return {{first, static_cast<std::uint32_t>(value.pieces.size())}, bytes};
}

Expansion Defines::storePreserved(TokenType type, const DefineTexts& texts) {
    const auto first = static_cast<std::uint32_t>(pieces_.size());
    pieces_.emplace_back(makeDefineToken(program_, type, texts));
    return {{first, 1}, std::max(texts.value.length, std::uint32_t{1})};
}

bool Defines::isPredefined(std::string_view name) const {
    return findPredefined(predefined_, name, hashText(name)).has_value();
}

bool Defines::isDefined(std::string_view name) {
    const std::uint64_t hash = hashText(name);
    if (const DefineTable::Entry* entry = table_.find(name, hash)) {
        return entry->kind != DefineTable::Kind::undefined;
    }
    return findPredefined(predefined_, name, hash).has_value();
}

bool Defines::isMacro(std::string_view name) {
    const DefineTable::Entry* entry = findInProgram(name, hashText(name));
    return entry != nullptr && entry->kind == DefineTable::Kind::macro;
}

}  // namespace torvel
