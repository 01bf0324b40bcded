#include "src/migrate/reporting.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <unordered_set>

#include "src/migrate/command-project.h"
#include "src/migrate/text-decoding.h"

namespace torvel::migrate {

namespace {

constexpr int notAccepted = 3;
constexpr std::size_t mostToldOfGate = 50;

/// What fails a run; words were checked before.
std::vector<FailOn> failOnOf(const Project& project) {
    std::vector<FailOn> failOn;
    for (const std::string& word : project.failOn) {
        const std::vector<FailOn> kinds = failOnsOf(word);
        failOn.insert(failOn.end(), kinds.begin(), kinds.end());
    }
    return failOn;
}

}  // namespace

Reporting::Reporting(std::vector<ReportedStore> stores, const NativePath& directory,
                     const Project& project)
    : report_(reportOf(std::move(stores), directory, project.effort)),
      places_(report_),
      totals_(totalsOf(report_, places_)) {}

SummaryView summaryViewOf(const Terminal& terminal) {
    SummaryView view;
    if (terminal.width != 0) {
        view.width = terminal.width;
    }
    view.hasColour = terminal.hasColour;
    return view;
}

std::string noticeLine(const Notice& notice) {
    const std::string text = notice.path.empty() ? notice.text : notice.path + ": " + notice.text;
    return visibleText(decodedText(text)) + '\n';
}

IsUnseenFile unseenFiles(const Report& report, const Project& project) {
    const auto known = std::make_shared<std::optional<std::unordered_set<std::string>>>();
    return [known, &report, &project](const std::string& file) {
        if (!*known) {
            known->emplace();
            for (const std::string& path : report.files()) {
                (*known)->insert(decodedText(path));
            }
        }
        return !(*known)->contains(file) &&
               fileKind(projectPath(project, file)) != FileKind::missing;
    };
}

int gateStatus(const Reporting& reporting, const Project& project, const Console& console) {
    bool isThere = false;
    Baseline baseline = readBaseline(baselinePath(project), isThere);
    const std::vector<FailOn> failOn = failOnOf(project);
    if (!isThere && failOn.empty()) {
        return 0;  // nothing is asked, and the findings need not be read once more
    }
    const GateResult result = gate(reporting.report(), reporting.places(),
                                   isThere ? std::optional(std::move(baseline)) : std::nullopt,
                                   failOn, unseenFiles(reporting.report(), project));
    const std::string text = gateText(result, mostToldOfGate);
    if (!text.empty()) {
        console.error(text);
    }
    return result.fails() ? notAccepted : 0;
}

}  // namespace torvel::migrate
