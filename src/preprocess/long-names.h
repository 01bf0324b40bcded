#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace torvel {

struct LongName {
    std::string_view text;
    /// FNV-1a.
    std::uint64_t hash = 0;
};

/// Long names that were indexed together. A search halves the lengths: a name is entered with its
/// beginnings at the sums of the highest bits of its length (a name of 70 bytes with 64, 68 and 70), and a
/// beginning that stands in the text tells that no shorter name than the one it knows counts. So a search
/// takes a step per bit, however many names there are and whatever their lengths.
///
/// Beginnings are told apart by their hashes. That the last one found does stand in the text is compared;
/// where it does not, or where two beginnings have one hash, the names are tried one by one.
class LongNameGroup {
public:
    static constexpr std::uint32_t none = UINT32_MAX;

    explicit LongNameGroup(std::vector<LongName> names);

    const std::vector<LongName>& names() const { return names_; }

    /// The longest name of at most `limit` bytes that `text` begins with and that a cut ends. `hashes[n]` is
    /// the hash of `n` bytes of the text behind something of which `hashes[0]` is the hash; for no more
    /// than the first `limit` bytes are they read.
    std::uint32_t longestIn(std::string_view text, std::size_t limit,
                            const std::uint64_t* hashes) const;
    /// The next shorter name that a name begins with.
    std::uint32_t shorterThan(std::uint32_t name) const { return shorter_[name]; }

private:
    struct Beginning {
        std::uint32_t length = 0;
        /// A name that it is the beginning of, and that it is all of.
        std::uint32_t owner = none;
        std::uint32_t name = none;
        /// The longest shorter name that it begins with.
        std::uint32_t shorter = none;
    };

    void enter(std::uint32_t name);
    const Beginning* find(std::uint64_t hash, std::size_t length) const;
    std::uint32_t tryAll(std::string_view text, std::size_t limit) const;

    /// The shortest first.
    std::vector<LongName> names_;
    std::vector<std::uint32_t> shorter_;
    std::unordered_map<std::uint64_t, Beginning> beginnings_;
    bool isExact_ = true;
};

/// The names that are too long for the table of lengths.
class LongNames {
public:
    /// Bytes.
    static constexpr std::size_t shortest = 63;

    void add(const LongName& name);
    bool empty() const { return longest_ == 0; }
    /// The length of the longest.
    std::size_t longest() const { return longest_; }

    /// Every name in one of the groups. Names that were added make a group of their own together with the
    /// groups that are no larger, so that there are few groups and few names are indexed often.
    const std::vector<LongNameGroup>& groups();

private:
    std::size_t longest_ = 0;
    std::vector<LongName> added_;
    std::vector<LongNameGroup> groups_;
};

/// Looks for long names in one word, from left to right.
class LongNameSearch {
public:
    LongNameSearch(LongNames& names, std::string_view word)
        : groups_(names.groups()), longest_(names.longest()), word_(word) {}

    /// Begins at `start`, a cut that is not in front of the last one.
    void moveTo(std::size_t start);
    /// The next name that stands there, the longest first; null: there are no more.
    const LongName* next();

private:
    struct Candidate {
        const LongNameGroup* group;
        std::uint32_t name;

        const LongName& longName() const { return group->names()[name]; }
    };

    const std::vector<LongNameGroup>& groups_;
    std::size_t longest_;
    std::string_view word_;
    /// The hashes of what stands behind `hashesStart_`, from no byte on.
    std::vector<std::uint64_t> hashes_;
    std::size_t hashesStart_ = 0;
    std::vector<Candidate> candidates_;
};

}  // namespace torvel
