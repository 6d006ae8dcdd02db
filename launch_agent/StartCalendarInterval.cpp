#include "launch_agent/StartCalendarInterval.hpp"

namespace vornix::launch_agent {

using Key = StartCalendarInterval::CodingKeys;

StartCalendarInterval::StartCalendarInterval(std::optional<StartMonth> month, std::optional<StartWeekday> weekday,
                                             std::optional<std::int64_t> day, std::optional<std::int64_t> hour,
                                             std::optional<std::int64_t> minute)
    : month(month), weekday(weekday) {
    this->day.storeAsGiven(day);
    this->hour.storeAsGiven(hour);
    this->minute.storeAsGiven(minute);
}

StartCalendarInterval::StartCalendarInterval(const plist::KeyedDecoder& decoder)
    : month(decoder.decodeIfPresent<StartMonth>(codingKey(Key::month))),
      weekday(decoder.decodeIfPresent<StartWeekday>(codingKey(Key::weekday))) {
    day.storeAsGiven(decoder.decodeIfPresent<std::int64_t>(codingKey(Key::day)));
    hour.storeAsGiven(decoder.decodeIfPresent<std::int64_t>(codingKey(Key::hour)));
    minute.storeAsGiven(decoder.decodeIfPresent<std::int64_t>(codingKey(Key::minute)));
}

void StartCalendarInterval::encode(plist::KeyedEncoder& encoder) const {
    encoder.encodeIfPresent(codingKey(Key::month), month);
    encoder.encodeIfPresent(codingKey(Key::weekday), weekday);
    encoder.encodeIfPresent(codingKey(Key::day), day);
    encoder.encodeIfPresent(codingKey(Key::hour), hour);
    encoder.encodeIfPresent(codingKey(Key::minute), minute);
}

}  // namespace vornix::launch_agent
