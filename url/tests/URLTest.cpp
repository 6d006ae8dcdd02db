#include "url/URL.hpp"

#include <gtest/gtest.h>

namespace {

using vornix::url::URL;

TEST(URL, ACustomSchemeURLKeepsItsPartsAsWritten) {
    const auto url = URL::parse("vornix://open?user=U&asset=A&share=S#top");
    ASSERT_TRUE(url.has_value());
    EXPECT_EQ(url->absoluteString(), "vornix://open?user=U&asset=A&share=S#top");
    EXPECT_EQ(url->scheme(), "vornix");
    EXPECT_EQ(url->host(), "open");
    EXPECT_EQ(url->path(), "");
    EXPECT_EQ(url->query(), "user=U&asset=A&share=S");
    EXPECT_EQ(url->fragment(), "top");
}

TEST(URL, TheQueryIsNotPercentDecoded) {
    EXPECT_EQ(URL::parse("s://h?user=a%20b&x=%3D")->query(), "user=a%20b&x=%3D");
}

TEST(URL, TheQueryRunsUpToTheFragmentAndMayHoldQuestionMarksAndSlashes) {
    EXPECT_EQ(URL::parse("s://h/p?a=/b?c#d?e")->query(), "a=/b?c");
}

TEST(URL, AnEmptyQueryIsPresentAndANoQueryIsAbsent) {
    EXPECT_EQ(URL::parse("s://h?")->query(), "");
    EXPECT_EQ(URL::parse("s://h")->query(), std::nullopt);
    EXPECT_EQ(URL::parse("s://h#f?x")->query(), std::nullopt);
}

TEST(URL, TheCompanionSchemeAloneIsAURL) {
    const auto url = URL::parse("vornix-for-developers://");
    ASSERT_TRUE(url.has_value());
    EXPECT_EQ(url->scheme(), "vornix-for-developers");
    EXPECT_EQ(url->host(), "");
}

TEST(URL, AnHttpsPageHasHostPortAndPath) {
    const auto url = URL::parse("https://user:pw@updates.example.com:8443/notes/1.html");
    ASSERT_TRUE(url.has_value());
    EXPECT_EQ(url->host(), "updates.example.com");
    EXPECT_EQ(url->port(), "8443");
    EXPECT_EQ(url->path(), "/notes/1.html");
}

TEST(URL, IpLiteralsAreCheckedAndTheirBracketsLeftOut) {
    EXPECT_EQ(URL::parse("http://[::1]:80/")->host(), "::1");
    EXPECT_TRUE(URL::parse("http://[v1.fe80::a+b]/").has_value());
    EXPECT_FALSE(URL::parse("http://[::g]/").has_value());
    EXPECT_FALSE(URL::parse("http://[::1/").has_value());
    EXPECT_FALSE(URL::parse("http://[::1]x/").has_value());
}

TEST(URL, RelativeReferencesAreURLsWithoutAScheme) {
    const auto url = URL::parse("a/b?c=d");
    ASSERT_TRUE(url.has_value());
    EXPECT_EQ(url->scheme(), std::nullopt);
    EXPECT_EQ(url->path(), "a/b");
    EXPECT_EQ(url->query(), "c=d");
    EXPECT_TRUE(URL::parse("//host/x").has_value());
    EXPECT_TRUE(URL::parse("?only=query").has_value());
}

TEST(URL, WhatTheGrammarRefusesIsNotAURL) {
    EXPECT_FALSE(URL::parse("").has_value());
    EXPECT_FALSE(URL::parse("s://h?a=b c").has_value());
    EXPECT_FALSE(URL::parse("s://h?a=100%").has_value());
    EXPECT_FALSE(URL::parse("s://h?a=%4").has_value());
    EXPECT_FALSE(URL::parse("s://h?a=%zz").has_value());
    EXPECT_FALSE(URL::parse("s://h/\"quoted\"").has_value());
    EXPECT_FALSE(URL::parse("s://h/a<b").has_value());
    EXPECT_FALSE(URL::parse("s://h#a#b").has_value());
    EXPECT_FALSE(URL::parse("s://ho st/").has_value());
    EXPECT_FALSE(URL::parse("s://h:80x/").has_value());
    EXPECT_FALSE(URL::parse("s://a@b@h/").has_value());
    EXPECT_FALSE(URL::parse("1s://h").has_value());
    EXPECT_FALSE(URL::parse(":nothing").has_value());
    EXPECT_FALSE(URL::parse("\xc3\xa9://h").has_value());
    EXPECT_FALSE(URL::parse("s://h/\xc3\xa9").has_value());
}

TEST(URL, AURLWithoutAuthorityMayHoldColonsAfterItsScheme) {
    const auto url = URL::parse("mailto:someone@example.com:x");
    ASSERT_TRUE(url.has_value());
    EXPECT_EQ(url->scheme(), "mailto");
    EXPECT_EQ(url->host(), std::nullopt);
    EXPECT_EQ(url->path(), "someone@example.com:x");
}

TEST(URL, ACharacterOfEverySetAllowedInAQueryIsAccepted) {
    EXPECT_TRUE(URL::parse("s://h?aZ09-._~!$&'()*+,;=:@/?%2F").has_value());
}

}  // namespace
