#pragma once

#include <cstdint>
#include <optional>

namespace vornix::launch_agent {

// The "Month" of a calendar start time, written as its integer value.
enum class StartMonth : std::int64_t {
    january = 1,
    february = 2,
    march = 3,
    april = 4,
    may = 5,
    june = 6,
    july = 7,
    august = 8,
    september = 9,
    october = 10,
    november = 11,
    december = 12,
};

// The month for 1...12; nothing for any other value (no nearest month is chosen).
std::optional<StartMonth> startMonthFromRawValue(std::int64_t rawValue);
std::int64_t rawValue(StartMonth month);

}  // namespace vornix::launch_agent
