#include "fuzz/require.h"

#include <cstdio>
#include <cstdlib>

namespace torvel::fuzz {

void fail(std::string_view fault) {
    std::fprintf(stderr, "PROPERTY: %.*s\n", static_cast<int>(fault.size()), fault.data());
    std::abort();
}

}  // namespace torvel::fuzz
