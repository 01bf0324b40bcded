#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "src/lex/program.h"
#include "src/preprocess/define-table.h"
#include "src/preprocess/predefined-constants.h"

namespace torvel {

/// A part of substituted text.
struct Piece {
    enum class Kind : std::uint8_t {
        plain,  // token.text is text to be lexed
        token,  // token as it stands: a preserved define, an argument of a macro, the name of a call
        expansion,  // token.text are the number of a first piece and a count
    };
    Kind kind = Kind::plain;
    Token token;
};

/// Everything that names stand for in one run: the program's own defines and the predefined constants,
/// and the cutting of text at the names.
///
/// The pieces of all expansions stand in one array. An expansion that uses another refers to its
/// pieces, so it takes no more room than its own text; visitPieces() follows the references.
class Defines {
public:
    Defines(Program& program, const PredefinedTable& predefined)
        : program_(program), predefined_(predefined), table_(*predefined.lengths) {}

    DefineTable& table() { return table_; }

    /// Text cut at the names, and the number of bytes that the names put into it.
    struct Cut {
        std::vector<Piece> pieces;
        std::uint64_t insertedBytes = 0;
        std::uint64_t plainBytes = 0;

        void clear() {
            pieces.clear();
            insertedBytes = plainBytes = 0;
        }
        /// Appends a text in which no name is looked for.
        void addPlain(TextSpan text) {
            if (!text.empty()) {
                pieces.push_back({Piece::Kind::plain, {TokenType::INVALID, text}});
                plainBytes += text.length;
            }
        }
        void addToken(const Token& token) { pieces.push_back({Piece::Kind::token, token}); }
    };

    /// Cuts `text` into plain text and what the names in it stand for, and appends that to `cut`. Strings
    /// are plain text. A name is looked for at every boundary between letters, digits and other
    /// characters; the longest wins. False, and nothing is appended: there is no name in it.
    bool substitute(TextSpan text, Cut& cut) {
        return cutText(text, predefined_.rows.size(), true, cut);
    }

    /// Keeps a cut text as what a name stands for. `bytes` is its size in a line.
    Expansion keep(const Cut& cut, std::uint32_t bytes);

    /// The expansion that is one preserved define.
    Expansion keepDefine(TokenType type, const DefineTexts& texts);

    /// Calls `visit` with every plain piece and every token of `pieces` in order.
    template <typename Visit>
    void visitPieces(const std::vector<Piece>& pieces, Visit visit) const;

    /// Whether `name` counts as defined for a conditional: names of branches not taken do not.
    bool isDefined(std::string_view name) const;
    /// Whether `name` is a macro that can be called here.
    bool isMacro(std::string_view name) const;

private:
    const DefineTable::Entry* findInProgram(std::string_view name, std::uint64_t hash) const;
    const Expansion* find(std::string_view name, std::uint64_t hash, std::size_t rowLimit,
                          bool withProgramNames);
    const Expansion& predefinedExpansion(std::size_t row);
    bool cutText(TextSpan text, std::size_t rowLimit, bool withProgramNames, Cut& cut);

    struct Match {
        std::size_t length = 0;
        const Expansion* expansion = nullptr;
    };
    class NameFinder;

    Program& program_;
    const PredefinedTable& predefined_;
    DefineTable table_;
    std::vector<Piece> pieces_;
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
            const Piece* first = pieces_.data() + piece.token.text.offset;
            range = {first, first + piece.token.text.length};
        } else {
            visit(piece);
        }
    }
}

}  // namespace torvel
