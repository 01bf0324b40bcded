#include <fcntl.h>
#include <io.h>
#include <sys/stat.h>
#include <windows.h>

#include <algorithm>
#include <cerrno>

#include "src/base/file-descriptor.h"
#include "src/base/file-system.h"

namespace torvel {

namespace {

constexpr int readWriteForAll = _S_IREAD | _S_IWRITE;
/// The most that one call of the C library reads or writes.
constexpr std::size_t largestTransfer = std::size_t{1} << 30U;

/// The path made absolute, "." and ".." taken out, links not followed.
NativePath fullPath(const NativePath& path) {
    const DWORD size = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    std::wstring text(size, L'\0');
    const DWORD length = GetFullPathNameW(path.c_str(), size, text.data(), nullptr);
    if (length == 0 || length >= size) {
        return path.lexically_normal();
    }
    text.resize(length);
    return text;
}

constexpr std::wstring_view separators = LR"(\/)";

/// The length of the server and the share that a path begins with; 0: it begins with none.
std::size_t shareLength(std::wstring_view path) {
    const auto isSeparator = [path](std::size_t at) {
        return at < path.size() && separators.find(path[at]) != std::wstring_view::npos;
    };
    if (!isSeparator(0) || !isSeparator(1) || isSeparator(2)) {
        return 0;
    }
    const std::size_t server = std::min(path.find_first_of(separators, 2), path.size());
    return std::min(path.find_first_of(separators, std::min(server + 1, path.size())), path.size());
}

/// What a path begins with: a drive with its colon, a share, or nothing.
std::wstring rootOf(const NativePath& path) {
    const std::wstring& text = path.native();
    const bool hasDrive = text.size() > 1 && text[1] == L':';
    std::wstring root = text.substr(0, hasDrive ? 2 : shareLength(text));
    std::replace(root.begin(), root.end(), L'/', L'\\');
    return root;
}

bool haveSameRoot(const NativePath& left, const NativePath& right) {
    const std::wstring a = rootOf(left);
    const std::wstring b = rootOf(right);
    return CompareStringOrdinal(a.data(), static_cast<int>(a.size()), b.data(),
                                static_cast<int>(b.size()), TRUE) == CSTR_EQUAL;
}

/// What stands behind that.
NativePath behindRoot(const NativePath& path) {
    return path.native().substr(rootOf(path).size());
}

/// A handle that tells about what stands at a path; it opens directories too.
class PathHandle {
public:
    explicit PathHandle(const NativePath& path)
        : handle_(CreateFileW(unboundedPath(path).c_str(), 0,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr)) {}
    ~PathHandle() {
        if (isOpen()) {
            CloseHandle(handle_);
        }
    }
    PathHandle(const PathHandle&) = delete;
    PathHandle& operator=(const PathHandle&) = delete;

    bool isOpen() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return handle_; }

private:
    HANDLE handle_;
};

FileIdentity identityOf(HANDLE handle) {
    BY_HANDLE_FILE_INFORMATION information;
    if (GetFileInformationByHandle(handle, &information) == 0) {
        return {};
    }
    return {std::uint64_t{information.dwVolumeSerialNumber} + 1,
            std::uint64_t{information.nFileIndexHigh} << 32U | information.nFileIndexLow};
}

/// The final path of something that exists; empty if it does not.
NativePath finalPath(const PathHandle& handle) {
    if (!handle.isOpen()) {
        return {};
    }
    std::wstring text(MAX_PATH, L'\0');
    const auto ask = [&] {
        return GetFinalPathNameByHandleW(handle.get(), text.data(), static_cast<DWORD>(text.size()),
                                         FILE_NAME_NORMALIZED);
    };
    DWORD length = ask();
    if (length >= text.size()) {
        text.resize(length);  // which is with the end of the text
        length = ask();
    }
    if (length == 0 || length >= text.size()) {
        return {};
    }
    text.resize(length);
    constexpr std::wstring_view share = LR"(\\?\UNC\)";
    constexpr std::wstring_view unbounded = LR"(\\?\)";
    if (text.starts_with(share)) {
        return LR"(\\)" + text.substr(share.size());
    }
    return text.starts_with(unbounded) ? text.substr(unbounded.size()) : text;
}

FileKind kindOf(const PathHandle& handle) {
    if (!handle.isOpen()) {
        return FileKind::missing;
    }
    BY_HANDLE_FILE_INFORMATION information;
    if (GetFileType(handle.get()) != FILE_TYPE_DISK ||
        GetFileInformationByHandle(handle.get(), &information) == 0) {
        return FileKind::other;
    }
    return (information.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? FileKind::directory
                                                                          : FileKind::regular;
}

}  // namespace

NativePath unboundedPath(const NativePath& path) {
    const NativePath full = fullPath(path);
    const std::wstring& text = full.native();
    if (text.size() < MAX_PATH - 12 || text.starts_with(LR"(\\?\)")) {
        return path;
    }
    return text.starts_with(LR"(\\)") ? LR"(\\?\UNC)" + text.substr(1) : LR"(\\?\)" + text;
}

NativePath nativePath(std::string_view text) {
    const int length = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(CP_ACP, 0, text.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), size);
    return wide;
}

