#pragma once

#include <cstring>
#include <mutex>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "src/migrate/store.h"

namespace torvel::migrate {

/// The texts that the store has, so that one that many programs include is compressed once. Used by several threads.
class KnownTexts {
public:
    /// Those that are stored already.
    explicit KnownTexts(const std::vector<ContentHash>& stored);

    /// Appends the text to those that are to be written with a program, unless it is stored.
    void add(const ContentHash& hash, std::string_view text, std::vector<PackedText>& texts);
    /// The store has them now.
    void markStored(const std::vector<PackedText>& texts);

private:
    struct Hasher {
        std::size_t operator()(const ContentHash& hash) const {
            std::size_t part = 0;
            std::memcpy(&part, hash.data(), sizeof part);
            return part;
        }
    };

    std::mutex mutex_;
    /// Null: it is stored.
    std::unordered_map<ContentHash, std::shared_ptr<const std::string>, Hasher> texts_;
};

}  // namespace torvel::migrate
