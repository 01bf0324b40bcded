#include <windows.h>

#include <array>

#include "src/migrate/lock-file.h"

namespace torvel::migrate {

namespace {

constexpr DWORD shareWithAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

HANDLE handleOf(std::intptr_t file) {
    return reinterpret_cast<HANDLE>(file);
}

}  // namespace

LockOutcome LockFile::take(const NativePath& path) {
    // Others may read it, and nobody else can open it for writing. The system deletes it with the last handle.
    HANDLE handle =
        CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE | DELETE, FILE_SHARE_READ, nullptr,
                    OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return GetLastError() == ERROR_SHARING_VIOLATION ? LockOutcome::heldByAnother
                                                         : LockOutcome::failed;
    }
    file_ = reinterpret_cast<std::intptr_t>(handle);
    return LockOutcome::taken;
}

void LockFile::write(std::string_view text) {
    SetEndOfFile(handleOf(file_));
    DWORD written = 0;
    WriteFile(handleOf(file_), text.data(), static_cast<DWORD>(text.size()), &written, nullptr);
}

LockFile::~LockFile() {
    if (file_ != -1) {
        CloseHandle(handleOf(file_));
    }
}

std::string lockFileText(const NativePath& path) {
    HANDLE handle = CreateFileW(path.c_str(), GENERIC_READ, shareWithAll, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return {};
    }
    std::string text(1000, '\0');
    DWORD length = 0;
    ReadFile(handle, text.data(), static_cast<DWORD>(text.size()), &length, nullptr);
    CloseHandle(handle);
    text.resize(length);
    return text;
}

std::string processName() {
    std::array<char, 256> host{};
    DWORD size = static_cast<DWORD>(host.size() - 1);
    GetComputerNameA(host.data(), &size);
    return "process " + std::to_string(GetCurrentProcessId()) + " on " + host.data();
}

}  // namespace torvel::migrate
