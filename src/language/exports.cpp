// What the WebAssembly of the language server exports. Texts are handed over in room that the caller asks for.

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "src/language/requests.h"

#define TORVEL_EXPORT extern "C" __attribute__((used, visibility("default")))

namespace {

torvel::language::Requests& requests() {
    static torvel::language::Requests made;
    return made;
}

torvel::language::Answer& lastAnswer() {
    static torvel::language::Answer answer;
    return answer;
}

}  // namespace

TORVEL_EXPORT void languageSetDocument(const char* path, std::size_t pathSize, const char* text,
                                       std::size_t textSize) {
    requests().setDocument({path, pathSize}, std::string(text, textSize));
}

TORVEL_EXPORT void languageForgetDocument(const char* path, std::size_t pathSize) {
    requests().forgetDocument({path, pathSize});
}

/// Answers a question; the answer stays until the next one.
TORVEL_EXPORT const char* languageAnswer(const char* question, std::size_t size) {
    lastAnswer() = requests().answer({question, size});
    return lastAnswer().json.data();
}

TORVEL_EXPORT std::size_t languageAnswerSize() {
    return lastAnswer().json.size();
}

TORVEL_EXPORT const std::uint32_t* languageNames() {
    return lastAnswer().names.data();
}

TORVEL_EXPORT std::size_t languageNameNumbers() {
    return lastAnswer().names.size();
}

TORVEL_EXPORT const std::uint32_t* languageLines() {
    return lastAnswer().lines.data();
}

TORVEL_EXPORT std::size_t languageLineNumbers() {
    return lastAnswer().lines.size();
}
