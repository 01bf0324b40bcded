// The report for CI servers: a text written by hand, and read back by an XML library and against a schema.

#include "src/migrate/report-junit.h"

#include <gtest/gtest.h>
#include <tinyxml2.h>

#include "tests/migrate/other-program.h"
#include "tests/migrate/report-example.h"
#include "tests/support/temporary-directory.h"

namespace torvel::migrate::test {

namespace {

std::string junit(const Report& report) {
    return textFrom([&](const TextSink& sink) { writeJUnit(report, sink); });
}

}  // namespace

TEST(ReportJUnit, ThePlant) {
    EXPECT_EQ(junit(plant()), R"(<?xml version="1.0" encoding="UTF-8"?>
<testsuites name="torvel-migrate" tests="5" failures="2" errors="3">
  <testsuite name="torvel-migrate" tests="5" failures="2" errors="3">
    <testcase classname="line1" name="line1/main.pgm">
      <failure type="value-cut" message="1 finding: Text behind the value of an assignment is dropped.">shared/io.pgm:2: Text behind the value of an assignment is dropped. (included from line1/main.pgm:1)&#10;</failure>
      <failure type="numeric-expression-expected" message="1 finding: Expected a numeric expression.">line1/main.pgm:3: Expected a numeric expression.&#10;</failure>
    </testcase>
    <testcase classname="line1" name="line1/second.pgm">
      <failure type="value-cut" message="1 finding: Text behind the value of an assignment is dropped.">shared/io.pgm:2: Text behind the value of an assignment is dropped. (included from line1/second.pgm:4)&#10;</failure>
    </testcase>
    <testcase classname="line2" name="line2/broken.pgm">
      <error type="file-missing" message="1 finding: &apos;gone.pgm&apos; does not exist.">line2/broken.pgm:1: &apos;gone.pgm&apos; does not exist.&#10;</error>
    </testcase>
    <testcase classname="." name="top.pgm">
      <error type="collides" message="Another program has the same output: it was not converted.">out/top.torvel&#10;</error>
    </testcase>
    <testcase classname="." name="top.prg">
      <error type="collides" message="Another program has the same output: it was not converted.">out/top.torvel&#10;</error>
    </testcase>
  </testsuite>
</testsuites>
)");
}

TEST(ReportJUnit, GroupsOfFindings) {
    const std::string text = junit(reportOf(
        {converted("a.pgm", 9, 7,
                   {rewrite("a.pgm", 1, "x"), rewrite("a.pgm", 2, "y"), rewrite("a.pgm", 3, "z")}),
         converted("b.pgm", 9, 9, {})}));
    EXPECT_NE(text.find("message=\"3 findings: Expected a numeric expression.\""),
              std::string::npos);
    EXPECT_NE(text.find("a.pgm:1: Expected a numeric expression.&#10;a.pgm:2: "),
              std::string::npos);
    EXPECT_NE(text.find("<testcase classname=\".\" name=\"b.pgm\"/>"), std::string::npos);
    EXPECT_NE(text.find("tests=\"2\" failures=\"1\" errors=\"0\""), std::string::npos);
}

TEST(ReportJUnit, AConflictFails) {
    ReportProgram program = converted("a.pgm", 1, 1, {});
    program.outputState = OutputState::conflict;
    const std::string text = junit(reportOf({program}));
    EXPECT_NE(text.find("<failure type=\"conflict\""), std::string::npos);
    EXPECT_NE(text.find("tests=\"1\" failures=\"1\" errors=\"0\""), std::string::npos);
}

TEST(ReportJUnit, AnOutputThatIsNotWrittenFails) {
    ReportProgram program = converted("a.pgm", 1, 1, {});
    program.outputState = OutputState::notWritten;
    const std::string text = junit(reportOf({program}));
    EXPECT_NE(text.find("<failure type=\"not-written\""), std::string::npos);
    EXPECT_NE(text.find("tests=\"1\" failures=\"1\" errors=\"0\""), std::string::npos);
}

TEST(ReportJUnit, AnXmlLibraryFindsHostileTexts) {
    const std::string text = junit(hostileReport());
    tinyxml2::XMLDocument document;
    ASSERT_EQ(document.Parse(text.data(), text.size()), tinyxml2::XML_SUCCESS);
    const tinyxml2::XMLElement* test =
        document.RootElement()->FirstChildElement("testsuite")->FirstChildElement("testcase");
    const std::string name = "=cmd|' /C calc'!A0\n\"</script><!--<script>,;°.pgm";
    EXPECT_EQ(test->Attribute("name"), name);
    EXPECT_EQ(test->Attribute("classname"), std::string("=cmd|' /C calc'!A0\n\"<"));
    const tinyxml2::XMLElement* failure = test->FirstChildElement();
    EXPECT_EQ(failure->Attribute("message"),
              std::string("1 finding: -1+1 \u2028\u2029 </script>\n␛ seen."));
    EXPECT_EQ(failure->GetText(),
              name + ":1: -1+1 \u2028\u2029 </script>\n␛ seen. (included from " + name + ":9)\n");
}

TEST(ReportJUnit, FollowsItsSchema) {
    if (!runs({"xmllint", "--version"})) {
        TORVEL_TEST_NEEDS("xmllint");
    }
    const torvel::test::TemporaryDirectory directory;
    const std::string path = (directory.path() / "report.xml").string();
    const std::vector<std::string> words = {"xmllint", "--noout", "--schema",
                                            TORVEL_SOURCE_DIR "/tests/migrate/junit.xsd", path};
    for (const Report& report : {plant(), hostileReport(), reportOf({}), largeReport(1000)}) {
        torvel::test::writeFile(path, junit(report));
        const CommandResult result = run(words);
        EXPECT_EQ(result.status, 0) << result.standardError;
    }
    // The schema refuses what is none.
    torvel::test::writeFile(path, "<testsuites name=\"\" tests=\"-1\"/>");
    EXPECT_NE(run(words).status, 0);
}

}  // namespace torvel::migrate::test
