#include "src/migrate/progress.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace torvel::migrate {

namespace {

constexpr Seconds betweenDrawings{0.1};
constexpr Seconds betweenLines{10};
/// In front of this nothing can be said about the rate.
constexpr Seconds firstRate{0.5};
constexpr unsigned narrowestBar = 10;
constexpr unsigned widestBar = 40;

std::string durationText(double seconds) {
    const auto whole = static_cast<std::uint64_t>(std::ceil(seconds));
    if (whole < 60) {
        return fmt::format("{} s", whole);
    }
    if (whole < 3600) {
        return fmt::format("{} min {:02} s", whole / 60, whole % 60);
    }
    return fmt::format("{} h {:02} min", whole / 3600, whole % 3600 / 60);
}

std::string barText(const RunProgress& progress, unsigned width) {
    const std::uint64_t full = progress.total == 0 ? width : progress.done * width / progress.total;
    return '[' + std::string(full, '#') + std::string(width - full, '.') + "] ";
}

/// What is told, the most important first.
std::vector<std::string> partsOf(const RunProgress& progress) {
    std::vector<std::string> parts{fmt::format("{} of {} programs", progress.done, progress.total)};
    if (progress.elapsed >= firstRate && progress.done > 0) {
        const double rate = static_cast<double>(progress.done) / progress.elapsed.count();
        const auto left = static_cast<double>(progress.total - progress.done);
        parts.push_back(fmt::format("{:.{}f} a second", rate, rate < 10 ? 1 : 0));
        if (progress.done < progress.total) {
            parts.push_back(fmt::format("about {} left", durationText(left / rate)));
        }
    }
    return parts;
}

}  // namespace

std::string progressLine(const RunProgress& progress, unsigned width) {
    std::string line;
    for (const std::string& part : partsOf(progress)) {
        const std::string_view separator = line.empty() ? "" : ", ";
        if (width != 0 && line.size() + separator.size() + part.size() > width) {
            break;
        }
        line += separator;
        line += part;
    }
    constexpr unsigned brackets = 3;
    if (line.size() + brackets + narrowestBar <= width) {
        const auto room = static_cast<unsigned>(width - line.size() - brackets);
        line.insert(0, barText(progress, std::min(room, widestBar)));
    }
    return line;
}

void ProgressTeller::tell(const RunProgress& progress) {
    const bool isLast = progress.done == progress.total;
    if (progress.elapsed < next_ && !isLast) {
        return;
    }
    const Terminal terminal = askTerminal_();
    if (terminal.canRedraw) {
        next_ = progress.elapsed + betweenDrawings;
        // The last column is left free: a full line would make some terminals go on to the next.
        const unsigned width = std::max(terminal.width, 2U) - 1;
        write_("\r" + progressLine(progress, width) + "\x1b[K");
        isDrawn_ = true;
    } else if (progress.elapsed >= betweenLines) {
        next_ = progress.elapsed + betweenLines;
        write_(progressLine(progress, 0) + "\n");
    }
}

void ProgressTeller::clear() {
    if (isDrawn_) {
        write_("\r\x1b[K");
        isDrawn_ = false;
    }
}

}  // namespace torvel::migrate
