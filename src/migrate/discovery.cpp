#include "src/migrate/discovery.h"

#include <algorithm>
#include <fstream>
#include <map>
#include <optional>
#include <thread>
#include <unordered_map>

#include "src/migrate/in-threads.h"
#include "src/migrate/include-graph.h"
#include "src/migrate/include-scan.h"
#include "src/migrate/recorded-source.h"
#include "src/migrate/source-walk.h"

namespace torvel::migrate {

namespace {

constexpr std::string_view outputEnding = ".torvel";

/// The files while it is found out which of them are programs. The first files of the graph are those of the walk.
struct Search {
    const Project& project;
    /// Their keys are those of the graph.
    std::vector<WalkedFile> walked;
    std::vector<std::string> bases;
    /// Patterns of programs_always that no file matches.
    std::vector<std::string> unmatched;
    IncludeGraph graph;
    /// By file: the first other file that includes it.
    std::vector<std::optional<std::uint32_t>> includedBy;
    std::vector<bool> isProgram;
    Discovery found;

    void tell(std::string path, std::string text, bool isHint = false) {
        found.notices.push_back({std::move(path), std::move(text), isHint});
    }
    const std::string& placeOf(std::uint32_t file) const {
        const std::string& other = walked[file].otherPlace;
        return other.empty() ? graph[file].key : other;
    }
};

std::string inQuotes(const std::string& text) {
    return "'" + text + "'";
}

/// "'a', 'b' and 3 more"
std::string listed(const std::vector<std::string>& names) {
    constexpr std::size_t most = 5;
    const std::size_t shown = names.size() > most + 1 ? most : names.size();
    std::string text;
    for (std::size_t i = 0; i < shown; ++i) {
        text += (i == 0 ? "" : i + 1 == names.size() ? " and " : ", ") + inQuotes(names[i]);
    }
    return shown < names.size() ? text + " and " + std::to_string(names.size() - shown) + " more"
                                : text;
}

void findIncluded(Search& search) {
    search.includedBy.resize(search.graph.size());
    for (std::uint32_t from = 0; from < search.graph.size(); ++from) {
        for (const IncludeEdge& edge : search.graph[from].includes) {
            if (edge.file && *edge.file != from && !search.includedBy[*edge.file]) {
                search.includedBy[*edge.file] = from;
            }
        }
    }
}

void choosePrograms(Search& search) {
    search.isProgram.resize(search.graph.size());
    for (std::uint32_t file = 0; file < search.walked.size(); ++file) {
        search.isProgram[file] = search.walked[file].isAlways || !search.includedBy[file];
    }
}

using Circle = std::vector<std::uint32_t>;

/// By circle: whether a file outside of it includes one of its files.
std::vector<bool> enteredCircles(const IncludeGraph& graph, const std::vector<Circle>& circles) {
    std::vector<std::optional<std::size_t>> circleOf(graph.size());
    for (std::size_t i = 0; i < circles.size(); ++i) {
        for (const std::uint32_t file : circles[i]) {
            circleOf[file] = i;
        }
    }
    std::vector<bool> entered(circles.size());
    for (std::uint32_t from = 0; from < graph.size(); ++from) {
        for (const IncludeEdge& edge : graph[from].includes) {
            if (edge.file && circleOf[*edge.file] && circleOf[*edge.file] != circleOf[from]) {
                entered[*circleOf[*edge.file]] = true;
            }
        }
    }
    return entered;
}

/// Of files that only include each other none would be a program: the first one is.
void breakCircle(Search& search, const Circle& circle, bool isEntered) {
    std::vector<std::string> keys;
    for (const std::uint32_t file : circle) {
        keys.push_back(search.graph[file].key);
    }
    std::sort(keys.begin(), keys.end());
    if (circle.size() == 1) {
        search.tell(keys.front(), "It includes itself, so it cannot be read to its end.");
        return;
    }
    std::string text = "The files " + listed(keys) +
                       " include each other in a circle, so none of them can be read to its end.";
    const bool hasProgram = std::any_of(circle.begin(), circle.end(),
                                        [&](std::uint32_t file) { return search.isProgram[file]; });
    if (!hasProgram && !isEntered) {
        const std::uint32_t first = circle.front();
        search.isProgram[first] = true;
        text += " No other file includes one of them: " + inQuotes(search.graph[first].key) +
                " counts as the program.";
    }
    search.tell(keys.front(), std::move(text));
}

void breakCircles(Search& search) {
    const std::vector<Circle> circles = includeCircles(search.graph);
    const std::vector<bool> entered = enteredCircles(search.graph, circles);
    for (std::size_t i = 0; i < circles.size(); ++i) {
        breakCircle(search, circles[i], entered[i]);
    }
}

/// A pattern of programs that matches nothing is a slip.
void tellNamesOfNothing(Search& search) {
    for (const std::string& pattern : search.unmatched) {
        search.tell(pattern,
                    "'programs_always' names it, and no file that is not excluded is called so.");
    }
}

/// One sentence for all the files that write a path so.
void tellOtherCases(Search& search) {
    struct Use {
        std::vector<std::string> users;
        std::vector<std::string> files;
    };
    std::map<std::pair<std::string, std::string>, Use> uses;
    for (const GraphFile& file : search.graph) {
        for (const IncludeEdge& edge : file.includes) {
            const IncludeLead& lead = *edge.lead;
            if (lead.otherCase.empty()) {
                continue;
            }
            Use& use = uses[{lead.target, lead.written}];
            if (use.users.empty() || use.users.back() != file.key) {
                use.users.push_back(file.key);
            }
            use.files = lead.otherCase;
        }
    }
    for (auto& [path, use] : uses) {
        std::sort(use.users.begin(), use.users.end());
        const std::string includes =
            listed(use.users) + (use.users.size() == 1 ? " includes " : " include ");
        search.tell(path.first,
                    use.files.size() == 1
                        ? includes + "it as " + inQuotes(path.second) +
                              ", with other capital letters: it was taken."
                        : includes + inQuotes(path.second) + ", which is not there; " +
                              listed(use.files) +
                              " differ from it in capital letters only: none was taken.",
                    use.files.size() == 1);
    }
}

std::string contentOf(const NativePath& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// A part of its own subroutines and settings has no end of a program.
void tellPartsLikePrograms(Search& search) {
    for (std::uint32_t file = 0; file < search.walked.size(); ++file) {
        if (search.isProgram[file] || !search.graph[file].hash ||
            !endsProgram(contentOf(pathOf(search.graph[file].key, search.project.folder)))) {
            continue;
        }
        search.tell(
            search.graph[file].key,
            inQuotes(search.graph[*search.includedBy[file]].key) +
                " includes it, so it is not converted by itself; but it ends a program. If it "
                "is one, name it in 'programs_always'.",
            true);
    }
}

/// A machine's folder as a key, and as it was written where links lead to it.
struct Machine {
    std::string key;
    std::string place;
    std::string parameters;
};

std::string keyInProject(const Project& project, const std::string& path) {
    return keyOf(projectPath(project, path), project.folder);
}

/// The machines; the first one is the project's own.
std::vector<Machine> machinesOf(Search& search) {
    const Project& project = search.project;
    const auto parametersOf = [&](const std::optional<std::string>& path) {
        return path ? keyInProject(project, *path) : std::string();
    };
    std::vector<Machine> machines{{".", {}, parametersOf(project.parameters)}};
    for (const MachineFolder& folder : project.folders) {
        if (fileKind(projectPath(project, folder.path)) != FileKind::directory) {
            search.tell(folder.path, "A [[folder]] names it, and there is no such folder.");
        }
        machines.push_back(
            {keyInProject(project, folder.path), placeOf(project, folder.path),
             folder.parameters ? parametersOf(folder.parameters) : machines.front().parameters});
    }
    return machines;
}

/// The innermost machine around a file.
const Machine& machineOf(const std::vector<Machine>& machines, std::string_view key,
                         std::string_view place) {
    const Machine* innermost = &machines.front();
    for (const Machine& machine : machines) {
        const bool holds = !machine.place.empty() &&
                           (isInside(place, machine.place) || isInside(key, machine.key));
        if (holds && machine.place.size() > innermost->place.size()) {
            innermost = &machine;
        }
    }
    return *innermost;
}

/// The place of a program's output in the output folder, without its extension.
std::string outputStem(std::string_view place, std::string_view base, bool keepsExtension) {
    std::string_view inside = place;
    if (base != "." && isInside(inside, base)) {
        inside.remove_prefix(base.size());
    }
    inside = withoutDrive(inside);
    while (inside.starts_with('/') || inside.starts_with("../")) {
        inside.remove_prefix(inside.starts_with('/') ? 1 : 3);
    }
    const std::size_t name = inside.rfind('/') + 1;
    const std::string_view last = inside.substr(name);
    return std::string(inside.substr(0, name)) +
           std::string(keepsExtension ? last : fileStem(last));
}

std::string logOf(const std::string& output) {
    return output.substr(0, output.rfind('.')) + ".log";
}

/// Numbers of keys that are told apart by upper and lower case no more. There may be very many, and hardly any are
/// equal, so their hashes are kept, and keys only looked at where these are equal.
class FoldedKeys {
public:
    explicit FoldedKeys(std::size_t count) { hashes_.reserve(count); }

    /// `key` is folded.
    void add(std::string_view key) {
        hashes_.emplace_back(std::hash<std::string_view>()(key),
                             static_cast<std::uint32_t>(hashes_.size()));
    }
    void sort() { std::sort(hashes_.begin(), hashes_.end()); }

    /// Calls visit(number) with those that may be `key`, in order.
    template <typename Visit>
    void visitAlike(std::string_view key, Visit visit) const {
        const std::size_t hash = std::hash<std::string_view>()(key);
        for (auto at = std::lower_bound(hashes_.begin(), hashes_.end(), std::pair(hash, 0U));
             at != hashes_.end() && at->first == hash; ++at) {
            visit(at->second);
        }
    }

private:
    std::vector<std::pair<std::size_t, std::uint32_t>> hashes_;
};

/// Outputs that are one file on a system that does not tell upper and lower case apart collide on all.
void findCollisions(Search& search) {
    std::vector<FoundProgram>& programs = search.found.programs;
    FoldedKeys outputs(programs.size());
    for (const FoundProgram& program : programs) {
        outputs.add(foldedKey(program.output));
    }
    outputs.sort();
    FoldedKeys sources(search.graph.size());
    for (const GraphFile& file : search.graph) {
        sources.add(foldedKey(file.key));
    }
    sources.sort();
    for (std::size_t i = 0; i < programs.size(); ++i) {
        const std::string output = foldedKey(programs[i].output);
        std::vector<std::string>& others = programs[i].collidesWith;
        outputs.visitAlike(output, [&](std::uint32_t other) {
            if (other != i && foldedKey(programs[other].output) == output) {
                others.push_back(programs[other].program);
            }
        });
        for (const std::string& written : {output, logOf(output)}) {
            bool isFound = false;
            sources.visitAlike(written, [&](std::uint32_t file) {
                if (!isFound && foldedKey(search.graph[file].key) == written) {
                    others.push_back(search.graph[file].key);
                    isFound = true;
                }
            });
        }
    }
}

void makePrograms(Search& search) {
    const std::vector<Machine> machines = machinesOf(search);
    const std::string output = keyInProject(search.project, search.project.output);
    const std::string front = output == "." ? "" : output + '/';
    ReachHashes reach(search.graph);
    search.found.programs.reserve(static_cast<std::size_t>(
        std::count(search.isProgram.begin(), search.isProgram.end(), true)));
    for (std::uint32_t i = 0; i < search.walked.size(); ++i) {
        if (!search.isProgram[i]) {
            continue;
        }
        const GraphFile& file = search.graph[i];
        const std::string& place = search.placeOf(i);
        const Machine& machine = machineOf(machines, file.key, place);
        FoundProgram program;
        program.program = file.key;
        program.content = file.hash;
        const std::string stem =
            outputStem(place, search.bases[search.walked[i].base], search.project.keepExtension);
        program.output.reserve(front.size() + stem.size() + outputEnding.size());
        ((program.output += front) += stem) += outputEnding;
        program.parameters = machine.parameters;
        program.machine = machine.place;
        program.reach = reach.of(i);
        search.found.programs.push_back(std::move(program));
    }
}

bool isProgramHere(const Search& search, std::uint32_t file) {
    return search.isProgram[file] && search.walked[file].isNamed;
}

/// The others count for what collides only.
void keepNamed(Search& search) {
    std::vector<FoundProgram>& programs = search.found.programs;
    std::size_t next = 0;
    std::size_t kept = 0;
    for (std::uint32_t i = 0; i < search.walked.size(); ++i) {
        if (!search.isProgram[i]) {
            continue;
        }
        if (isProgramHere(search, i)) {
            if (kept != next) {
                programs[kept] = std::move(programs[next]);
            }
            ++kept;
        }
        ++next;
    }
    programs.resize(kept);
}

void listOtherFiles(Search& search) {
    for (std::uint32_t i = 0; i < search.graph.size(); ++i) {
        const GraphFile& file = search.graph[i];
        if (file.hash && !isProgramHere(search, i)) {
            search.found.otherFiles.emplace(file.key, *file.hash);
        }
        if (!search.isProgram[i]) {
            search.found.parts.push_back(file.key);
        }
    }
    std::sort(search.found.parts.begin(), search.found.parts.end());
}

void listMissing(Search& search) {
    for (const GraphFile& file : search.graph) {
        for (const IncludeEdge& edge : file.includes) {
            if (!edge.file) {
                search.found.missing.push_back(
                    {file.key, edge.line, edge.lead->written, edge.lead->target});
            }
        }
    }
}

}  // namespace

bool isUnseen(const Discovery& discovery, std::string_view program) {
    const auto holds = [program](const std::string& folder) { return isInside(program, folder); };
    return std::any_of(discovery.unlisted.begin(), discovery.unlisted.end(), holds) ||
           std::any_of(discovery.emptySources.begin(), discovery.emptySources.end(), holds);
}

Discovery findPrograms(const Project& project, unsigned threads,
                       const std::atomic<bool>* isInterrupted) {
    SourceWalk walk = walkSources(project, isInterrupted);
    Search search{project,
                  std::move(walk.files),
                  std::move(walk.bases),
                  std::move(walk.unmatched),
                  {},
                  {},
                  {},
                  {}};
    search.found.notices = std::move(walk.notices);
    search.found.unlisted = std::move(walk.unlisted);
    search.found.emptySources = std::move(walk.emptySources);
    IncludeGraph files;
    for (WalkedFile& file : search.walked) {
        files.push_back({std::move(file.key), {}, {}});
    }
    search.graph =
        readIncludeGraph(std::move(files), project.folder, threadCount(threads), isInterrupted);
    findIncluded(search);
    choosePrograms(search);
    breakCircles(search);
    tellNamesOfNothing(search);
    tellOtherCases(search);
    tellPartsLikePrograms(search);
    makePrograms(search);
    findCollisions(search);
    keepNamed(search);
    listOtherFiles(search);
    listMissing(search);
    if (search.found.programs.empty()) {
        search.tell({},
                    "No programs were found in the sources; 'programs' tells what counts as one: " +
                        listed(project.programs) + ".");
    }
    std::stable_sort(
        search.found.notices.begin(), search.found.notices.end(),
        [](const Notice& left, const Notice& right) { return left.path < right.path; });
    return std::move(search.found);
}

}  // namespace torvel::migrate
