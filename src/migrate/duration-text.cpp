#include "src/migrate/duration-text.h"

#include <fmt/format.h>

#include <chrono>
#include <cmath>

#include "src/migrate/text-layout.h"

namespace torvel::migrate {

namespace {

constexpr double minutesOfHour = 60;
constexpr double hoursOfDay = 8;
/// Up to here minutes say more than hours.
constexpr double mostMinutes = 120;

/// A tenth of a minute is of no account; neither is what a calculation with such numbers is off.
constexpr double tolerance = 1e-6;

double down(double value, double step) {
    return std::floor(value / step + tolerance) * step;
}

double up(double value, double step) {
    return std::ceil(value / step - tolerance) * step;
}

/// What numbers of this size are rounded to, so that two digits count: 10 from 100 on, 100 from 1000 on.
double stepFor(double value, double smallestStep) {
    if (value < 10) {
        return smallestStep;
    }
    double step = 1;
    while (value >= step * 100) {
        step *= 10;
    }
    return step;
}

std::string numberText(double number) {
    const bool isWhole = number == std::floor(number) && number < 1e15;
    return isWhole ? grouped(static_cast<std::uint64_t>(number)) : fmt::format("{:.4g}", number);
}

/// A range whose ends are rounded away from each other.
std::string roundedRange(double least, double most, double smallestStep) {
    const double lower = down(least, stepFor(least, smallestStep));
    const double upper = up(most, stepFor(most, smallestStep));
    return lower == 0 && upper != 0 ? "up to " + numberText(upper) : rangeText(lower, upper);
}

}  // namespace

std::string rangeText(double least, double most) {
    return least == most ? numberText(least) : numberText(least) + " to " + numberText(most);
}

std::string durationText(const MinuteRange& minutes) {
    if (minutes.most <= mostMinutes) {
        const std::string range = roundedRange(minutes.least, minutes.most, 1);
        return range + (range == "1" || range == "up to 1" ? " minute" : " minutes");
    }
    const double least = minutes.least / minutesOfHour;
    const double most = minutes.most / minutesOfHour;
    std::string text = roundedRange(least, most, 1) + " hours";
    if (most > hoursOfDay) {
        text += " (" + roundedRange(least / hoursOfDay, most / hoursOfDay, 0.5) +
                " person-days of 8 hours)";
    }
    return text;
}

std::string shareText(std::uint64_t part, std::uint64_t whole) {
    if (whole == 0 || part >= whole) {
        return "100 %";
    }
    const auto percent =
        static_cast<unsigned>(static_cast<double>(part) * 100 / static_cast<double>(whole));
    if (percent == 0 && part > 0) {
        return "less than 1 %";
    }
    return percent >= 99 && part * 100 > whole * 99 ? "more than 99 %"
                                                    : std::to_string(percent) + " %";
}

std::string dateText(std::int64_t seconds) {
    using namespace std::chrono;
    const sys_seconds time{std::chrono::seconds(seconds)};
    const sys_days day = floor<days>(time);
    const year_month_day date(day);
    const hh_mm_ss clock(time - day);
    return fmt::format("{:04}-{:02}-{:02} {:02}:{:02} UTC", static_cast<int>(date.year()),
                       static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()),
                       clock.hours().count(), clock.minutes().count());
}

}  // namespace torvel::migrate
