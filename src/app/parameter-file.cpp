#include "src/app/parameter-file.h"

#include <tinyxml2.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "src/lex/file-system.h"
#include "src/lex/messages.h"

namespace torvel {

namespace {

/// The file's bytes; false if they cannot be had.
bool readFile(const NativePath& path, std::string& content) {
    InputFile file;
    if (fileKind(path) != FileKind::regular || !file.open(path)) {
        return false;
    }
    content.resize(static_cast<std::size_t>(file.size()));
    bool failed = false;
    content.resize(file.read(content.data(), content.size(), failed));
    return !failed;
}

/// The text of the axis's name entry; null if it has none.
const tinyxml2::XMLElement* findNameEntry(const tinyxml2::XMLElement& axis) {
    for (const tinyxml2::XMLElement* entry = axis.FirstChildElement("P"); entry != nullptr;
         entry = entry->NextSiblingElement("P")) {
        if (entry->Attribute("n", "AxisName") != nullptr) {
            return entry;
        }
    }
    return nullptr;
}

}  // namespace

AxisNames loadParameterFile(std::string_view path) {
    std::string content;
    tinyxml2::XMLDocument document;
    if (!readFile(nativePath(path), content) ||
        document.Parse(content.data(), content.size()) != tinyxml2::XML_SUCCESS) {
        throw std::runtime_error(messageText(Message::ParameterFileNotLoaded));
    }
    const tinyxml2::XMLElement* element = document.RootElement();
    for (const char* name : {"Parameters", "Axes"}) {
        element = element == nullptr ? nullptr : element->FirstChildElement(name);
    }
    if (element == nullptr) {
        throw std::runtime_error(messageText(Message::ParameterFileMalformed));
    }
    std::vector<std::string> names;
    for (const tinyxml2::XMLElement* axis = element->FirstChildElement("Axis"); axis != nullptr;
         axis = axis->NextSiblingElement("Axis")) {
        if (const tinyxml2::XMLElement* entry = findNameEntry(*axis)) {
            const char* text = entry->GetText();
            names.emplace_back(text == nullptr ? "" : text);
        }
    }
    return AxisNames(std::move(names));
}

}  // namespace torvel
