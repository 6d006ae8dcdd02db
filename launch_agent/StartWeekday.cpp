#include "launch_agent/StartWeekday.hpp"

namespace vornix::launch_agent {

std::optional<StartWeekday> startWeekdayFromRawValue(std::int64_t value) {
    if (value < rawValue(StartWeekday::monday) || value > rawValue(StartWeekday::sunday)) {
        return std::nullopt;
    }
    return static_cast<StartWeekday>(value);
}

std::int64_t rawValue(StartWeekday weekday) { return static_cast<std::int64_t>(weekday); }

}  // namespace vornix::launch_agent
