#pragma once

#include <cstdint>
#include <utility>

#include "launch_agent/RawValue.hpp"

namespace vornix::launch_agent {

// The "Weekday" of a calendar start time, written as its integer value. The week starts on
// Monday and Sunday is 7: there is no day 0.
enum class StartWeekday {
    monday,
    tuesday,
    wednesday,
    thursday,
    friday,
    saturday,
    sunday,
};

}  // namespace vornix::launch_agent

template <>
struct vornix::plist::RawValues<vornix::launch_agent::StartWeekday> {
    using StartWeekday = vornix::launch_agent::StartWeekday;
    static constexpr std::pair<StartWeekday, std::int64_t> table[] = {
        {StartWeekday::monday, 1},   {StartWeekday::tuesday, 2}, {StartWeekday::wednesday, 3},
        {StartWeekday::thursday, 4}, {StartWeekday::friday, 5},  {StartWeekday::saturday, 6},
        {StartWeekday::sunday, 7},
    };
};
