#pragma once

#include <cstdint>
#include <optional>

#include "launch_agent/ClampedOptional.hpp"
#include "launch_agent/StartMonth.hpp"
#include "launch_agent/StartWeekday.hpp"

namespace vornix::launch_agent {

// One calendar start time of a job. Assigning `day`, `hour` or `minute` keeps them in
// 1...31, 0...23 and 0...59 (the day bound is the same for every month); the constructor
// and decoding store what they are given.
class StartCalendarInterval {
public:
    explicit StartCalendarInterval(std::optional<StartMonth> month = std::nullopt,
                                   std::optional<StartWeekday> weekday = std::nullopt,
                                   std::optional<std::int64_t> day = std::nullopt,
                                   std::optional<std::int64_t> hour = std::nullopt,
                                   std::optional<std::int64_t> minute = std::nullopt);

    std::optional<StartMonth> month;
    std::optional<StartWeekday> weekday;
    ClampedOptional<1, 31> day;
    ClampedOptional<0, 23> hour;
    ClampedOptional<0, 59> minute;
};

}  // namespace vornix::launch_agent
