#pragma once

#include <string>
#include <vector>

#include "tests/support/case-file.h"

namespace torvel::test {

/// A program that the properties are tested on: its files, the first one's path being the program's.
struct SampleProgram {
    std::string name;
    std::string program;
    std::vector<CaseEntry> files;
};

/// Generated programs of every family of lines, the programs of the examples and of the golden cases.
const std::vector<SampleProgram>& samplePrograms();

}  // namespace torvel::test
