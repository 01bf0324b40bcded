#include "src/app/parameter-file.h"

#include <tinyxml2.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "src/app/xml-attributes.h"
#include "src/base/file-system.h"
#include "src/base/messages.h"

namespace torvel {

namespace {

[[noreturn]] void fail(Message message) {
    throw std::runtime_error(messageText(message));
}

/// The file's bytes; false if they cannot be had.
bool readFile(const NativePath& path, const Limits& limits, std::string& content) {
    InputFile file;
    if (fileKind(path) != FileKind::regular || !file.open(path)) {
        return false;
    }
    const std::uint64_t size = file.size();
    if (size > limits.parameterFile) {
        fail(Message::ParameterFileTooLarge);
    }
    content.resize(static_cast<std::size_t>(size));
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

/// The name that an entry holds, without white space around it; empty if there is none.
std::string_view nameOf(const tinyxml2::XMLElement& entry) {
    constexpr std::string_view whiteSpace = " \t\r\n";
    const char* text = entry.GetText();
    const std::string_view name = text == nullptr ? "" : text;
    const std::size_t begin = name.find_first_not_of(whiteSpace);
    return begin == std::string_view::npos
               ? std::string_view()
               : name.substr(begin, name.find_last_not_of(whiteSpace) + 1 - begin);
}

}  // namespace

AxisNames loadParameterFile(std::string_view path, const Limits& limits) {
    std::string content;
    tinyxml2::XMLDocument document;
    // The parser compares each attribute of an element with all others.
    if (!readFile(nativePath(path), limits, content) ||
        mostAttributes(content) > limits.elementAttributes ||
        document.Parse(content.data(), content.size()) != tinyxml2::XML_SUCCESS) {
        fail(Message::ParameterFileNotLoaded);
    }
    const tinyxml2::XMLElement* element = document.RootElement();
    for (const char* name : {"Parameters", "Axes"}) {
        element = element == nullptr ? nullptr : element->FirstChildElement(name);
    }
    if (element == nullptr) {
        fail(Message::ParameterFileMalformed);
    }
    std::vector<std::string> names;
    for (const tinyxml2::XMLElement* axis = element->FirstChildElement("Axis"); axis != nullptr;
         axis = axis->NextSiblingElement("Axis")) {
        if (const tinyxml2::XMLElement* entry = findNameEntry(*axis)) {
            names.emplace_back(nameOf(*entry));
            if (names.back().size() > limits.axisName) {
                fail(Message::ParameterFileMalformed);
            }
        }
    }
    return AxisNames(std::move(names));
}

}  // namespace torvel
