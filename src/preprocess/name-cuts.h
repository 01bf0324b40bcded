#pragma once

namespace torvel {

/// Whether a name may end behind `a` and begin at `b`.
bool isCut(char a, char b);

}  // namespace torvel
