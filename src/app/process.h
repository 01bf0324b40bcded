#pragma once

namespace torvel {

/// Makes the process fit for a run, once and before it: a write that fails is an error that the run
/// reports, not the end of the process; no file that the run opens becomes a standard stream; and
/// there is stack enough. Throws std::bad_alloc if there is not.
void prepareProcess();

}  // namespace torvel
