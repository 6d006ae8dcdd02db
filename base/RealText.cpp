#include "base/RealText.hpp"

#include <cerrno>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <type_traits>
#include <utility>

#include "base/CLocaleScope.hpp"

namespace vornix::base {

namespace {

bool isDigit(char character) { return character >= '0' && character <= '9'; }

bool isLetter(char character) {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z');
}

char lowerCase(char character) {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

// Whether `text` starts with the lower-case `word` in any case.
bool startsWithAnyCase(std::string_view text, std::string_view word) {
    if (text.size() < word.size()) {
        return false;
    }
    for (std::size_t index = 0; index < word.size(); ++index) {
        if (lowerCase(text[index]) != word[index]) {
            return false;
        }
    }
    return true;
}

// The C library's correctly rounded reading of a decimal text, in the C locale. errno is left
// as it was: only the value tells whether the text was in range.
template <class Real>
Real readDecimal(const char* text) {
    const int savedErrno = errno;
    Real value;
    if constexpr (std::is_same_v<Real, float>) {
        value = std::strtof(text, nullptr);
    } else {
        value = std::strtod(text, nullptr);
    }
    errno = savedErrno;
    return value;
}

// "d.ddde±XX" as printf writes it: the digits without the point, and the exponent.
DecimalDigits splitScientific(std::string_view text) {
    DecimalDigits split;
    std::size_t at = 0;
    for (; at < text.size() && text[at] != 'e'; ++at) {
        if (text[at] != '.') {
            split.digits += text[at];
        }
    }
    const bool negative = text[at + 1] == '-';
    int magnitude = 0;
    for (at += 2; at < text.size(); ++at) {
        magnitude = magnitude * 10 + (text[at] - '0');
    }
    split.exponent = negative ? -magnitude : magnitude;
    return split;
}

std::string scientificText(const DecimalDigits& decimal) {
    std::string text = decimal.digits.substr(0, 1);
    if (decimal.digits.size() > 1) {
        text += '.';
        text += decimal.digits.substr(1);
    }
    const int magnitude = std::abs(decimal.exponent);
    text += decimal.exponent < 0 ? "e-" : "e+";
    if (magnitude < 10) {
        text += '0';
    }
    text += std::to_string(magnitude);
    return text;
}

// The digits one unit in their last place up or down, as many as before: 999e0 up is 100e1,
// 100e0 down is 999e-1.
DecimalDigits stepped(DecimalDigits decimal, bool up) {
    std::string& digits = decimal.digits;
    if (up) {
        std::size_t at = digits.size();
        while (at > 0 && digits[at - 1] == '9') {
            digits[--at] = '0';
        }
        if (at == 0) {
            digits.front() = '1';
            ++decimal.exponent;
        } else {
            ++digits[at - 1];
        }
        return decimal;
    }
    if (digits.front() == '1' && digits.find_first_not_of('0', 1) == std::string::npos) {
        digits.assign(digits.size(), '9');
        --decimal.exponent;
        return decimal;
    }
    std::size_t at = digits.size();
    while (digits[at - 1] == '0') {
        digits[--at] = '9';
    }
    --digits[at - 1];
    return decimal;
}

// The `precision`-digit decimals on either side of `magnitude` that read back as it, nearest
// first. The correctly rounded one may miss at a power of two, where the values below lie
// closer than those above, while its neighbour on the value's other side still reads back.
template <class Real>
std::optional<DecimalDigits> digitsReadingBack(Real magnitude, int precision) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*e", precision - 1, static_cast<double>(magnitude));
    const Real nearest = readDecimal<Real>(text);
    DecimalDigits rounded = splitScientific(text);
    if (nearest == magnitude) {
        return rounded;
    }
    DecimalDigits other = stepped(std::move(rounded), nearest < magnitude);
    const std::string otherText = other.digits.substr(0, 1) + "." + other.digits.substr(1) + "e" +
                                  std::to_string(other.exponent);
    if (readDecimal<Real>(otherText.c_str()) == magnitude) {
        return other;
    }
    return std::nullopt;
}

// The characters of the fixed form of the digits: an integer's, or digits around a point.
std::size_t fixedLength(const DecimalDigits& decimal) {
    const auto count = static_cast<int>(decimal.digits.size());
    if (decimal.exponent >= count - 1) {
        return static_cast<std::size_t>(decimal.exponent) + 1;
    }
    if (decimal.exponent >= 0) {
        return decimal.digits.size() + 1;
    }
    return decimal.digits.size() + 1 + static_cast<std::size_t>(-decimal.exponent);
}

// The fixed form. A whole number is written exactly: no integer that reads back is shorter, and
// of those as short the value itself is the nearest.
std::string fixedText(double magnitude, const DecimalDigits& decimal) {
    const auto count = static_cast<int>(decimal.digits.size());
    if (decimal.exponent >= count - 1) {
        char text[400];
        std::snprintf(text, sizeof text, "%.0f", magnitude);
        return text;
    }
    if (decimal.exponent >= 0) {
        const auto point = static_cast<std::size_t>(decimal.exponent) + 1;
        return decimal.digits.substr(0, point) + "." + decimal.digits.substr(point);
    }
    return "0." + std::string(static_cast<std::size_t>(-decimal.exponent - 1), '0') + decimal.digits;
}

// The sign, then what `finite` writes for a finite value's magnitude.
template <class Real>
std::string signedText(Real value, auto&& finite) {
    std::string text = std::signbit(value) ? "-" : "";
    if (std::isnan(value)) {
        return text + "nan";
    }
    if (std::isinf(value)) {
        return text + "inf";
    }
    return text + finite(std::fabs(value));
}

}  // namespace

template <class Real>
RealReading<Real> readRealPrefix(std::string_view text) {
    using Status = typename RealReading<Real>::Status;
    const bool negative = text.starts_with('-');
    const std::size_t start = negative ? 1 : 0;
    const std::string_view rest = text.substr(start);
    const Real sign = negative ? -1 : 1;
    if (startsWithAnyCase(rest, "inf")) {
        const std::size_t length = start + (startsWithAnyCase(rest, "infinity") ? 8 : 3);
        return {Status::ok, length, std::copysign(std::numeric_limits<Real>::infinity(), sign)};
    }
    if (startsWithAnyCase(rest, "nan")) {
        std::size_t length = start + 3;
        if (length < text.size() && text[length] == '(') {
            std::size_t close = length + 1;
            while (close < text.size() && (isDigit(text[close]) || isLetter(text[close]) || text[close] == '_')) {
                ++close;
            }
            if (close < text.size() && text[close] == ')') {
                length = close + 1;
            }
        }
        return {Status::ok, length, std::copysign(std::numeric_limits<Real>::quiet_NaN(), sign)};
    }

    std::size_t end = start;
    std::size_t digits = 0;
    bool nonZero = false;
    const auto readDigits = [&] {
        for (; end < text.size() && isDigit(text[end]); ++end, ++digits) {
            nonZero = nonZero || text[end] != '0';
        }
    };
    readDigits();
    if (end < text.size() && text[end] == '.') {
        ++end;
        readDigits();
    }
    if (digits == 0) {
        return {};
    }
    if (end < text.size() && (text[end] == 'e' || text[end] == 'E')) {
        std::size_t exponentEnd = end + 1;
        if (exponentEnd < text.size() && (text[exponentEnd] == '+' || text[exponentEnd] == '-')) {
            ++exponentEnd;
        }
        const std::size_t exponentDigits = exponentEnd;
        while (exponentEnd < text.size() && isDigit(text[exponentEnd])) {
            ++exponentEnd;
        }
        if (exponentEnd > exponentDigits) {
            end = exponentEnd;
        }
    }
    const std::string number(text.substr(0, end));
    Real value;
    {
        const CLocaleScope cLocale;
        value = readDecimal<Real>(number.c_str());
    }
    if (std::isinf(value) || (value == 0 && nonZero)) {
        return {Status::outOfRange, end, 0};
    }
    return {Status::ok, end, value};
}

template <class Real>
std::optional<Real> readReal(std::string_view text) {
    const RealReading<Real> reading = readRealPrefix<Real>(text);
    if (reading.status != RealReading<Real>::Status::ok || reading.length != text.size()) {
        return std::nullopt;
    }
    return reading.value;
}

template <class Real>
DecimalDigits shortestDigits(Real value) {
    const Real magnitude = std::fabs(value);
    if (magnitude == 0) {
        return {"0", 0};
    }
    const CLocaleScope cLocale;
    // Whether some text of n digits reads back grows with n (a shorter one is a longer one
    // with zeros appended), so the fewest digits are found by halving.
    int fewest = 1;
    int enough = std::numeric_limits<Real>::max_digits10;
    std::optional<DecimalDigits> found;
    while (fewest < enough) {
        const int middle = (fewest + enough) / 2;
        if (std::optional<DecimalDigits> digits = digitsReadingBack(magnitude, middle)) {
            enough = middle;
            found = std::move(digits);
        } else {
            fewest = middle + 1;
        }
    }
    // Nothing shorter read back: the most digits ever needed always do.
    if (!found) {
        found = digitsReadingBack(magnitude, enough);
    }
    return *found;
}

template <class Real>
std::string shortestText(Real value) {
    return signedText(value, [](Real magnitude) {
        const DecimalDigits decimal = shortestDigits(magnitude);
        std::string scientific = scientificText(decimal);
        if (fixedLength(decimal) <= scientific.size()) {
            return fixedText(magnitude, decimal);
        }
        return scientific;
    });
}

std::string shortestFixedText(double value) {
    return signedText(value, [](double magnitude) { return fixedText(magnitude, shortestDigits(magnitude)); });
}

template RealReading<float> readRealPrefix<float>(std::string_view);
template RealReading<double> readRealPrefix<double>(std::string_view);
template std::optional<float> readReal<float>(std::string_view);
template std::optional<double> readReal<double>(std::string_view);
template DecimalDigits shortestDigits<float>(float);
template DecimalDigits shortestDigits<double>(double);
template std::string shortestText<float>(float);
template std::string shortestText<double>(double);

}  // namespace vornix::base
