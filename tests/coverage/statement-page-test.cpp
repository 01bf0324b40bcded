// docs/statements.md is what the tables say, and what its forms say is what the converter does.

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include "src/app/command.h"
#include "tests/coverage/form-sections.h"
#include "tests/coverage/statement-page.h"
#include "tests/coverage/written-forms.h"
#include "tests/support/case-run.h"
#include "tests/support/escapes.h"
#include "tests/support/temporary-directory.h"
#include "tests/support/text-difference.h"

namespace torvel::test {

namespace {

/// What is put in the place of an operand of a form.
struct OperandSample {
    std::string brannic;
    std::string torvel;
};

const std::map<std::string, OperandSample> operandSamples = {
    {"axis", {"X", "X"}},
    {"axis1", {"Y", "Y"}},
    {"axis2", {"Z", "Z"}},
    {"axis3", {"U", "U"}},
    {"axes", {"X Y", "[X, Y]"}},
    {"value", {"11", "11"}},
    {"value1", {"$n1", "$n1"}},
    {"value2", {"22", "22"}},
    {"value3", {"3.5", "3.5"}},
    {"value4", {"44", "44"}},
    {"value5", {"55", "55"}},
    {"values", {"6, 7, 8", "6, 7, 8"}},
    {"condition", {"$a == 1", "$a == 1"}},
    {"task", {"2", "2"}},
    {"index", {"5", "5"}},
    {"size", {"9", "9"}},
    {"name", {"spot", "spot"}},
    {"variable", {"$v", "$v"}},
    {"variable1", {"$va", "$va"}},
    {"variable2", {"$vb", "$vb"}},
    {"string", {"\"text\"", "\"text\""}},
    {"string1", {"\"first\"", "\"first\""}},
    {"string2", {"\"second\"", "\"second\""}},
};

/// In front of every program; no line of it gives a message.
constexpr std::string_view defines =
    "#define FEED $feed\n"
    "#define LEVEL $GLOBAL[3]\n"
    "#define TITLE $STRGLOB[1]\n"
    "#define HEAD X\n";
constexpr std::size_t defineLines = 4;

bool isWordCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_' ||
           c == '$';
}

/// `text` with each word that is an operand of `operands` replaced.
std::string withSamples(const std::string& text, const std::string& operands,
                        std::string OperandSample::*sample) {
    std::string result;
    std::string word;
    for (const char c : text + '\0') {
        if (isWordCharacter(c)) {
            word += c;
            continue;
        }
        const auto found = operandSamples.find(word);
        const bool isOperand =
            found != operandSamples.end() && operands.find(word) != std::string::npos;
        result += isOperand ? found->second.*sample : word;
        word.clear();
        if (c != '\0') {
            result += c;
        }
    }
    return result;
}

bool isUpperCase(char c) {
    return c >= 'A' && c <= 'Z';
}

/// The form with what may be left out, or without it.
std::string chooseOptional(const std::string& form, bool isThere) {
    std::string chosen;
    for (std::size_t at = 0; at < form.size(); ++at) {
        const std::size_t end = form.find(']', at);
        const bool isOptional = form[at] == '[' && end != std::string::npos &&
                                (at == 0 || form[at - 1] == ' ') &&
                                (form[at + 1] == ',' || isUpperCase(form[at + 1]));
        if (!isOptional) {
            chosen += form[at];
            continue;
        }
        chosen += isThere ? form.substr(at + 1, end - at - 1) : "";
        at = end;
    }
    return chosen;
}

struct Conversion {
    std::string output;  // of the form's own lines
    std::vector<std::string> messages;
};

Conversion convertLine(const std::string& line) {
    Case test;
    test.files.push_back({"main.pgm", std::string(defines) + line});
    test.arguments = {"-o", "out", "main.pgm"};
    const Outcome outcome = runCase(test, test.files, runCommand);
    Conversion conversion;
    conversion.messages = messagesOfLog(outcome.log.value_or(""));
    std::string_view output = outcome.output ? *outcome.output : outcome.standardError;
    for (std::size_t number = 0; outcome.output && number < defineLines; ++number) {
        output.remove_prefix(output.find('\n') + 1);
    }
    conversion.output = output;
    return conversion;
}

void checkForm(const StatementForm& form, bool withOptional) {
    const std::string line = withSamples(chooseOptional(form.brannic, withOptional), form.brannic,
                                         &OperandSample::brannic);
    const std::string expected =
        form.formClass == FormClass::refused
            ? "#error_unconvertible (main.pgm:5): " + line + '\n'
            : withSamples(form.torvel, form.brannic, &OperandSample::torvel) + '\n';
    const Conversion conversion = convertLine(line);
    EXPECT_EQ(conversion.output, expected) << form.brannic << "\nas " << line;
    std::vector<std::string> symbols;
    for (const std::string& message : conversion.messages) {
        const MessageRow* row = rowOfMessage(message);
        symbols.emplace_back(row == nullptr ? message : row->symbol);
    }
    std::vector<std::string> expectedSymbols;
    for (const MessageRow* message : form.messages) {
        expectedSymbols.emplace_back(message->symbol);
    }
    EXPECT_EQ(symbols, expectedSymbols) << form.brannic << "\nas " << line;
}

TEST(StatementPage, EveryRoutineHasItsForms) {
    EXPECT_EQ(writtenFormFaults(), "");
}

TEST(StatementPage, EveryFormIsConvertedAsThePageSays) {
    for (const FormSection& section : formSections()) {
        EXPECT_FALSE(section.forms.empty()) << section.title;
        for (const StatementForm& form : section.forms) {
            checkForm(form, true);
            if (chooseOptional(form.brannic, true) != chooseOptional(form.brannic, false)) {
                checkForm(form, false);
            }
        }
    }
}

TEST(StatementPage, IsUpToDate) {
    const std::filesystem::path path =
        std::filesystem::path(TORVEL_SOURCE_DIR) / "docs/statements.md";
    int noArguments = 0;
    if (takeUpdateFlag(noArguments, nullptr)) {
        writeFile(path, statementPage());
    }
    const std::string onDisk = std::filesystem::exists(path) ? readFile(path) : "";
    EXPECT_TRUE(onDisk == statementPage()) << "script/statement-page writes it anew:\n"
                                           << textDifference(onDisk, statementPage());
}

}  // namespace

}  // namespace torvel::test
