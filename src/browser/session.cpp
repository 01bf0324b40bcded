#include "src/browser/session.h"

#include <memory>
#include <stdexcept>

#include "src/migrate/found-program.h"

namespace torvel::browser {

namespace {

std::unique_ptr<Session>& current() {
    static std::unique_ptr<Session> opened;
    return opened;
}

}  // namespace

Session& session() {
    if (!current()) {
        throw std::runtime_error("No project is open.");
    }
    return *current();
}

Session& newSession() {
    current() = std::make_unique<Session>();
    return *current();
}

const migrate::FoundProgram& foundProgram(std::uint64_t number) {
    const auto& programs = session().discovery.programs;
    if (number >= programs.size()) {
        throw std::runtime_error("There is no such program.");
    }
    return programs[static_cast<std::size_t>(number)];
}

migrate::ProgramResult converted(const migrate::FoundProgram& found) {
    return resultOf(found, session().settings.at(found.parameters));
}

}  // namespace torvel::browser
