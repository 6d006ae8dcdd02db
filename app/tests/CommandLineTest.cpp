#include "app/CommandLine.hpp"

#include <gtest/gtest.h>

namespace vornix::app {
namespace {

TEST(CommandLineTest, NoArgumentsAskForNothing) { EXPECT_EQ(parseCommandLine({}), HostOptions{}); }

TEST(CommandLineTest, TheEngineSocketTakesTheNextArgumentAsItsPath) {
    const auto options = parseCommandLine({"--engine-socket", "/run/user/0/engine.sock"});
    EXPECT_EQ(options.engineSocket, "/run/user/0/engine.sock");
    EXPECT_TRUE(options.urls.empty());
}

TEST(CommandLineTest, TheEngineSocketMayBeGivenWithAnEqualsSign) {
    EXPECT_EQ(parseCommandLine({"--engine-socket=/tmp/e.sock"}).engineSocket, "/tmp/e.sock");
}

TEST(CommandLineTest, TheEngineSocketWithoutAPathIsAnError) {
    EXPECT_THROW(parseCommandLine({"--engine-socket"}), CommandLineError);
    EXPECT_THROW(parseCommandLine({"--engine-socket="}), CommandLineError);
}

TEST(CommandLineTest, OtherArgumentsAreUrlsInOrder) {
    const auto options = parseCommandLine({"vornix-os://a?update", "--engine-socket", "s", "vornix-os://b?launch"});
    EXPECT_EQ(options.urls, (std::vector<std::string>{"vornix-os://a?update", "vornix-os://b?launch"}));
}

TEST(CommandLineTest, AfterADoubleDashEverythingIsAUrl) {
    EXPECT_EQ(parseCommandLine({"--", "--help"}).urls, std::vector<std::string>{"--help"});
}

TEST(CommandLineTest, HelpAndVersionAreRecognised) {
    EXPECT_TRUE(parseCommandLine({"--help"}).help);
    EXPECT_TRUE(parseCommandLine({"-h"}).help);
    EXPECT_TRUE(parseCommandLine({"--version"}).version);
}

TEST(CommandLineTest, AnUnknownOptionIsAnErrorNamingIt) {
    try {
        parseCommandLine({"--engine"});
        FAIL();
    } catch (const CommandLineError& error) {
        EXPECT_STREQ(error.what(), "unknown option --engine");
    }
}

TEST(CommandLineTest, TheUsageNamesEveryOption) {
    const std::string text = usage();
    for (const char* option : {"--engine-socket PATH", "--version", "--help"}) {
        EXPECT_NE(text.find(option), std::string::npos) << option;
    }
}

}  // namespace
}  // namespace vornix::app
