#include "tests/support/case-file.h"

#include <algorithm>
#include <functional>
#include <map>
#include <sstream>
#include <stdexcept>

#include "tests/support/escapes.h"
#include "tests/support/temporary-directory.h"

namespace torvel::test {

namespace {

constexpr std::string_view partLead = "--- ";

/// A part as it stands in the file.
struct Part {
    std::string name;      // "program", "expect output"
    std::string argument;  // what follows the name
    std::string source;    // head line and content lines, as they stand
    std::string content;   // decoded
    std::size_t line = 0;
};

struct Parts {
    std::string head;
    std::vector<Part> parts;
};

/// Takes the last word off `text` if it is `word`.
bool takeLastWord(std::string& text, std::string_view word) {
    if (!text.ends_with(word) ||
        (text.size() > word.size() && text[text.size() - word.size() - 1] != ' ')) {
        return false;
    }
    text.resize(text.size() - word.size());
    while (text.ends_with(' ')) {
        text.pop_back();
    }
    return true;
}

/// Takes the first word off `text`.
std::string takeFirstWord(std::string& text) {
    const std::size_t end = std::min(text.find(' '), text.size());
    std::string word = text.substr(0, end);
    text.erase(0, std::min(end + 1, text.size()));
    return word;
}

Part makePart(std::string_view headLine, std::string_view content, std::size_t line) {
    Part part;
    part.line = line;
    part.source = std::string(headLine) + std::string(content);
    std::string words(headLine.substr(partLead.size()));
    while (words.ends_with('\n') || words.ends_with('\r') || words.ends_with(' ')) {
        words.pop_back();
    }
    const bool escaped = takeLastWord(words, "escaped");
    const bool cut = takeLastWord(words, "no-newline");
    part.name = takeFirstWord(words);
    if (part.name == "expect") {
        part.name += ' ' + takeFirstWord(words);
    }
    part.argument = words;
    if (cut && content.ends_with('\n')) {
        content.remove_suffix(1);
    }
    part.content = escaped ? decodeEscapes(content) : std::string(content);
    return part;
}

Parts splitParts(std::string_view text) {
    Parts result;
    std::string headLine;
    std::string content;
    std::size_t headLineNumber = 0;
    const auto finish = [&] {
        if (headLine.empty()) {
            result.head = content;
        } else {
            result.parts.push_back(makePart(headLine, content, headLineNumber));
        }
    };
    for (std::size_t number = 1; !text.empty(); ++number) {
        const std::size_t length = std::min(text.find('\n'), text.size() - 1) + 1;
        const std::string_view line = text.substr(0, length);
        if (line.starts_with(partLead)) {
            finish();
            headLine = line;
            headLineNumber = number;
            content.clear();
        } else {
            content += line;
        }
        text.remove_prefix(length);
    }
    finish();
    return result;
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

void setLimit(Limits& limits, const std::string& name, const std::string& value) {
    const unsigned long long number = std::stoull(value);
    if (name == "includeDepth") {
        limits.includeDepth = static_cast<unsigned>(number);
    } else if (name == "includedFiles") {
        limits.includedFiles = static_cast<std::uint32_t>(number);
    } else if (name == "defineExpansion") {
        limits.defineExpansion = static_cast<std::size_t>(number);
    } else if (name == "composedValue") {
        limits.composedValue = static_cast<std::size_t>(number);
    } else if (name == "lineExpansion") {
        limits.lineExpansion = static_cast<std::size_t>(number);
    } else if (name == "programText") {
        limits.programText = number;
    } else if (name == "expressionNesting") {
        limits.expressionNesting = static_cast<unsigned>(number);
    } else if (name == "parameterFile") {
        limits.parameterFile = number;
    } else if (name == "elementAttributes") {
        limits.elementAttributes = static_cast<std::size_t>(number);
    } else if (name == "axisName") {
        limits.axisName = static_cast<std::size_t>(number);
    } else {
        throw std::runtime_error("no limit is called " + name);
    }
}

void readOption(Case& result, std::string option) {
    const std::string word = takeFirstWord(option);
    if (option.empty()) {
        throw std::runtime_error("option '" + word + "' without its reason or value");
    }
    if (word == "lf-only") {
        result.linefeedsOnly = true;
    } else if (word == "no-comments") {
        result.withoutComments = true;
    } else if (word == "posix-only") {
        result.posixOnly = option;
    } else if (word == "limit") {
        const std::string name = takeFirstWord(option);
        setLimit(result.limits, name, option);
        result.hasLimits = true;
    } else {
        throw std::runtime_error("unknown option '" + word + "'");
    }
}

/// The source files of an example. What was converted from them stays out.
void copyFolder(Case& result, const std::string& folder) {
    const std::filesystem::path root = std::filesystem::path(TORVEL_SOURCE_DIR) / folder;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
        const std::filesystem::path extension = entry.path().extension();
        if (entry.is_regular_file() && extension != ".torvel" && extension != ".log") {
            result.files.push_back(
                {entry.path().lexically_relative(root).generic_string(), readFile(entry.path())});
        }
    }
    std::sort(result.files.begin(), result.files.end(),
              [](const CaseEntry& a, const CaseEntry& b) { return a.path < b.path; });
}

std::string oneLine(std::string text) {
    while (text.ends_with('\n')) {
        text.pop_back();
    }
    return text;
}

void applyPart(Case& result, const Part& part) {
    Outcome& expected = result.expected;
    const std::map<std::string, std::function<void()>> parts = {
        {"program",
         [&] {
             result.files.push_back({part.argument, part.content});
         }},
        {"file",
         [&] {
             result.files.push_back({part.argument, part.content});
         }},
        {"directory", [&] { result.directories.push_back(part.argument); }},
        {"link",
         [&] {
             result.links.push_back({part.argument, oneLine(part.content)});
         }},
        {"hard-link",
         [&] {
             result.hardLinks.push_back({part.argument, oneLine(part.content)});
         }},
        {"copy", [&] { copyFolder(result, part.argument); }},
        {"arguments", [&] { result.arguments = linesOf(part.content); }},
        {"options",
         [&] {
             for (const std::string& option : linesOf(part.content)) {
                 readOption(result, option);
             }
         }},
        {"expect output", [&] { expected.output = part.content; }},
        {"expect log", [&] { expected.log = part.content; }},
        {"expect checks", [&] { expected.checks = part.content; }},
        {"expect stdout", [&] { expected.standardOutput = part.content; }},
        {"expect stderr", [&] { expected.standardError = part.content; }},
        {"expect status", [&] { expected.status = std::stoi(part.argument); }},
        {"expect file",
         [&] {
             expected.files.push_back({part.argument, part.content});
         }},
    };
    const auto found = parts.find(part.name);
    if (found == parts.end()) {
        throw std::runtime_error("unknown part '" + part.name + "'");
    }
    found->second();
}

/// A part of expectations as it is written into a case file.
std::string writePart(const std::string& name, const std::string& content) {
    std::string text = content;
    std::string head = std::string(partLead) + name;
    if (!text.empty() && !text.ends_with('\n')) {
        head += " no-newline";
        text += '\n';
    }
    const bool hasLead =
        text.starts_with(partLead) || text.find("\n" + std::string(partLead)) != std::string::npos;
    if (!isPlainText(text) || hasLead) {
        head += " escaped";
        text = encodeEscapes(text);
        text = replaceAll("\n" + text, "\n--- ", "\n\\x2D-- ").substr(1);
    }
    return head + '\n' + text;
}

}  // namespace

std::string Case::outputDirectory() const {
    std::string directory = ".";
    for (std::size_t i = 0; i + 1 < arguments.size(); ++i) {
        if (arguments[i] == "-o") {
            directory = arguments[i + 1];
        }
    }
    const bool isBelow = directory.starts_with("{dir}/") || directory.starts_with("{dir}\\");
    return isBelow ? directory.substr(6) : directory;
}

std::string Case::stem() const {
    const std::u8string stem =
        arguments.empty() ? std::u8string() : pathOf(arguments.back()).stem().u8string();
    return {stem.begin(), stem.end()};
}

Case readCase(const std::filesystem::path& path) {
    const Parts parts = splitParts(readFile(path));
    Case result;
    result.head = parts.head;
    for (const Part& each : parts.parts) {
        try {
            applyPart(result, each);
        } catch (const std::exception& error) {
            throw std::runtime_error(path.string() + ":" + std::to_string(each.line) + ": " +
                                     error.what());
        }
    }
    const auto partNamed = [&parts](std::string_view name) {
        const auto found = std::find_if(parts.parts.begin(), parts.parts.end(),
                                        [name](const Part& part) { return part.name == name; });
        return found == parts.parts.end() ? nullptr : &*found;
    };
    if (partNamed("arguments") == nullptr) {
        const Part* program = partNamed("program");
        if (program == nullptr) {
            throw std::runtime_error(path.string() + ": neither a program nor arguments");
        }
        result.arguments = {"-o", "{dir}/out", "{dir}/" + program->argument};
    }
    if (result.expected.status == 0 && !result.expected.log) {
        result.expected.log.emplace();
    }
    return result;
}

std::string withExpectations(std::string_view caseText, const Outcome& outcome) {
    const Parts parts = splitParts(caseText);
    std::string text = parts.head;
    for (const Part& part : parts.parts) {
        if (!part.name.starts_with("expect ")) {
            text += part.source;
            if (!text.ends_with('\n')) {
                text += '\n';
            }
        }
    }
    if (outcome.status != 0) {
        text += std::string(partLead) + "expect status " + std::to_string(outcome.status) + '\n';
    }
    if (outcome.output) {
        text += writePart("expect output", *outcome.output);
    }
    if (outcome.log && (!outcome.log->empty() || outcome.status != 0)) {
        text += writePart("expect log", *outcome.log);
    }
    const bool asksForChecks =
        std::any_of(parts.parts.begin(), parts.parts.end(),
                    [](const Part& part) { return part.name == "expect checks"; });
    if (asksForChecks && outcome.checks) {
        text += writePart("expect checks", *outcome.checks);
    }
    if (!outcome.standardOutput.empty()) {
        text += writePart("expect stdout", outcome.standardOutput);
    }
    if (!outcome.standardError.empty()) {
        text += writePart("expect stderr", outcome.standardError);
    }
    for (const CaseEntry& file : outcome.files) {
        text += writePart("expect file " + file.path, file.content);
    }
    return text;
}

}  // namespace torvel::test
