#include "launch_agent/AutostartEntry.hpp"

#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "launch_agent/DesktopEntry.hpp"
#include "launch_agent/StartCalendarInterval.hpp"
#include "launch_agent/tests/JobFiles.hpp"
#include "plist/PropertyList.hpp"

namespace {

using vornix::launch_agent::autostartCommandWords;
using vornix::launch_agent::autostartEntryFor;
using vornix::launch_agent::autostartFileName;
using vornix::launch_agent::desktopEntryKeys;
using vornix::launch_agent::DesktopEntryError;
using vornix::launch_agent::jobProgramWords;
using vornix::launch_agent::LaunchAgent;
using Words = std::vector<std::string>;

TEST(AutostartEntry, AJobBecomesOneApplicationEntryThatStartsHiddenFromMenus) {
    const LaunchAgent agent("com.example.job", "/usr/bin/tool", "--flag");
    EXPECT_EQ(autostartEntryFor(agent).text,
              "[Desktop Entry]\n"
              "Type=Application\n"
              "Name=com.example.job\n"
              "Exec=/usr/bin/tool --flag\n"
              "NoDisplay=true\n"
              "X-GNOME-Autostart-enabled=true\n");
    EXPECT_TRUE(autostartEntryFor(agent).ignoredKeys.empty());
}

TEST(AutostartEntry, ProgramArgumentsAreTheCommandWords) {
    const LaunchAgent agent("job", "/opt/Vornix OS/host", "a b");
    EXPECT_EQ(jobProgramWords(agent), (Words{"/opt/Vornix OS/host", "a b"}));
    EXPECT_EQ(desktopEntryKeys(autostartEntryFor(agent).text).at("Exec"), "\"/opt/Vornix OS/host\" \"a b\"");
}

TEST(AutostartEntry, AProgramAloneIsTheOnlyWord) {
    const LaunchAgent agent("job", "/usr/bin/vornix-host");
    ASSERT_TRUE(agent.program);
    EXPECT_EQ(jobProgramWords(agent), Words{"/usr/bin/vornix-host"});
}

TEST(AutostartEntry, ProgramWithProgramArgumentsRunsProgramWithTheArgumentsAfterTheirFirstWord) {
    LaunchAgent agent("job", "name-for-argv0", "--one", "--two");
    agent.program = "/usr/bin/real";
    EXPECT_EQ(jobProgramWords(agent), (Words{"/usr/bin/real", "--one", "--two"}));
}

TEST(AutostartEntry, AJobWithoutAProgramIsRefused) {
    LaunchAgent agent("job", std::vector<std::string>{});
    EXPECT_THROW(autostartEntryFor(agent), DesktopEntryError);
}

TEST(AutostartEntry, TheWorkingDirectoryIsPathEscapedAsAString) {
    LaunchAgent agent("job", "/usr/bin/tool");
    agent.workingDirectory = " /srv/my dir\\x";
    EXPECT_EQ(desktopEntryKeys(autostartEntryFor(agent).text).at("Path"), "\\s/srv/my dir\\\\x");
}

TEST(AutostartEntry, EnvironmentVariablesAreGivenThroughEnvInFrontOfTheProgram) {
    LaunchAgent agent("job", "/usr/bin/tool", "arg");
    agent.environmentVariables = std::map<std::string, std::string>{{"LANG", "C.UTF-8"}, {"MY_VAR", "two words"}};
    EXPECT_EQ(autostartCommandWords(agent),
              (Words{"/usr/bin/env", "LANG=C.UTF-8", "MY_VAR=two words", "/usr/bin/tool", "arg"}));
    EXPECT_EQ(desktopEntryKeys(autostartEntryFor(agent).text).at("Exec"),
              "/usr/bin/env LANG=C.UTF-8 \"MY_VAR=two words\" /usr/bin/tool arg");
}

TEST(AutostartEntry, AProgramWhosePathHoldsAPercentSignIsStartedThroughEnv) {
    const LaunchAgent agent("job", "/opt/100% sure/tool", "50%");
    EXPECT_EQ(autostartCommandWords(agent), (Words{"/usr/bin/env", "/opt/100% sure/tool", "50%"}));
    EXPECT_EQ(desktopEntryKeys(autostartEntryFor(agent).text).at("Exec"), "/usr/bin/env \"/opt/100%% sure/tool\" 50%%");
    EXPECT_THROW(autostartEntryFor(LaunchAgent("job", "/opt/100%=x/tool")), DesktopEntryError);
}

TEST(AutostartEntry, AnEmptyEnvironmentAddsNothing) {
    LaunchAgent agent("job", "/usr/bin/tool");
    agent.environmentVariables.emplace();
    EXPECT_EQ(autostartCommandWords(agent), Words{"/usr/bin/tool"});
}

TEST(AutostartEntry, VariableNamesEnvCannotTakeAndProgramsWithEqualsBehindEnvAreRefused) {
    for (const std::string name : {"", "A=B", "1ST", "-u", "with space"}) {
        LaunchAgent agent("job", "/usr/bin/tool");
        agent.environmentVariables = std::map<std::string, std::string>{{name, "x"}};
        EXPECT_THROW(autostartEntryFor(agent), DesktopEntryError) << name;
    }
    LaunchAgent agent("job", "/opt/a=b/tool");
    EXPECT_NO_THROW(autostartEntryFor(agent));
    agent.environmentVariables = std::map<std::string, std::string>{{"A", "x"}};
    EXPECT_THROW(autostartEntryFor(agent), DesktopEntryError);
}

TEST(AutostartEntry, TheLabelIsTheNameEscapedAsAString) {
    const LaunchAgent agent(" odd\\label", "/usr/bin/tool");
    EXPECT_EQ(desktopEntryKeys(autostartEntryFor(agent).text).at("Name"), "\\sodd\\\\label");
}

TEST(AutostartEntry, KeysAnEntryCannotExpressAreListedInKeyTableOrder) {
    LaunchAgent agent("job", "/usr/bin/tool");
    agent.runAtLoad = true;
    agent.disabled = false;
    agent.workingDirectory = "/tmp";
    agent.environmentVariables = std::map<std::string, std::string>{{"A", "b"}};
    agent.keepAlive = true;
    agent.startInterval = 60;
    agent.startCalendarInterval = std::make_shared<vornix::launch_agent::StartCalendarInterval>();
    agent.standardOutPath = "/tmp/out";
    agent.userName = "root";
    agent.nice = 5;
    EXPECT_EQ(autostartEntryFor(agent).ignoredKeys,
              (Words{"StandardOutPath", "StartInterval", "StartCalendarInterval", "KeepAlive", "UserName", "Nice"}));
}

TEST(AutostartEntry, ProgramWithProgramArgumentsListsArgv0AsIgnored) {
    LaunchAgent agent("job", "name-for-argv0", "--one");
    agent.program = "/usr/bin/real";
    agent.keepAlive = true;
    EXPECT_EQ(autostartEntryFor(agent).ignoredKeys, (Words{"argv[0]", "KeepAlive"}));
}

TEST(AutostartEntry, EveryKeyOfAJobFileIsEitherExpressedOrListed) {
    using vornix::launch_agent::testing::fileBytes;
    using vornix::launch_agent::testing::fixtureFolder;
    const auto agent =
        vornix::plist::decode<std::shared_ptr<LaunchAgent>>(fileBytes(fixtureFolder() / "every_key.plist"));
    // Label, Disabled, Program, ProgramArguments (after its first word), WorkingDirectory,
    // EnvironmentVariables and RunAtLoad are the entry's; the job file has every other key too.
    EXPECT_EQ(autostartEntryFor(*agent).ignoredKeys,
              (Words{"EnableGlobbing",
                     "argv[0]",
                     "StandardInPath",
                     "StandardOutPath",
                     "StandardErrorPath",
                     "StartInterval",
                     "StartCalendarInterval",
                     "StartOnMount",
                     "OnDemand",
                     "KeepAlive",
                     "WatchPaths",
                     "QueueDirectories",
                     "Umask",
                     "SessionCreate",
                     "GroupName",
                     "UserName",
                     "InitGroups",
                     "RootDirectory",
                     "LaunchOnlyOnce",
                     "LimitLoadToSessionType",
                     "LimitLoadToHosts",
                     "LimitLoadFromHosts",
                     "AbandonProcessGroup",
                     "EnablePressuredExit",
                     "EnableTransactions",
                     "ExitTimeOut",
                     "inetdCompatibility",
                     "HardResourceLimits",
                     "SoftResourceLimits",
                     "TimeOut",
                     "ThrottleInterval",
                     "MachServices",
                     "Debug",
                     "WaitForDebugger",
                     "LegacyTimers",
                     "LowPriorityIO",
                     "LowPriorityBackgroundIO",
                     "Nice",
                     "ProcessType"}));
}

TEST(AutostartEntry, ALabelIsTheFileName) {
    EXPECT_EQ(autostartFileName("com.vornix.os.launch"), "com.vornix.os.launch.desktop");
    const std::vector<std::string> notFileNames{"", ".", "..", "a/b", std::string("a\0b", 3)};
    for (const std::string& label : notFileNames) {
        EXPECT_THROW(autostartFileName(label), DesktopEntryError);
    }
}

TEST(AutostartEntry, AnUnwritableTextNamesTheLabel) {
    const LaunchAgent agent("com.example.job", "/usr/bin/tool", "bell\a");
    try {
        autostartEntryFor(agent);
        FAIL() << "no error";
    } catch (const DesktopEntryError& error) {
        EXPECT_NE(std::string(error.what()).find("com.example.job"), std::string::npos);
    }
}

}  // namespace
