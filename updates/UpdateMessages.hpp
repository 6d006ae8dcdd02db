#pragma once

#include <string>
#include <string_view>

#include "updates/Appcast.hpp"
#include "updates/Version.hpp"

namespace vornix::updates {

// The words the update checks show and print, in one place.

inline constexpr std::string_view productName = "Vornix OS";

std::string userAgent(const Version& running);

// Alerts after "Check for Updates...".
std::string upToDateMessage();
std::string upToDateInformativeText(const Version& running);
std::string updateAvailableMessage(const AppcastItem& item);
std::string updateAvailableInformativeText(const Version& running);
std::string checkFailedMessage();

// Buttons of the update-available alert and actions of its notification.
inline constexpr std::string_view downloadLabel = "Download";
inline constexpr std::string_view releaseNotesLabel = "Release Notes";
inline constexpr std::string_view laterLabel = "Later";
inline constexpr std::string_view okLabel = "OK";

// The desktop notification after a background check that found a release.
std::string updateNotificationBody(const Version& running);

// Diagnostics lines.
std::string upToDateLine(const Version& running);
std::string updateAvailableLine(const AppcastItem& item);
std::string checkFailedLine(std::string_view detail);

}  // namespace vornix::updates
