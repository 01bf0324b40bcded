// Findings of included files as places, and the names of findings that survive changes around them.

#include "src/migrate/places.h"

#include <gtest/gtest.h>

#include "src/migrate/report-totals.h"
#include "tests/migrate/report-example.h"

namespace torvel::migrate::test {

namespace {

/// The fingerprints of one program with these findings, in order.
std::vector<std::string> fingerprints(const std::vector<ReportFinding>& findings) {
    return fingerprintsOf(reportOf({converted("a.pgm", 1, 1, findings)}));
}

}  // namespace

TEST(Places, ComparableLine) {
    EXPECT_EQ(comparableLine(" \t$a  =\t1e3 \r"), "$a = 1e3");
    EXPECT_EQ(comparableLine(""), "");
    EXPECT_EQ(comparableLine(" \t"), "");
}

TEST(Places, ALineKeepsItsFingerprintWhenItMoves) {
    const std::vector<std::string> before = fingerprints({valueCut("a.pgm", 2, "$a = 1e3")});
    EXPECT_EQ(fingerprints({valueCut("a.pgm", 90, "    $a =  1e3", {11, 12})}), before);
    EXPECT_NE(fingerprints({valueCut("a.pgm", 2, "$a = 2e3")}), before);
    EXPECT_NE(fingerprints({valueCut("b.pgm", 2, "$a = 1e3")}), before);
    EXPECT_NE(fingerprints({rewrite("a.pgm", 2, "$a = 1e3")}), before);
}

TEST(Places, EqualLinesAreTakenInOrder) {
    const std::vector<std::string> two =
        fingerprints({valueCut("a.pgm", 2, "$a = 1e3"), valueCut("a.pgm", 5, "$a = 1e3")});
    EXPECT_NE(two[0], two[1]);
    // Another line between them changes nothing.
    const std::vector<std::string> three =
        fingerprints({valueCut("a.pgm", 2, "$a = 1e3"), valueCut("a.pgm", 4, "$b = 1e3"),
                      valueCut("a.pgm", 6, "$a = 1e3")});
    EXPECT_EQ(three[0], two[0]);
    EXPECT_EQ(three[2], two[1]);
}

TEST(Places, TwoFindingsInOneLine) {
    const std::vector<std::string> two = fingerprints(
        {valueCut("a.pgm", 2, "$a = 1e3", {7, 8}), valueCut("a.pgm", 2, "$a = 1e3", {1, 2})});
    EXPECT_NE(two[0], two[1]);
}

TEST(Places, AnIncludedFileIsOnePlace) {
    const Report report = plant();
    const Places places(report);
    EXPECT_EQ(places.count(), 4U);
    const ReportTotals totals = totalsOf(report, places);
    const auto look = static_cast<std::size_t>(FindingTodo::look);
    EXPECT_EQ(totals.open[look], (FindingCount{1, 2}));
    EXPECT_EQ(totals.allOpen(), (FindingCount{3, 4}));
    EXPECT_EQ(totals.allFinished(), (FindingCount{1, 1}));
    EXPECT_EQ(totals.byCode.at("value-cut"), (FindingCount{1, 2}));
}

TEST(Places, OpenWhileOneOutputHoldsIt) {
    ReportFinding finished = rewrite("inc.pgm", 2, "$a = = $b");
    finished.isOpen = false;
    const Report report =
        reportOf({converted("a.pgm", 1, 0, {finished}),
                  converted("b.pgm", 1, 0, {rewrite("inc.pgm", 2, "$a = = $b")})});
    const Places places(report);
    const ReportTotals totals = totalsOf(report, places);
    EXPECT_EQ(totals.allOpen(), (FindingCount{1, 1}));
    EXPECT_EQ(totals.allFinished(), (FindingCount{0, 1}));
}

TEST(Places, AReportThatGivesOtherFindingsIsRefused) {
    const Places places(reportOf({converted("a.pgm", 1, 1, {valueCut("a.pgm", 2, "x")})}));
    EXPECT_THROW(
        totalsOf(reportOf({converted("a.pgm", 1, 1, {valueCut("a.pgm", 3, "x")})}), places),
        std::logic_error);
    EXPECT_THROW(
        totalsOf(reportOf({converted("a.pgm", 1, 1,
                                     {valueCut("a.pgm", 2, "x"), rewrite("a.pgm", 3, "x")})}),
                 places),
        std::logic_error);
}

TEST(Places, FoldersWithTheirWork) {
    const Report report = plant();
    const ReportTotals totals = totalsOf(report, Places(report));
    ASSERT_EQ(totals.folders.size(), 3U);
    EXPECT_EQ(totals.folders[0].folder, ".");
    EXPECT_EQ(totals.folders[0].programs, 2U);
    EXPECT_EQ(totals.folders[0].open, 0U);
    EXPECT_EQ(totals.folders[1].folder, "line1");
    EXPECT_EQ(totals.folders[1].open, 3U);
    // A line to be written anew, 10 to 40 minutes, and two looks, 2 to 10 each.
    EXPECT_EQ(totals.folders[1].minutes, 37.0);
    EXPECT_EQ(totals.folders[2].folder, "line2");
    EXPECT_EQ(totals.folders[2].open, 1U);
}

}  // namespace torvel::migrate::test
