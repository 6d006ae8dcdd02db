#pragma once

#include "plist/KeyedCoding.hpp"

namespace vornix::launch_agent {

// The job file's enumerations and key tables are plist raw-value enumerations: each case's raw
// value comes from its plist::RawValues table, the one place that spells it.
//   rawValue(StartMonth::may)               -> 5 (engaged for every case)
//   fromRawValue<StartWeekday>(0)           -> nothing (no nearest case is chosen)
//   rawValue(LaunchAgent::CodingKeys::nice) -> "Nice"
using plist::fromRawValue;
using plist::rawValue;

// The property-list key of a coding key, for encoders and decoders.
template <plist::RawValueEnum Key>
std::string_view codingKey(Key key) {
    return *rawValue(key);
}

}  // namespace vornix::launch_agent
