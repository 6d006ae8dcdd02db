#include "plist/NumberText.hpp"

#include <charconv>
#include <cmath>
#include <system_error>

#include "base/RealText.hpp"

namespace vornix::plist {

std::string_view trimXmlSpace(std::string_view text) {
    while (!text.empty() && isXmlSpace(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isXmlSpace(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

IntegerText parseInteger(std::string_view text) {
    text = trimXmlSpace(text);
    bool negative = false;
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
        negative = text.front() == '-';
        text.remove_prefix(1);
    }
    int base = 10;
    if (text.size() >= 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X')) {
        base = 16;
        text.remove_prefix(2);
    }
    // from_chars would take a second sign; only digits may follow.
    if (text.empty() || text.front() == '-' || text.front() == '+') {
        return {};
    }
    std::uint64_t magnitude = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), magnitude, base);
    if (end != text.data() + text.size()) {
        return {};
    }
    constexpr std::uint64_t largestNegative = std::uint64_t{1} << 63;
    if (error == std::errc::result_out_of_range || magnitude > (negative ? largestNegative : largestNegative - 1)) {
        return {IntegerText::Status::outOfRange, 0};
    }
    if (error != std::errc()) {
        return {};
    }
    const std::int64_t value =
        negative ? static_cast<std::int64_t>(0 - magnitude) : static_cast<std::int64_t>(magnitude);
    return {IntegerText::Status::ok, value};
}

std::optional<double> parseReal(std::string_view text) {
    text = trimXmlSpace(text);
    if (!text.empty() && text.front() == '+') {
        text.remove_prefix(1);
        if (!text.empty() && text.front() == '-') {
            return std::nullopt;
        }
    }
    return base::readReal<double>(text);
}

std::string shortestReal(double value) {
    if (std::isnan(value)) {
        return "nan";
    }
    return base::shortestText(value);
}

std::string formatReal(double value) {
    if (std::isnan(value)) {
        return "nan";
    }
    if (std::isinf(value)) {
        return value < 0 ? "-inf" : "inf";
    }
    const base::DecimalDigits shortest = base::shortestDigits(value);
    const std::string& digits = shortest.digits;
    const int exponent = shortest.exponent;

    std::string text = std::signbit(value) ? "-" : "";
    if (exponent >= -4 && exponent < 16) {
        if (exponent < 0) {
            text += "0." + std::string(static_cast<std::size_t>(-exponent - 1), '0') + digits;
        } else {
            const auto integerDigits = static_cast<std::size_t>(exponent) + 1;
            if (digits.size() <= integerDigits) {
                text += digits + std::string(integerDigits - digits.size(), '0') + ".0";
            } else {
                text += digits.substr(0, integerDigits) + "." + digits.substr(integerDigits);
            }
        }
        return text;
    }
    text += digits.substr(0, 1);
    if (digits.size() > 1) {
        text += "." + digits.substr(1);
    }
    const int magnitude = exponent < 0 ? -exponent : exponent;
    text += exponent < 0 ? "e-" : "e+";
    if (magnitude < 10) {
        text += '0';
    }
    text += std::to_string(magnitude);
    return text;
}

}  // namespace vornix::plist
