#include "tests/support/real-text-samples.h"

#include <array>
#include <cstring>
#include <string_view>

namespace torvel::test {

namespace {

/// Splitmix64, whose numbers are the same everywhere.
class Dice {
public:
    explicit Dice(std::uint64_t seed) : state_(seed) {}

    std::uint64_t next() {
        state_ += 0x9E3779B97F4A7C15U;
        std::uint64_t z = state_;
        z = (z ^ z >> 30U) * 0xBF58476D1CE4E5B9U;
        z = (z ^ z >> 27U) * 0x94D049BB133111EBU;
        return z ^ z >> 31U;
    }
    /// 0 to `limit` - 1.
    std::uint32_t below(std::uint32_t limit) { return static_cast<std::uint32_t>(next() % limit); }

private:
    std::uint64_t state_;
};

std::string digits(Dice& dice, std::uint32_t most, std::string_view alphabet) {
    std::string text;
    for (std::uint32_t length = dice.below(most + 1); length > 0; --length) {
        text += alphabet[dice.below(static_cast<std::uint32_t>(alphabet.size()))];
    }
    return text;
}

constexpr std::string_view decimalDigits = "0123456789";
constexpr std::string_view hexadecimalDigits = "0123456789abcdefABCDEF";

std::string exponent(Dice& dice, std::string_view letters, int middle, std::uint32_t width) {
    std::string text(1, letters[dice.below(2)]);
    const int value = middle + static_cast<int>(dice.below(width)) - static_cast<int>(width / 2);
    if (value >= 0 && dice.below(2) == 0) {
        text += '+';
    }
    return text + std::to_string(value);
}

// One call of the dice a statement: compilers differ in the order of those in an expression.

std::string withPoint(Dice& dice, std::uint32_t mostBefore, std::uint32_t mostBehind,
                      std::string_view alphabet = decimalDigits) {
    std::string text = digits(dice, mostBefore, alphabet);
    text += '.';
    text += digits(dice, mostBehind, alphabet);
    return text;
}

std::string plain(Dice& dice) {
    return withPoint(dice, 20, 20);
}

std::string anySize(Dice& dice) {
    std::string text = plain(dice);
    text += exponent(dice, "eE", 0, 700);
    return text;
}

/// Around 1.8e308, 2.2e-308 and 4.9e-324.
std::string atTheEnds(Dice& dice) {
    constexpr std::array middles = {308, -308, -324};
    std::string text = withPoint(dice, 3, 25);
    const int middle = middles[dice.below(middles.size())];
    text += exponent(dice, "eE", middle, 6);
    return text;
}

/// Many digits, as a number in the middle of two doubles has them.
std::string manyDigits(Dice& dice) {
    return withPoint(dice, 100, 100);
}

std::string hexadecimal(Dice& dice) {
    std::string text = dice.below(2) == 0 ? "0x" : "0X";
    text += dice.below(2) == 0 ? withPoint(dice, 20, 20, hexadecimalDigits)
                               : digits(dice, 20, hexadecimalDigits);
    if (dice.below(3) == 0) {
        return text;
    }
    constexpr std::array middles = {0, 1024, -1022, -1074};
    const int middle = middles[dice.below(middles.size())];
    text += exponent(dice, "pP", middle, 120);
    return text;
}

/// Characters that numbers are made of, in any order.
std::string scraps(Dice& dice) {
    return digits(dice, 8, "0123456789..eEpPxX+-naifNAIF( ),_#");
}

using Maker = std::string (*)(Dice& dice);
constexpr std::array<Maker, 6> makers = {plain,      anySize,     atTheEnds,
                                         manyDigits, hexadecimal, scraps};

}  // namespace

void forEachRealText(std::uint32_t count,
                     const std::function<void(const std::string& text)>& take) {
    Dice dice(1);
    for (std::uint32_t i = 0; i < count; ++i) {
        take(makers[i % makers.size()](dice));
    }
}

std::uint64_t bitsOf(double value) {
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof(bits));
    return bits;
}

double realSample(std::uint32_t number) {
    const std::uint64_t bits = Dice(number).next();
    double value = 0;
    std::memcpy(&value, &bits, sizeof(value));
    return value;
}

}  // namespace torvel::test
