#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace torvel::migrate {

/// Takes the pieces of a text in order.
using TextSink = std::function<void(std::string_view)>;

/// Gathers small pieces, so that a sink gets large ones. What is left is handed over by `finish`.
class TextBuffer {
public:
    explicit TextBuffer(const TextSink& sink) : sink_(sink) {}

    TextBuffer& operator<<(std::string_view piece) {
        text_ += piece;
        if (text_.size() >= size) {
            finish();
        }
        return *this;
    }
    void finish() {
        sink_(text_);
        text_.clear();
    }

private:
    static constexpr std::size_t size = std::size_t{1} << 16U;

    const TextSink& sink_;
    std::string text_;
};

}  // namespace torvel::migrate
