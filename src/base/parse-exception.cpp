#include "src/base/parse-exception.h"

namespace torvel {

void failAt(const SourcePosition& position, Message message,
            std::initializer_list<std::string_view> holes) {
    throw ParseException(message, holes, position);
}

}  // namespace torvel
