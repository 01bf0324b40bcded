#include "src/checks/finding-telling.h"

#include <algorithm>
#include <string>
#include <utility>

namespace torvel {

namespace {

using Place = std::pair<std::uint32_t, std::uint32_t>;

constexpr Place behindAll{UINT32_MAX, UINT32_MAX};

/// Findings that are in the order of their places, from the first one that is not told yet.
template <typename AnyFinding>
class FindingList {
public:
    explicit FindingList(const GrowingArray<AnyFinding>& findings)
        : next_(findings.begin()), end_(findings.end()) {}

    /// The place of the next one; behind the last, that of no finding.
    Place place() const { return next_ == end_ ? behindAll : placeInProgram(*next_); }
    bool isEmpty() const { return next_ == end_; }
    const AnyFinding& take() { return *next_++; }

private:
    const AnyFinding* next_;
    const AnyFinding* end_;
};

/// Tells findings one by one.
class FindingTeller {
public:
    FindingTeller(const Program& program, const CheckRecord& record, const MessageLog& log,
                  const FindingTaker& taker)
        : record_(record),
          log_(log),
          taker_(taker),
          positions_(program.lines),
          ofFiles_(record.ofFiles),
          ofPasses_(record.findings) {}

    /// Tells those of lines, and what stands in front of them.
    void tell(const PartFindings& part) {
        for (const RecordedFinding& finding : part.findings) {
            tellInFrontOf(placeInProgram(finding));
            tellOfLine(finding, part.firstMessage);
        }
    }

    void tellRest() { tellInFrontOf(behindAll); }

private:
    /// Where several stand at one place those of files come first, and those of passes last.
    void tellInFrontOf(const Place& place) {
        while (!ofFiles_.isEmpty() || !ofPasses_.isEmpty()) {
            if (!ofFiles_.isEmpty() && ofFiles_.place() <= std::min(place, ofPasses_.place())) {
                taker_(ofFiles_.take());
            } else if (ofPasses_.place() < place) {
                tellCheck(ofPasses_.take());
            } else {
                return;
            }
        }
    }

    void tellOfLine(const RecordedFinding& finding, std::size_t firstMessage) {
        if (finding.origin == FindingOrigin::message) {
            const ConversionMessage& message = log_[firstMessage + finding.number];
            taker_(messageFinding(finding, message.position, message.text));
        } else {
            tellCheck(finding);
        }
    }

    void tellCheck(const RecordedFinding& finding) {
        const bool isAtLine = finding.number == RecordedFinding::none;
        taker_(checkFinding(finding,
                            isAtLine ? positions_.of(finding.programLine)
                                     : record_.directives[finding.number].position,
                            room_));
    }

    const CheckRecord& record_;
    const MessageLog& log_;
    const FindingTaker& taker_;
    LinePositions positions_;
    FindingList<Finding> ofFiles_;
    FindingList<RecordedFinding> ofPasses_;
    std::string room_;
};

}  // namespace

void tellFindings(const Program& program, const CheckRecord& record, const MessageLog& log,
                  const FindingTaker& taker) {
    FindingTeller teller(program, record, log, taker);
    for (const PartFindings& part : record.ofLines) {
        teller.tell(part);
    }
    teller.tellRest();
}

Finding unreadableFinding(const ParseException& error) {
    Finding finding = makeFinding(error.message(), error.text(), error.position());
    finding.todo = FindingTodo::fixSource;
    return finding;
}

}  // namespace torvel
