#include "src/migrate/summary.h"

#include <algorithm>
#include <array>

#include "src/migrate/duration-text.h"
#include "src/migrate/finding-names.h"
#include "src/migrate/text-decoding.h"
#include "src/migrate/text-layout.h"

namespace torvel::migrate {

namespace {

constexpr std::size_t leastWidth = 40;
constexpr std::size_t numberWidth = 12;
constexpr std::size_t mostFolders = 5;
constexpr std::size_t mostNotices = 5;
constexpr std::size_t mostNames = 3;

struct TodoLabel {
    std::string_view table;
    std::string_view one;
    std::string_view many;
};

TodoLabel labelOf(FindingTodo todo) {
    switch (todo) {
        case FindingTodo::fixSource: return {"sources to fix", "source to fix", "sources to fix"};
        case FindingTodo::rewrite:
            return {"lines to rewrite", "line to rewrite", "lines to rewrite"};
        case FindingTodo::complete:
            return {"lines to complete", "line to complete", "lines to complete"};
        default: return {"lines to look at", "line to look at", "lines to look at"};
    }
}

std::string_view labelOf(Severity severity) {
    switch (severity) {
        case Severity::moves: return "may move otherwise (moves)";
        case Severity::stops: return "Torvel may refuse (stops)";
        default: return "lose text of the author (reads)";
    }
}

bool isEmpty(const FindingCount& count) {
    return count.places == 0 && count.inOutputs == 0;
}

/// Puts the lines of a terminal together.
class Screen {
public:
    explicit Screen(const SummaryView& view)
        : width_(std::max(view.width, leastWidth)), hasColour_(view.hasColour) {}

    /// A heading with the names of two columns of numbers.
    void heading(std::string_view title, std::string_view first = {},
                 std::string_view second = {}) {
        text_ += text_.empty() ? "" : "\n";
        std::string line(title);
        if (!first.empty()) {
            if (title.size() >= labelWidth()) {
                bold(line);
                line.clear();
            }
            line = leftAligned(line, labelWidth()) + rightAligned(first, numberWidth) +
                   rightAligned(second, numberWidth);
        }
        bold(line);
    }

    void row(std::string_view label, std::uint64_t first, std::uint64_t second,
             bool isUrgent = false) {
        const std::string line =
            leftAligned("  " + shortenedPath(label, labelWidth() - 3), labelWidth()) +
            rightAligned(grouped(first), numberWidth) + rightAligned(grouped(second), numberWidth);
        text_ += (hasColour_ && isUrgent ? "\x1B[31m" + line + "\x1B[0m" : line) + '\n';
    }

    void row(std::string_view label, const FindingCount& count, bool isUrgent = false) {
        if (!isEmpty(count)) {
            row(label, count.places, count.inOutputs, isUrgent);
        }
    }

    void sentence(std::string_view text) { text_ += wrapped(text, width_, "  ", "    "); }

    /// A line that is never wrapped, so that it can be copied.
    void whole(std::string_view text) { ((text_ += "  ") += text) += '\n'; }

    /// A line with as many of the first names as fit, and how many there are besides.
    void names(const std::vector<std::string>& names, std::uint64_t all) {
        // Room for "and 1,000,000 more".
        const std::size_t room = width_ - 24;
        std::string line = "    " + shortenedPath(names[0], room);
        std::uint64_t told = 1;
        for (; told < names.size(); ++told) {
            const std::string longer = line + ", " + names[told];
            if (characterCount(longer) > room + 4) {
                break;
            }
            line = longer;
        }
        text_ += line + (all > told ? ' ' + andMore(all - told) : std::string()) + '\n';
    }

    const std::string& text() const { return text_; }
    std::size_t width() const { return width_; }

private:
    void bold(const std::string& line) {
        text_ += (hasColour_ ? "\x1B[1m" + line + "\x1B[0m" : line) + '\n';
    }

    std::size_t labelWidth() const { return std::min<std::size_t>(width_ - 2 * numberWidth, 44); }

