#pragma once

#include <cstdint>
#include <optional>

namespace vornix::launch_agent {

// The "Weekday" of a calendar start time, written as its integer value. The week starts on
// Monday and Sunday is 7: there is no day 0.
enum class StartWeekday : std::int64_t {
    monday = 1,
    tuesday = 2,
    wednesday = 3,
    thursday = 4,
    friday = 5,
    saturday = 6,
    sunday = 7,
};

// The weekday for 1...7; nothing for any other value, 0 included.
std::optional<StartWeekday> startWeekdayFromRawValue(std::int64_t rawValue);
std::int64_t rawValue(StartWeekday weekday);

}  // namespace vornix::launch_agent
