#pragma once

#include <cstdint>
#include <string_view>
#include <utility>
#include <vector>

#include "src/base/program.h"
#include "src/preprocess/cut-search.h"
#include "src/preprocess/define-table.h"
#include "src/preprocess/predefined-constants.h"

namespace torvel {

/// A piece of substituted text.
struct Piece {
    enum class Kind : std::uint8_t {
        plain,  // `text` is to be lexed
        token,  // `token` as it stands: a preserved define, an argument of a macro, the name of a call
        expansion,  // `range` are the pieces that stand here
    };
    Kind kind = Kind::plain;
    union {
        TextSpan text{};
        Token token;
        PieceRange range;
    };

    explicit Piece(TextSpan plain) : text(plain) {}
    explicit Piece(const Token& made) : kind(Kind::token), token(made) {}
    explicit Piece(PieceRange expansion) : kind(Kind::expansion), range(expansion) {}
};

/// Text with the names in it replaced, and how many bytes of it are its own and how many the names put in.
struct SubstitutedText {
    std::vector<Piece> pieces;
    std::uint64_t insertedBytes = 0;
    std::uint64_t plainBytes = 0;

    std::uint64_t bytes() const { return plainBytes + insertedBytes; }
    void clear() {
        pieces.clear();
        insertedBytes = plainBytes = 0;
    }
    /// Appends a text in which no name is looked for.
    void addPlain(TextSpan text) {
        if (!text.empty()) {
            pieces.emplace_back(text);
            plainBytes += text.length;
        }
    }
    void addToken(const Token& token) { pieces.emplace_back(token); }
};

/// Everything that names stand for in one run: the program's own defines and the predefined constants,
/// and the replacing of names in text.
///
/// The pieces of all expansions stand in one array. An expansion that uses another refers to its
/// pieces, so it takes no more room than its own text; visitPieces() follows the references.
class Defines {
public:
    Defines(Program& program, const PredefinedTable& predefined)
        : program_(program), predefined_(predefined), table_(*predefined.lengths) {}

    DefineTable& table() { return table_; }

    /// Appends to `out` the plain text of `text` and what the names in it stand for. Strings are plain
    /// text. A name is looked for at every boundary between letters, digits and other characters; the
    /// longest wins. False, and nothing is appended: there is no name in it.
    bool substitute(TextSpan text, SubstitutedText& out) {
        return substitute(text, program_.text.view(text), out);
    }
    /// The same where the bytes of the text are at hand.
    bool substitute(TextSpan text, std::string_view bytes, SubstitutedText& out) {
        return substituteText(text, bytes, predefined_.rows.size(), true, out);
    }

    /// Stores substituted text as what a name stands for. `bytes` is its size in a line.
    Expansion storeExpansion(const SubstitutedText& value, std::uint32_t bytes);

    /// The expansion that is one preserved define.
    Expansion storePreserved(TokenType type, const DefineTexts& texts);

    /// Calls `visit` with every plain piece and every token of `pieces` in order.
    template <typename Visit>
    void visitPieces(const std::vector<Piece>& pieces, Visit visit) const;

    /// A name of the program's that was replaced.
    struct Use {
        TextSpan name;
        /// By a preserved define, which the conversion may write by its name.
        bool isPreserved = false;
    };
    /// From now on the names that are replaced are told by uses(), until they are forgotten.
    void gatherUses() { gathersUses_ = true; }
    const std::vector<Use>& uses() const { return uses_; }
    void forgetUses() { uses_.clear(); }

    /// Whether the controller defines the name by itself.
    bool isPredefined(std::string_view name) const;
    /// Whether `name` counts as defined for a conditional: names of branches not taken do not.
    bool isDefined(std::string_view name);
    /// Whether `name` is a macro that can be called here.
    bool isMacro(std::string_view name);
    /// Whether `text`, of a TextStore, may begin with a name: most texts are told by their first bytes.
    bool mayBeginWithName(std::string_view text) {
        return !text.empty() &&
               (table_.lengths().mayBegin(text.data()) || !table_.longNames().empty());
    }

private:
    class NameFinder;

    const NameLengths& lengths(bool withProgramNames) const {
        return withProgramNames ? table_.lengths() : *predefined_.lengths;
    }
    const DefineTable::Entry* findInProgram(std::string_view name, std::uint64_t hash);
    const Expansion* find(std::string_view name, std::uint64_t hash, std::size_t rowLimit,
                          bool withProgramNames);
    const Expansion& predefinedExpansion(std::size_t row);
    bool substituteText(TextSpan text, std::string_view bytes, std::size_t rowLimit,
                        bool withProgramNames, SubstitutedText& out) {
        const NameLengths& known = lengths(withProgramNames);
        NameStarts starts(bytes, known);
        // Most texts without names are told here.
        return (starts.find() != bytes.data() + bytes.size() || known.hasOddNames ||
                !table_.longNames().empty()) &&
               replaceNames(text, bytes, starts, rowLimit, withProgramNames, out);
    }
    bool replaceNames(TextSpan text, std::string_view bytes, const NameStarts& starts,
                      std::size_t rowLimit, bool withProgramNames, SubstitutedText& out);

    struct Match {
        std::size_t length = 0;
        const Expansion* expansion = nullptr;
    };

    Program& program_;
    const PredefinedTable& predefined_;
    DefineTable table_;
    std::vector<Piece> pieces_;
    bool gathersUses_ = false;
    std::vector<Use> uses_;
    /// Expansions of the predefined constants that were met, by row.
    struct PredefinedExpansion {
        bool made = false;
        Expansion expansion;
    };
    std::vector<PredefinedExpansion> predefinedExpansions_;
};

template <typename Visit>
void Defines::visitPieces(const std::vector<Piece>& pieces, Visit visit) const {
    struct Range {
        const Piece* next;
        const Piece* end;
    };
    Range range = {pieces.data(), pieces.data() + pieces.size()};
    std::vector<Range> outer;
    while (true) {
        if (range.next == range.end) {
            if (outer.empty()) {
                return;
            }
            range = outer.back();
            outer.pop_back();
            continue;
        }
        const Piece& piece = *range.next++;
        if (piece.kind == Piece::Kind::expansion) {
            outer.push_back(range);
            const Piece* first = pieces_.data() + piece.range.first;
            range = {first, first + piece.range.count};
        } else {
            visit(piece);
        }
    }
}

}  // namespace torvel
