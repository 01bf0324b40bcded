#include "src/language/requests.h"

#include <nlohmann/json.hpp>
#include <stdexcept>

#include "src/language/answers.h"
#include "src/migrate/program-faults.h"
#include "src/migrate/recorded-source.h"

namespace torvel::language {

using nlohmann::json;

namespace {

std::string textIn(const json& question, const char* key) {
    return question.value(key, std::string());
}

/// A program whose parameter file cannot be read is not converted.
migrate::ProgramResult unconverted(const std::string& program, const std::string& fault) {
    migrate::ProgramResult result;
    result.program = program;
    result.status = migrate::ProgramStatus::unreadable;
    migrate::FindingRow& row = result.findings.emplace_back();
    row.file = program;
    row.code = migrate::parametersUnreadable;
    row.origin = FindingOrigin::message;
    row.todo = FindingTodo::fixSource;
    row.text = fault;
    return result;
}

}  // namespace

void Requests::setDocument(std::string_view path, std::string text) {
    documents_.set(canonicalPath(nativePath(path)), std::move(text));
}

void Requests::forgetDocument(std::string_view path) {
    documents_.forget(canonicalPath(nativePath(path)));
}

std::string Requests::convert(Plant& plant, const NativePath& path) {
    std::string fault;
    const migrate::ConversionSettings settings =
        plant.settingsOf(path, documents_.over(fileSystemSource()), fault);
    std::vector<NameRow> names;
    const migrate::ProgramResult result =
        fault.empty()
            ? convertOne(path, settings,
                         [&](const migrate::ConvertedNames& all) { names = nameRowsOf(all); })
            : unconverted(migrate::keyOf(path, settings.folder), fault);
    return programAnswer(plant, result, names, settings.axes);
}

std::string Requests::answer(std::string_view text) {
    try {
        const json question = json::parse(text);
        const std::string what = textIn(question, "do");
        if (what == "project") {
            auto plant = std::make_unique<Plant>(
                PlantSettings{textIn(question, "file"), textIn(question, "folder"),
                              textIn(question, "settings"), textIn(question, "referenceFile")});
            plants_.push_back(std::move(plant));
            return plantAnswer(*plants_.back(), static_cast<std::uint32_t>(plants_.size()) - 1);
        }
        const std::size_t number = question.at("project").get<std::size_t>();
        if (number >= plants_.size() || plants_[number] == nullptr) {
            return faultAnswer("There is no such project.");
        }
        Plant& plant = *plants_[number];
        if (what == "convert") {
            return convert(plant, canonicalPath(nativePath(textIn(question, "program"))));
        }
        if (what == "tables") {
            return tablesAnswer(plant.constants());
        }
        if (what == "close") {
            plants_[number].reset();
            return faultAnswer({});
        }
        return faultAnswer("There is no such question.");
    } catch (const json::exception& error) {
        return faultAnswer(error.what());
    } catch (const std::runtime_error& error) {
        return faultAnswer(error.what());
    }
}

}  // namespace torvel::language
