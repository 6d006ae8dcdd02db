#include "updates/UpdateSettings.hpp"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace {

using vornix::updates::UpdateSettings;
using vornix::updates::withEnvironmentOverrides;

struct FakeEnvironment {
    std::map<std::string, std::string> variables;
    const char* operator()(const char* name) const {
        const auto found = variables.find(name);
        return found == variables.end() ? nullptr : found->second.c_str();
    }
};

const UpdateSettings configured{"https://updates.example.com/appcast.xml", 30.0, 4096};

TEST(UpdateSettings, WithoutOverridesTheConfiguredSettingsStand) {
    const auto settings = withEnvironmentOverrides(configured, FakeEnvironment{});
    EXPECT_EQ(settings.feedUrl, configured.feedUrl);
    EXPECT_EQ(settings.timeoutSeconds, 30.0);
    EXPECT_EQ(settings.maxFeedBytes, 4096u);
}

TEST(UpdateSettings, TheEnvironmentCanPointAtALocalFeedWithAShortTimeOut) {
    const auto settings = withEnvironmentOverrides(
        configured, FakeEnvironment{{{"VORNIX_UPDATE_FEED_URL", "http://127.0.0.1:8080/appcast.xml"},
                                     {"VORNIX_UPDATE_TIMEOUT", "0.5"}}});
    EXPECT_EQ(settings.feedUrl, "http://127.0.0.1:8080/appcast.xml");
    EXPECT_EQ(settings.timeoutSeconds, 0.5);
}

TEST(UpdateSettings, EmptyVariablesChangeNothing) {
    const auto settings = withEnvironmentOverrides(
        configured, FakeEnvironment{{{"VORNIX_UPDATE_FEED_URL", ""}, {"VORNIX_UPDATE_TIMEOUT", ""}}});
    EXPECT_EQ(settings.feedUrl, configured.feedUrl);
    EXPECT_EQ(settings.timeoutSeconds, 30.0);
}

TEST(UpdateSettings, ATimeOutThatIsNotAPositiveNumberIsIgnoredWithOneLine) {
    for (const char* bad : {"soon", "-1", "0", "2s", "100000"}) {
        ::testing::internal::CaptureStdout();
        const auto settings = withEnvironmentOverrides(configured, FakeEnvironment{{{"VORNIX_UPDATE_TIMEOUT", bad}}});
        const std::string output = ::testing::internal::GetCapturedStdout();
        EXPECT_EQ(settings.timeoutSeconds, 30.0) << bad;
        EXPECT_EQ(output, std::string("Ignoring VORNIX_UPDATE_TIMEOUT=") + bad +
                              ": not a number of seconds between 0 and 3600\n");
    }
}

}  // namespace
