#pragma once

#include <optional>

#include "updates/Appcast.hpp"
#include "updates/Version.hpp"

namespace vornix::updates {

// The newest release in the feed that runs on `system`, when it is newer than `running`.
// Items without a readable version, without a download, or whose minimum system version is
// above `system` (or unreadable) are passed over; among equal versions the first in the feed wins.
std::optional<AppcastItem> selectUpdate(const Appcast& appcast, const Version& running, const Version& system);

}  // namespace vornix::updates
