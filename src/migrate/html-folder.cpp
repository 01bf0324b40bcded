// While it is written, a page is in "programs.new" and "index.html.new". Then the old page steps aside, to "programs.old"
// and "index.html.old", and the new one takes its names, the index last: so there is never an index with programs that
// are not its own.

#include "src/migrate/html-folder.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "src/migrate/replaced-file.h"

namespace torvel::migrate {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view indexName = "index.html";
constexpr std::string_view programsName = "programs";
constexpr std::array<std::string_view, 2> names = {programsName, indexName};

/// The summary begins behind the page's own scripts, which take less.
constexpr std::size_t longestHead = std::size_t{2} << 20U;

std::string quoted(const NativePath& path) {
    return '\'' + narrowPath(path) + '\'';
}

NativePath withEnding(const NativePath& folder, std::string_view name, std::string_view ending) {
    return folder / (std::string(name) += ending);
}

/// "17.js"
bool isProgramName(std::string_view name) {
    const std::size_t digits = std::min(name.find_first_not_of("0123456789"), name.size());
    return digits > 0 && name.substr(digits) == ".js";
}

bool hasProgramsOnly(const NativePath& folder) {
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        if (!isProgramName(narrowPath(entry->path().filename())) ||
            entry->symlink_status(error).type() != fs::file_type::regular) {
            return false;
        }
    }
    return !error;
}

bool isPage(const NativePath& file) {
    std::ifstream stream(file, std::ios::binary);
    std::string head(longestHead, '\0');
    stream.read(head.data(), static_cast<std::streamsize>(head.size()));
    head.resize(static_cast<std::size_t>(stream.gcount()));
    return head.find(htmlSummaryBegin) != std::string::npos;
}

/// Whether something is a page's, or not there.
bool isOurs(const NativePath& path) {
    switch (fileKind(path)) {
        case FileKind::missing: return true;
        case FileKind::directory: return hasProgramsOnly(path);
        case FileKind::regular: return isPage(path);
        default: return false;
    }
}

void expectOurs(const NativePath& path) {
    if (!isOurs(path)) {
        throw std::runtime_error(quoted(path) +
                                 " is not of a page of torvel-migrate, and would be replaced: name "
                                 "another folder for the page.");
    }
}

void removeIfOurs(const NativePath& path) {
    if (isOurs(path)) {
        std::error_code ignored;
        fs::remove_all(path, ignored);
    }
}

/// Gives files and folders other names, all or none.
class Renames {
public:
    ~Renames() {
        if (!isDone_) {
            std::error_code ignored;
            std::for_each(done_.rbegin(), done_.rend(), [&ignored](const auto& pair) {
                fs::rename(pair.second, pair.first, ignored);
            });
        }
    }
    Renames() = default;
    Renames(const Renames&) = delete;
    Renames& operator=(const Renames&) = delete;

    void rename(const NativePath& from, const NativePath& to) {
        std::error_code error;
        fs::rename(from, to, error);
        if (error) {
            throw std::runtime_error(quoted(from) + " could not be renamed (" + error.message() +
                                     "): make sure that no other program has a file of it open.");
        }
        done_.emplace_back(from, to);
    }
    void renameIfThere(const NativePath& from, const NativePath& to) {
        if (fileKind(from) != FileKind::missing) {
            rename(from, to);
        }
    }
    void commit() { isDone_ = true; }

private:
    std::vector<std::pair<NativePath, NativePath>> done_;
    bool isDone_ = false;
};

}  // namespace

HtmlFolder::HtmlFolder(const NativePath& path) : path_(canonicalPath(path)) {
    for (const std::string_view name : names) {
        for (const std::string_view ending : {"", ".old", ".new"}) {
            expectOurs(withEnding(path_, name, ending));
        }
    }
    std::error_code error;
    fs::remove_all(withEnding(path_, programsName, ".new"), error);
    fs::create_directories(withEnding(path_, programsName, ".new"), error);
    if (error) {
        throw std::runtime_error("The folder " + quoted(path_) + " could not be made (" +
                                 error.message() +
                                 "): make sure that there is no file with this name and that you "
                                 "may write there.");
    }
}

HtmlFolder::~HtmlFolder() {
    for (const std::string_view name : names) {
        std::error_code ignored;
        fs::remove_all(withEnding(path_, name, ".new"), ignored);
    }
}

void HtmlFolder::writeProgram(std::size_t number, const TextWriter& write) const {
    const NativePath file =
        withEnding(path_, programsName, ".new") / (std::to_string(number) + ".js");
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    write([&stream](std::string_view piece) {
        stream.write(piece.data(), static_cast<std::streamsize>(piece.size()));
    });
    stream.close();
    if (stream.fail()) {
        throw std::runtime_error(quoted(file) +
                                 " could not be written: make sure that the disk has room.");
    }
}

void HtmlFolder::writeIndex(const TextWriter& write) const {
    replaceFile(withEnding(path_, indexName, ".new"), write);
}

void HtmlFolder::putInPlace() {
    for (const std::string_view name : names) {
        std::error_code ignored;
        fs::remove_all(withEnding(path_, name, ".old"), ignored);
    }
    Renames renames;
    const auto path = [this](std::string_view name, std::string_view ending) {
        return withEnding(path_, name, ending);
    };
    renames.renameIfThere(path(indexName, ""), path(indexName, ".old"));
    renames.renameIfThere(path(programsName, ""), path(programsName, ".old"));
    renames.rename(path(programsName, ".new"), path(programsName, ""));
    renames.rename(path(indexName, ".new"), path(indexName, ""));
    renames.commit();
    for (const std::string_view name : names) {
        std::error_code ignored;
        fs::remove_all(path(name, ".old"), ignored);
    }
}

void removeHtmlFolder(const NativePath& path) {
    for (const std::string_view name : {indexName, programsName}) {
        for (const std::string_view ending : {"", ".old", ".new"}) {
            removeIfOurs(withEnding(path, name, ending));
        }
    }
    std::error_code ignored;
    fs::remove(path, ignored);  // which does nothing if something is in it
}

}  // namespace torvel::migrate
