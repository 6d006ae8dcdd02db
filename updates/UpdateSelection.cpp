#include "updates/UpdateSelection.hpp"

namespace vornix::updates {

namespace {

bool runsOn(const AppcastItem& item, const Version& system) {
    if (item.minimumSystemVersion.empty()) {
        return true;
    }
    const auto minimum = Version::parse(item.minimumSystemVersion);
    return minimum && *minimum <= system;
}

}  // namespace

std::optional<AppcastItem> selectUpdate(const Appcast& appcast, const Version& running, const Version& system) {
    const AppcastItem* newest = nullptr;
    std::optional<Version> newestVersion;
    for (const AppcastItem& item : appcast.items) {
        const auto version = Version::parse(item.version);
        if (!version || item.downloadUrl().empty() || !runsOn(item, system)) {
            continue;
        }
        if (!newestVersion || *version > *newestVersion) {
            newest = &item;
            newestVersion = version;
        }
    }
    if (!newest || *newestVersion <= running) {
        return std::nullopt;
    }
    return *newest;
}

}  // namespace vornix::updates
