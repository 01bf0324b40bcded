// Files are read in waves: those that are known, then those that they include for the first time, until there are
// none. What a wave finds is entered in the order of its files, so that threads change nothing.

#include "src/migrate/include-graph.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <new>
#include <unordered_map>

#include "src/base/uninitialized-bytes.h"
#include "src/limits.h"
#include "src/migrate/any-case-source.h"
#include "src/migrate/in-threads.h"
#include "src/migrate/include-scan.h"
#include "src/migrate/interruption.h"
#include "src/migrate/recorded-source.h"

namespace torvel::migrate {

namespace {

/// Where the path of an include leads from a folder.
struct Lead {
    NativePath path;
    std::string key;
    bool isFile = false;
    std::vector<std::string> otherCase;
};

/// Finds where includes lead, each path of each folder once.
class IncludePaths {
public:
    explicit IncludePaths(const NativePath& folder) : folder_(folder) {}

    std::shared_ptr<const Lead> find(const NativePath& directory, const std::string& written) {
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
    std::shared_ptr<const Lead> look(const NativePath& directory, const std::string& written) {
        const auto lead = std::make_shared<Lead>();
        const FileSource source =
            anyCaseSource(fileSystemSource(), listings_, [&](const OtherCase& otherCase) {
                for (const NativePath& file : otherCase.files) {
                    lead->otherCase.push_back(keyOf(file, folder_));
                }
            });
        lead->path = source.canonicalPath(source.includedPath(directory, written));
        lead->key = keyOf(lead->path, folder_);
        lead->isFile = source.kind(lead->path) == FileKind::regular;
        return lead;
    }

    const NativePath& folder_;
    FolderListings listings_;
    std::mutex mutex_;
    std::unordered_map<NativePath::string_type, std::shared_ptr<const Lead>> leads_;
};

/// Includes of one file, before the files that they lead to have numbers.
struct ScannedFile {
    std::optional<ContentHash> hash;
    std::vector<WrittenInclude> includes;
    std::vector<std::shared_ptr<const Lead>> leads;
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

ScannedFile scanFile(const GraphFile& file, IncludePaths& paths, FileBytes& room) {
    ScannedFile scanned;
    const auto bytes = bytesOf(file.path, room);
    if (!bytes) {
        return scanned;
    }
    scanned.hash = hashOf(*bytes);
    scanned.includes = includesOf(*bytes);
    const NativePath directory =
        scanned.includes.empty() ? NativePath() : NativePath(file.path).parent_path();
    for (const WrittenInclude& include : scanned.includes) {
        scanned.leads.push_back(paths.find(directory, include.path));
    }
    return scanned;
}

}  // namespace

IncludeGraph readIncludeGraph(IncludeGraph files, const NativePath& folder, unsigned threads,
                              const std::atomic<bool>* isInterrupted) {
    IncludePaths paths(folder);
    std::unordered_map<std::string, std::uint32_t> numbers;
    for (const GraphFile& file : files) {
        numbers.emplace(file.key, static_cast<std::uint32_t>(numbers.size()));
    }
    std::vector<FileBytes> rooms(std::max(threads, 1U));
    for (std::size_t first = 0; first < files.size();) {
        const std::size_t end = files.size();
        std::vector<ScannedFile> wave(end - first);
        inThreads(threads, wave.size(), [&](std::size_t number, unsigned thread) {
            endIfInterrupted(isInterrupted);
            wave[number] = scanFile(files[first + number], paths, rooms[thread]);
        });
        for (std::size_t i = 0; i < wave.size(); ++i) {
            files[first + i].hash = wave[i].hash;
            for (std::size_t j = 0; j < wave[i].includes.size(); ++j) {
                const Lead& lead = *wave[i].leads[j];
                WrittenInclude& written = wave[i].includes[j];
                IncludeEdge edge{
                    std::move(written.path), written.line, lead.key, {}, lead.otherCase};
                if (lead.isFile) {
                    const auto [known, isNew] =
                        numbers.emplace(lead.key, static_cast<std::uint32_t>(files.size()));
                    if (isNew) {
                        files.push_back({lead.key, lead.path.native(), {}, {}});
                    }
                    edge.file = known->second;
                }
                files[first + i].includes.push_back(std::move(edge));
            }
        }
        first = end;
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
            key.add("include", edge.written);
            key.add(edge.file ? "leads to" : "misses", edge.target);
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
