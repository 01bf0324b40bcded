#include "src/migrate/known-texts.h"

#include <utility>

#include "src/migrate/compressed-text.h"

namespace torvel::migrate {

KnownTexts::KnownTexts(const std::vector<ContentHash>& stored) {
    for (const ContentHash& hash : stored) {
        texts_.emplace(hash, nullptr);
    }
}

void KnownTexts::add(const ContentHash& hash, std::string_view text,
                     std::vector<PackedText>& texts) {
    {
        const std::lock_guard lock(mutex_);
        if (const auto known = texts_.find(hash); known != texts_.end()) {
            if (known->second) {
                texts.push_back({hash, known->second});
            }
            return;
        }
    }
    auto bytes = std::make_shared<const std::string>(compressed(text, CheckSum::no));
    const std::lock_guard lock(mutex_);
    texts_.emplace(hash, bytes);
    texts.push_back({hash, std::move(bytes)});
}

void KnownTexts::markStored(const std::vector<PackedText>& texts) {
    const std::lock_guard lock(mutex_);
    for (const PackedText& text : texts) {
        texts_[text.hash].reset();
    }
}

}  // namespace torvel::migrate
