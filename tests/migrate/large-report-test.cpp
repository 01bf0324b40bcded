// A report of many findings goes through every format in pieces.

#include <gtest/gtest.h>

#include <algorithm>

#include "src/migrate/gate.h"
#include "src/migrate/report-csv.h"
#include "src/migrate/report-json.h"
#include "src/migrate/report-junit.h"
#include "src/migrate/report-sarif.h"
#include "tests/migrate/report-example.h"

namespace torvel::migrate::test {

namespace {

/// Ten times as much text as a format may hold back, and more than the gate keeps.
constexpr std::uint32_t findings = 12000;
static_assert(findings > mostNewFindings);

/// What a format handed over.
struct Pieces {
    std::size_t largest = 0;
    std::size_t all = 0;
    std::size_t lines = 0;
};

template <typename Writer>
Pieces piecesFrom(const Writer& write) {
    Pieces pieces;
    const TextSink sink = [&pieces](std::string_view piece) {
        pieces.largest = std::max(pieces.largest, piece.size());
        pieces.all += piece.size();
        pieces.lines += static_cast<std::size_t>(std::count(piece.begin(), piece.end(), '\n'));
    };
    write(sink);
    return pieces;
}

void expectSmallPieces(const Pieces& pieces) {
    EXPECT_GT(pieces.all, 512U << 10U);
    EXPECT_LT(pieces.largest, 128U << 10U);
}

}  // namespace

TEST(LargeReport, GoesThroughEveryFormatInPieces) {
    const Report report = largeReport(findings);
    const Places places(report);
    ASSERT_EQ(places.count(), findings);
    const ReportTotals totals = totalsOf(report, places);
    EXPECT_EQ(totals.allOpen(), (FindingCount{findings, findings}));

    expectSmallPieces(
        piecesFrom([&](const TextSink& sink) { writeJsonReport(report, places, totals, sink); }));
    const Pieces csv =
        piecesFrom([&](const TextSink& sink) { writeFindingsCsv(report, places, sink); });
    expectSmallPieces(csv);
    EXPECT_EQ(csv.lines, findings + 1);
    expectSmallPieces(
        piecesFrom([&](const TextSink& sink) { writeSarif(report, places, totals, sink); }));
    expectSmallPieces(piecesFrom([&](const TextSink& sink) { writeJUnit(report, sink); }));
}

TEST(LargeReport, TheGateCountsWhatItDoesNotKeep) {
    const Report report = largeReport(findings);
    const GateResult result = gate(report, Places(report), Baseline(), {});
    EXPECT_EQ(result.newCount, findings);
    EXPECT_EQ(result.newFindings.size(), mostNewFindings);
    EXPECT_TRUE(gateText(result, 1).ends_with("  and 11,999 more\n"));
}

}  // namespace torvel::migrate::test
