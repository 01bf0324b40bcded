// torvel-migrate on a pseudo-terminal: what stands in a window of some width, and what Ctrl-C does.

#include <gtest/gtest.h>
#include <poll.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "src/migrate/text-decoding.h"
#include "tests/migrate/other-program.h"
#include "tests/support/temporary-directory.h"

namespace torvel::migrate::test {

namespace {

using Words = std::vector<std::string>;

winsize sizeOf(unsigned columns) {
    winsize size{};
    size.ws_row = 24;
    size.ws_col = static_cast<unsigned short>(columns);
    return size;
}

/// torvel-migrate in a window of its own.
class Window {
public:
    /// `setting` are variables of the environment as "NAME=value"; one without "=" is taken away.
    Window(const NativePath& folder, unsigned columns, const Words& arguments,
           const Words& setting = {"TERM=xterm", "NO_COLOR"}) {
        const winsize size = sizeOf(columns);
        process_ = forkpty(&terminal_, nullptr, nullptr, &size);
        if (process_ == 0) {
            start(folder, arguments, setting);
        }
    }
    ~Window() { close(terminal_); }
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    void resize(unsigned columns) const {
        const winsize size = sizeOf(columns);
        EXPECT_EQ(ioctl(terminal_, TIOCSWINSZ, &size), 0);
    }
    void press(char key) const { EXPECT_EQ(::write(terminal_, &key, 1), 1); }

    /// Reads until the text has come, or nothing comes any more.
    bool waitFor(std::string_view text) {
        while (shown_.find(text) == std::string::npos) {
            if (!readSome()) {
                return false;
            }
        }
        return true;
    }
    /// The exit status.
    int wait() {
        while (readSome()) {
        }
        int status = 0;
        EXPECT_EQ(waitpid(process_, &status, 0), process_);
        EXPECT_TRUE(WIFEXITED(status));
        return WEXITSTATUS(status);
    }
    const std::string& shown() const { return shown_; }

private:
    [[noreturn]] static void start(const NativePath& folder, const Words& arguments,
                                   const Words& setting) {
        for (const std::string& variable : setting) {
            const std::size_t sign = variable.find('=');
            if (sign == std::string::npos) {
                unsetenv(variable.c_str());
            } else {
                setenv(variable.substr(0, sign).c_str(), variable.c_str() + sign + 1, 1);
            }
        }
        std::vector<char*> words;
        std::string program = TORVEL_MIGRATE;
        words.push_back(program.data());
        Words kept = arguments;
        for (std::string& word : kept) {
            words.push_back(word.data());
        }
        words.push_back(nullptr);
        if (chdir(folder.c_str()) == 0) {
            execv(program.c_str(), words.data());
        }
        _exit(127);
    }
    bool readSome() {
        constexpr int patience = 60'000;
        pollfd waiting{terminal_, POLLIN, 0};
        char bytes[4096];
        if (poll(&waiting, 1, patience) != 1) {
            ADD_FAILURE() << "nothing came for a minute";
            return false;
        }
        const ssize_t count = ::read(terminal_, bytes, sizeof bytes);
        if (count <= 0) {
            return false;  // the program has ended
        }
        shown_.append(bytes, static_cast<std::size_t>(count));
        return true;
    }

