#pragma once

#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

#include "src/base/file-source.h"

// Includes whose path exists in one other case only. The legacy controller does not tell upper and lower case
// apart, and a file system often does.

namespace torvel::migrate {

/// The names in folders, each folder listed once, by the name in lower case. Several threads may ask at once.
class FolderListings {
public:
    using Name = NativePath::string_type;

    /// The names of `folder` that differ from `name` in the case of ASCII letters at most, in order.
    std::vector<Name> namesLike(const NativePath& folder, const Name& name);

private:
    using Listing = std::unordered_map<Name, std::vector<Name>>;
    std::shared_ptr<const Listing> listingOf(const NativePath& folder);

    std::mutex mutex_;
    std::unordered_map<Name, std::shared_ptr<const Listing>> byFolder_;
};

/// An include whose path leads nowhere as it is written.
struct OtherCase {
    /// The path that leads nowhere, canonical.
    NativePath written;
    /// The files whose paths differ from it in case only, canonical and in order. One: it was taken. Several: none was.
    std::vector<NativePath> files;
};

/// Is told of each include that another case was looked for and found for.
using OtherCaseTaker = std::function<void(const OtherCase& otherCase)>;

/// The files of `source`, where an include that leads nowhere leads to the one file whose path differs in case only.
/// It may be asked by several threads at once if `source` and `tell` may be. `listings` has to outlive it.
FileSource anyCaseSource(const FileSource& source, FolderListings& listings,
                         const OtherCaseTaker& tell);

}  // namespace torvel::migrate
