#include "src/stmt/motion.h"

#include <vector>

#include "src/expr/axis-lists.h"
#include "src/expr/expressions.h"
#include "src/stmt/axis-words.h"
#include "src/stmt/forms.h"

namespace torvel {

/// FREERUN axis [,] STOP        MoveFreerunStop(axis)
/// FREERUN axis [,] speed       MoveFreerun(axis, speed)
bool convertFreerun(Statement& statement) {
    statement.cursor.advance();
    ExpressionText axis;
    if (!translateSingleAxis(statement.context, statement.cursor, axis)) {
        return false;
    }
    accept(statement, TokenType::COMMA);
    if (accept(statement, TokenType::STOP)) {
        statement.text += "MoveFreerunStop(" + axis + ")";
        return true;
    }
    return writeForm(statement, "v", "MoveFreerun({}, {})", axis);
}

namespace {

/// ( condition ) [,] time [[,] option]
/// wait(condition, time); with the option -1 the wait has no end: wait(condition)
bool writeConditionWait(Statement& statement) {
    statement.text += "wait(";
    if (!writeExpression(statement) || !expect(statement, TokenType::RIGHT_PAREN)) {
        return false;
    }
    accept(statement, TokenType::COMMA);
    const std::size_t timeStart = statement.text.size();
    if (!writeExpression(statement, ", ")) {
        return false;
    }
    if (!statement.cursor.atEnd()) {
        accept(statement, TokenType::COMMA);
        ExpressionText option;
        if (!translateExpression(statement.context, statement.cursor, option)) {
            return false;
        }
        if (option == "-1") {
            statement.text.resize(timeStart);
        }
    }
    statement.text += ')';
    return true;
}

/// MODE MOVEDONE | INPOS | AUTO
/// SetupTaskWaitMode(WaitMode.MotionDone | InPosition | Auto)
bool writeWaitMode(Statement& statement) {
    const TokenType mode = statement.cursor.type();
    if (!expectToken(statement.context, statement.cursor,
                     {TokenType::MOVEDONE, TokenType::INPOS, TokenType::AUTO})) {
        return false;
    }
    statement.text += "SetupTaskWaitMode(WaitMode.";
    statement.text += mode == TokenType::MOVEDONE ? "MotionDone)"
                      : mode == TokenType::INPOS  ? "InPosition)"
                                                  : "Auto)";
    return true;
}

}  // namespace

/// WAIT ( condition ) time [option]; WAIT MODE mode
/// WAIT MOVEDONE axes           WaitForMotionDone(axes)
/// WAIT INPOS axes              WaitForInPosition(axes)
bool convertWait(Statement& statement) {
    statement.cursor.advance();
    const TokenType word = statement.cursor.type();
    if (!expectToken(
            statement.context, statement.cursor,
            {TokenType::LEFT_PAREN, TokenType::MOVEDONE, TokenType::INPOS, TokenType::MODE})) {
        return false;
    }
    switch (word) {
        case TokenType::MOVEDONE: return writeForm(statement, "A", "WaitForMotionDone({})");
        case TokenType::INPOS: return writeForm(statement, "A", "WaitForInPosition({})");
        case TokenType::MODE: return writeWaitMode(statement);
        default: return writeConditionWait(statement);
    }
}

/// PVT {axis [,] position [,] velocity [,]} TIME time
/// MovePvt([axes], [positions], [velocities], time)
/// PT {axis [,] position [,]} TIME time
/// MovePt([axes], [positions], time)
bool convertPvt(Statement& statement) {
    const bool hasVelocities = statement.cursor.is(TokenType::PVT);
    statement.cursor.advance();
    std::vector<std::string> axes;
    std::vector<std::string> positions;
    std::vector<std::string> velocities;
    do {
        if (!readOperand(statement, 'a', axes.emplace_back())) {
            return false;
        }
        accept(statement, TokenType::COMMA);
        if (!readOperand(statement, 'v', positions.emplace_back())) {
            return false;
        }
        accept(statement, TokenType::COMMA);
        if (hasVelocities) {
            if (!readOperand(statement, 'v', velocities.emplace_back())) {
                return false;
            }
            accept(statement, TokenType::COMMA);
        }
    } while (isAxis(statement.cursor.type()));
    if (!expect(statement, TokenType::TIME)) {
        return false;
    }
    statement.text += hasVelocities ? "MovePvt(" : "MovePt(";
    formatList(axes, false, statement.text);
    statement.text += ", ";
    formatList(positions, false, statement.text);
    if (hasVelocities) {
        statement.text += ", ";
        formatList(velocities, false, statement.text);
    }
    if (!writeExpression(statement, ", ")) {
        return false;
    }
    statement.text += ')';
    return true;
}

namespace {

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
bool convertCircularMove(Statement& statement) {
    const bool isClockwise = statement.cursor.is(TokenType::CW);
    statement.cursor.advance();
    std::vector<AxisWord> words;
    while (words.size() < 3 || (words.size() < 5 && !statement.cursor.atEnd())) {
        if (!readAxisWord(statement.context, statement.cursor, words.emplace_back())) {
            return false;
        }
    }
    if (!words[0].isAxis || !words[1].isAxis) {
        return refuse(statement, Message::AxisPointExpected);
    }
    if (const auto misplaced = findMisplacedWord(words)) {
        return refuse(statement, *misplaced);
    }
    statement.text += isClockwise ? "MoveCw([" : "MoveCcw([";
    statement.text += words[0].name + ", " + words[1].name + "], [" + words[0].value + ", " +
                      words[1].value + "], ";
    const bool hasRadius = words[2].name == "R";
    statement.text +=
        hasRadius ? words[2].value : "[" + words[2].value + ", " + words[3].value + "]";
    const std::size_t feed = hasRadius ? 3 : 4;
    if (words.size() > feed) {
        statement.text += ", " + words[feed].value;
    }
    statement.text += ')';
    return true;
}

}  // namespace torvel
