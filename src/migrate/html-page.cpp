#include "src/migrate/html-page.h"

#include <algorithm>
#include <atomic>
#include <memory>
#include <stdexcept>
#include <vector>

#include "src/base/characters.h"
#include "src/migrate/html-detail.h"
#include "src/migrate/html-folder.h"
#include "src/migrate/html-packing.h"
#include "src/migrate/html-summary.h"
#include "src/migrate/html-tables.h"
#include "src/migrate/in-threads.h"
#include "src/migrate/replaced-file.h"
#include "src/migrate/text-layout.h"

namespace torvel::migrate {

namespace {

constexpr std::string_view hole = "<!--data-->";
constexpr std::string_view elementEnd = "</script>\n";

/// Packs what is shown of programs, in several threads.
class Details {
public:
    Details(const HtmlPage& page, const HtmlTables& tables) : page_(page), tables_(tables) {
        for (unsigned i = 0; i < std::max(page.threads, 1U); ++i) {
            packers_.push_back(std::make_unique<HtmlPacker>());
        }
    }

    /// Calls write(number, pack) with each program, in any order; pack(sink) hands over what it has.
    void forEach(const std::function<void(std::size_t number, const TextWriter& pack)>& write) {
        inThreads(static_cast<unsigned>(packers_.size()), tables_.programs.size(),
                  [&](std::size_t number, unsigned thread) {
                      write(number, [&](const TextSink& sink) {
                          packInto(number, *packers_[thread], sink);
                      });
                  });
    }

private:
    void packInto(std::size_t number, HtmlPacker& packer, const TextSink& sink) const {
        const ReportTexts texts = page_.report.textsOf(number);
        packer.pack([&](const TextSink& json) { writeHtmlDetail(texts, tables_, number, json); },
                    sink);
    }

    const HtmlPage& page_;
    const HtmlTables& tables_;
    std::vector<std::unique_ptr<HtmlPacker>> packers_;
};

/// By program; nothing if they are too much for one file.
std::vector<std::string> detailsInside(const HtmlPage& page, const HtmlTables& tables) {
    std::vector<std::string> details(tables.programs.size());
    std::atomic<std::uint64_t> size{0};
    Details(page, tables).forEach([&](std::size_t number, const TextWriter& pack) {
        if (size <= page.mostBytes) {
            pack([&](std::string_view piece) { details[number] += piece; });
            size += details[number].size();
        }
    });
    return size <= page.mostBytes ? std::move(details) : std::vector<std::string>();
}

/// The page with elements in its hole.
void writeElements(const HtmlPage& page, const TextWriter& elements, const TextSink& sink) {
    const std::size_t at = page.emptyPage.find(hole);
    if (at == std::string_view::npos) {
        throw std::logic_error("The page has no hole for the report.");
    }
    sink(page.emptyPage.substr(0, at));
    elements(sink);
    sink(page.emptyPage.substr(at + hole.size()));
}

void writeSummary(const HtmlPage& page, const HtmlTables& tables, HtmlDetails details,
                  const TextSink& sink) {
    const HtmlSummary summary{page.report, page.places, page.totals, tables, page.made, details};
    sink(htmlSummaryBegin);
    HtmlPacker().pack([&summary](const TextSink& json) { writeHtmlSummary(summary, json); }, sink);
    sink(elementEnd);
}

void writeFile(const HtmlPage& page, const HtmlTables& tables,
               const std::vector<std::string>& details, const NativePath& path) {
    const TextWriter elements = [&](const TextSink& sink) {
        writeSummary(page, tables, HtmlDetails::inside, sink);
        for (std::size_t number = 0; number < details.size(); ++number) {
            sink(R"(<script type="text/plain" id="program-)" + std::to_string(number) + "\">");
            sink(details[number]);
            sink(elementEnd);
        }
    };
    replaceFile(path, [&](const TextSink& sink) { writeElements(page, elements, sink); });
}

void writeFolder(const HtmlPage& page, const HtmlTables& tables, const NativePath& path) {
    HtmlFolder folder(path);
    // A page of another date that is still open must not take it for its own.
    const std::string end = "\",\"" + std::to_string(page.made) + "\");\n";
    Details(page, tables).forEach([&](std::size_t number, const TextWriter& pack) {
        folder.writeProgram(number, [&](const TextSink& sink) {
            sink("torvelProgram(" + std::to_string(number) + ",\"");
            pack(sink);
            sink(end);
        });
    });
    const TextWriter elements = [&](const TextSink& sink) {
        writeSummary(page, tables, HtmlDetails::files, sink);
    };
    folder.writeIndex([&](const TextSink& sink) { writeElements(page, elements, sink); });
    folder.putInPlace();
}

/// A name as it stands in an address, which is UTF-8 on every system but for names that are none.
std::string addressOf(const NativePath& name) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string address;
    for (const char8_t unit : name.u8string()) {
        const char c = static_cast<char>(unit);
        if (isWordCharacter(c) || c == '-' || c == '.') {
            address += c;
        } else {
            const unsigned byte = static_cast<unsigned char>(c);
            address += {'%', digits[byte >> 4U], digits[byte & 15U]};
        }
    }
    return address;
}

/// A page that leads to that of a folder beside it.
std::string doorTo(const NativePath& folder) {
    const std::string address = addressOf(folder.filename()) + "/index.html";
    return "<!doctype html>\n<html lang=\"en\">\n<meta charset=\"utf-8\">\n"
           "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'\">\n"
           "<meta http-equiv=\"refresh\" content=\"0; url=" +
           address +
           "\">\n<title>Migration report</title>\n"
           "<p>The report has too many programs for one file. It is in the folder beside this "
           "file, which has to stay there: <a href=\"" +
           address + "\">open it</a>.</p>\n</html>\n";
}

bool isFileName(const NativePath& path) {
    std::string ending = narrowPath(path.extension());
    std::transform(ending.begin(), ending.end(), ending.begin(), lowerCase);
    return ending == ".html" || ending == ".htm";
}

/// "report_files" for "report.html": Windows moves, copies and removes the two together.
NativePath folderBeside(const NativePath& file) {
    NativePath name = file.stem();
    name += "_files";
    return file.parent_path() / name;
}

}  // namespace

PagePlaces pagePlaces(const NativePath& path) {
    const NativePath folder = isFileName(path) ? folderBeside(path) : path;
    PagePlaces places{{folder / "index.html"}, {folder / "programs"}};
    if (isFileName(path)) {
        places.files.push_back(path);
    }
    return places;
}

std::string writeHtmlPage(const HtmlPage& page, const NativePath& path) {
    const HtmlTables tables = htmlTablesOf(page.report, page.places);
    if (!isFileName(path)) {
        writeFolder(page, tables, path);
        return {};
    }
    const NativePath folder = folderBeside(path);
    if (tables.programs.size() <= page.mostPrograms) {
        const std::vector<std::string> details = detailsInside(page, tables);
        if (details.size() == tables.programs.size()) {
            writeFile(page, tables, details, path);
            removeHtmlFolder(folder);
            return {};
        }
    }
    writeFolder(page, tables, folder);
    replaceFile(path, [&folder](const TextSink& sink) { sink(doorTo(folder)); });
    return "The page of " + counted(tables.programs.size(), "program", "programs") +
           " is too large for one file: it is in the folder '" + narrowPath(folder) + "', and '" +
           narrowPath(path) + "' leads to it. Keep the two together.";
}

}  // namespace torvel::migrate
