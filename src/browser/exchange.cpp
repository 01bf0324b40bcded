#include "src/browser/exchange.h"

#include <exception>
#include <new>
#include <utility>

#include "src/migrate/packed-numbers.h"

namespace torvel::browser {

namespace {

std::string& answer() {
    static std::string bytes;
    return bytes;
}

}  // namespace

std::uint64_t Request::number() {
    return migrate::takeNumber(bytes_).value_or(0);
}

std::string Request::text() {
    const std::uint64_t length = number();
    std::string text(bytes_.substr(0, static_cast<std::size_t>(length)));
    bytes_.remove_prefix(text.size());
    return text;
}

int answered(const std::function<std::string()>& function) {
    try {
        answer() = std::string();
        answer() = function();
        return 0;
    } catch (const std::bad_alloc&) {
        answer() = "There is not enough memory.";
    } catch (const std::exception& error) {
        answer() = error.what();
    }
    return 1;
}

}  // namespace torvel::browser

TORVEL_EXPORT const char* torvelAnswer() {
    return torvel::browser::answer().data();
}

TORVEL_EXPORT std::size_t torvelAnswerSize() {
    return torvel::browser::answer().size();
}
