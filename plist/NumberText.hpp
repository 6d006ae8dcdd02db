#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vornix::plist {

struct IntegerText {
    enum class Status { ok, malformed, outOfRange };
    Status status = Status::malformed;
    std::int64_t value = 0;
};

// Reads an integer as property lists write it: optional XML white space around, an optional
// sign, then decimal digits or "0x"/"0X" and hexadecimal digits. Nothing else: no octal, no
// digit separators, no empty text. A value outside the signed 64-bit range is outOfRange.
IntegerText parseInteger(std::string_view text);

// Reads a real: optional XML white space around, an optional sign, a decimal number with an
// optional exponent, or "inf", "infinity", "nan" in any case. Nothing for anything else or a
// finite number beyond the double range.
std::optional<double> parseReal(std::string_view text);

// A real as the XML writers print it: the shortest digits that read back to the same double,
// in fixed notation with at least one fraction digit ("1.0", "0.0001", "-0.0") for decimal
// exponents -4 to 15, else in scientific notation with a signed two-digit-or-more exponent
// ("1e+16", "1.5e-05"); "inf", "-inf", "nan".
std::string formatReal(double value);

// The shortest text that reads back to the same double ("1", "0.5", "1e+100"; "inf", "-inf", "nan").
std::string shortestReal(double value);

// Whether a character is white space in XML (space, tab, line feed, carriage return).
constexpr bool isXmlSpace(char character) {
    return character == ' ' || character == '\t' || character == '\n' || character == '\r';
}

std::string_view trimXmlSpace(std::string_view text);

}  // namespace vornix::plist
