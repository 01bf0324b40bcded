// The page in both of its forms: what a browser reads of it is what the report has, whatever the texts, and a page that
// is there is replaced as a whole.

#include "src/migrate/html-page.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "src/migrate/commands.h"
#include "src/migrate/store-report.h"
#include "tests/migrate/html-decoding.h"
#include "tests/migrate/plant.h"
#include "tests/migrate/report-example.h"

namespace torvel::migrate::test {

namespace {

namespace fs = std::filesystem;
using nlohmann::json;
using torvel::test::readFile;
using torvel::test::TemporaryDirectory;
using torvel::test::writeFile;

constexpr std::string_view emptyPage =
    "<!doctype html>\n<title>Report</title>\n<!--data-->\n<script>start()</script>\n";

struct Bounds {
    std::size_t programs = 300;
    std::uint64_t bytes = std::uint64_t{20} << 20U;
    std::int64_t made = 1700000100;
};

std::string writePage(const Report& report, const NativePath& path, const Bounds& bounds = {}) {
    const Places places(report);
    const ReportTotals totals = totalsOf(report, places);
    const HtmlPage page{report,      places, totals,          emptyPage,
                        bounds.made, 3,      bounds.programs, bounds.bytes};
    return writeHtmlPage(page, path);
}

/// A report of programs that have texts.
Report withTexts(Report report, std::vector<ReportTexts> texts) {
    report.textsOf = [texts = std::move(texts)](std::size_t number) { return texts.at(number); };
    return report;
}

std::string programName(std::size_t number) {
    std::string name = std::to_string(number);
    name.insert(0, 1, 'p');
    name += ".pgm";
    return name;
}

Report programs(std::size_t count, const std::string& text = "HOME X\n") {
    std::vector<ReportProgram> all;
    std::vector<ReportTexts> texts;
    for (std::size_t i = 0; i < count; ++i) {
        const std::string name = programName(100000 + i);
        all.push_back(converted(name, 1, 1, {rewrite(name, 1, "HOME X")}));
        texts.push_back({{{name, text + name}}, {{0, 1, 0, 1, true}}, "Home(X)\n", std::nullopt});
    }
    return withTexts(reportOf(std::move(all)), std::move(texts));
}

std::vector<std::string> filesOf(const NativePath& folder) {
    std::vector<std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (!entry.is_directory()) {
            files.push_back(entry.path().lexically_relative(folder).generic_string());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

std::string refusal(const Report& report, const NativePath& path) {
    try {
        writePage(report, path);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "none";
}

/// A page as a browser reads it.
struct ReadPage {
    json summary;
    std::vector<json> details;
};

ReadPage readFilePage(const NativePath& path) {
    const std::map<std::string, std::string> elements = elementsOf(readFile(path));
    ReadPage page;
    page.summary = json::parse(unpacked(elements.at("summary")));
    for (std::size_t i = 0; elements.contains("program-" + std::to_string(i)); ++i) {
        page.details.push_back(json::parse(unpacked(elements.at("program-" + std::to_string(i)))));
    }
    EXPECT_EQ(elements.size(), page.details.size() + 2);
    return page;
}

ReadPage readFolderPage(const NativePath& path) {
    ReadPage page;
    page.summary = dataOf(readFile(path / "index.html"), "summary");
    const std::string made = std::to_string(page.summary["made"].get<std::int64_t>());
    for (std::size_t i = 0; i < page.summary["programs"]["path"].size(); ++i) {
        const std::string name = std::to_string(i) + ".js";
        const ProgramCall call = programCallOf(readFile(path / "programs" / name));
        EXPECT_EQ(call.number, std::to_string(i));
        EXPECT_EQ(call.made, made);
        page.details.push_back(call.detail);
    }
    EXPECT_EQ(filesOf(path).size(), page.details.size() + 1);
    return page;
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::size_t begin = 0;
    for (std::size_t end = text.find('\n'); end != std::string::npos;
         end = text.find('\n', begin)) {
        lines.push_back(text.substr(begin, end - begin));
        begin = end + 1;
    }
    if (begin < text.size()) {
        lines.push_back(text.substr(begin));
    }
    return lines;
}

std::string textOf(const json& summary, const json& column, std::size_t row) {
    return summary["strings"].at(column.at(row).get<std::size_t>());
}

/// Whether every finding of the page is that of the report; texts are ASCII.
void expectSameFindings(const json& summary, const Report& report) {
    const json& findings = summary["findings"];
    std::size_t program = 0;
    std::size_t finding = 0;
    report.forEachProgram([&](const ReportProgram& expected) {
        EXPECT_EQ(textOf(summary, summary["programs"]["path"], program), expected.program);
        EXPECT_EQ(textOf(summary, summary["programs"]["machine"], program), expected.machine);
        EXPECT_EQ(summary["programs"]["outputState"][program],
                  static_cast<int>(expected.outputState));
        EXPECT_EQ(summary["programs"]["lines"][program], expected.lines);
        for (const ReportFinding& row : expected.findings) {
            EXPECT_EQ(findings["program"][finding], program);
            EXPECT_EQ(textOf(summary, findings["file"], finding), row.row.file);
            EXPECT_EQ(findings["line"][finding], row.row.line);
            EXPECT_EQ(summary["rules"][findings["rule"][finding].get<std::size_t>()]["code"],
                      row.row.code);
            EXPECT_EQ(textOf(summary, findings["text"], finding), row.row.text);
            EXPECT_EQ(textOf(summary, findings["lineText"], finding), row.row.lineText);
            EXPECT_EQ(findings["open"][finding], row.isOpen ? 1 : 0);
            ++finding;
        }
        ++program;
    });
    EXPECT_EQ(findings["program"].size(), finding);
    EXPECT_EQ(summary["programs"]["path"].size(), program);
}

/// Whether the line of each finding stands where the page says, in the source and in the output.
void expectLinesInPlace(const ReadPage& page) {
    const json& findings = page.summary["findings"];
    for (std::size_t i = 0; i < findings["line"].size(); ++i) {
        const json& detail = page.details.at(findings["program"][i].get<std::size_t>());
        const std::string file = textOf(page.summary, findings["file"], i);
        const auto line = findings["line"][i].get<std::size_t>();
        for (const json& entry : detail["files"]) {
            if (entry["path"] == file && line > 0) {
                EXPECT_EQ(linesOf(entry["text"]).at(line - 1),
                          textOf(page.summary, findings["lineText"], i));
            }
        }
        if (findings["todo"][i] == 0) {
            const auto outputLine = findings["outputLine"][i].get<std::size_t>();
            EXPECT_NE(linesOf(detail["generated"]).at(outputLine - 1).find("#error_unconvertible"),
                      std::string::npos);
        }
    }
}

/// Whether each line map has as many lines as the output.
void expectWholeMaps(const ReadPage& page) {
    for (const json& detail : page.details) {
        std::size_t lines = 0;
        for (const json& run : detail["lineMap"]) {
            lines += run[0].get<std::size_t>() * run[4].get<std::size_t>();
            EXPECT_LT(run[1].get<std::size_t>(), detail["files"].size());
        }
        EXPECT_EQ(lines, linesOf(detail["generated"]).size());
    }
}

Report reportOfStore(const NativePath& store, const NativePath& folder) {
    return migrate::reportOf({{std::make_shared<Store>(store, StoreUse::read), folder}}, folder,
                             Effort());
}

/// A copy of the example plant that was converted.
class ConvertedPlant {
public:
    ConvertedPlant() {
        fs::copy(fs::path(TORVEL_SOURCE_DIR) / "examples/plant", directory_.path(),
                 fs::copy_options::recursive);
        const TextSink sink = [this](std::string_view text) { told += text; };
        const auto none = [] { return Terminal(); };
        status = runMigrate(
            {"convert", "--quiet", "--project", (directory_.path() / "migration.toml").string()},
            {sink, sink, none, none});
    }
    NativePath path(const std::string& name) const { return directory_.path() / name; }
    Report report() const {
        return reportOfStore(path("converted/migration.sqlite"), directory_.path());
    }

    int status = 1;
    std::string told;

private:
    TemporaryDirectory directory_;
};

}  // namespace

TEST(HtmlPage, ThePlantInOneFile) {
    const ConvertedPlant plant;
    ASSERT_EQ(plant.status, 0) << plant.told;
    const Report report = plant.report();
    EXPECT_EQ(writePage(report, plant.path("report.html")), "");
    EXPECT_EQ(elementsOf(readFile(plant.path("report.html"))).at("").find("<!--data-->"),
              std::string::npos);
    const ReadPage page = readFilePage(plant.path("report.html"));
    EXPECT_EQ(page.summary["details"], "inside");
    EXPECT_EQ(page.details.size(), 40U);
    expectSameFindings(page.summary, report);
    expectLinesInPlace(page);
    expectWholeMaps(page);
}

TEST(HtmlPage, ThePlantInAFolder) {
    const ConvertedPlant plant;
    const Report report = plant.report();
    EXPECT_EQ(writePage(report, plant.path("page")), "");
    const ReadPage page = readFolderPage(plant.path("page"));
    EXPECT_EQ(page.summary["details"], "files");
    expectSameFindings(page.summary, report);
    expectLinesInPlace(page);
    expectWholeMaps(page);
    // Both forms have the same but for where the programs are.
    writePage(report, plant.path("report.html"));
    ReadPage file = readFilePage(plant.path("report.html"));
    file.summary["details"] = "files";
    EXPECT_EQ(file.summary, page.summary);
    EXPECT_EQ(file.details, page.details);
}

// What stands behind the last line end of a source is a line too, an empty one, in the source and in the output.
TEST(HtmlPage, OutputsAsTheyAreNow) {
    Plant plant;
    plant.add("a.pgm", "HOME X\r\nPROBE X\r\n#include \"part.inc\"\r\n");
    plant.write("part.inc", "HOME Y\n");
    plant.add("b.pgm", "HOME X\n");
    plant.add("c.pgm", "$a = \"open\n");
    plant.add("d.pgm", "HOME X\n");
    plant.run();
    plant.write("out/a.torvel", "Home(X)\r\nmine(\"\xB0\")\r\n");
    plant.remove("out/d.torvel");

    const Report report = reportOfStore(plant.store(), plant.project.folder);
    writePage(report, plant.path("report.html"));
    const ReadPage page = readFilePage(plant.path("report.html"));
    EXPECT_EQ(page.summary["programs"]["outputState"], json({2, 1, 0, 4}));
    const json& edited = page.details.at(0);
    EXPECT_EQ(edited["files"],
              json::parse(R"([{"path": "a.pgm", "text": "HOME X\nPROBE X\n#include \"part.inc\"\n"},
                              {"path": "part.inc", "text": "HOME Y\n"}])"));
    EXPECT_EQ(edited["generated"],
              "Home(X)\n#error_unconvertible (a.pgm:2): PROBE X\n"
              "// #include \"part.inc\" // start\nHome(Y)\n\n"
              "// #include \"part.inc\" // end\n\n");
    EXPECT_EQ(edited["current"], "Home(X)\nmine(\"°\")\n");
    EXPECT_EQ(page.details.at(1)["current"], json());
    EXPECT_EQ(page.details.at(2)["generated"], "");
    EXPECT_EQ(page.details.at(2)["lineMap"], json::array());
    EXPECT_EQ(page.details.at(3)["current"], json());
    EXPECT_EQ(page.details.at(3)["generated"], "Home(X)\n\n");
}

TEST(HtmlPage, FurtherLinesAreTold) {
    Report report = hostileReport();  // its finding is about the lines 4 and 5 too
    std::vector<ReportProgram> programs = {converted("a.pgm", 1, 1, {rewrite("a.pgm", 1, "x")})};
    report.forEachProgram([&](const ReportProgram& program) { programs.push_back(program); });
    programs.push_back(converted("z.pgm", 1, 1, {rewrite("z.pgm", 1, "x")}));
    const TemporaryDirectory directory;
    writePage(withTexts(reportOf(programs), std::vector<ReportTexts>(3)),
              directory.path() / "report.html");
    const ReadPage page = readFilePage(directory.path() / "report.html");
    EXPECT_EQ(page.details.at(0)["furtherLines"], json::object());
    EXPECT_EQ(page.details.at(1)["furtherLines"], json::parse(R"({"1": [4, 5]})"));
    EXPECT_EQ(page.details.at(2)["furtherLines"], json::object());
}

TEST(HtmlPage, HostileTextsAreData) {
    // What ends a script, half of a surrogate pair and a sign that turns the writing round in UTF-8, a NUL, line ends
    // of every kind, and a byte of Windows-1252 in one line only.
    const std::string text = std::string("</script><script>alert(1)</script>\0<!--\r", 40) +
                             "\xED\xA0\x80\xED\xB0\x80 \xE2\x80\xAE\xE2\x80\xA8\xEF\xBF\xBF\r\n"
                             "\xE2\x82\xAC\n\x80 ]]>\\\"\n\n";
    const std::string decoded = std::string("</script><script>alert(1)</script>\0<!--\n", 40) +
                                "\u00ED\u00A0\u20AC\u00ED\u00B0\u20AC "
                                "\u00E2\u20AC\u00AE\u00E2\u20AC\u00A8\u00EF\u00BF\u00BF\n"
                                "\u20AC\n\u20AC ]]>\\\"\n\n";
    const Report report = withTexts(
        hostileReport(), {{{{hostileName(), text}}, {}, text, "\xE2\x80\xAE\xE2\x80\xA8"}});
    const TemporaryDirectory directory;
    writePage(report, directory.path() / "report.html");
    writePage(report, directory.path() / "page");
    const json expected = {
        {"files",
         {{{"path", "=cmd|' /C calc'!A0\n\"</script><!--<script>,;°.pgm"}, {"text", decoded}}}},
        {"lineMap", json::array()},
        {"generated", decoded},
        {"current", "\u202E\u2028"},
        {"furtherLines", {{"0", {4, 5}}}}};
    EXPECT_EQ(readFilePage(directory.path() / "report.html").details.at(0), expected);
    EXPECT_EQ(readFolderPage(directory.path() / "page").details.at(0), expected);
    // Nothing of the texts stands in the page itself, nor would it end a script when it is unpacked.
    const std::string page = readFile(directory.path() / "report.html");
    EXPECT_EQ(elementsOf(page).at(""),
              "<!doctype html>\n<title>Report</title>\nDATA\nDATA\n\n<script>start()</script>\n");
    EXPECT_EQ(unpacked(elementsOf(page).at("program-0")).find('<'), std::string::npos);
    EXPECT_EQ(unpacked(elementsOf(page).at("summary")).find('<'), std::string::npos);
}

TEST(HtmlPage, AThousandProgramsOfAStore) {
    Plant plant;
    plant.write("inc.pgm", "HOME Y\nPROBE Y\n");
    for (std::size_t i = 0; i < 1000; ++i) {
        std::string text = "#include \"inc.pgm\"\n$a = ";
        text += std::to_string(i);
        text += '\n';
        plant.add(programName(1000 + i), text);
    }
    plant.run();
    const Report report = reportOfStore(plant.store(), plant.project.folder);
    EXPECT_EQ(writePage(report, plant.path("report.html")),
              "The page of 1,000 programs is too large for one file: it is in the folder '" +
                  plant.path("report_files").string() + "', and '" +
                  plant.path("report.html").string() + "' leads to it. Keep the two together.");
    const std::string door = readFile(plant.path("report.html"));
    EXPECT_NE(door.find("<a href=\"report_files/index.html\">"), std::string::npos);
    EXPECT_NE(door.find("content=\"0; url=report_files/index.html\""), std::string::npos);
    const ReadPage page = readFolderPage(plant.path("report_files"));
    ASSERT_EQ(page.details.size(), 1000U);
    expectSameFindings(page.summary, report);
    expectLinesInPlace(page);
    expectWholeMaps(page);
    EXPECT_EQ(page.details[789]["generated"],
              "// #include \"inc.pgm\" // start\nHome(Y)\n"
              "#error_unconvertible (inc.pgm:2): PROBE Y\n\n"
              "// #include \"inc.pgm\" // end\n$a = 789\n\n");
    // What all of them include is one place.
    EXPECT_EQ(page.summary["places"]["fingerprint"].size(), 1U);
    EXPECT_EQ(page.summary["findings"]["place"], json(std::vector<int>(1000, 0)));
}

TEST(HtmlPage, ProgramsThatAreTooLargeTogether) {
    const TemporaryDirectory directory;
    std::string noise;
    for (std::uint32_t state = 1; noise.size() < 30000;) {
        state = state * 1664525U + 1013904223U;
        noise += static_cast<char>('!' + (state >> 24U) % 90);
    }
    const NativePath path = directory.path() / "Report.HTM";
    Bounds bounds;
    bounds.bytes = 100000;
    EXPECT_EQ(writePage(programs(2, noise), path, bounds), "");
    EXPECT_EQ(readFilePage(path).details.size(), 2U);
    EXPECT_NE(writePage(programs(5, noise), path, bounds), "");
    const ReadPage page = readFolderPage(directory.path() / "Report_files");
    ASSERT_EQ(page.details.size(), 5U);
    EXPECT_EQ(page.details[4]["files"][0]["text"], noise + "p100004.pgm");
}

TEST(HtmlPage, NamesOfAnyKindLeadToTheFolder) {
    const TemporaryDirectory directory;
    Bounds bounds;
    bounds.programs = 1;
    const NativePath path = directory.path() / torvel::test::pathOf("a b#'&;%41ü.html");
    writePage(programs(2), path, bounds);
    EXPECT_NE(readFile(path).find("url=a%20b%23%27%26%3B%2541%C3%BC_files/index.html\""),
              std::string::npos);
    EXPECT_EQ(
        readFolderPage(directory.path() / torvel::test::pathOf("a b#'&;%41ü_files")).details.size(),
        2U);
}

TEST(HtmlPage, ANewPageTakesThePlaceOfTheOld) {
    const TemporaryDirectory directory;
    const NativePath folder = directory.path() / "page";
    writePage(programs(5), folder);
    writeFile(folder / "notes.txt", "mine");
    // What a run that was killed leaves.
    writeFile(folder / "programs.new" / "7.js", "half");
    Bounds later;
    later.made = 1700000200;
    writePage(programs(3, "HOME Y\n"), folder, later);
    EXPECT_EQ(filesOf(folder), (std::vector<std::string>{"index.html", "notes.txt", "programs/0.js",
                                                         "programs/1.js", "programs/2.js"}));
    EXPECT_EQ(programCallOf(readFile(folder / "programs/2.js")).detail["files"][0]["text"],
              "HOME Y\np100002.pgm");
    EXPECT_EQ(programCallOf(readFile(folder / "programs/2.js")).made, "1700000200");
    EXPECT_EQ(readFile(folder / "notes.txt"), "mine");
}

TEST(HtmlPage, AFileAgainTakesItsFolderAway) {
    const TemporaryDirectory directory;
    const NativePath path = directory.path() / "report.html";
    Bounds bounds;
    bounds.programs = 3;
    writePage(programs(5), path, bounds);
    EXPECT_TRUE(fs::exists(directory.path() / "report_files/programs/4.js"));
    writePage(programs(3), path, bounds);
    EXPECT_EQ(filesOf(directory.path()), std::vector<std::string>{"report.html"});
    EXPECT_FALSE(fs::exists(directory.path() / "report_files"));
    // A folder of somebody else with this name stays.
    writeFile(directory.path() / "report_files/index.html", "<html>mine");
    writeFile(directory.path() / "report_files/programs/1.txt", "mine");
    writePage(programs(3), path, bounds);
    EXPECT_EQ(filesOf(directory.path()),
              (std::vector<std::string>{"report.html", "report_files/index.html",
                                        "report_files/programs/1.txt"}));
}

TEST(HtmlPage, FilesOfOthersAreNotReplaced) {
    const TemporaryDirectory directory;
    const NativePath folder = directory.path();
    const auto sentence = [&](const std::string& name) {
        std::string text = "'";
        text += (folder / name).string();
        text +=
            "' is not of a page of torvel-migrate, and would be replaced: name another folder "
            "for the page.";
        return text;
    };
    writeFile(folder / "site/index.html", "<html>mine");
    EXPECT_EQ(refusal(programs(1), folder / "site"), sentence("site/index.html"));
    EXPECT_EQ(filesOf(folder / "site"), std::vector<std::string>{"index.html"});
    writeFile(folder / "plant/programs/main.pgm", "HOME X");
    EXPECT_EQ(refusal(programs(1), folder / "plant"), sentence("plant/programs"));
    writeFile(folder / "code/programs/1.js/deep", "mine");
    EXPECT_EQ(refusal(programs(1), folder / "code"), sentence("code/programs"));
    writeFile(folder / "old/programs.old/notes", "mine");
    EXPECT_EQ(refusal(programs(1), folder / "old"), sentence("old/programs.old"));
    EXPECT_EQ(filesOf(folder),
              (std::vector<std::string>{"code/programs/1.js/deep", "old/programs.old/notes",
                                        "plant/programs/main.pgm", "site/index.html"}));
    writeFile(folder / "file", "mine");
    EXPECT_TRUE(
        refusal(programs(1), folder / "file")
            .starts_with("The folder '" + (folder / "file").string() + "' could not be made ("));
}

TEST(HtmlPage, APageThatCannotBeMadeLeavesTheOld) {
    const TemporaryDirectory directory;
    const NativePath folder = directory.path() / "page";
    const NativePath file = directory.path() / "report.html";
    writePage(programs(20), folder);
    writePage(programs(20), file);
    const std::vector<std::string> before = filesOf(directory.path());
    const std::string index = readFile(folder / "index.html");
    const std::string page = readFile(file);
    Report faulty = programs(20);
    faulty.textsOf = [textsOf = faulty.textsOf](std::size_t number) {
        return number == 13 ? throw std::runtime_error("The store is damaged.") : textsOf(number);
    };
    EXPECT_EQ(refusal(faulty, folder), "The store is damaged.");
    EXPECT_EQ(refusal(faulty, file), "The store is damaged.");
    EXPECT_EQ(filesOf(directory.path()), before);
    EXPECT_EQ(readFile(folder / "index.html"), index);
    EXPECT_EQ(readFile(file), page);
}

TEST(HtmlPage, TheProjectIsTheSameFromWhereverItIsReported) {
    Plant plant;
    plant.add("a.pgm", "HOME X\n");
    plant.run();
    Store(plant.store(), StoreUse::write).setProjectFolder("..");
    Plant other;
    other.add("a.pgm", "HOME X\n");
    other.run();
    Store(other.store(), StoreUse::write).setProjectFolder("..");
    const auto projectOf = [&](const std::vector<const Plant*>& plants, const NativePath& from) {
        std::vector<ReportedStore> stores;
        for (const Plant* reported : plants) {
            stores.push_back({std::make_shared<Store>(reported->store(), StoreUse::read),
                              reported->project.folder});
        }
        return migrate::reportOf(std::move(stores), from, Effort()).project;
    };
    const ReportProject alone = projectOf({&plant}, plant.project.folder);
    EXPECT_EQ(alone.identity.size(), 32U);
    EXPECT_EQ(alone.name, plant.project.folder.filename().string());
    EXPECT_EQ(projectOf({&plant}, "/tmp").identity, alone.identity);
    EXPECT_NE(projectOf({&other}, "/tmp").identity, alone.identity);
    const ReportProject both = projectOf({&plant, &other}, "/home");
    EXPECT_EQ(both.name, "home");
    EXPECT_NE(both.identity, alone.identity);
    EXPECT_EQ(projectOf({&other, &plant}, "/").identity, both.identity);
    // Moved or copied, it is the same.
    const TemporaryDirectory elsewhere;
    fs::copy_file(plant.store(), elsewhere.path() / "copy.sqlite");
    EXPECT_EQ(reportOfStore(elsewhere.path() / "copy.sqlite", "/").project.identity,
              alone.identity);
}

}  // namespace torvel::migrate::test
