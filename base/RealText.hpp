#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace vornix::base {

// Real numbers (float and double) as text, alike in every locale and on every system. The
// texts and readings are those of the standard library's floating-point to_chars and
// from_chars, which Apple's library lacks on the systems the host supports; they come from the
// C library's correctly rounded conversions instead.

// What the longest leading part of a text that is a number gives. A number is an optional "-",
// then decimal digits with an optional "." among them (at least one digit) and an optional
// exponent ("e" or "E", an optional sign, digits); or "inf", "infinity", "nan", "nan(...)" with
// letters, digits and "_" in the parentheses, in any case. No white space, no "+" in front, no
// hexadecimal.
template <class Real>
struct RealReading {
    enum class Status { ok, malformed, outOfRange };
    Status status = Status::malformed;
    // How many characters form the number: none when malformed, all of it when out of range.
    std::size_t length = 0;
    // The nearest Real when ok. Out of range: finite, but too large for Real, or not zero and
    // too small for anything but zero.
    Real value = 0;
};

template <class Real>
RealReading<Real> readRealPrefix(std::string_view text);

// The whole text as one number, as above; nothing for anything else or a number out of range.
template <class Real>
std::optional<Real> readReal(std::string_view text);

// The fewest significant decimal digits that read back as a finite value's magnitude, the
// nearest such digits when several read back, and the exponent of the first digit:
// 0.00125 is {"125", -3}, 0 is {"0", 0}.
struct DecimalDigits {
    std::string digits;
    int exponent = 0;
};

template <class Real>
DecimalDigits shortestDigits(Real value);

// The shortest text that reads back as the value, fixed ("0.001", "100", "-0") or scientific
// with a signed exponent of two digits or more ("1e-04", "1.5e+300"), whichever has fewer
// characters, fixed on a tie; "inf", "-inf", "nan", "-nan".
template <class Real>
std::string shortestText(Real value);

// The shortest fixed-notation text that reads back as the value ("0.25", "1", "1e+23" as
// "99999999999999991611392"); "inf", "-inf", "nan", "-nan".
std::string shortestFixedText(double value);

}  // namespace vornix::base
