#include "updates/AppcastParser.hpp"

#include <gtest/gtest.h>

#include <string>

namespace {

using vornix::updates::Appcast;
using vornix::updates::AppcastError;
using vornix::updates::AppcastLimits;
using vornix::updates::parseAppcast;

std::string feed(const std::string& channelContent) {
    return R"(<?xml version="1.0" encoding="utf-8"?>
<rss version="2.0" xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle"
     xmlns:dc="http://purl.org/dc/elements/1.1/">
  <channel>
    <title>Vornix OS</title>
)" + channelContent + R"(
  </channel>
</rss>
)";
}

std::string errorOf(const std::string& xml, const AppcastLimits& limits = {}) {
    try {
        parseAppcast(xml, limits);
    } catch (const AppcastError& error) {
        return error.what();
    }
    return "no error";
}

TEST(AppcastParser, ReadsEveryFieldOfAnItem) {
    const Appcast appcast = parseAppcast(feed(R"(
    <item>
      <title>Version 1.4</title>
      <link>https://example.com/vornix/1.4</link>
      <sparkle:version>1400</sparkle:version>
      <sparkle:shortVersionString>1.4</sparkle:shortVersionString>
      <sparkle:releaseNotesLink>https://example.com/vornix/notes/1.4.html</sparkle:releaseNotesLink>
      <sparkle:minimumSystemVersion>10.15</sparkle:minimumSystemVersion>
      <pubDate>Mon, 05 Feb 2024 10:00:00 +0000</pubDate>
      <enclosure url="https://example.com/vornix/Vornix-1.4.zip" length="1234" type="application/octet-stream"/>
    </item>)"));
    EXPECT_EQ(appcast.title, "Vornix OS");
    ASSERT_EQ(appcast.items.size(), 1u);
    const auto& item = appcast.items[0];
    EXPECT_EQ(item.title, "Version 1.4");
    EXPECT_EQ(item.link, "https://example.com/vornix/1.4");
    EXPECT_EQ(item.version, "1400");
    EXPECT_EQ(item.shortVersionString, "1.4");
    EXPECT_EQ(item.displayVersion(), "1.4");
    EXPECT_EQ(item.releaseNotesLink, "https://example.com/vornix/notes/1.4.html");
    EXPECT_EQ(item.minimumSystemVersion, "10.15");
    EXPECT_EQ(item.enclosureUrl, "https://example.com/vornix/Vornix-1.4.zip");
    EXPECT_EQ(item.downloadUrl(), item.enclosureUrl);
}

TEST(AppcastParser, TakesTheVersionFromTheEnclosureAttributesWhenTheItemHasNoElement) {
    const Appcast appcast = parseAppcast(feed(R"(
    <item>
      <enclosure url="https://example.com/a.zip" sparkle:version="210" sparkle:shortVersionString="2.1"/>
    </item>)"));
    ASSERT_EQ(appcast.items.size(), 1u);
    EXPECT_EQ(appcast.items[0].version, "210");
    EXPECT_EQ(appcast.items[0].shortVersionString, "2.1");
}

TEST(AppcastParser, PrefersTheItemsVersionElementToTheEnclosureAttribute) {
    const Appcast appcast = parseAppcast(feed(R"(
    <item>
      <sparkle:version>300</sparkle:version>
      <enclosure url="https://example.com/a.zip" sparkle:version="299"/>
    </item>)"));
    ASSERT_EQ(appcast.items.size(), 1u);
    EXPECT_EQ(appcast.items[0].version, "300");
}

TEST(AppcastParser, RecognisesTheSparkleNamespaceUnderAnyPrefix) {
    const Appcast appcast = parseAppcast(R"(<rss xmlns:s="http://www.andymatuschak.org/xml-namespaces/sparkle">
      <channel><item><s:version>5.0</s:version><enclosure url="https://e.com/x"/></item></channel></rss>)");
    ASSERT_EQ(appcast.items.size(), 1u);
    EXPECT_EQ(appcast.items[0].version, "5.0");
}

TEST(AppcastParser, IgnoresVersionElementsOfOtherNamespaces) {
    const Appcast appcast = parseAppcast(R"(<rss xmlns:other="urn:other">
      <channel><item><other:version>5.0</other:version><version>6.0</version></item></channel></rss>)");
    ASSERT_EQ(appcast.items.size(), 1u);
    EXPECT_EQ(appcast.items[0].version, "");
}

TEST(AppcastParser, KeepsItemsInFeedOrderAndTrimsValues) {
    const Appcast appcast = parseAppcast(feed(R"(
    <item><sparkle:version>
        1.1
    </sparkle:version></item>
    <item><sparkle:version>1.3</sparkle:version></item>
    <item><sparkle:version>1.2</sparkle:version></item>)"));
    ASSERT_EQ(appcast.items.size(), 3u);
    EXPECT_EQ(appcast.items[0].version, "1.1");
    EXPECT_EQ(appcast.items[1].version, "1.3");
    EXPECT_EQ(appcast.items[2].version, "1.2");
}

TEST(AppcastParser, DecodesCharacterReferencesAndCdata) {
    const Appcast appcast = parseAppcast(feed(R"(
    <item><title>Fish &amp; Chips &#x263A;</title><link><![CDATA[https://e.com/?a=1&b=2]]></link></item>)"));
    ASSERT_EQ(appcast.items.size(), 1u);
    EXPECT_EQ(appcast.items[0].title, "Fish & Chips \xE2\x98\xBA");
    EXPECT_EQ(appcast.items[0].link, "https://e.com/?a=1&b=2");
}

TEST(AppcastParser, SkipsUnknownElementsAndNestedMarkup) {
    const Appcast appcast = parseAppcast(feed(R"(
    <item>
      <description><![CDATA[<h1>New</h1>]]><sparkle:version>9.9</sparkle:version></description>
      <sparkle:version>2.0</sparkle:version>
    </item>)"));
    ASSERT_EQ(appcast.items.size(), 1u);
    EXPECT_EQ(appcast.items[0].version, "2.0");
}

TEST(AppcastParser, AnEmptyChannelHasNoItems) {
    const Appcast appcast = parseAppcast(feed(""));
    EXPECT_EQ(appcast.title, "Vornix OS");
    EXPECT_TRUE(appcast.items.empty());
}

TEST(AppcastParser, RejectsMalformedXmlNamingTheLine) {
    const std::string error = errorOf("<rss><channel>\n<item><title>x</item></channel></rss>");
    EXPECT_NE(error.find("mismatched tag"), std::string::npos) << error;
    EXPECT_NE(error.find("line 2"), std::string::npos) << error;
}

TEST(AppcastParser, RejectsAnEmptyDocument) { EXPECT_NE(errorOf(""), "no error"); }

TEST(AppcastParser, RejectsADocumentThatIsNotRss) {
    EXPECT_NE(errorOf("<feed><entry/></feed>").find("not an RSS feed"), std::string::npos);
}

TEST(AppcastParser, RejectsAFeedWithoutAChannel) { EXPECT_EQ(errorOf("<rss version=\"2.0\"/>"), "the feed has no channel"); }

TEST(AppcastParser, RejectsEntityDeclarations) {
    const std::string laughs = R"(<?xml version="1.0"?>
<!DOCTYPE rss [
  <!ENTITY a "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaaa">
  <!ENTITY b "&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;&a;">
]>
<rss><channel><title>&b;</title></channel></rss>)";
    EXPECT_NE(errorOf(laughs).find("declares entities"), std::string::npos) << errorOf(laughs);
}

TEST(AppcastParser, RejectsExternalEntityDeclarations) {
    const std::string external = R"(<?xml version="1.0"?>
<!DOCTYPE rss [ <!ENTITY secret SYSTEM "file:///etc/passwd"> ]>
<rss><channel><title>&secret;</title></channel></rss>)";
    EXPECT_NE(errorOf(external).find("declares entities"), std::string::npos) << errorOf(external);
}

TEST(AppcastParser, RejectsAFeedLargerThanTheBound) {
    AppcastLimits limits;
    limits.maxBytes = 100;
    const std::string xml = feed(std::string(200, ' '));
    EXPECT_NE(errorOf(xml, limits).find("larger than 100 bytes"), std::string::npos);
}

TEST(AppcastParser, RejectsNestingDeeperThanTheBound) {
    AppcastLimits limits;
    limits.maxDepth = 8;
    std::string xml = "<rss><channel>";
    for (int i = 0; i < 10; ++i) {
        xml += "<x>";
    }
    for (int i = 0; i < 10; ++i) {
        xml += "</x>";
    }
    xml += "</channel></rss>";
    EXPECT_NE(errorOf(xml, limits).find("nested more than 8 deep"), std::string::npos);
}

TEST(AppcastParser, RejectsMoreItemsThanTheBound) {
    AppcastLimits limits;
    limits.maxItems = 3;
    EXPECT_NO_THROW(parseAppcast(feed("<item/><item/><item/>"), limits));
    EXPECT_NE(errorOf(feed("<item/><item/><item/><item/>"), limits).find("more than 3 items"), std::string::npos);
}

TEST(AppcastParser, RejectsAValueLongerThanTheBound) {
    AppcastLimits limits;
    limits.maxFieldBytes = 16;
    EXPECT_NE(errorOf(feed("<item><title>" + std::string(17, 'x') + "</title></item>"), limits).find("longer than 16"),
              std::string::npos);
    EXPECT_NE(errorOf(feed("<item><enclosure url=\"" + std::string(17, 'x') + "\"/></item>"), limits)
                  .find("longer than 16"),
              std::string::npos);
}

TEST(AppcastParser, DoesNotBoundTextItDoesNotKeep) {
    AppcastLimits limits;
    limits.maxFieldBytes = 16;
    const Appcast appcast =
        parseAppcast(feed("<item><description>" + std::string(1000, 'x') + "</description></item>"), limits);
    EXPECT_EQ(appcast.items.size(), 1u);
}

}  // namespace
