#include "tests/language/questions.h"

#include <array>
#include <filesystem>

#include "src/language/program-names.h"

namespace torvel::language::test {

using nlohmann::json;

std::string Questions::path(std::string_view name) const {
    return (folder_.path() / torvel::test::pathOf(name)).generic_string();
}

void Questions::write(std::string_view name, std::string_view text) const {
    torvel::test::writeFile(folder_.path() / torvel::test::pathOf(name), text);
}

json Questions::ask(const json& question) {
    const Answer answer = requests.answer(question.dump());
    json all = json::parse(answer.json);
    if (!answer.lines.empty()) {
        all["names"] = answer.names;
        all["lines"] = answer.lines;
    }
    return all;
}

std::size_t Questions::openProject(std::string_view settings) {
    const std::string file = path("migration.toml");
    const json answer = ask({{"do", "project"},
                             {"file", std::filesystem::exists(file) ? file : std::string()},
                             {"folder", path("")},
                             {"settings", settings}});
    project_ = answer.at("project").get<std::size_t>();
    isOpen_ = true;
    return project_;
}

json Questions::convert(std::string_view program) {
    if (!isOpen_) {
        openProject();
    }
    json all = ask({{"do", "convert"}, {"project", project_}, {"program", path(program)}});
    all.update(ask({{"do", "names"}}));
    return all;
}

namespace {

std::string kindName(std::size_t kind) {
    constexpr std::array names = {"define",
                                  "lost-define",
                                  "macro",
                                  "name",
                                  "variable",
                                  "label",
                                  "function",
                                  "function-end",
                                  "item",
                                  "statement",
                                  "opens",
                                  "continues",
                                  "closes",
                                  "opens-conditional",
                                  "continues-conditional",
                                  "closes-conditional"};
    return kind == includeKind ? "include" : names.at(kind);
}

struct Row {
    std::size_t kind, isDefinition, file, line, begin, end, name, value;
};

std::vector<Row> rowsOf(const json& program) {
    const auto numbers = program.at("names").get<std::vector<std::size_t>>();
    std::vector<Row> rows;
    for (std::size_t i = 0; i + 7 < numbers.size(); i += 8) {
        rows.push_back({numbers[i], numbers[i + 1], numbers[i + 2], numbers[i + 3], numbers[i + 4],
                        numbers[i + 5], numbers[i + 6], numbers[i + 7]});
    }
    return rows;
}

std::string shown(const json& program, const Row& row) {
    const json& texts = program.at("texts");
    const json& files = program.at("files");
    std::string text = kindName(row.kind) + (row.isDefinition != 0 ? " definition " : " ") +
                       files.at(row.file).at("shown").get<std::string>() + ':' +
                       std::to_string(row.line);
    if (row.end == 0) {
        return text;
    }
    text += ':' + std::to_string(row.begin) + '-' + std::to_string(row.end) + ' ' +
            texts.at(row.name).get<std::string>();
    const std::string value = row.kind == includeKind
                                  ? files.at(row.value).at("shown").get<std::string>()
                                  : texts.at(row.value).get<std::string>();
    return value.empty() ? text : text + " = " + value;
}

}  // namespace

std::vector<std::string> namesOf(const json& program) {
    std::vector<std::string> names;
    for (const Row& row : rowsOf(program)) {
        if (row.end != 0) {
            names.push_back(shown(program, row));
        }
    }
    return names;
}

std::vector<std::string> namesIn(const json& program, std::size_t line) {
    std::vector<std::string> names;
    for (const Row& row : rowsOf(program)) {
        if (row.file == 0 && row.line == line) {
            names.push_back(shown(program, row));
        }
    }
    return names;
}

}  // namespace torvel::language::test
