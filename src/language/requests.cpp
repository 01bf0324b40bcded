#include "src/language/requests.h"

#include <nlohmann/json.hpp>
#include <stdexcept>

namespace torvel::language {

using nlohmann::json;

namespace {

std::string textIn(const json& question, const char* key) {
    return question.value(key, std::string());
}

}  // namespace

void Requests::setDocument(std::string_view path, std::string text) {
    documents_.set(canonicalPath(nativePath(path)), std::move(text));
}

void Requests::forgetDocument(std::string_view path) {
    documents_.forget(canonicalPath(nativePath(path)));
}

Answer Requests::convert(Plant& plant, const NativePath& path) {
    converted_.reset();
    auto converted = std::make_unique<Converted>();
    converted->result = plant.convert(path, converted->names);
    Answer told = {programAnswer(plant, converted->result, plant.axesOf(path))};
    converted_ = std::move(converted);
    return told;
}

Answer Requests::names() {
    const std::unique_ptr<Converted> converted = std::move(converted_);
    if (converted == nullptr) {
        return {faultAnswer("No program was converted.")};
    }
    return namesAnswer(converted->result, programNamesOf(converted->names));
}

Answer Requests::answer(std::string_view text) {
    try {
        const json question = json::parse(text);
        const std::string what = textIn(question, "do");
        if (what == "project") {
            auto plant = std::make_unique<Plant>(
                PlantSettings{textIn(question, "file"), textIn(question, "folder"),
                              textIn(question, "settings"), textIn(question, "referenceFile")},
                documents_.over(fileSystemSource()));
            plants_.push_back(std::move(plant));
            return {plantAnswer(*plants_.back(), static_cast<std::uint32_t>(plants_.size()) - 1)};
        }
        if (what == "names") {
            return names();
        }
        const std::size_t number = question.at("project").get<std::size_t>();
        if (number >= plants_.size() || plants_[number] == nullptr) {
            return {faultAnswer("There is no such project.")};
        }
        Plant& plant = *plants_[number];
        if (what == "convert") {
            return convert(plant, canonicalPath(nativePath(textIn(question, "program"))));
        }
        if (what == "tables") {
            return {tablesAnswer(plant.constants())};
        }
        if (what == "close") {
            plants_[number].reset();
            return {faultAnswer({})};
        }
        return {faultAnswer("There is no such question.")};
    } catch (const json::exception& error) {
        return {faultAnswer(error.what())};
    } catch (const std::runtime_error& error) {
        return {faultAnswer(error.what())};
    }
}

}  // namespace torvel::language
