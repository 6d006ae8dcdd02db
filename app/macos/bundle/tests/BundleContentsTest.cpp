// The bundle contents this build made (macos-bundle/Vornix OS.app/Contents, without its
// executable), read back by the project's own property-list reader.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "app/macos/bundle/InfoPlist.hpp"
#include "app/macos/bundle/tests/ExpectedInfoPlist.hpp"
#include "base/Version.hpp"
#include "host/WebEndpoints.hpp"
#include "platform/Files.hpp"
#include "plist/PropertyList.hpp"

namespace vornix::macos_bundle {
namespace {

// The build tells where it made them.
const std::filesystem::path bundleContents = VORNIX_BUNDLE_CONTENTS;

TEST(BundleContents, InfoPlistHoldsExactlyTheApplicationsKeysForThisBuild) {
    const plist::Value info = plist::readPropertyList(platform::readWholeFile(bundleContents / "Info.plist"));
    const plist::Dictionary* dictionary = info.get<plist::Dictionary>();
    ASSERT_NE(dictionary, nullptr) << "Info.plist is not a dictionary";
    tests::expectInfoPlistFor(*dictionary, BundleFacts{
                                               .executable = "Vornix OS",
                                               .version = std::string(base::hostVersion()),
                                               .urlScheme = VORNIX_URL_SCHEME,
                                               .minimumSystemVersion = VORNIX_MACOS_DEPLOYMENT_TARGET,
                                               .updateFeed = host::WebEndpoints{}.updateFeed,
                                               .updatePublicKey = host::WebEndpoints{}.updatePublicKey,
                                           });
}

TEST(BundleContents, ResourcesHoldTheTrayTemplateImageAndTheApplicationIcon) {
    const auto resources = bundleContents / "Resources";
    EXPECT_TRUE(std::filesystem::is_regular_file(resources / "TrayIcon.png"));
    EXPECT_TRUE(std::filesystem::is_regular_file(resources / "TrayIcon@2x.png"));
    EXPECT_TRUE(std::filesystem::is_regular_file(resources / "AppIcon.icns"));
}

}  // namespace
}  // namespace vornix::macos_bundle
