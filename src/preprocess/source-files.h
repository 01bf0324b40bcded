#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "src/base/file-source.h"
#include "src/base/program.h"
#include "src/limits.h"

namespace torvel {

/// Finds and reads the program's files, each of them once.
class SourceFiles {
public:
    SourceFiles(Program& program, const Limits& limits, const FileSource& source)
        : program_(program), limits_(limits), source_(source) {}

    /// The file called `path` on the command line or in an `#include`. A relative path of an `#include`
    /// starts at the directory of the including file, that of the command line at the working
    /// directory. Throws a ParseException at the including position if there is no regular file that
    /// can be read.
    SourceFile& load(std::string_view path, const SourcePosition& includedFrom);

private:
    SourceFile& read(const FoundFile& found, const SourcePosition& includedFrom);

    Program& program_;
    const Limits& limits_;
    const FileSource& source_;
    /// Files by the path that leads to them, before links are resolved; and by canonical path.
    std::unordered_map<NativePath::string_type, SourceFile*> byPath_;
    std::unordered_map<NativePath::string_type, SourceFile*> byCanonicalPath_;
    NativePath programDirectory_;
};

}  // namespace torvel
