#pragma once

#include <exception>
#include <initializer_list>
#include <string>
#include <string_view>

#include "src/base/messages.h"
#include "src/base/source-position.h"

namespace torvel {

/// An error of the source that ends the run: its text is the complete diagnostic, include chain and
/// final line end included.
class ParseException : public std::exception {
public:
    ParseException(std::string_view message, const SourcePosition& position)
        : diagnostic_(formatDiagnostic(position, message)) {}

    const char* what() const noexcept override { return diagnostic_.c_str(); }

private:
    std::string diagnostic_;
};

/// Ends the run: throws a ParseException with the message at `position`.
[[noreturn]] void failAt(const SourcePosition& position, Message message,
                         std::initializer_list<std::string_view> holes = {});

}  // namespace torvel
