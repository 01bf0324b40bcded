// What the properties of the program's file show.

#include <gtest/gtest.h>
#include <windows.h>

#include <string>
#include <vector>

namespace torvel::test {

namespace {

std::string versionText(const std::string& name) {
    std::vector<char> information(GetFileVersionInfoSizeA(TORVEL_PROGRAM, nullptr));
    void* text = nullptr;
    UINT length = 0;
    if (information.empty() ||
        GetFileVersionInfoA(TORVEL_PROGRAM, 0, static_cast<DWORD>(information.size()),
                            information.data()) == 0 ||
        VerQueryValueA(information.data(), (R"(\StringFileInfo\040904B0\)" + name).c_str(), &text,
                       &length) == 0) {
        return "none";
    }
    return static_cast<const char*>(text);
}

TEST(Version, StandsInTheProgramsFile) {
    EXPECT_EQ(versionText("ProductVersion"), TORVEL_VERSION);
    EXPECT_EQ(versionText("FileVersion"), TORVEL_VERSION);
    EXPECT_EQ(versionText("OriginalFilename"), "BrannicToTorvel64.exe");
}

}  // namespace

}  // namespace torvel::test
