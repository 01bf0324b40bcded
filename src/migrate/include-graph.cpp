// Files are read in waves: those that are known, then those that they include for the first time, until there are
// none. What a wave finds is entered in the order of its files, so that threads change nothing.

#include "src/migrate/include-graph.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <new>
#include <unordered_map>
#include <unordered_set>

#include "src/base/uninitialized-bytes.h"
#include "src/limits.h"
#include "src/migrate/any-case-source.h"
#include "src/migrate/in-threads.h"
#include "src/migrate/include-scan.h"
#include "src/migrate/interruption.h"
#include "src/migrate/recorded-source.h"

namespace torvel::migrate {

namespace {

/// Finds where includes lead, each path of each folder once.
class IncludePaths {
public:
    explicit IncludePaths(const NativePath& folder) : folder_(folder) {}

    std::shared_ptr<const IncludeLead> find(const NativePath& directory,
                                            const std::string& written) {
        NativePath::string_type name = directory.native();
        name += NativePath::value_type{};
        name.append(written.begin(), written.end());
        {
            const std::lock_guard<std::mutex> lock(mutex_);
            const auto known = leads_.find(name);
            if (known != leads_.end()) {
                return known->second;
            }
        }
        auto lead = look(directory, written);
        const std::lock_guard<std::mutex> lock(mutex_);
        return leads_.emplace(std::move(name), std::move(lead)).first->second;
    }

private:
    std::shared_ptr<const IncludeLead> look(const NativePath& directory,
                                            const std::string& written) {
        const auto lead = std::make_shared<IncludeLead>();
        lead->written = written;
        const FileSource source =
            anyCaseSource(fileSystemSource(), listings_, [&](const OtherCase& otherCase) {
                for (const NativePath& file : otherCase.files) {
                    lead->otherCase.push_back(keyOf(file, folder_));
                }
            });
        const FoundFile found = source.find(source.includedPath(directory, written));
        lead->target = keyOf(found.path, folder_);
        lead->isFile = found.kind == FileKind::regular;
        return lead;
    }

    const NativePath& folder_;
    FolderListings listings_;
    std::mutex mutex_;
    std::unordered_map<NativePath::string_type, std::shared_ptr<const IncludeLead>> leads_;
};

/// Room for a file's bytes that the next file uses again.
struct FileBytes {
    std::unique_ptr<char[]> room;
    std::size_t size = 0;

    char* grow(std::size_t wanted) {
        if (wanted > size) {
            room = uninitializedBytes(wanted);
            size = wanted;
        }
        return room.get();
    }
};

struct TooLarge {};

/// The bytes of a file; none: it cannot be read, or no program may be so large.
std::optional<std::string_view> bytesOf(const NativePath& path, FileBytes& bytes) {
    static const FileSource source = fileSystemSource();
    try {
        const FileReading reading = source.read(path, [&](std::uint64_t size) {
            if (size > Limits().programText) {
                throw TooLarge();
            }
            return bytes.grow(std::max<std::size_t>(static_cast<std::size_t>(size), 1));
        });
        if (reading.isOpened && !reading.hasFailed) {
            return std::string_view(bytes.room.get(), reading.length);
        }
    } catch (const TooLarge&) {
    } catch (const std::bad_alloc&) {
        bytes = {};
    }
    return std::nullopt;
}

/// Enters the hash and the includes of a file, which have no numbers yet.
void scanFile(GraphFile& file, const NativePath& folder, IncludePaths& paths, FileBytes& room) {
    const NativePath path = pathOf(file.key, folder);
    const auto bytes = bytesOf(path, room);
    if (!bytes) {
        return;
    }
    file.hash = hashOf(*bytes);
    const std::vector<WrittenInclude> includes = includesOf(*bytes);
    const NativePath directory = includes.empty() ? NativePath() : path.parent_path();
    file.includes.reserve(includes.size());
    for (const WrittenInclude& include : includes) {
        file.includes.push_back({paths.find(directory, include.path), include.line, {}});
    }
}

/// The numbers of files by their keys, which the graph has.
class FileNumbers {
public:
    explicit FileNumbers(IncludeGraph& files)
        : files_(files), numbers_(files.size(), Hash{files}, Equal{files}) {
        for (std::size_t i = 0; i < files.size(); ++i) {
            numbers_.insert(static_cast<std::uint32_t>(i));
        }
    }

    /// The number of a file, which becomes one of the graph.
    std::uint32_t numberOf(const std::string& key) {
        files_.push_back({key, {}, {}});
        const auto [number, isNew] = numbers_.insert(static_cast<std::uint32_t>(files_.size() - 1));
        if (!isNew) {
            files_.pop_back();
        }
        return *number;
    }

private:
    struct Hash {
        const IncludeGraph& files;
        std::size_t operator()(std::uint32_t number) const {
            return std::hash<std::string>()(files[number].key);
        }
    };
    struct Equal {
        const IncludeGraph& files;
        bool operator()(std::uint32_t left, std::uint32_t right) const {
            return files[left].key == files[right].key;
        }
    };

    IncludeGraph& files_;
    std::unordered_set<std::uint32_t, Hash, Equal> numbers_;
};

}  // namespace

IncludeGraph readIncludeGraph(IncludeGraph files, const NativePath& folder, unsigned threads,
                              const std::atomic<bool>* isInterrupted) {
    IncludePaths paths(folder);
    FileNumbers numbers(files);
    std::vector<FileBytes> rooms(std::max(threads, 1U));
    for (std::size_t first = 0; first < files.size();) {
        const std::size_t end = files.size();
        inThreads(threads, end - first, [&](std::size_t number, unsigned thread) {
            endIfInterrupted(isInterrupted);
            scanFile(files[first + number], folder, paths, rooms[thread]);
        });
        for (; first < end; ++first) {
            for (IncludeEdge& edge : files[first].includes) {
                if (edge.lead->isFile) {
                    edge.file = numbers.numberOf(edge.lead->target);
                }
            }
        }
    }
    return files;
}

ReachHashes::ReachHashes(const IncludeGraph& graph)
    : graph_(graph), own_(graph.size()), seen_(graph.size()) {
    for (std::size_t i = 0; i < graph.size(); ++i) {
        KeyBuilder key;
        key.add("file", graph[i].key);
        key.add("content", graph[i].hash ? hexadecimal(*graph[i].hash) : "");
        for (const IncludeEdge& edge : graph[i].includes) {
            key.add("include", edge.lead->written);
            key.add(edge.file ? "leads to" : "misses", edge.lead->target);
        }
        own_[i] = key.key();
    }
}

ContentHash ReachHashes::of(std::uint32_t file) {
    ++asking_;
    std::vector<std::uint32_t> reached{file};
    seen_[file] = asking_;
    for (std::size_t i = 0; i < reached.size(); ++i) {
        for (const IncludeEdge& edge : graph_[reached[i]].includes) {
            if (edge.file && seen_[*edge.file] != asking_) {
                seen_[*edge.file] = asking_;
                reached.push_back(*edge.file);
            }
        }
    }
    // The way through the includes is the same whenever they are, so its order may count.
    KeyBuilder key;
    for (const std::uint32_t number : reached) {
        key.add("reached", hexadecimal(own_[number]));
    }
    return key.key();
}

}  // namespace torvel::migrate
