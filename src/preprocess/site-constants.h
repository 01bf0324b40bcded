#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "src/preprocess/predefined-constants.h"

namespace torvel {

/// Whether a name is a word that a program can use: a letter or "_", then letters, digits and "_".
bool isConstantName(std::string_view text);

/// The predefined constants of a site over the built-in ones: its table, and what the table points to.
class SiteConstants {
public:
    /// `constants` has the Brannic text of each name. A name that is built in gets the new value in its place, and its
    /// Torvel text is gone; the others stand behind the built-in ones, in the order of their names. Names in a value
    /// count if they stand in front. Throws std::invalid_argument with a sentence if a name is no word, or a value is
    /// empty or has more than one line.
    explicit SiteConstants(std::map<std::string, std::string> constants);

    const PredefinedTable& table() const { return table_; }

    SiteConstants(const SiteConstants&) = delete;
    SiteConstants& operator=(const SiteConstants&) = delete;
    ~SiteConstants() = default;

private:
    std::map<std::string, std::string> texts_;
    std::vector<PredefinedConstant> rows_;
    std::vector<std::uint16_t> slots_;
    std::unique_ptr<bool[]> composed_;
    NameLengths lengths_;
    PredefinedTable table_;
};

}  // namespace torvel
