#include "src/preprocess/site-constants.h"

#include <algorithm>
#include <bit>
#include <stdexcept>
#include <utility>

#include "src/base/characters.h"

namespace torvel {

namespace {

/// A row's number fits into a slot.
constexpr std::size_t mostRows = 60'000;

void check(const std::string& name, const std::string& value) {
    if (!isConstantName(name)) {
        throw std::invalid_argument(
            "The predefined constant '" + name +
            R"(' is no word: a letter or "_", then letters, digits and "_".)");
    }
    if (trimBlanks(value).empty() ||
        value.find_first_of(std::string_view("\r\n\0", 3)) != std::string::npos) {
        throw std::invalid_argument("The value of the predefined constant '" + name +
                                    "' has to be a text of one line.");
    }
}

}  // namespace

bool isConstantName(std::string_view text) {
    return !text.empty() && hasClass(text[0], wordStartClasses) && text[0] != '#' &&
           std::all_of(text.begin(), text.end(), isWordCharacter);
}

SiteConstants::SiteConstants(std::map<std::string, std::string> constants)
    : texts_(std::move(constants)) {
    const PredefinedTable& builtIn = predefinedConstants();
    rows_.assign(builtIn.rows.begin(), builtIn.rows.end());
    std::vector<bool> composed;
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        composed.push_back(builtIn.isComposed(row));
    }
    for (const auto& [name, value] : texts_) {
        check(name, value);
        if (const auto row = findPredefined(builtIn, name, hashText(name))) {
            rows_[*row] = {name.c_str(), value.c_str(), nullptr};
            composed[*row] = false;
        } else {
            rows_.push_back({name.c_str(), value.c_str(), nullptr});
            composed.push_back(false);
        }
    }
    if (rows_.size() > mostRows) {
        throw std::invalid_argument("There are too many predefined constants.");
    }
    composed_ = std::make_unique<bool[]>(composed.size());
    std::copy(composed.begin(), composed.end(), composed_.get());
    slots_.resize(std::bit_ceil(rows_.size() * 4));
    indexPredefined(rows_, slots_, lengths_);
    table_ = {rows_, slots_, &lengths_, {composed_.get(), composed.size()}};
}

}  // namespace torvel
