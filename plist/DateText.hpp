#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "plist/Value.hpp"

namespace vornix::plist {

// "YYYY-MM-DDTHH:MM:SSZ" (UTC) for the whole second at or before the date, as the XML format
// writes dates. Nothing for a date that is not finite or lies outside the years 0000 to 9999.
std::optional<std::string> formatDate(Date date);

// The same text with the exact fraction of a second before the "Z" when the date has one
// ("2024-01-31T12:00:00.25Z"). Nothing also when the fraction has no exact decimal form that
// reads back to the same date (only possible within a second of the reference date).
std::optional<std::string> formatDateExactly(Date date);

// Reads "YYYY-MM-DDTHH:MM:SSZ" with a real calendar date and time (no leap second); with
// `allowFraction`, also a fraction of a second before the "Z". Nothing for anything else.
std::optional<Date> parseDate(std::string_view text, bool allowFraction = false);

}  // namespace vornix::plist
