#include "updates/UpdateMessages.hpp"

namespace vornix::updates {

std::string userAgent(const Version& running) { return std::string(productName) + "/" + running.text(); }

std::string upToDateMessage() { return std::string(productName) + " is up to date"; }

std::string upToDateInformativeText(const Version& running) {
    return "Version " + running.text() + " is the newest version available.";
}

std::string updateAvailableMessage(const AppcastItem& item) {
    return std::string(productName) + " " + item.displayVersion() + " is available";
}

std::string updateAvailableInformativeText(const Version& running) {
    return "You have version " + running.text() + ". Download the new version to update.";
}

std::string checkFailedMessage() { return std::string(productName) + " could not check for updates"; }

std::string updateNotificationBody(const Version& running) {
    return "You have version " + running.text() + ". Click to download the new version.";
}

std::string upToDateLine(const Version& running) {
    return "Update check: " + std::string(productName) + " " + running.text() + " is up to date";
}

std::string updateAvailableLine(const AppcastItem& item) {
    return "Update check: version " + item.displayVersion() + " is available";
}

std::string checkFailedLine(std::string_view detail) { return "Update check failed: " + std::string(detail); }

}  // namespace vornix::updates
