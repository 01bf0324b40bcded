#include "src/migrate/report-totals.h"

#include "src/migrate/finding-names.h"

namespace torvel::migrate {

namespace {

template <typename Enumeration>
std::size_t indexOf(Enumeration value) {
    return static_cast<std::size_t>(value);
}

FindingCount sum(const std::array<FindingCount, 4>& counts) {
    FindingCount all;
    for (const FindingCount& count : counts) {
        all.places += count.places;
        all.inOutputs += count.inOutputs;
    }
    return all;
}

/// Counts the outputs' findings, and each place when it is met for the first time.
class Counter {
public:
    Counter(const Places& places, const Effort& effort)
        : cursor_(places), effort_(effort), isCounted_(places.count()) {}

    void count(const ReportProgram& program) {
        ++totals_.programs;
        ++totals_.byStatus[indexOf(program.status)];
        ++totals_.byOutputState[indexOf(program.outputState)];
        totals_.lines += program.lines;
        totals_.convertedLines += program.convertedLines;
        FolderWork& folder = folders_[folderOf(program.program)];
        ++folder.programs;
        for (const ReportFinding& finding : program.findings) {
            countInOutput(finding);
            countPlace(finding.row);
            if (finding.isOpen) {
                const MinuteRange& minutes = minutesOf(effort_, finding.row.todo);
                ++folder.open;
                folder.minutes += (minutes.least + minutes.most) / 2;
            }
        }
    }

    ReportTotals totals() {
        for (auto& [name, work] : folders_) {
            work.folder = name;
            totals_.folders.push_back(std::move(work));
        }
        return std::move(totals_);
    }

private:
    void countInOutput(const ReportFinding& finding) {
        const std::size_t todo = indexOf(finding.row.todo);
        if (!finding.isOpen) {
            ++totals_.finished[todo].inOutputs;
            return;
        }
        ++totals_.open[todo].inOutputs;
        ++totals_.bySeverity[indexOf(finding.row.severity)].inOutputs;
        ++totals_.byCode[finding.row.code].inOutputs;
    }

    void countPlace(const FindingRow& row) {
        const Place& place = cursor_.next(row);
        if (isCounted_[place.number]) {
            return;
        }
        isCounted_[place.number] = true;
        if (!place.isOpen) {
            ++totals_.finished[indexOf(place.todo)].places;
            return;
        }
        ++totals_.open[indexOf(place.todo)].places;
        ++totals_.bySeverity[indexOf(place.severity)].places;
        ++totals_.byCode[row.code].places;
    }

    Places::Cursor cursor_;
    const Effort& effort_;
    std::vector<bool> isCounted_;
    ReportTotals totals_;
    std::map<std::string, FolderWork> folders_;
};

}  // namespace

FindingCount ReportTotals::allOpen() const {
    return sum(open);
}

FindingCount ReportTotals::allFinished() const {
    return sum(finished);
}

std::string folderOf(const std::string& program) {
    const std::size_t slash = program.rfind('/');
    return slash == std::string::npos ? "." : program.substr(0, slash == 0 ? 1 : slash);
}

const MinuteRange& minutesOf(const Effort& effort, FindingTodo todo) {
    switch (todo) {
        case FindingTodo::rewrite: return effort.rewrite;
        case FindingTodo::complete: return effort.complete;
        case FindingTodo::fixSource: return effort.fixSource;
        default: return effort.look;
    }
}

ReportTotals totalsOf(const Report& report, const Places& places) {
    Counter counter(places, report.effort);
    report.forEachProgram([&counter](const ReportProgram& program) { counter.count(program); });
    return counter.totals();
}

MinuteRange estimate(const ReportTotals& totals, const Effort& effort,
                     std::uint64_t FindingCount::*count) {
    MinuteRange sum;
    for (const FindingTodo todo : todos) {
        const auto findings = static_cast<double>(totals.open[indexOf(todo)].*count);
        const MinuteRange& minutes = minutesOf(effort, todo);
        sum.least += findings * minutes.least;
        sum.most += findings * minutes.most;
    }
    return sum;
}

}  // namespace torvel::migrate
