#pragma once

#include <cstddef>

#include "src/base/file-system.h"
#include "src/migrate/html-packing.h"

namespace torvel::migrate {

/// What begins the summary of a page, by which a page is known too.
constexpr std::string_view htmlSummaryBegin = R"(<script type="text/plain" id="summary">)";

/// A folder with a page, `index.html`, and a script for each program, `programs/N.js`. It is written beside the page
/// that is there, and takes its place as a whole. Everything throws std::runtime_error with a complete message; what
/// was there stays then as it was.
class HtmlFolder {
public:
    /// Makes the folder if it is not there. Refuses one that has other files under the names of the page's.
    explicit HtmlFolder(const NativePath& path);
    HtmlFolder(const HtmlFolder&) = delete;
    HtmlFolder& operator=(const HtmlFolder&) = delete;
    ~HtmlFolder();

    /// Any thread may write a program.
    void writeProgram(std::size_t number, const TextWriter& write) const;
    void writeIndex(const TextWriter& write) const;
    void putInPlace();

private:
    NativePath path_;
};

/// Takes a page away that such a folder has, and the folder if nothing else is in it.
void removeHtmlFolder(const NativePath& path);

}  // namespace torvel::migrate
