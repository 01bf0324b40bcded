#pragma once

#include <exception>
#include <string>

#include "src/lex/source-position.h"

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

}  // namespace torvel
