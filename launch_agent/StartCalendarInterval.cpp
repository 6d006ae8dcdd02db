#include "launch_agent/StartCalendarInterval.hpp"

namespace vornix::launch_agent {

StartCalendarInterval::StartCalendarInterval(std::optional<StartMonth> month, std::optional<StartWeekday> weekday,
                                             std::optional<std::int64_t> day, std::optional<std::int64_t> hour,
                                             std::optional<std::int64_t> minute)
    : month(month), weekday(weekday) {
    this->day.storeAsGiven(day);
    this->hour.storeAsGiven(hour);
    this->minute.storeAsGiven(minute);
}

}  // namespace vornix::launch_agent
