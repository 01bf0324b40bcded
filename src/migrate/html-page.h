#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "src/base/file-system.h"
#include "src/migrate/places.h"
#include "src/migrate/report-totals.h"
#include "src/migrate/report.h"

// The page for people: a page that was built of web/, with the report in it. docs/report-page.md tells of it.

namespace torvel::migrate {

struct HtmlPage {
    const Report& report;
    const Places& places;
    const ReportTotals& totals;
    /// The page without data, which has a hole for them: "<!--data-->".
    std::string_view emptyPage;
    /// Seconds since 1970.
    std::int64_t made = 0;
    unsigned threads = 1;
    /// More programs, or more bytes of what is shown of them, do not stand in one file.
    std::size_t mostPrograms = 300;
    std::uint64_t mostBytes = std::uint64_t{20} << 20U;
};

/// What writing a page may replace or take away: files, and folders with all that is in them.
struct PagePlaces {
    std::vector<NativePath> files;
    std::vector<NativePath> folders;
};
PagePlaces pagePlaces(const NativePath& path);

/// Writes the page. A path that ends in ".html" or ".htm" is a file with everything in it; if that would be too much, a
/// small page that leads to a folder beside it. Any other path is a folder. Gives a sentence for the user, empty if
/// there is nothing to say. Throws std::runtime_error with a complete message.
std::string writeHtmlPage(const HtmlPage& page, const NativePath& path);

}  // namespace torvel::migrate
