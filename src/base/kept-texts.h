#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace torvel {

/// Texts that stand nowhere else. They stay where they are, also when another object takes them, and as in every text
/// store sixteen bytes can be read from each of them on.
class KeptTexts {
public:
    std::string_view keep(std::string_view text);
    void take(KeptTexts&& further);

private:
    std::vector<std::unique_ptr<char[]>> chunks_;
    char* next_ = nullptr;
    std::size_t left_ = 0;
};

}  // namespace torvel
