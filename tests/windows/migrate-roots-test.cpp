// Programs, outputs and project files on different drives and shares. The second drive is a folder's; the share is the
// one of C: that Windows has for those who may manage the machine, and that script/wine makes.

#include <gtest/gtest.h>
#include <windows.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "src/migrate/commands.h"
#include "src/migrate/recorded-source.h"
#include "tests/support/temporary-directory.h"

namespace torvel::migrate::test {

namespace {

namespace fs = std::filesystem;
using torvel::test::readFile;
using torvel::test::TemporaryDirectory;
using torvel::test::writeFile;

bool isWine() {
    return GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
}

/// A new folder on another drive than C: while it lives, the first drive where one can be made.
class OtherDrive {
public:
    OtherDrive() {
        const std::string name = "torvel-test-" + std::to_string(GetCurrentProcessId());
        const DWORD drives = GetLogicalDrives();
        for (char letter = 'D'; letter <= 'Z' && folder_.empty(); ++letter) {
            const std::string drive{letter, ':'};
            std::error_code error;
            if ((drives >> static_cast<unsigned>(letter - 'A') & 1U) != 0 &&
                fs::create_directory(drive + "\\" + name, error)) {
                folder_ = drive + "\\" + name;
            }
        }
    }
    ~OtherDrive() {
        if (!folder_.empty()) {
            fs::remove_all(folder_);
        }
    }
    OtherDrive(const OtherDrive&) = delete;
    OtherDrive& operator=(const OtherDrive&) = delete;

    bool isThere() const { return !folder_.empty(); }
    const fs::path& path() const { return folder_; }
    std::string name() const { return folder_.root_name().string(); }

private:
    fs::path folder_;
};

struct Outcome {
    int status = 0;
    std::string output;
    std::string error;
};

Outcome run(const std::vector<std::string>& arguments) {
    Outcome outcome;
    const Console console{[&](std::string_view text) { outcome.output += text; },
                          [&](std::string_view text) { outcome.error += text; },
                          [] { return Terminal(); }, [] { return Terminal(); }, nullptr};
    outcome.status = runMigrate(arguments, console);
    return outcome;
}

/// The texts of the files below a folder that end so, by their names from it on.
std::string outputsBelow(const fs::path& folder) {
    std::string text;
    std::vector<fs::path> files;
    if (fs::exists(folder)) {
        for (const auto& entry : fs::recursive_directory_iterator(folder)) {
            if (entry.path().extension() == ".torvel") {
                files.push_back(entry.path());
            }
        }
    }
    std::sort(files.begin(), files.end());
    for (const fs::path& file : files) {
        std::string content = readFile(file);
        std::erase(content, '\r');
        std::erase(content, '\n');
        text += file.lexically_relative(folder).generic_string() + ": " + content + "\n";
    }
    return text;
}

/// A project in the working directory with a program.
class RootsTest : public ::testing::Test {
protected:
    RootsTest() : before_(fs::current_path()) {
        writeFile(project_.path() / "programs/p.pgm", "G1 X1\n");
        fs::current_path(project_.path());
    }
    ~RootsTest() override { fs::current_path(before_); }

    fs::path project() const { return project_.path(); }

    /// Programs of another folder, which include a file.
    static void writeCells(const fs::path& folder) {
        writeFile(folder / "cells/a.pgm", "#include \"inc/part.inc\"\nPROBE X\n");
        writeFile(folder / "cells/inc/part.inc", "F10\n");
        writeFile(folder / "cells/line2/b.pgm", "G1 X2\n");
    }

