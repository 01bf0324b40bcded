#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "src/language/answers.h"
#include "src/language/documents.h"
#include "src/language/plant.h"

namespace torvel::language {

/// What a language server asks of the converter, one question after the other.
class Requests {
public:
    /// A document counts in the place of its file from now on, or no more.
    void setDocument(std::string_view path, std::string text);
    void forgetDocument(std::string_view path);

    /// Answers a question in JSON: {"do": "project", "file", "folder", "settings"}, {"do": "convert", "project",
    /// "program"}, {"do": "names"}, which is about the program that was converted last and answered once, or
    /// {"do": "tables", "project"}. What cannot be answered is {"fault": sentence}. Throws std::bad_alloc.
    Answer answer(std::string_view question);

private:
    struct Converted {
        migrate::ProgramResult result;
        migrate::ConvertedNames names;
    };

    Answer convert(Plant& plant, const NativePath& path);
    Answer names();

    Documents documents_;
    /// By number; a project that was replaced is empty.
    std::vector<std::unique_ptr<Plant>> plants_;
    /// Until its names are asked for, which the findings do not wait for.
    std::unique_ptr<Converted> converted_;
};

}  // namespace torvel::language