    std::size_t width_;
    bool hasColour_;
    std::string text_;
};

std::uint64_t numberOf(const ReportTotals& totals, ProgramStatus status) {
    return totals.byStatus[static_cast<std::size_t>(status)];
}

std::uint64_t numberOf(const ReportTotals& totals, OutputState state) {
    return totals.byOutputState[static_cast<std::size_t>(state)];
}

/// Programs that need more than their findings say, by what is the matter with them.
struct Group {
    /// Follows the number of programs.
    std::string_view what;
    std::uint64_t count = 0;
    /// The first ones.
    std::vector<std::string> names;
};

using Groups = std::array<Group, 7>;

Groups groupsOf(const ReportTotals& totals) {
    return {
        {{"could not be read", numberOf(totals, ProgramStatus::unreadable), {}},
         {"not converted: another program has the same output",
          numberOf(totals, ProgramStatus::collides),
          {}},
         {"with a new output that could not be put in its place",
          numberOf(totals, OutputState::notWritten),
          {}},
         {"with edits that wait to be brought together with a newer output",
          numberOf(totals, OutputState::conflict),
          {}},
         {"with an output of unknown origin in its place, which stays",
          numberOf(totals, OutputState::foreign),
          {}},
         {"with an output that was deleted by hand, which stays so",
          numberOf(totals, OutputState::deleted),
          {}},
         {"with an output that was edited by hand", numberOf(totals, OutputState::edited), {}}}};
}

/// The groups that a program belongs to.
std::array<bool, 7> groupsOf(const ReportProgram& program) {
    return {program.status == ProgramStatus::unreadable,
            program.status == ProgramStatus::collides,
            program.outputState == OutputState::notWritten,
            program.outputState == OutputState::conflict,
            program.outputState == OutputState::foreign,
            program.outputState == OutputState::deleted,
            program.outputState == OutputState::edited};
}

void collectNames(const Report& report, Groups& groups) {
    report.forEachProgram([&groups](const ReportProgram& program) {
        const std::array<bool, 7> isIn = groupsOf(program);
        for (std::size_t i = 0; i < groups.size(); ++i) {
            if (isIn[i] && groups[i].names.size() < mostNames) {
                groups[i].names.push_back(visibleText(decodedText(program.program)));
            }
        }
    });
}

void tellPrograms(const ReportTotals& totals, const Groups& groups, Screen& screen) {
    screen.heading(counted(totals.programs, "program", "programs") + " in " +
                   counted(totals.folders.size(), "folder", "folders"));
    screen.sentence(grouped(numberOf(totals, ProgramStatus::converted)) + " converted");
    for (const Group& group : groups) {
        if (group.count > 0) {
            screen.sentence(grouped(group.count) + ' ' + std::string(group.what));
            if (!group.names.empty()) {
                screen.names(group.names, group.count);
            }
        }
    }
    if (totals.lines > 0) {
        screen.sentence(counted(totals.lines, "line", "lines") + " of code, " +
                        grouped(totals.convertedLines) + " of them converted (" +
                        shareText(totals.convertedLines, totals.lines) + ")");
    }
}

void tellWhatIsLeft(const ReportTotals& totals, Screen& screen) {
    if (isEmpty(totals.allOpen()) && isEmpty(totals.allFinished())) {
        screen.heading("Nothing is left to do");
        return;
    }
    screen.heading("Left to do", "in sources", "in outputs");
    for (const FindingTodo todo : todos) {
        screen.row(labelOf(todo).table, totals.open[static_cast<std::size_t>(todo)],
                   todo == FindingTodo::fixSource);
    }
    if (isEmpty(totals.allOpen())) {
        screen.row("nothing", 0, 0);
    }
    screen.row("finished by hand", totals.allFinished());
    const auto& checks = totals.bySeverity;
    if (std::all_of(severities.begin(), severities.end(), [&checks](Severity severity) {
            return isEmpty(checks[static_cast<std::size_t>(severity)]);
        })) {
        return;
    }
    screen.heading("Of these, converted lines that", "in sources", "in outputs");
    for (const Severity severity : severities) {
        screen.row(labelOf(severity), checks[static_cast<std::size_t>(severity)],
                   severity == Severity::moves);
    }
}

void tellFolders(const ReportTotals& totals, Screen& screen) {
    std::vector<const FolderWork*> folders;
    for (const FolderWork& folder : totals.folders) {
        if (folder.open > 0) {
            folders.push_back(&folder);
        }
    }
    if (folders.empty()) {
        return;
    }
    std::stable_sort(folders.begin(), folders.end(),
                     [](const FolderWork* left, const FolderWork* right) {
                         return left->minutes > right->minutes;
                     });
    screen.heading("The folders with most work", "programs", "left to do");
    std::uint64_t others = 0;
    for (std::size_t i = 0; i < folders.size(); ++i) {
        if (i < mostFolders) {
            screen.row(visibleText(decodedText(folders[i]->folder)), folders[i]->programs,
                       folders[i]->open);
        } else {
            others += folders[i]->open;
        }
    }
    if (folders.size() > mostFolders) {
        screen.sentence(andMore(folders.size() - mostFolders) + " with " +
                        counted(others, "finding", "findings"));
    }
}

void tellEstimate(const Report& report, const ReportTotals& totals, Screen& screen) {
    if (isEmpty(totals.allOpen())) {
        return;
    }
    screen.heading("How long it may take");
    for (const FindingTodo todo : todos) {
        const FindingCount& count = totals.open[static_cast<std::size_t>(todo)];
        if (isEmpty(count)) {
            continue;
        }
        const TodoLabel label = labelOf(todo);
        const MinuteRange& minutes = minutesOf(report.effort, todo);
        std::string text = counted(count.places, label.one, label.many) + ", " +
                           rangeText(minutes.least, minutes.most) + " minutes each";
        if (count.inOutputs != count.places) {
            text += " (" + grouped(count.inOutputs) + " in the outputs)";
        }
        screen.sentence(text);
    }
    const std::string places = durationText(estimate(totals, report.effort, &FindingCount::places));
    const std::string outputs =
        durationText(estimate(totals, report.effort, &FindingCount::inOutputs));
    screen.sentence("together " + places);
    if (outputs != places) {
        screen.sentence("or " + outputs + " if included files are finished in each output");
    }
}

void tellNotices(const Report& report, Screen& screen) {
    if (report.notices.empty()) {
        return;
    }
    screen.heading("To be known");
    for (std::size_t i = 0; i < std::min(report.notices.size(), mostNotices); ++i) {
        screen.sentence(visibleText(decodedText(report.notices[i])));
    }
    if (report.notices.size() > mostNotices) {
        screen.sentence(andMore(report.notices.size() - mostNotices));
    }
}

void tellReports(const SummaryView& view, Screen& screen) {
    if (view.reports.empty()) {
        return;
    }
    screen.heading(view.reports.size() == 1 ? "The report is in" : "The reports are in");
    for (const std::string& path : view.reports) {
        screen.whole(visibleText(decodedText(path)));
    }
}

void tellRuns(const Report& report, Screen& screen) {
    if (report.runs.empty()) {
        screen.sentence("There was no run yet.");
        return;
    }
    const RunRow& last = report.runs.back();
    screen.sentence("The last run began at " + dateText(last.began) + " with version " +
                    visibleText(decodedText(last.version)) +
                    (last.ended == 0 ? " and was cut off." : "."));
    // What is left after a run that was cut off was not counted.
    std::vector<std::uint64_t> left;
    for (const RunRow& run : report.runs) {
        if (run.ended != 0) {
            left.push_back(run.openFindings);
        }
    }
    if (left.size() > 1) {
        screen.sentence(counted(left.size(), "run", "runs") + ", " +
                        counted(left.front(), "open finding", "open findings") +
                        " after the first, " + grouped(left.back()) + " after the last");
    }
}

}  // namespace

std::string summaryText(const Report& report, const ReportTotals& totals, const SummaryView& view) {
    Screen screen(view);
    tellPrograms(totals, groupsOf(totals), screen);
    tellWhatIsLeft(totals, screen);
    tellFolders(totals, screen);
    tellEstimate(report, totals, screen);
    tellNotices(report, screen);
    tellReports(view, screen);
    return screen.text();
}

std::string statusText(const Report& report, const ReportTotals& totals, const SummaryView& view) {
    Screen screen(view);
    Groups groups = groupsOf(totals);
    collectNames(report, groups);
    tellPrograms(totals, groups, screen);
    tellRuns(report, screen);
    tellWhatIsLeft(totals, screen);
    return screen.text();
}

std::string reportsText(const SummaryView& view) {
    Screen screen(view);
    tellReports(view, screen);
    return screen.text();
}

}  // namespace torvel::migrate
