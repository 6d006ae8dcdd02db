#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include "launch_agent/ClampedOptional.hpp"
#include "launch_agent/RawValue.hpp"
#include "launch_agent/StartMonth.hpp"
#include "launch_agent/StartWeekday.hpp"

namespace vornix::launch_agent {

// One calendar start time of a job; every member optional, written only when present.
// Assigning `day`, `hour` or `minute` keeps them in 1...31, 0...23 and 0...59 (the day bound
// is the same for every month); the constructor and decoding store what they are given.
class StartCalendarInterval {
public:
    enum class CodingKeys { month, weekday, day, hour, minute };

    explicit StartCalendarInterval(std::optional<StartMonth> month = std::nullopt,
                                   std::optional<StartWeekday> weekday = std::nullopt,
                                   std::optional<std::int64_t> day = std::nullopt,
                                   std::optional<std::int64_t> hour = std::nullopt,
                                   std::optional<std::int64_t> minute = std::nullopt);
    explicit StartCalendarInterval(const plist::KeyedDecoder& decoder);
    void encode(plist::KeyedEncoder& encoder) const;

    std::optional<StartMonth> month;
    std::optional<StartWeekday> weekday;
    ClampedOptional<1, 31> day;
    ClampedOptional<0, 23> hour;
    ClampedOptional<0, 59> minute;
};

}  // namespace vornix::launch_agent

template <>
struct vornix::plist::RawValues<vornix::launch_agent::StartCalendarInterval::CodingKeys> {
    using CodingKeys = vornix::launch_agent::StartCalendarInterval::CodingKeys;
    static constexpr std::pair<CodingKeys, std::string_view> table[] = {
        {CodingKeys::month, "Month"}, {CodingKeys::weekday, "Weekday"}, {CodingKeys::day, "Day"},
        {CodingKeys::hour, "Hour"},   {CodingKeys::minute, "Minute"},
    };
};
