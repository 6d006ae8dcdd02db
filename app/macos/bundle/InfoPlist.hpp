#pragma once

#include <string>

#include "plist/Value.hpp"

namespace vornix::macos_bundle {

// What the application bundle's Info.plist says that the build decides: everything else in it
// is the product's identity and fixed.
struct BundleFacts {
    // The file name of the executable in Contents/MacOS.
    std::string executable;
    // The build's one version, as both the marketing and the build version.
    std::string version;
    // The host's own URL scheme, the one the Linux desktop entry declares too.
    std::string urlScheme;
    // The lowest macOS the application runs on: the build's deployment target.
    std::string minimumSystemVersion;
    // The appcast the updater reads.
    std::string updateFeed;
    // The public EdDSA key the updater checks each update's signature with (base64).
    std::string updatePublicKey;
};

// The bundle's Info.plist: the identity "com.vornix.os" and "Vornix OS", an application
// ("APPL") for the build's lowest macOS and later that has no Dock icon (a menu-bar service), the
// principal class "NSApplication", drawn for high-resolution screens, the handler of the URL
// scheme, and the updater's feed and signing key with automatic checks on.
plist::Dictionary infoPlist(const BundleFacts& facts);

}  // namespace vornix::macos_bundle
