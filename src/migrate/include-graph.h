#pragma once

#include <atomic>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "src/base/file-system.h"
#include "src/migrate/content-hash.h"

namespace torvel::migrate {

/// Where the path of an include leads from a folder, the same for all files of the folder.
struct IncludeLead {
    /// As it is written.
    std::string written;
    /// Key of the file; of a file that is not there, where it would be.
    std::string target;
    /// It is a regular file.
    bool isFile = false;
    /// The keys of the files whose paths differ in case only, where the path leads nowhere as it is written.
    std::vector<std::string> otherCase;
};

struct IncludeEdge {
    std::shared_ptr<const IncludeLead> lead;
    std::uint32_t line = 0;
    /// The number of the file; none: it is no regular file.
    std::optional<std::uint32_t> file;
};

struct GraphFile {
    std::string key;
    /// None: it could not be read.
    std::optional<ContentHash> hash;
    std::vector<IncludeEdge> includes;
};

/// Files, first those that were asked for and then those that they include, directly or not. There may be very many, so
/// they are never held twice while their number grows.
using IncludeGraph = std::deque<GraphFile>;

/// Reads the files and whatever they include. Only the keys of `files` are looked at, which are different. Throws
/// Interrupted.
IncludeGraph readIncludeGraph(IncludeGraph files, const NativePath& folder, unsigned threads,
                              const std::atomic<bool>* isInterrupted = nullptr);

/// Files that include each other in a circle, as numbers in order, one list for each circle; files that only include
/// themselves too. Circles that share a file are one.
std::vector<std::vector<std::uint32_t>> includeCircles(const IncludeGraph& graph);

/// By file: a hash of all files that it reaches, with their contents and where their includes lead.
class ReachHashes {
public:
    explicit ReachHashes(const IncludeGraph& graph);
    ContentHash of(std::uint32_t file);

private:
    const IncludeGraph& graph_;
    /// What a file is by itself.
    std::vector<ContentHash> own_;
    /// The number of the last asking that came by a file.
    std::vector<std::uint32_t> seen_;
    std::uint32_t asking_ = 0;
};

}  // namespace torvel::migrate
