#include "src/stmt/program-control.h"

#include <algorithm>
#include <vector>

#include "src/stmt/forms.h"

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

bool reportNoWord(Statement& statement) {
    std::vector<TokenType> words;
    for (const ProgramCall& call : programCalls) {
        if (call.takesTask) {
            words.push_back(call.word);
        }
    }
    return reportUnexpectedToken(statement.context, statement.cursor, words);
}

}  // namespace

/// PROGRAM [task [,]] START | STOP | PAUSE | RESET | STEPINTO | STEPOVER     ProgramStart(task), ...
/// PROGRAM [task [,]] RUN | LOAD | ASSOCIATE [,] path       ProgramRun(task, path), ...
/// PROGRAM RESTART                                          ProgramRestart()
bool convertProgramControl(Statement& statement) {
    statement.cursor.advance();
    std::string task;
    const ProgramCall* call = findCall(statement.cursor.type());
    if (call == nullptr) {
        if (!readOperand(statement, 'v', task)) {
            return false;
        }
        accept(statement, TokenType::COMMA);
        call = findCall(statement.cursor.type());
        if (call == nullptr || !call->takesTask) {
            return reportNoWord(statement);
        }
    } else {
        task = call->ownTask;
    }
    statement.cursor.advance();
    if (call->call.empty()) {
        return refuse(statement, Message::ProgramBufferedrunUnsupported);
    }
    statement.text += call->call;
    statement.text += task;
    if (call->pathAdvice && !writeForm(statement, ";s", ", {}")) {
        return false;
    }
    statement.text += ')';
    for (const auto& advice : {call->pathAdvice, call->advice}) {
        if (advice) {
            advise(statement, *advice);
        }
    }
    return true;
}

}  // namespace torvel
