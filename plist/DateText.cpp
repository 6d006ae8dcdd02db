#include "plist/DateText.hpp"

#include <chrono>
#include <cmath>
#include <cstdio>

#include "base/RealText.hpp"

namespace vornix::plist {
namespace {

using namespace std::chrono;

constexpr sys_days referenceDay = sys_days(year(2001) / January / 1);
constexpr std::int64_t secondsPerDay = 86400;
// Comfortably beyond the years 0000 to 9999 either side of 2001, and well inside std::int64_t.
constexpr double secondsLimit = 1e12;

bool readDigits(std::string_view text, std::size_t at, std::size_t count, int& value) {
    if (at + count > text.size()) {
        return false;
    }
    value = 0;
    for (std::size_t index = at; index < at + count; ++index) {
        if (text[index] < '0' || text[index] > '9') {
            return false;
        }
        value = value * 10 + (text[index] - '0');
    }
    return true;
}

}  // namespace

std::optional<std::string> formatDate(Date date) {
    const double seconds = std::floor(date.sinceReferenceDate);
    if (!std::isfinite(seconds) || std::fabs(seconds) > secondsLimit) {
        return std::nullopt;
    }
    const auto whole = static_cast<std::int64_t>(seconds);
    std::int64_t days = whole / secondsPerDay;
    std::int64_t rest = whole % secondsPerDay;
    if (rest < 0) {
        rest += secondsPerDay;
        --days;
    }
    const year_month_day day(referenceDay + std::chrono::days(days));
    const int yearNumber = static_cast<int>(day.year());
    if (yearNumber < 0 || yearNumber > 9999) {
        return std::nullopt;
    }
    char buffer[32];
    std::snprintf(buffer, sizeof buffer, "%04d-%02u-%02uT%02d:%02d:%02dZ", yearNumber,
                  static_cast<unsigned>(day.month()), static_cast<unsigned>(day.day()),
                  static_cast<int>(rest / 3600), static_cast<int>(rest / 60 % 60), static_cast<int>(rest % 60));
    return std::string(buffer);
}

std::optional<std::string> formatDateExactly(Date date) {
    std::optional<std::string> text = formatDate(date);
    const double fraction = date.sinceReferenceDate - std::floor(date.sinceReferenceDate);
    if (!text || fraction == 0) {
        return text;
    }
    // "0.25" -> ".25", placed before the "Z".
    text->insert(text->size() - 1, base::shortestFixedText(fraction).substr(1));
    const std::optional<Date> back = parseDate(*text, true);
    if (!back || back->sinceReferenceDate != date.sinceReferenceDate) {
        return std::nullopt;
    }
    return text;
}

std::optional<Date> parseDate(std::string_view text, bool allowFraction) {
    int yearNumber = 0;
    int monthNumber = 0;
    int dayNumber = 0;
    int hours = 0;
    int minutes = 0;
    int seconds = 0;
    if (!readDigits(text, 0, 4, yearNumber) || text.size() < 20 || text[4] != '-' ||
        !readDigits(text, 5, 2, monthNumber) || text[7] != '-' || !readDigits(text, 8, 2, dayNumber) ||
        text[10] != 'T' || !readDigits(text, 11, 2, hours) || text[13] != ':' || !readDigits(text, 14, 2, minutes) ||
        text[16] != ':' || !readDigits(text, 17, 2, seconds) || text.back() != 'Z') {
        return std::nullopt;
    }
    double fraction = 0;
    const std::string_view fractionText = text.substr(19, text.size() - 20);
    if (!fractionText.empty()) {
        if (!allowFraction || fractionText.size() < 2 || fractionText.front() != '.' ||
            fractionText.find_first_not_of("0123456789", 1) != std::string_view::npos) {
            return std::nullopt;
        }
        // Digits too small for a double (hundreds of zeros first) add nothing.
        fraction = base::readReal<double>("0" + std::string(fractionText)).value_or(0);
    }
    const year_month_day day{year(yearNumber), month(static_cast<unsigned>(monthNumber)),
                             std::chrono::day(static_cast<unsigned>(dayNumber))};
    if (!day.ok() || hours > 23 || minutes > 59 || seconds > 59) {
        return std::nullopt;
    }
    const std::int64_t days = (sys_days(day) - referenceDay).count();
    const std::int64_t whole = days * secondsPerDay + hours * 3600 + minutes * 60 + seconds;
    return Date{static_cast<double>(whole) + fraction};
}

}  // namespace vornix::plist
