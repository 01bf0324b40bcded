#include <windows.h>

#include <cstdint>
#include <filesystem>
#include <stdexcept>
#include <string>

#include "tests/support/platform.h"
#include "tests/support/start-program.h"
#include "tests/support/temporary-directory.h"

namespace torvel::test {

namespace {

/// Appends a word to a command line so that the started program reads it as it is.
void appendWord(std::wstring& line, const std::wstring& word) {
    line += line.empty() ? L"\"" : L" \"";
    std::size_t backslashes = 0;
    for (const wchar_t c : word) {
        if (c == L'"') {
            line.append(backslashes + 1, L'\\');
        }
        backslashes = c == L'\\' ? backslashes + 1 : 0;
        line += c;
    }
    line.append(backslashes, L'\\');
    line += L'"';
}

/// A file that a started program has as one of its streams.
class StreamFile {
public:
    StreamFile(const std::filesystem::path& path, DWORD access, DWORD disposition) {
        SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
        handle_ = CreateFileW(path.c_str(), access, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                              disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (handle_ == INVALID_HANDLE_VALUE) {
            throw std::runtime_error("cannot open " + path.string());
        }
    }
    ~StreamFile() { CloseHandle(handle_); }
    StreamFile(const StreamFile&) = delete;
    StreamFile& operator=(const StreamFile&) = delete;

    HANDLE get() const { return handle_; }

private:
    HANDLE handle_;
};

/// Waits for a process; its exit status.
std::uint32_t waitFor(const PROCESS_INFORMATION& process) {
    DWORD status = 0;
    WaitForSingleObject(process.hProcess, INFINITE);
    GetExitCodeProcess(process.hProcess, &status);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return status;
}

}  // namespace

CommandResult startProgram(const std::string& path, const std::vector<std::string>& arguments) {
    const TemporaryDirectory directory;
    const std::filesystem::path output = directory.path() / "stdout";
    const std::filesystem::path error = directory.path() / "stderr";
    const std::filesystem::path program = pathOf(path);

    std::wstring line;
    appendWord(line, program.native());
    for (const std::string& argument : arguments) {
        appendWord(line, pathOf(argument).native());
    }
    std::uint32_t status = 0;
    {
        const StreamFile in("NUL", GENERIC_READ, OPEN_EXISTING);
        const StreamFile out(output, GENERIC_WRITE, CREATE_ALWAYS);
        const StreamFile err(error, GENERIC_WRITE, CREATE_ALWAYS);
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdInput = in.get();
        startup.hStdOutput = out.get();
        startup.hStdError = err.get();
        PROCESS_INFORMATION process{};
        if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr,
                           nullptr, &startup, &process) == 0) {
            throw std::runtime_error("cannot start " + path + ": error " +
                                     std::to_string(GetLastError()));
        }
        status = waitFor(process);
    }
    constexpr std::uint32_t firstFault = 0xC0000000;  // exit statuses of programs that crash
    if (status >= firstFault) {
        throw std::runtime_error(path + " did not end by itself:\n" + readFile(error));
    }
    return {static_cast<int>(status), plainLineEnds(readFile(output)),
            plainLineEnds(readFile(error))};
}

}  // namespace torvel::test
