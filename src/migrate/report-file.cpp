#include "src/migrate/report-file.h"

#include <stdexcept>

namespace torvel::migrate {

namespace {

/// The file while it is written; goes unless it was put in place.
class PartFile {
public:
    explicit PartFile(const NativePath& place) : place_(place), part_(place) {
        part_ += ".part";
        stream_.open(part_, std::ios::binary | std::ios::trunc);
    }
    PartFile(const PartFile&) = delete;
    PartFile& operator=(const PartFile&) = delete;
    ~PartFile() {
        stream_.close();
        std::error_code ignored;
        std::filesystem::remove(part_, ignored);
    }

    bool isGood() const { return stream_.good(); }
    void write(std::string_view text) {
        stream_.write(text.data(), static_cast<std::streamsize>(text.size()));
    }
    bool putInPlace() {
        stream_.close();
        std::error_code error;
        if (stream_.good()) {
            std::filesystem::rename(part_, place_, error);
        }
        return stream_.good() && !error;
    }

private:
    NativePath place_;
    NativePath part_;
    std::ofstream stream_;
};

}  // namespace

void writeReportFile(const std::string& path, const TextSink& output,
                     const std::function<void(const TextSink& sink)>& write) {
    if (path == "-") {
        write(output);
        return;
    }
    PartFile file(nativePath(path));
    if (file.isGood()) {
        write([&](std::string_view text) { file.write(text); });
    }
    if (!file.isGood() || !file.putInPlace()) {
        throw std::runtime_error("The report \"" + path +
                                 "\" cannot be written. Name a file in a folder that is there and "
                                 "can be written to.");
    }
}

}  // namespace torvel::migrate
