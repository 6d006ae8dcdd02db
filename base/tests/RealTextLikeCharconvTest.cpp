// The texts and readings of base/RealText against the standard library's floating-point
// to_chars and from_chars on this system, whose results the host kept before it made its own.

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <random>
#include <string>
#include <system_error>
#include <vector>

#include <gtest/gtest.h>

#include "base/RealText.hpp"

namespace {

using vornix::base::readRealPrefix;
using vornix::base::shortestFixedText;
using vornix::base::shortestText;

template <class Real>
std::string libraryText(Real value) {
    char text[512];
    const auto result = std::to_chars(text, text + sizeof text, value);
    return std::string(text, result.ptr);
}

std::string libraryFixedText(double value) {
    char text[512];
    const auto result = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed);
    return std::string(text, result.ptr);
}

template <class Real, class Bits>
Real fromBits(Bits bits) {
    Real value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

// Random bit patterns (every kind of double and float), every power of two with its
// neighbours, whole numbers up to 2^80 and short decimals.
template <class Real>
std::vector<Real> samples() {
    std::mt19937_64 random(20240521);
    std::vector<Real> values;
    for (int count = 0; count < 20000; ++count) {
        const std::uint64_t bits = random();
        if constexpr (sizeof(Real) == 8) {
            values.push_back(fromBits<Real>(bits));
        } else {
            values.push_back(fromBits<Real>(static_cast<std::uint32_t>(bits)));
        }
        values.push_back(static_cast<Real>(std::ldexp(static_cast<double>(bits >> 11), static_cast<int>(bits % 28))));
        values.push_back(static_cast<Real>(static_cast<double>(bits % 100000000) /
                                           std::pow(10.0, static_cast<double>((bits >> 40) % 30))));
    }
    const int lowest = std::numeric_limits<Real>::min_exponent - std::numeric_limits<Real>::digits;
    for (int exponent = lowest; exponent < std::numeric_limits<Real>::max_exponent; ++exponent) {
        const Real power = std::ldexp(Real{1}, exponent);
        values.push_back(power);
        values.push_back(std::nextafter(power, Real{0}));
        values.push_back(std::nextafter(power, std::numeric_limits<Real>::infinity()));
    }
    return values;
}

template <class Real>
void expectLibraryTexts() {
    int differences = 0;
    for (const Real value : samples<Real>()) {
        const std::string expected = libraryText(value);
        const std::string made = shortestText(value);
        if (made != expected && ++differences <= 10) {
            ADD_FAILURE() << "to_chars writes " << expected << ", shortestText " << made;
        }
    }
    EXPECT_EQ(differences, 0);
}

TEST(RealTextLikeCharconv, ShortestTextOfDoubles) { expectLibraryTexts<double>(); }

TEST(RealTextLikeCharconv, ShortestTextOfFloats) { expectLibraryTexts<float>(); }

TEST(RealTextLikeCharconv, ShortestFixedTextOfFractions) {
    int differences = 0;
    for (const double value : samples<double>()) {
        if (!std::isfinite(value)) {
            continue;
        }
        const double fraction = value - std::floor(value);
        const std::string expected = libraryFixedText(fraction);
        const std::string made = shortestFixedText(fraction);
        if (made != expected && ++differences <= 10) {
            ADD_FAILURE() << "to_chars writes " << expected << ", shortestFixedText " << made;
        }
    }
    EXPECT_EQ(differences, 0);
}

// Texts put together from pieces of numbers and of near misses.
std::vector<std::string> textsToRead() {
    const std::vector<std::string> pieces = {
        "0", "1", "9", "5", "00", "123", "999999999999999999", "4940656458412465441765687928682213723651",
        "-", "+", ".", "e", "E", "e-", "e+", "e3", "e-30", "e308", "e-324", "e400", "e-400", "e38", "e39", "e-45",
        "e99999999999999999999", "inf", "INF", "infinity", "Infinity", "infin", "nan", "NaN", "nan(", "nan()",
        "nan(abc_9)", "nan(a-b)", ")", "x", "0x", "p3", " ", "\t", "_", "1.7976931348623157",
        "2.4703282292062327", "3.4028235677973366", "1.4012984643"};
    std::mt19937_64 random(7);
    std::vector<std::string> texts;
    for (int count = 0; count < 30000; ++count) {
        std::string text;
        for (auto parts = 1 + random() % 5; parts > 0; --parts) {
            text += pieces[random() % pieces.size()];
        }
        texts.push_back(std::move(text));
    }
    return texts;
}

template <class Real>
void expectLibraryReadings() {
    using Status = typename vornix::base::RealReading<Real>::Status;
    int differences = 0;
    for (const std::string& text : textsToRead()) {
        Real expected{};
        const auto result = std::from_chars(text.data(), text.data() + text.size(), expected);
        const auto reading = readRealPrefix<Real>(text);
        const Status status = result.ec == std::errc()                        ? Status::ok
                              : result.ec == std::errc::result_out_of_range ? Status::outOfRange
                                                                            : Status::malformed;
        const auto length = status == Status::malformed ? 0 : static_cast<std::size_t>(result.ptr - text.data());
        bool same = reading.status == status && reading.length == length;
        if (same && status == Status::ok) {
            same = std::memcmp(&reading.value, &expected, sizeof expected) == 0;
        }
        if (!same && ++differences <= 10) {
            ADD_FAILURE() << "\"" << text << "\" reads differently from from_chars";
        }
    }
    EXPECT_EQ(differences, 0);
}

TEST(RealTextLikeCharconv, ReadingDoubles) { expectLibraryReadings<double>(); }

TEST(RealTextLikeCharconv, ReadingFloats) { expectLibraryReadings<float>(); }

}  // namespace
