#pragma once

#include <functional>
#include <memory>

#include "src/migrate/text-sink.h"

namespace torvel::migrate {

/// Hands a text over piece by piece.
using TextWriter = std::function<void(const TextSink&)>;

/// Packs texts as a page has them: gzip in base64, without line breaks. For one thread at a time; one that is used
/// again takes less time than a new one.
class HtmlPacker {
public:
    HtmlPacker();
    ~HtmlPacker();
    HtmlPacker(const HtmlPacker&) = delete;
    HtmlPacker& operator=(const HtmlPacker&) = delete;

    void pack(const TextWriter& write, const TextSink& sink);

private:
    struct State;
    std::unique_ptr<State> state_;
};

}  // namespace torvel::migrate
