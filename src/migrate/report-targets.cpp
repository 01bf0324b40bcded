#include "src/migrate/report-targets.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "src/migrate/command-project.h"
#include "src/migrate/html-page.h"
#include "src/migrate/outputs.h"
#include "src/migrate/recorded-source.h"
#include "src/migrate/source-walk.h"

namespace torvel::migrate {

namespace {

constexpr std::string_view sourceText = "a source of the programs";

/// A file that a report replaces, or a folder with all that is in it.
struct WrittenPlace {
    const ReportTarget* target = nullptr;
    /// Canonical.
    NativePath path;
    bool isFolder = false;
    FileIdentity identity;
};

/// None for the standard output, and for devices and pipes, which lose nothing.
std::vector<WrittenPlace> placesOf(const ReportTarget& target) {
    const NativePath path = nativePath(target.shown);
    if (target.shown == "-" || fileKind(path) == FileKind::other) {
        return {};
    }
    std::vector<WrittenPlace> places;
    const auto add = [&](const NativePath& written, bool isFolder) {
        const NativePath canonical = canonicalPath(written);
        places.push_back(
            {&target, canonical, isFolder, isFolder ? FileIdentity() : fileIdentity(canonical)});
    };
    if (!target.isPage) {
        add(path, false);
        return places;
    }
    const PagePlaces page = pagePlaces(path);
    for (const NativePath& file : page.files) {
        add(file, false);
    }
    for (const NativePath& folder : page.folders) {
        add(folder, true);
    }
    return places;
}

std::vector<WrittenPlace> placesOf(const std::vector<ReportTarget>& targets) {
    std::vector<WrittenPlace> places;
    for (const ReportTarget& target : targets) {
        for (WrittenPlace& place : placesOf(target)) {
            places.push_back(std::move(place));
        }
    }
    return places;
}

/// Looks for the first file that is to be kept and would be replaced.
class KeptFiles {
public:
    explicit KeptFiles(std::vector<WrittenPlace> places) : places_(std::move(places)) {}

    /// Keys that follow are seen from this folder, canonical.
    void enter(const NativePath& folder) {
        folder_ = folder;
        keys_.clear();
        for (const WrittenPlace& place : places_) {
            keys_.push_back(foldedKey(keyOf(place.path, folder)));
        }
    }

    void keep(const std::string& key, std::string_view what) {
        if (key.empty() || !fault_.empty()) {
            return;
        }
        const FileIdentity identity =
            mayBeLinked_ ? fileIdentity(pathOf(key, folder_)) : FileIdentity();
        const std::string small = foldedKey(key);
        for (std::size_t i = 0; i < places_.size(); ++i) {
            const WrittenPlace& place = places_[i];
            const bool isSame = place.isFolder ? isInside(small, keys_[i]) : small == keys_[i];
            const bool isLinked =
                identity != FileIdentity() && !place.isFolder && identity == place.identity;
            if (isSame || isLinked) {
                fault_ = "The report of " + place.target->option + " would replace '" +
                         (place.target->isPage ? key : place.target->shown) + "', which is " +
                         std::string(what) + ". Name another place for it.";
                return;
            }
        }
    }

    void keepPath(const NativePath& path, std::string_view what) {
        keep(keyOf(path, folder_), what);
    }

    const std::string& fault() const { return fault_; }

private:
    std::vector<WrittenPlace> places_;
    std::vector<std::string> keys_;
    NativePath folder_;
    std::string fault_;
    /// A file that is there may be reached by another path too.
    bool mayBeLinked_ = std::any_of(places_.begin(), places_.end(), [](const WrittenPlace& place) {
        return place.identity != FileIdentity();
    });
};

void keepStore(KeptFiles& files, const NativePath& store) {
    files.keepPath(store, "the store");
    for (const std::string_view ending : {"-wal", "-shm", "-journal", ".lock", ".old"}) {
        files.keepPath(withEnding(store, ending), "a file of the store");
    }
}

void keepProject(KeptFiles& files, const Project& project) {
    files.enter(project.folder);
    if (!project.file.empty()) {
        files.keepPath(project.file, "the project file");
    }
    files.keepPath(baselinePath(project), "the baseline");
    const auto keepParameters = [&](const std::optional<std::string>& path) {
        if (path) {
            files.keepPath(projectPath(project, *path), "a parameter file");
        }
    };
    keepParameters(project.parameters);
    for (const MachineFolder& folder : project.folders) {
        keepParameters(folder.parameters);
    }
}

void keepOutput(KeptFiles& files, const std::string& output) {
    files.keep(output, "an output");
    files.keep(narrowPath(conflictPath(nativePath(output))), "the conflict file of an output");
    files.keep(narrowPath(logPath(nativePath(output))), "the log of an output");
}

void keepKnown(KeptFiles& files, const ReportedStore& source) {
    files.enter(source.folder);
    files.keep(std::string(projectFileName), "the project file");
    files.keep(std::string(baselineFileName), "the baseline");
    keepStore(files, source.path);
    std::unordered_set<std::string> inputs;
    source.store->forEachProgram([&](const StoredProgram& program) {
        files.keep(program.program, sourceText);
        inputs.insert(program.program);
        if (!program.outputRecord && !program.output.empty()) {
            keepOutput(files, program.output);
        }
    });
    source.store->forEachInput([&](std::int64_t, const Input& input) {
        if (inputs.insert(input.path).second) {
            files.keep(input.path, sourceText);
        }
    });
    source.store->forEachOutput(
        [&](const OutputRecord& record) { keepOutput(files, record.output); });
}

bool overlap(const WrittenPlace& left, const WrittenPlace& right) {
    // Whole paths, with slashes on every system.
    const std::string a = foldedKey(keyOf(left.path, NativePath()));
    const std::string b = foldedKey(keyOf(right.path, NativePath()));
    return a == b || (left.isFolder && isInside(b, a)) || (right.isFolder && isInside(a, b)) ||
           (left.identity != FileIdentity() && left.identity == right.identity);
}

}  // namespace

std::string clashOf(const std::vector<ReportTarget>& targets) {
    const std::vector<WrittenPlace> places = placesOf(targets);
    const auto clash = [&](const ReportTarget& left, const ReportTarget& right) {
        return (left.shown == "-" && right.shown == "-") ||
               std::any_of(places.begin(), places.end(), [&](const WrittenPlace& place) {
                   return place.target == &left &&
                          std::any_of(places.begin(), places.end(), [&](const WrittenPlace& other) {
                              return other.target == &right && overlap(place, other);
                          });
               });
    };
    for (std::size_t i = 0; i < targets.size(); ++i) {
        for (std::size_t j = i + 1; j < targets.size(); ++j) {
            if (clash(targets[i], targets[j])) {
                return "The reports of " + targets[i].option + " and " + targets[j].option +
                       " cannot both go to '" + targets[j].shown +
                       "'. Give each a place of its own.";
            }
        }
    }
    return {};
}

std::string keptFileFault(const std::vector<ReportTarget>& targets, const Project& project,
                          const std::vector<ReportedStore>& stores) {
    KeptFiles files(placesOf(targets));
    keepProject(files, project);
    for (const ReportedStore& source : stores) {
        keepKnown(files, source);
    }
    return files.fault();
}

}  // namespace torvel::migrate
