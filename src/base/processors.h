#pragma once

namespace torvel {

/// How many processors the process may use, one at least: those that it is not bound to do not count.
unsigned usableProcessors();

}  // namespace torvel
