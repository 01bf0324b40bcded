#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "src/limits.h"

// A target is a part of the converter that is handed inputs, with the properties that must hold for each of
// them. Inputs are texts that a person can read, but for those of define-table.

namespace torvel::fuzz {

struct Target {
    std::string name;
    /// Checks one input. A property that does not hold ends the process.
    void (*check)(const Target& target, std::string_view input) = nullptr;
    /// What lines begin with and what follows; a mutated input is put together of these and of common words.
    std::vector<std::string> leads;
    std::vector<std::string> words;
    /// Whether inputs are changed word by word, not byte by byte only.
    bool hasWords = true;
    /// The leads in upper case.
    std::vector<std::string> marks = {};
};

/// All targets; each statement family is one.
const std::vector<Target>& targets();

/// The target called `name`; null if there is none.
const Target* findTarget(std::string_view name);

/// Inputs made of the golden cases.
std::vector<std::string> seedsOf(const Target& target);

/// The limits of runs, low enough for inputs to reach them.
Limits lowLimits();

// The checks, a file each.
void checkConversion(const Target& target, std::string_view input);
void checkLineSplitter(const Target& target, std::string_view input);
void checkLexer(const Target& target, std::string_view input);
void checkDefineTable(const Target& target, std::string_view input);
void checkSubstitution(const Target& target, std::string_view input);
void checkClassification(const Target& target, std::string_view input);
void checkExpressions(const Target& target, std::string_view input);
void checkParameterFile(const Target& target, std::string_view input);
void checkStatements(const Target& target, std::string_view input);

/// Whether a line belongs to the target: it contains one of the words that begin its lines, or there are none.
bool isOfTarget(const Target& target, std::string_view line);

}  // namespace torvel::fuzz
