#include "src/language/documents.h"

#include <algorithm>
#include <utility>

namespace torvel::language {

void Documents::set(const NativePath& path, std::string text) {
    Document& document = byPath_[path.native()];
    document.text = std::move(text);
    document.number = document.number == 0 ? ++last_ : document.number;
}

void Documents::forget(const NativePath& path) {
    byPath_.erase(path.native());
}

const Documents::Document* Documents::find(const NativePath& path) const {
    const auto found = byPath_.find(path.native());
    return found == byPath_.end() ? nullptr : &found->second;
}

FileSource Documents::over(const FileSource& source) const {
    FileSource over = source;
    over.find = [this, source](const NativePath& path) {
        FoundFile found = source.find(path);
        if (find(found.path) != nullptr) {
            found.kind = FileKind::regular;
        }
        return found;
    };
    over.read = [this, source](const NativePath& path, const MakeRoom& makeRoom) {
        const Document* const document = find(path);
        if (document == nullptr) {
            return source.read(path, makeRoom);
        }
        FileReading reading;
        reading.isOpened = true;
        reading.length = document->text.size();
        std::copy(document->text.begin(), document->text.end(), makeRoom(reading.length));
        reading.identity = fileIdentity(path);
        if (reading.identity == FileIdentity{}) {
            reading.identity = {~std::uint64_t{0}, document->number};
        }
        return reading;
    };
    return over;
}

}  // namespace torvel::language
