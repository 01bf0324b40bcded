#pragma once

#include <string_view>
#include <vector>

#include "src/migrate/program-result.h"

namespace torvel::migrate {

/// The texts that tell which findings are open. Line ends make no difference.
struct ComparedTexts {
    /// What was generated last, of which the findings' output lines tell.
    std::string_view generated;
    /// What the output on the disk was made from: the same, unless there is a conflict.
    std::string_view base;
    /// The output on the disk; empty if it was deleted.
    std::string_view current;
};

/// By finding: whether it is open. A rewrite is open while its marker line stands in the current output, wherever, and
/// whatever its position and its indentation. A complete is open while there is a placeholder in its line, or in what
/// the line became. Of equal lines those are open that stand where the current output has them. The others (look,
/// fixSource) are always open, and so is what has no line in the output, and what a conflict keeps out of it.
std::vector<bool> openFindings(const ComparedTexts& texts, const std::vector<FindingRow>& findings);

}  // namespace torvel::migrate
