#pragma once

#include <cstdint>
#include <optional>

#include "launch_agent/CheckedArithmetic.hpp"

namespace vornix::launch_agent {

// An optional signed 64-bit integer whose assignments keep it in Lower...Upper: a value below
// the range becomes Lower, above it Upper; absence stays absence. It reads like the
// std::optional it wraps, so `interval.day = 0;` stores 1 with plain-member syntax.
// Constructors and decoding store values as given (`storeAsGiven`), deliberately unclamped.
template <std::int64_t Lower, std::int64_t Upper>
class ClampedOptional {
    static_assert(Lower <= Upper);

public:
    static constexpr std::int64_t lower = Lower;
    static constexpr std::int64_t upper = Upper;

    ClampedOptional() = default;
    ClampedOptional(const ClampedOptional&) = default;

    ClampedOptional& operator=(std::optional<std::int64_t> value) {
        value_ = clamped(value);
        return *this;
    }
    ClampedOptional& operator=(std::int64_t value) { return *this = std::optional<std::int64_t>(value); }
    ClampedOptional& operator=(std::nullopt_t) { return *this = std::optional<std::int64_t>(); }
    ClampedOptional& operator=(const ClampedOptional& other) { return *this = other.value_; }

    // Stores without clamping: for constructors and decoding only.
    void storeAsGiven(std::optional<std::int64_t> value) { value_ = value; }

    // In-place modification: `change` gets the stored value to alter, then the result is clamped.
    template <class Change>
    void modify(Change&& change) {
        std::optional<std::int64_t> changed = value_;
        change(changed);
        *this = changed;
    }
    // Adds to a present value and clamps the sum (overflow is a fatal error); absence stays absence.
    ClampedOptional& operator+=(std::int64_t amount) {
        if (value_) {
            *this = checkedAdd(*value_, amount);
        }
        return *this;
    }
    ClampedOptional& operator-=(std::int64_t amount) {
        if (value_) {
            *this = checkedSubtract(*value_, amount);
        }
        return *this;
    }

    operator std::optional<std::int64_t>() const { return value_; }
    const std::optional<std::int64_t>& get() const { return value_; }
    bool has_value() const { return value_.has_value(); }
    explicit operator bool() const { return value_.has_value(); }
    std::int64_t value() const { return value_.value(); }
    std::int64_t operator*() const { return *value_; }

    friend bool operator==(const ClampedOptional& left, const ClampedOptional& right) {
        return left.value_ == right.value_;
    }
    friend bool operator==(const ClampedOptional& left, const std::optional<std::int64_t>& right) {
        return left.value_ == right;
    }
    friend bool operator==(const ClampedOptional& left, std::int64_t right) { return left.value_ == right; }
    friend bool operator==(const ClampedOptional& left, std::nullopt_t) { return !left.value_.has_value(); }

private:
    static std::optional<std::int64_t> clamped(std::optional<std::int64_t> value) {
        if (!value) {
            return value;
        }
        if (*value < Lower) {
            return Lower;
        }
        if (*value > Upper) {
            return Upper;
        }
        return value;
    }

    std::optional<std::int64_t> value_;
};

}  // namespace vornix::launch_agent