    /// Runs twice and reports; `seenFrom` is the folder of the project. The outputs below `folder`.
    static std::string convertedTo(const fs::path& folder, const fs::path& seenFrom,
                                   const std::vector<std::string>& arguments,
                                   std::size_t programs) {
        std::vector<std::string> convert{"convert"};
        convert.insert(convert.end(), arguments.begin(), arguments.end());
        const Outcome first = run(convert);
        EXPECT_EQ(first.status, 0) << first.error;
        const std::string outputs = outputsBelow(folder);
        const Outcome second = run(convert);
        EXPECT_EQ(second.status, 0) << second.error;
        EXPECT_NE(second.output.find("; " + std::to_string(programs) + " had not changed."),
                  std::string::npos)
            << second.output;
        EXPECT_EQ(outputsBelow(folder), outputs);
        const Outcome json = run({"report", narrowPath(folder), "--json", "-"});
        EXPECT_EQ(json.status, 0) << json.error;
        const auto report = nlohmann::json::parse(json.output);
        EXPECT_EQ(report["programs"].size(), programs);
        for (const auto& program : report["programs"]) {
            EXPECT_EQ(program["outputState"], "as-generated") << program;
            // The paths of a report lead to the files.
            const std::string path = program["path"];
            EXPECT_EQ(fileKind(pathAt(seenFrom, path)), FileKind::regular) << path;
        }
        return outputs;
    }

private:
    fs::path before_;
    TemporaryDirectory project_;
};

class DrivesTest : public RootsTest {
protected:
    void SetUp() override {
        if (!other_.isThere() && !isWine()) {
            GTEST_SKIP() << "there is no drive but C:";
        }
        ASSERT_TRUE(other_.isThere());
        writeCells(other_.path());
    }

    fs::path other() const { return other_.path(); }
    /// A path on the other drive, with either sort of slashes.
    std::string there(const std::string& inside, char slash = '\\') const {
        std::string path = (other() / inside).string();
        std::replace_if(
            path.begin(), path.end(), [](char c) { return c == '\\' || c == '/'; }, slash);
        return path;
    }
    /// The same without the slash behind the drive.
    std::string withoutSlash(const std::string& inside) const {
        return there(inside).erase(other_.name().size(), 1);
    }

private:
    OtherDrive other_;
};

class SharesTest : public RootsTest {
protected:
    void SetUp() override {
        const bool hasShare = fileKind(nativePath(there("", '\\'))) == FileKind::directory;
        if (!hasShare && !isWine()) {
            GTEST_SKIP() << "this user has no share of drive C:";
        }
        ASSERT_TRUE(hasShare);
        writeCells(other_.path());
    }

