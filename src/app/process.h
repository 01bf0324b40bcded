#pragma once

namespace torvel {

/// Makes the process fit for a run, once and before it: a write that fails is an error that the run
/// reports, not the end of the process, and no file that the run opens becomes a standard stream.
void prepareProcess();

}  // namespace torvel
