#include "app/macos/bundle/InfoPlist.hpp"

#include <gtest/gtest.h>

#include "app/macos/bundle/tests/ExpectedInfoPlist.hpp"
#include "plist/XmlReader.hpp"
#include "plist/XmlWriter.hpp"

namespace vornix::macos_bundle {
namespace {

const BundleFacts someFacts{
    .executable = "Some Executable",
    .version = "9.8.7",
    .urlScheme = "some-scheme",
    .minimumSystemVersion = "10.15",
    .updateFeed = "https://feed.example/appcast.xml",
    .updatePublicKey = "c29tZSBwdWJsaWMga2V5IG9mIDMyIGJ5dGVzIG9ubHk=",
};

TEST(InfoPlist, HoldsExactlyTheApplicationsKeysWithTheBuildsFacts) {
    tests::expectInfoPlistFor(infoPlist(someFacts), someFacts);
}

TEST(InfoPlist, TakesEachFactFromTheBuild) {
    BundleFacts other = someFacts;
    other.executable = "Other";
    other.version = "1.2.3";
    other.urlScheme = "other-scheme";
    other.minimumSystemVersion = "11.0";
    other.updateFeed = "https://other.example/feed.xml";
    other.updatePublicKey = "b3RoZXIga2V5";
    tests::expectInfoPlistFor(infoPlist(other), other);
}

TEST(InfoPlist, ReadsBackAsWrittenThroughTheXmlForm) {
    const plist::Value written(infoPlist(someFacts));
    EXPECT_TRUE(plist::readXml(plist::writeXml(written)) == written);
}

}  // namespace
}  // namespace vornix::macos_bundle