    fs::path other() const { return other_.path(); }
    std::string there(const std::string& inside, char slash) const {
        std::string path = R"(\\localhost\C$)" + (other() / inside).string().substr(2);
        std::replace_if(
            path.begin(), path.end(), [](char c) { return c == '\\' || c == '/'; }, slash);
        return path;
    }

private:
    TemporaryDirectory other_;
};

constexpr const char* cells =
    "a.torvel: // #include \"inc/part.inc\" // startF10// #include \"inc/part.inc\" // end"
    "#error_unconvertible (a.pgm:2): PROBE X\n"
    "line2/b.torvel: G1 X2\n";

}  // namespace

TEST_F(DrivesTest, ProgramsOfAnotherDrive) {
    const auto convertedFrom = [this](const std::string& source) {
        fs::remove_all(project() / "out");
        return convertedTo(project() / "out", project(), {source, "-o", "out"}, 2);
    };
    EXPECT_EQ(convertedFrom(there("cells", '\\')), cells);
    EXPECT_EQ(convertedFrom(there("cells", '/')), cells);
    // Without a slash it starts at the drive's working directory, which is its root.
    EXPECT_EQ(convertedFrom(withoutSlash("cells")), cells);
}

/// Each source's folders are mirrored by themselves, in whichever order they are named.
TEST_F(DrivesTest, ProgramsOfTwoDrives) {
    const std::string both = std::string(cells) + "p.torvel: G1 X1\n";
    EXPECT_EQ(
        convertedTo(project() / "out", project(), {there("cells"), "programs", "-o", "out"}, 3),
        both);
    EXPECT_EQ(
        convertedTo(project() / "out2", project(), {"programs", there("cells"), "-o", "out2"}, 3),
        both);
}

TEST_F(DrivesTest, OutputsOnAnotherDrive) {
    EXPECT_EQ(convertedTo(other() / "out", project(), {"programs", "-o", there("out")}, 1),
              "p.torvel: G1 X1\n");
    EXPECT_EQ(convertedTo(other() / "out2", project(), {"programs", "-o", withoutSlash("out2")}, 1),
              "p.torvel: G1 X1\n");
}

TEST_F(DrivesTest, AProjectOnAnotherDriveThanItsPrograms) {
    const std::string sources = (project() / "programs").string();
    writeFile(other() / "migration.toml", "sources = ['" + sources + "']\noutput = '" +
                                              (project() / "out").string() +
                                              "'\n[[folder]]\npath = '" + sources + "'\n");
    EXPECT_EQ(convertedTo(project() / "out", other(), {"--project", there("migration.toml")}, 1),
              "p.torvel: G1 X1\n");
}

TEST_F(RootsTest, ADriveInSmallLetters) {
    std::string programs = (project() / "programs").string();
    programs[0] = 'c';
    EXPECT_EQ(convertedTo(project() / "out", project(), {programs, "-o", "out"}, 1),
              "p.torvel: G1 X1\n");
}

TEST_F(SharesTest, ProgramsAndOutputsOnAShare) {
    for (const char slash : {'\\', '/'}) {
        fs::remove_all(project() / "out");
        EXPECT_EQ(
            convertedTo(project() / "out", project(), {there("cells", slash), "-o", "out"}, 2),
            cells);
        fs::remove_all(other() / "out");
        EXPECT_EQ(convertedTo(other() / "out", project(),
                              {there("cells", slash), "-o", there("out", slash)}, 2),
                  cells);
        fs::remove_all(other() / "out");
        EXPECT_EQ(
            convertedTo(other() / "out", project(), {"programs", "-o", there("out", slash)}, 1),
            "p.torvel: G1 X1\n");
    }
}

TEST_F(SharesTest, AProjectOnAShare) {
    writeFile(other() / "migration.toml",
              "sources = ['cells']\noutput = '../" + other().filename().string() + "/out'\n");
    EXPECT_EQ(
        convertedTo(other() / "out", other(), {"--project", there("migration.toml", '\\')}, 2),
        cells);
    const Outcome accepted =
        run({"accept", "--project", there("migration.toml", '/'), there("cells/a.pgm", '/')});
    EXPECT_EQ(accepted.status, 0) << accepted.error;
    EXPECT_TRUE(accepted.output.starts_with("1 finding is in the baseline")) << accepted.output;
}

TEST(Roots, KeysOfOtherRootsAreWholePaths) {
    EXPECT_EQ(keyOf(LR"(C:\plant\a.pgm)", LR"(C:\plant)"), "a.pgm");
    EXPECT_EQ(keyOf(LR"(C:\lib\a.pgm)", LR"(C:\plant)"), "../lib/a.pgm");
    EXPECT_EQ(keyOf(LR"(D:\lib\a.pgm)", LR"(C:\plant)"), "D:/lib/a.pgm");
    EXPECT_EQ(keyOf(LR"(\\server\share\a.pgm)", LR"(C:\plant)"), "//server/share/a.pgm");
    EXPECT_EQ(keyOf(LR"(\\server\share\a.pgm)", LR"(\\server\share\plant)"), "../a.pgm");
    EXPECT_EQ(keyOf(LR"(\\server\other\a.pgm)", LR"(\\server\share\plant)"),
              "//server/other/a.pgm");
    EXPECT_EQ(keyOf(LR"(C:\a.pgm)", LR"(\\server\share)"), "C:/a.pgm");
    for (const wchar_t* const folder : {LR"(C:\plant)", LR"(\\server\share\plant)"}) {
        for (const wchar_t* const path : {LR"(C:\plant\x\a.pgm)", LR"(C:\lib\a.pgm)",
                                          LR"(D:\lib\a.pgm)", LR"(\\server\share\plant\a.pgm)",
                                          LR"(\\server\share\a.pgm)", LR"(\\server\other\a.pgm)"}) {
            EXPECT_EQ(pathOf(keyOf(path, folder), folder).native(), path);
        }
    }
}

}  // namespace torvel::migrate::test