    int terminal_ = -1;
    pid_t process_ = -1;
    std::string shown_;
};

/// What was drawn: pieces between CR and LF, signs for the terminal left out, the empty ones too.
Words drawnLines(std::string_view shown) {
    Words lines{""};
    for (std::size_t i = 0; i < shown.size(); ++i) {
        if (shown[i] == '\x1b') {
            i = std::min(shown.find_first_of("mK", i), shown.size());
        } else if (shown[i] == '\r' || shown[i] == '\n') {
            lines.emplace_back();
        } else {
            lines.back() += shown[i];
        }
    }
    std::erase(lines, "");
    return lines;
}

std::size_t widest(const Words& lines) {
    std::size_t width = 0;
    for (const std::string& line : lines) {
        width = std::max(width, characterCount(line));
    }
    return width;
}

bool isProgress(const std::string& line) {
    return line.find(" programs, ") != std::string::npos || line.ends_with(" programs");
}

/// A folder "programs" with so many programs of so many lines that convert, and one that cannot be read.
class Shelf {
public:
    explicit Shelf(int programs, int lines = 10) {
        std::string text = "PROBE X\n$a = 1e3\n";
        for (int i = 0; i < lines; ++i) {
            text += "G1 X" + std::to_string(i) + " Y5 F100 ; go there\n";
        }
        for (int i = 0; i < programs; ++i) {
            torvel::test::writeFile(folder() / ("programs/p" + std::to_string(i) + ".pgm"), text);
        }
        torvel::test::writeFile(folder() / "programs/broken.pgm", "$s = \"open\n");
    }
    NativePath folder() const { return directory_.path(); }

private:
    torvel::test::TemporaryDirectory directory_;
};

const Words convert{"convert", "programs", "-o", "converted", "-j", "1"};

Words with(Words words, const std::string& last) {
    words.push_back(last);
    return words;
}

}  // namespace

TEST(TerminalWindow, NothingIsWiderThanTheWindow) {
    for (const unsigned columns : {40U, 80U, 200U}) {
        const Shelf shelf(60);
        Window window(shelf.folder(), columns, convert);
        EXPECT_EQ(window.wait(), 0);
        const Words lines = drawnLines(window.shown());
        EXPECT_LE(widest(lines), columns) << window.shown();
        // Progress was drawn, the last of it complete, and taken away in front of the summary.
        const auto last = std::find_if(lines.rbegin(), lines.rend(), isProgress);
        ASSERT_NE(last, lines.rend()) << window.shown();
        EXPECT_NE(last->find("61 of 61 programs"), std::string::npos) << *last;
        EXPECT_LT(characterCount(*last), columns);
        EXPECT_NE(window.shown().find("\r\x1b[KConverted 61 programs in "), std::string::npos);
        EXPECT_NE(window.shown().find("\x1b[1m"), std::string::npos) << "nothing is bold";
    }
}

TEST(TerminalWindow, AWindowThatChangesItsWidth) {
    const Shelf shelf(400, 100);
    Window window(shelf.folder(), 200, convert);
    ASSERT_TRUE(window.waitFor(" of 401 programs"));
    window.resize(40);
    EXPECT_EQ(window.wait(), 0);
    const Words lines = drawnLines(window.shown());
    const auto first = std::find_if(lines.begin(), lines.end(), isProgress);
    const auto last = std::find_if(lines.rbegin(), lines.rend(), isProgress);
    ASSERT_NE(first, lines.end());
    EXPECT_GT(characterCount(*first), 40U) << *first;
    EXPECT_LT(characterCount(*last), 40U) << *last;
    EXPECT_NE(last->find("401 of 401 programs"), std::string::npos) << *last;
    // So is the summary.
    const std::size_t summary = window.shown().find("Converted 401 programs");
    ASSERT_NE(summary, std::string::npos);
    EXPECT_LE(widest(drawnLines(window.shown().substr(summary))), 40U);
}

TEST(TerminalWindow, WithoutColour) {
    const Shelf shelf(5);
    Window window(shelf.folder(), 80, convert, {"TERM=xterm", "NO_COLOR=1"});
    EXPECT_EQ(window.wait(), 0);
    for (std::size_t at = window.shown().find('\x1b'); at != std::string::npos;
         at = window.shown().find('\x1b', at + 1)) {
        EXPECT_EQ(window.shown().substr(at, 3), "\x1b[K");
    }
    EXPECT_NE(window.shown().find("6 of 6 programs"), std::string::npos);
}

TEST(TerminalWindow, OneThatCannotDrawAgain) {
    for (const Words& setting : {Words{"TERM=dumb"}, Words{"TERM"}}) {
        const Shelf shelf(5);
        Window window(shelf.folder(), 80, convert, setting);
        EXPECT_EQ(window.wait(), 0);
        EXPECT_EQ(window.shown().find('\x1b'), std::string::npos) << window.shown();
        EXPECT_TRUE(window.shown().starts_with("Converted 6 programs in ")) << window.shown();
        // No line is drawn again.
        for (std::size_t at = window.shown().find('\r'); at != std::string::npos;
             at = window.shown().find('\r', at + 1)) {
            EXPECT_EQ(window.shown().substr(at, 2), "\r\n");
        }
    }
}

TEST(TerminalWindow, Quiet) {
    const Shelf shelf(5);
    Window window(shelf.folder(), 80, with(convert, "--quiet"));
    EXPECT_EQ(window.wait(), 0);
    EXPECT_EQ(window.shown(), "");
}

TEST(TerminalWindow, NoneAtAll) {
    const Shelf shelf(5);
    const CommandResult result =
        run({TORVEL_MIGRATE, "convert", (shelf.folder() / "programs").string(), "-o",
             (shelf.folder() / "converted").string()});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.standardError, "");
    EXPECT_TRUE(result.standardOutput.starts_with("Converted 6 programs in "));
    EXPECT_EQ(result.standardOutput.find_first_of("\r\x1b"), std::string::npos);
}

TEST(TerminalWindow, InterruptedInTheMiddle) {
    const Shelf shelf(400, 100);
    Window window(shelf.folder(), 80, convert);
    ASSERT_TRUE(window.waitFor(" of 401 programs"));
    constexpr char controlC = 3;
    window.press(controlC);
    EXPECT_EQ(window.wait(), 1);
    EXPECT_NE(window.shown().find("Interrupted. What was converted is kept; the next run goes on "
                                  "from there.\r\n"),
              std::string::npos)
        << window.shown();
    EXPECT_EQ(window.shown().find("Converted "), std::string::npos);

    Window next(shelf.folder(), 80, convert);
    EXPECT_EQ(next.wait(), 0);
    const std::size_t begin = next.shown().find("Converted ");
    ASSERT_NE(begin, std::string::npos) << next.shown();
    int now = 0;
    int unchanged = 0;
    double seconds = 0;
    double rate = 0;
    ASSERT_EQ(std::sscanf(next.shown().c_str() + begin,
                          "Converted %d programs in %lf s (%lf a second); %d had not changed.",
                          &now, &seconds, &rate, &unchanged),
              4)
        << next.shown();
    EXPECT_EQ(now + unchanged, 401);
    EXPECT_GT(unchanged, 0);
    EXPECT_GT(now, 0);
}

}  // namespace torvel::migrate::test
