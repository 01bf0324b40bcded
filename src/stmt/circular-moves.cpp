#include "src/stmt/axis-words.h"
#include "src/stmt/routines.h"

namespace torvel {

namespace {

/// Three words, and two more where the line goes on. Commas between them may be left out.
std::vector<AxisWord> readWords(Statement& statement) {
    std::vector<AxisWord> words;
    words.reserve(5);
    words.push_back(readAxisWord(statement));
    while (words.size() < 3 || (words.size() < 5 && !statement.cursor.atEnd())) {
        if (statement.isRefused) {
            break;
        }
        acceptToken(statement, TokenType::COMMA);
        words.push_back(readAxisWord(statement));
    }
    return words;
}

/// Checks the names of the words behind the two axes, in the order in which messages count.
std::optional<Message> findMisplacedWord(const std::vector<AxisWord>& words) {
    const auto isNamed = [&](std::size_t word, std::string_view name) {
        return words[word].name == name;
    };
    switch (words.size()) {
        case 3: return isNamed(2, "R") ? std::nullopt : std::optional(Message::RCommandExpected);
        case 4:
            if (isNamed(2, "R")) {
                return isNamed(3, "F") ? std::nullopt : std::optional(Message::FCommandExpected);
            }
            if (isNamed(2, "I")) {
                return isNamed(3, "J") ? std::nullopt : std::optional(Message::JCommandExpected);
            }
            return Message::IOrRCommandExpected;
        default:
            if (!isNamed(2, "I")) {
                return Message::ICommandExpected;
            }
            if (!isNamed(3, "J")) {
                return Message::JCommandOfFiveExpected;
            }
            return isNamed(4, "F") ? std::nullopt : std::optional(Message::FCommandExpected);
    }
}

}  // namespace

/// CW axis x axis y R radius [F feed]      MoveCw([axes], [x, y], radius, feed)
/// CW axis x axis y I i J j [F feed]       MoveCw([axes], [x, y], [i, j], feed)
/// CCW likewise                            MoveCcw(...)
void convertCircularMove(Statement& statement) {
    statement.text += statement.cursor.is(TokenType::CW) ? "MoveCw([" : "MoveCcw([";
    statement.cursor.advance();
    const std::vector<AxisWord> words = readWords(statement);
    if (statement.isRefused) {
        return;
    }
    if (!words[0].isAxis || !words[1].isAxis) {
        refuse(statement, Message::AxisPointExpected);
    } else if (const auto misplaced = findMisplacedWord(words)) {
        refuse(statement, *misplaced);
    }
    statement.text += words[0].name + ", " + words[1].name + "], [" + words[0].value + ", " +
                      words[1].value + "], ";
    const bool hasRadius = words.size() == 3 || words[2].name == "R";
    statement.text +=
        hasRadius ? words[2].value : "[" + words[2].value + ", " + words[3].value + "]";
    const std::size_t feed = hasRadius ? 3 : 4;
    if (words.size() > feed) {
        statement.text += ", " + words[feed].value;
    }
    statement.text += ')';
}

}  // namespace torvel
