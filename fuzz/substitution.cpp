// Lines "#define NAME value" and "#undef NAME" are carried out, every other line is cut at the names. What
// comes out is compared with a search that tries every length at every place.

#include <map>
#include <string>

#include "fuzz/memory-program.h"
#include "fuzz/require.h"
#include "fuzz/target.h"
#include "src/base/characters.h"
#include "src/preprocess/classification.h"
#include "tests/support/text-difference.h"

namespace torvel::fuzz {

namespace {

/// Names of the program, with the texts that they put into a line. No text: #undef has hidden the name.
using Names = std::map<std::string, std::optional<std::string>, std::less<>>;

/// Pieces as one text: a preserved define as its name and value in control characters.
std::string flatten(MemoryProgram& memory, const std::vector<Piece>& pieces) {
    std::string text;
    const Program& program = memory.program();
    memory.preprocessorRun().defines.visitPieces(pieces, [&](const Piece& piece) {
        if (piece.kind == Piece::Kind::token) {
            text += '\x01' + std::string(program.textOf(piece.token)) + '\x02' +
                    std::string(program.valueOf(piece.token)) + '\x03';
        } else {
            text += program.text.view(piece.text);
        }
    });
    return text;
}

/// How many bytes the pieces count as, plain text and defines.
std::uint64_t countedBytes(MemoryProgram& memory, const std::vector<Piece>& pieces) {
    std::uint64_t bytes = 0;
    const Program& program = memory.program();
    memory.preprocessorRun().defines.visitPieces(pieces, [&](const Piece& piece) {
        bytes += piece.kind == Piece::Kind::token
                     ? std::max<std::size_t>(program.valueOf(piece.token).size(), 1)
                     : piece.text.length;
    });
    return bytes;
}

std::string cut(MemoryProgram& memory, std::string_view text) {
    SubstitutedText result;
    substitute(memory.preprocessorRun(), memory.program().text.add(text), result);
    require(result.plainBytes + result.insertedBytes == countedBytes(memory, result.pieces),
            "the size of a cut is another");
    return flatten(memory, result.pieces);
}

bool isWordPart(char c) {
    return isWordCharacter(c) || c == '$';
}

/// Whether a name may end behind `a` and the next begin at `b`.
bool mayCut(char a, char b) {
    return !isWordPart(a) || !isWordPart(b) || (isDigit(a) && isLetter(b)) ||
           (isLetter(a) && isDigit(b)) || (a != '$' && b == '$');
}

bool endsWord(char c) {
    return isWhiteSpace(c) || c == '"';
}

/// What a span that is a name stands for.
std::optional<std::string> meaningOf(MemoryProgram& memory, const Names& names,
                                     std::string_view span) {
    if (const auto found = names.find(span); found != names.end()) {
        return found->second;
    }
    const auto row = findPredefined(predefinedConstants(), span, hashText(span));
    return row ? std::optional(cut(memory, span)) : std::nullopt;
}

std::string plainCut(MemoryProgram& memory, const Names& names, std::string_view text) {
    std::string result;
    bool atName = true;  // in front of the text, or behind a name
    for (std::size_t at = 0; at < text.size();) {
        if (text[at] == '"') {
            const std::size_t close = std::min(text.find('"', at + 1), text.size() - 1);
            result += text.substr(at, close + 1 - at);
            at = close + 1;
            atName = true;
            continue;
        }
        std::size_t end = at;
        while (end < text.size() && !endsWord(text[end])) {
            ++end;
        }
        std::optional<std::string> meaning;
        if (atName || mayCut(text[at - 1], text[at])) {
            for (; end > at && !meaning; --end) {
                if (end == text.size() || mayCut(text[end - 1], text[end])) {
                    meaning = meaningOf(memory, names, text.substr(at, end - at));
                }
            }
        }
        atName = meaning.has_value();
        if (meaning) {
            result += *meaning;
            at = end + 1;
        } else {
            result += text[at++];
        }
    }
    return result;
}

/// Takes a word off the text.
std::string_view takeWord(std::string_view& text) {
    std::size_t length = 0;
    while (length < text.size() && !isWhiteSpace(text[length])) {
        ++length;
    }
    const std::string_view word = text.substr(0, length);
    text = trimBlanks(text.substr(length));
    return word;
}

void define(MemoryProgram& memory, Names& names, std::string_view name, std::string_view value) {
    PreprocessorRun& run = memory.preprocessorRun();
    SubstitutedText pieces;
    substitute(run, memory.program().text.add(value), pieces);
    const std::uint64_t bytes = pieces.plainBytes + pieces.insertedBytes;
    if (bytes > run.limits.defineExpansion) {
        return;
    }
    std::string meaning;
    Expansion expansion;
    const TextSpan nameText = memory.program().text.add(name);
    if (const auto kept = classifyDefine(value, run.axes)) {
        meaning = '\x01' + std::string(name) + '\x02' + kept->value + '\x03';
        expansion = run.defines.storePreserved(kept->type,
                                               {nameText, memory.program().text.add(kept->value)});
    } else {
        meaning = plainCut(memory, names, value);
        expansion = run.defines.storeExpansion(pieces, static_cast<std::uint32_t>(bytes));
    }
    run.defines.table().enter(memory.program().text.view(nameText), DefineTable::Kind::define,
                              expansion);
    names[std::string(name)] = meaning;
}

}  // namespace

void checkSubstitution(const Target& /*target*/, std::string_view input) {
    const Limits limits = lowLimits();
    MemoryProgram memory({}, limits);
    Names names;
    for (std::string_view line : test::splitLines(input.substr(0, input.find('\0')))) {
        const std::string_view whole = line;
        const std::string_view directive = takeWord(line);
        if (directive == "#define" || directive == "#undef") {
            const std::string_view name = takeWord(line);
            if (name.empty()) {
                continue;
            }
            if (directive == "#define") {
                define(memory, names, name, line);
            } else {
                const TextSpan nameText = memory.program().text.add(name);
                memory.preprocessorRun().defines.table().enter(memory.program().text.view(nameText),
                                                               DefineTable::Kind::undefined);
                names[std::string(name)] = std::nullopt;
            }
            continue;
        }
        const std::string result = cut(memory, whole);
        const std::string expected = plainCut(memory, names, whole);
        require(result == expected, "cut into " + result + "\nnot " + expected);
    }
}

}  // namespace torvel::fuzz
