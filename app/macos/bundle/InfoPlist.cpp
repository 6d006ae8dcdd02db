#include "app/macos/bundle/InfoPlist.hpp"

namespace vornix::macos_bundle {

namespace {

constexpr const char* bundleIdentifier = "com.vornix.os";
constexpr const char* productName = "Vornix OS";

plist::Array urlTypes(const std::string& scheme) {
    plist::Dictionary type;
    type.set("CFBundleURLName", bundleIdentifier);
    type.set("CFBundleURLSchemes", plist::Array{plist::Value(scheme)});
    return plist::Array{plist::Value(std::move(type))};
}

}  // namespace

plist::Dictionary infoPlist(const BundleFacts& facts) {
    plist::Dictionary info;
    info.set("CFBundleIdentifier", bundleIdentifier);
    info.set("CFBundleName", productName);
    info.set("CFBundleDisplayName", productName);
    info.set("CFBundleExecutable", facts.executable);
    info.set("CFBundlePackageType", "APPL");
    info.set("CFBundleShortVersionString", facts.version);
    info.set("CFBundleVersion", facts.version);
    info.set("LSMinimumSystemVersion", facts.minimumSystemVersion);
    info.set("LSUIElement", true);
    info.set("NSPrincipalClass", "NSApplication");
    info.set("NSHighResolutionCapable", true);
    info.set("CFBundleURLTypes", urlTypes(facts.urlScheme));
    info.set("SUFeedURL", facts.updateFeed);
    info.set("SUPublicEDKey", facts.updatePublicKey);
    info.set("SUEnableAutomaticChecks", true);
    return info;
}

}  // namespace vornix::macos_bundle
