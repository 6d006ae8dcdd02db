#pragma once

#include <string>

namespace vornix::host {

// The web addresses the host opens, and the key that vouches for what its update feed offers, in
// one place. The defaults are the product's; other values serve tests and staging builds.
struct WebEndpoints {
    // The update site's root, opened after an update has relaunched the application.
    std::string releaseNotesSite = "https://updates.vornix.com";
    // Where "Vornix for Developers" is offered for download when it is not installed.
    std::string installPage = "https://vornix.com/install";
    // The release feed (an appcast) the updater reads, on the update site.
    std::string updateFeed = "https://updates.vornix.com/appcast.xml";
    // The public half of the Ed25519 key every update in the feed is signed with (base64 of its 32
    // bytes): the updater installs only an update whose signature this key verifies. A development
    // key whose private half was not kept: the release key replaces it (docs/MACOS.md).
    std::string updatePublicKey = "kvqqaFRTdmOQH4nr6zMEO+MwxzlxnZZ1jX9pp/7a+xI=";
};

}  // namespace vornix::host
