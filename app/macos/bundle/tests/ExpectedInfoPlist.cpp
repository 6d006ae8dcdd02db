#include "app/macos/bundle/tests/ExpectedInfoPlist.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace vornix::macos_bundle::tests {

namespace {

void expectKey(const plist::Dictionary& info, const std::string& key, const plist::Value& expected) {
    const plist::Value* value = info.find(key);
    ASSERT_NE(value, nullptr) << key << " is missing";
    EXPECT_EQ(value->kind(), expected.kind()) << key << " has the wrong type";
    EXPECT_TRUE(*value == expected) << key << " has the wrong value";
}

}  // namespace

void expectInfoPlistFor(const plist::Dictionary& info, const BundleFacts& facts) {
    std::vector<std::string> keys;
    for (const auto& [key, value] : info) {
        keys.push_back(key);
    }
    EXPECT_EQ(keys, (std::vector<std::string>{
                        "CFBundleDisplayName", "CFBundleExecutable", "CFBundleIdentifier", "CFBundleName",
                        "CFBundlePackageType", "CFBundleShortVersionString", "CFBundleURLTypes",
                        "CFBundleVersion", "LSMinimumSystemVersion", "LSUIElement", "NSHighResolutionCapable",
                        "NSPrincipalClass", "SUEnableAutomaticChecks", "SUFeedURL", "SUPublicEDKey"}));

    expectKey(info, "CFBundleIdentifier", "com.vornix.os");
    expectKey(info, "CFBundleName", "Vornix OS");
    expectKey(info, "CFBundleDisplayName", "Vornix OS");
    expectKey(info, "CFBundleExecutable", facts.executable);
    expectKey(info, "CFBundlePackageType", "APPL");
    expectKey(info, "CFBundleShortVersionString", facts.version);
    expectKey(info, "CFBundleVersion", facts.version);
    expectKey(info, "LSMinimumSystemVersion", facts.minimumSystemVersion);
    expectKey(info, "LSUIElement", true);
    expectKey(info, "NSPrincipalClass", "NSApplication");
    expectKey(info, "NSHighResolutionCapable", true);
    expectKey(info, "SUFeedURL", facts.updateFeed);
    expectKey(info, "SUPublicEDKey", facts.updatePublicKey);
    expectKey(info, "SUEnableAutomaticChecks", true);

    const plist::Value* types = info.find("CFBundleURLTypes");
    ASSERT_NE(types, nullptr);
    const plist::Array* typeList = types->get<plist::Array>();
    ASSERT_NE(typeList, nullptr) << "CFBundleURLTypes is not an array";
    ASSERT_EQ(typeList->size(), 1U);
    const plist::Dictionary* type = typeList->front().get<plist::Dictionary>();
    ASSERT_NE(type, nullptr) << "the URL type is not a dictionary";
    EXPECT_EQ(type->size(), 2U);
    expectKey(*type, "CFBundleURLName", "com.vornix.os");
    expectKey(*type, "CFBundleURLSchemes", plist::Array{plist::Value(facts.urlScheme)});
}

}  // namespace vornix::macos_bundle::tests
