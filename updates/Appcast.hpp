#pragma once

#include <string>
#include <vector>

namespace vornix::updates {

// One release in an appcast: an RSS 2.0 item with the updater's own elements. Fields the feed
// leaves out are empty.
struct AppcastItem {
    std::string title;
    std::string link;                  // the item's web page
    std::string version;               // sparkle:version (element, or the enclosure's attribute)
    std::string shortVersionString;    // sparkle:shortVersionString: the version people see
    std::string releaseNotesLink;      // sparkle:releaseNotesLink
    std::string minimumSystemVersion;  // sparkle:minimumSystemVersion
    std::string enclosureUrl;          // the enclosure's url: the download

    // The version to show people: the short version string when there is one.
    const std::string& displayVersion() const { return shortVersionString.empty() ? version : shortVersionString; }
    // Where the release is downloaded: its enclosure, or its page when it has none.
    const std::string& downloadUrl() const { return enclosureUrl.empty() ? link : enclosureUrl; }
};

// The release feed: its channel's title and its items in feed order.
struct Appcast {
    std::string title;
    std::vector<AppcastItem> items;
};

}  // namespace vornix::updates
