#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "src/language/requests.h"
#include "tests/support/temporary-directory.h"

namespace torvel::language::test {

/// A folder with files, and who answers questions about it.
class Questions {
public:
    std::string path(std::string_view name) const;
    void write(std::string_view name, std::string_view text) const;
    nlohmann::json ask(const nlohmann::json& question);

    /// A project without a file, or with migration.toml if that is there.
    std::size_t openProject(std::string_view settings = {});
    nlohmann::json convert(std::string_view program);

    Requests requests;

private:
    torvel::test::TemporaryDirectory folder_;
    std::size_t project_ = 0;
    bool isOpen_ = false;
};

/// The names of an answer, one text each: "variable definition main.pgm:0:5-7 $a" and " = value" behind it. Without
/// lines alone.
std::vector<std::string> namesOf(const nlohmann::json& program);

/// Those that stand in that line of the program itself, lines alone too.
std::vector<std::string> namesIn(const nlohmann::json& program, std::size_t line);

}  // namespace torvel::language::test
