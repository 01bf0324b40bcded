#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>

#include "src/base/file-source.h"

namespace torvel::language {

/// Texts that an editor holds and that count in the place of the files.
class Documents {
public:
    /// `path` is canonical.
    void set(const NativePath& path, std::string text);
    void forget(const NativePath& path);

    /// The files of `source`, with the documents over them. It lives as long as this.
    FileSource over(const FileSource& source) const;

private:
    struct Document {
        std::string text;
        /// Of a document that there is no file of.
        std::uint64_t number = 0;
    };
    const Document* find(const NativePath& path) const;

    std::unordered_map<NativePath::string_type, Document> byPath_;
    std::uint64_t last_ = 0;
};

}  // namespace torvel::language
