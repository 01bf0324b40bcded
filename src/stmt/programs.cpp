#include <algorithm>
#include <vector>

#include "src/expr/expressions.h"
#include "src/expr/number-checks.h"
#include "src/expr/strings.h"
#include "src/stmt/routines.h"

namespace torvel {

namespace {

/// A word behind PROGRAM, and the call that it makes.
struct ProgramCall {
    TokenType word;
    std::string_view call;
    /// The task where the statement names none; empty if the call is then without a task.
    std::string_view ownTask;
    bool takesTask = true;
    /// A path follows the word; what is told about it.
    std::optional<Message> pathAdvice = {};
    std::optional<Message> advice = {};
};

constexpr std::string_view runningTask = "TaskGetIndex()";

/// In the order in which messages name the words.
// clang-format off
constexpr ProgramCall programCalls[] = {
    {TokenType::START,       "ProgramStart(",     runningTask},
    {TokenType::STOP,        "ProgramStop(",      runningTask},
    {TokenType::PAUSE,       "ProgramPause(",     {}},
    {TokenType::RESET,       "ProgramReset(",     {}},
    {TokenType::RESTART,     "ProgramRestart(",   {}, false},
    {TokenType::STEPINTO,    "ProgramStepInto(",  runningTask},
    {TokenType::STEPOVER,    "ProgramStepOver(",  runningTask},
    {TokenType::RUN,         "ProgramRun(",       runningTask, true, Message::ProgramRunCompiledProgram},
    {TokenType::LOAD,        "ProgramLoad(",      runningTask, true, Message::ProgramLoadCompiledProgram},
    {TokenType::ASSOCIATE,   "ProgramAssociate(", runningTask, true, Message::ProgramAssociateCompiledProgram,
                                                                     Message::ProgramAssociateInternal},
    {TokenType::BUFFEREDRUN, {},                  {}},
};
// clang-format on

const ProgramCall* findCall(TokenType word) {
    const auto* call =
        std::find_if(std::begin(programCalls), std::end(programCalls),
                     [=](const ProgramCall& candidate) { return candidate.word == word; });
    return call == std::end(programCalls) ? nullptr : call;
}

void reportNoWord(Statement& statement) {
    std::vector<TokenType> words;
    for (const ProgramCall& call : programCalls) {
        if (call.takesTask) {
            words.push_back(call.word);
        }
    }
    reportUnexpectedToken(statement, words);
}

/// [task [,]] in front of the word; without one what the word's call has in its place.
const ProgramCall* readTask(Statement& statement, ExpressionText& task) {
    if (const ProgramCall* call = findCall(statement.cursor.type())) {
        task = call->ownTask;
        return call;
    }
    const Token* const first = statement.cursor.place();
    translateExpression(statement, task);
    checkJoinedBySign(statement, first);
    acceptToken(statement, TokenType::COMMA);
    const ProgramCall* call = findCall(statement.cursor.type());
    return call != nullptr && call->takesTask ? call : nullptr;
}

}  // namespace

/// PROGRAM [task [,]] START | STOP | PAUSE | RESET | STEPINTO | STEPOVER     ProgramStart(task), ...
/// PROGRAM [task [,]] RUN | LOAD | ASSOCIATE [,] path       ProgramRun(task, path), ...
/// PROGRAM RESTART                                          ProgramRestart()
void convertProgramControl(Statement& statement) {
    statement.cursor.advance();
    ExpressionText task;
    const ProgramCall* call = readTask(statement, task);
    if (call == nullptr) {
        reportNoWord(statement);
        return;
    }
    statement.cursor.advance();
    if (call->call.empty()) {
        refuse(statement, Message::ProgramBufferedrunUnsupported);
    }
    statement.text += call->call;
    statement.text += task;
    if (call->pathAdvice) {
        acceptToken(statement, TokenType::COMMA);
        statement.text += ", ";
        translateStringOperand(statement, statement.text);
    }
    statement.text += ')';
    for (const auto& advice : {call->pathAdvice, call->advice}) {
        if (advice) {
            logConversionMessage(statement, *advice);
        }
    }
}

}  // namespace torvel
