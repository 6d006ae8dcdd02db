// Any bytes, read as the text of a real and, from their first bytes, as a float's and a double's
// value: base/RealText must give exactly what this system's standard library gives with its
// floating-point from_chars and to_chars (which Apple's library lacks, the reason RealText exists):
// the same status, length and bits for a text, the same shortest and shortest fixed texts for a
// value.

#include <charconv>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "base/RealText.hpp"

namespace {

using namespace vornix::base;

void require(bool condition, const char* what, std::string_view detail) {
    if (!condition) {
        std::fprintf(stderr, "RealText differs from charconv: %s: %.*s\n", what, static_cast<int>(detail.size()),
                     detail.data());
        std::abort();
    }
}

template <class Real>
void compareReading(std::string_view text) {
    using Status = typename RealReading<Real>::Status;
    Real expected{};
    const auto result = std::from_chars(text.data(), text.data() + text.size(), expected);
    const Status status = result.ec == std::errc()                        ? Status::ok
                          : result.ec == std::errc::result_out_of_range ? Status::outOfRange
                                                                        : Status::malformed;
    const auto length = status == Status::malformed ? 0 : static_cast<std::size_t>(result.ptr - text.data());
    const RealReading<Real> reading = readRealPrefix<Real>(text);
    require(reading.status == status, "the status of a reading", text);
    require(reading.length == length, "the length of a reading", text);
    if (status == Status::ok) {
        require(std::memcmp(&reading.value, &expected, sizeof expected) == 0, "the value of a reading", text);
    }
    const std::optional<Real> whole = readReal<Real>(text);
    require(whole.has_value() == (status == Status::ok && length == text.size()), "a whole reading", text);
}

// The standard library's text of a value: the shortest, or the shortest in `format`.
template <class Real>
std::string libraryText(Real value, std::optional<std::chars_format> format = std::nullopt) {
    char text[512];
    const auto result = format ? std::to_chars(text, text + sizeof text, value, *format)
                               : std::to_chars(text, text + sizeof text, value);
    return std::string(text, result.ptr);
}

template <class Real>
void compareTexts(const std::uint8_t* data) {
    Real value;
    std::memcpy(&value, data, sizeof value);
    const std::string text = shortestText(value);
    require(text == libraryText(value), "the shortest text", text);
    if constexpr (sizeof(Real) == sizeof(double)) {
        require(shortestFixedText(value) == libraryText(value, std::chars_format::fixed), "the shortest fixed text",
                text);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    compareReading<double>(text);
    compareReading<float>(text);
    if (size >= sizeof(float)) {
        compareTexts<float>(data);
    }
    if (size >= sizeof(double)) {
        compareTexts<double>(data);
    }
    return 0;
}