std::string narrowPath(const NativePath& path) {
    const std::wstring& wide = path.native();
    const int length = static_cast<int>(wide.size());
    const int size =
        WideCharToMultiByte(CP_ACP, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, wide.data(), length, text.data(), size, nullptr, nullptr);
    return text;
}

NativePath pathAt(const NativePath& directory, std::string_view text) {
    const NativePath path = nativePath(text);
    if (shareLength(path.native()) > 0) {
        return path;
    }
    const std::size_t share = shareLength(directory.native());
    const bool isRooted = text.find_first_of("\\/") == 0;
    return share > 0 && isRooted ? NativePath(directory.native().substr(0, share) + path.native())
                                 : directory / path;
}

NativePath relativePath(const NativePath& path, const NativePath& directory) {
    return haveSameRoot(path, directory)
               ? behindRoot(path).lexically_relative(behindRoot(directory))
               : NativePath();
}

NativePath tidyPath(const NativePath& path) {
    if (shareLength(path.native()) == 0) {
        return path.lexically_normal();
    }
    return rootOf(path) + behindRoot(path).lexically_normal().native();
}

NativePath includedPath(const NativePath& directory, std::string_view text) {
    return pathAt(directory, text);
}

std::string_view withoutDrive(std::string_view path) {
    return path.size() > 1 && path[1] == ':' ? path.substr(2) : path;
}

std::size_t characterLength(char first) {
    return IsDBCSLeadByte(static_cast<BYTE>(first)) != 0 ? 2 : 1;
}

FileKind fileKind(const NativePath& path) {
    return kindOf(PathHandle(path));
}

FoundFile findFile(const NativePath& path) {
    const NativePath full = fullPath(path);
    NativePath existing = full;
    NativePath rest;
    while (true) {
        const PathHandle handle(existing);
        const NativePath resolved = finalPath(handle);
        if (!resolved.empty()) {
            const NativePath whole = rest.empty() ? resolved : resolved / rest;
            return {whole, rest.empty() ? kindOf(handle) : fileKind(whole)};
        }
        if (!existing.has_relative_path()) {
            return {full, fileKind(full)};
        }
        rest = rest.empty() ? existing.filename() : existing.filename() / rest;
        existing = existing.parent_path();
    }
}

NativePath canonicalPath(const NativePath& path) {
    return findFile(path).path;
}

FileIdentity fileIdentity(const NativePath& path) {
    const PathHandle handle(path);
    return handle.isOpen() ? identityOf(handle.get()) : FileIdentity();
}

bool InputFile::open(const NativePath& path) {
    descriptor_ = _wopen(unboundedPath(path).c_str(), _O_RDONLY | _O_BINARY | _O_NOINHERIT);
    if (descriptor_ < 0) {
        return false;
    }
    const std::int64_t length = _filelengthi64(descriptor_);
    size_ = length < 0 ? 0 : static_cast<std::uint64_t>(length);
    identity_ = identityOf(reinterpret_cast<HANDLE>(_get_osfhandle(descriptor_)));
    return true;
}

bool OutputFile::open(const NativePath& path) {
    descriptor_ = _wopen(unboundedPath(path).c_str(),
                         _O_WRONLY | _O_CREAT | _O_TRUNC | _O_TEXT | _O_NOINHERIT, readWriteForAll);
    return descriptor_ >= 0;
}

std::ptrdiff_t readSome(int descriptor, char* data, std::size_t length) {
    return _read(descriptor, data, static_cast<unsigned>(std::min(length, largestTransfer)));
}

std::ptrdiff_t writeSome(int descriptor, const char* data, std::size_t length) {
    return _write(descriptor, data, static_cast<unsigned>(std::min(length, largestTransfer)));
}

void emptyFile(int descriptor) {
    _chsize_s(descriptor, 0);
}

bool closeDescriptor(int descriptor) {
    return _close(descriptor) == 0;
}

}  // namespace torvel
