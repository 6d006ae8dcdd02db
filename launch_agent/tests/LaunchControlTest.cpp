#include "launch_agent/LaunchControl.hpp"

#include <sys/stat.h>

#include <memory>
#include <string>
#include <system_error>
#include <vector>

#include <gtest/gtest.h>

#include "launch_agent/tests/LaunchControlTestHome.hpp"
#include "platform/Files.hpp"
#include "platform/doubles/FixedDirectories.hpp"
#include "plist/DecodingError.hpp"
#include "plist/EncodingError.hpp"
#include "plist/PropertyList.hpp"

namespace {

using vornix::launch_agent::AgentStatus;
using vornix::launch_agent::LaunchAgent;
using vornix::launch_agent::LaunchControl;
using vornix::launch_agent::LaunchControlError;
using vornix::launch_agent::testing::LaunchControlTestHome;
using vornix::platform::Invocation;
using vornix::platform::readWholeFile;

std::string jobFileText(const std::string& label) {
    return vornix::plist::encode(LaunchAgent(label, "/usr/bin/true"));
}

const LaunchControl& control() { return LaunchControl::shared(); }

TEST(LaunchControl, SharedIsOneInstance) { EXPECT_EQ(&LaunchControl::shared(), &LaunchControl::shared()); }

TEST(LaunchControl, TheAgentsFolderIsLaunchAgentsInTheLibraryFolderAndIsNotCreated) {
    LaunchControlTestHome home;
    std::filesystem::remove(home.agentsFolder());
    EXPECT_EQ(control().launchAgentsURL(), home.agentsFolder());
    EXPECT_FALSE(std::filesystem::exists(home.agentsFolder()));
}

TEST(LaunchControl, AFailedLibraryLookupReachesTheCaller) {
    LaunchControlTestHome home;
    vornix::platform::doubles::FixedDirectories none;
    vornix::platform::ScopedPort<vornix::platform::Directories> port(&none);
    EXPECT_THROW(control().launchAgentsURL(), vornix::platform::FileError);
    LaunchAgent agent("com.example.job", "/usr/bin/true");
    EXPECT_THROW(control().write(agent), vornix::platform::FileError);
    EXPECT_FALSE(agent.url);
}

TEST(LaunchControl, AnAgentWrittenByLabelLandsInItsPlistFileInLaunchAgentsAsXml) {
    LaunchControlTestHome home;
    LaunchAgent agent("com.example.job", "/usr/bin/true");
    agent.runAtLoad = true;
    control().write(agent);

    const auto file = home.agentFile("com.example.job.plist");
    ASSERT_EQ(agent.url, file);
    const std::string text = readWholeFile(file);
    EXPECT_TRUE(text.starts_with("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n")) << text;
    EXPECT_NE(text.find("<plist version=\"1.0\">"), std::string::npos) << text;
    const auto dictionary = vornix::plist::decode<vornix::plist::Value>(text);
    ASSERT_NE(dictionary.get<vornix::plist::Dictionary>(), nullptr);
    EXPECT_EQ(dictionary.get<vornix::plist::Dictionary>()->size(), 3u);
    EXPECT_EQ(control().readFrom(file)->program, "/usr/bin/true");
}

TEST(LaunchControl, WriteCalledAddsThePlistExtensionOnlyWhenItIsNotExactlyThere) {
    LaunchControlTestHome home;
    LaunchAgent agent("com.example.job", "/usr/bin/true");
    const std::vector<std::pair<std::string, std::string>> names{
        {"job", "job.plist"}, {"job.plist", "job.plist"}, {"job.txt", "job.txt.plist"}, {"job.PLIST", "job.PLIST.plist"}};
    for (const auto& [name, file] : names) {
        control().writeCalled(agent, name);
        EXPECT_EQ(agent.url, home.agentFile(file)) << name;
        EXPECT_TRUE(std::filesystem::exists(home.agentFile(file))) << name;
    }
    EXPECT_FALSE(std::filesystem::exists(home.agentFile("job")));
    EXPECT_FALSE(std::filesystem::exists(home.agentFile("job.txt")));
}

TEST(LaunchControl, WriteToAddsThePlistExtensionToTheGivenURL) {
    LaunchControlTestHome home;
    LaunchAgent agent("com.example.job", "/usr/bin/true");
    const auto elsewhere = home.home().path() / "elsewhere";
    control().writeTo(agent, elsewhere);
    EXPECT_EQ(agent.url, home.home().path() / "elsewhere.plist");
    EXPECT_EQ(control().readFrom(*agent.url)->label, "com.example.job");
}

TEST(LaunchControl, WritingOverwritesAnExistingFileInPlace) {
    LaunchControlTestHome home;
    const auto file = home.agentFile("com.example.job.plist");
    vornix::platform::writeWholeFile(file, std::string(10000, 'x'));
    LaunchAgent agent("com.example.job", "/usr/bin/true");
    control().write(agent);
    EXPECT_EQ(readWholeFile(file), vornix::plist::encode(agent));
}

TEST(LaunchControl, AFailedWriteLeavesTheURLAsItWas) {
    LaunchControlTestHome home;
    LaunchAgent agent("com.example.job", "/usr/bin/true");
    agent.url = "/kept/as/it/was.plist";
    EXPECT_THROW(control().writeTo(agent, home.agentsFolder() / "missing" / "job"), vornix::platform::FileError);
    EXPECT_EQ(agent.url, "/kept/as/it/was.plist");
}

TEST(LaunchControl, AnAgentThatCannotBeEncodedIsAnEncodingErrorAndNoFile) {
    LaunchControlTestHome home;
    LaunchAgent agent("com.example.job", "/usr/bin/true");
    agent.workingDirectory = std::string("\xff\xfe");
    EXPECT_THROW(control().writeCalled(agent, "job"), vornix::plist::EncodingError);
    EXPECT_FALSE(agent.url);
    EXPECT_FALSE(std::filesystem::exists(home.agentFile("job.plist")));
}

TEST(LaunchControl, ReadAgentReadsTheNameAsGivenWithoutAddingAnExtension) {
    LaunchControlTestHome home;
    vornix::platform::writeWholeFile(home.agentFile("job.plist"), jobFileText("com.example.job"));
    try {
        control().readAgent("job");
        FAIL() << "only job.plist exists";
    } catch (const vornix::platform::FileError& error) {
        EXPECT_EQ(error.code(), std::errc::no_such_file_or_directory);
        EXPECT_EQ(error.path(), home.agentFile("job"));
    }
    const std::shared_ptr<LaunchAgent> agent = control().readAgent("job.plist");
    EXPECT_EQ(agent->label, "com.example.job");
    EXPECT_EQ(agent->url, home.agentFile("job.plist"));
}

TEST(LaunchControl, ReadFromSetsTheURLOfTheNewAgent) {
    LaunchControlTestHome home;
    const auto file = home.home().write("anywhere/job", jobFileText("com.example.job"));
    EXPECT_EQ(control().readFrom(file)->url, file);
}

TEST(LaunchControl, AFileThatHoldsNoJobIsTheDecodersError) {
    LaunchControlTestHome home;
    home.home().write("Library/LaunchAgents/nolabel.plist",
                      vornix::plist::encode(vornix::plist::Value(vornix::plist::Dictionary())));
    home.home().write("Library/LaunchAgents/garbage.plist", "not a property list");
    EXPECT_THROW(control().readAgent("nolabel.plist"), vornix::plist::KeyNotFound);
    EXPECT_THROW(control().readAgent("garbage.plist"), vornix::plist::DecodingError);
}

TEST(LaunchControl, SetURLForFindsTheMatchingFileAmongUnreadableAndForeignOnes) {
    LaunchControlTestHome home;
    std::filesystem::create_symlink(home.agentsFolder() / "nowhere", home.agentFile("broken.plist"));
    std::filesystem::create_directory(home.agentFile("folder.plist"));
    const auto locked = home.home().write("Library/LaunchAgents/locked.plist", "no access");
    ::chmod(locked.c_str(), 0);
    home.home().write("Library/LaunchAgents/notes.txt", "plain text, no property list");
    home.home().write("Library/LaunchAgents/other.plist", jobFileText("com.example.other"));
    home.home().write("Library/LaunchAgents/renamed-by-hand", jobFileText("com.example.job"));

    LaunchAgent agent("com.example.job", "/usr/bin/true");
    EXPECT_NO_THROW(control().setURLFor(agent));
    EXPECT_EQ(agent.url, home.agentFile("renamed-by-hand"));
}

TEST(LaunchControl, SetURLForWithoutAMatchLeavesTheURLAsItWas) {
    LaunchControlTestHome home;
    home.home().write("Library/LaunchAgents/other.plist", jobFileText("com.example.other"));
    LaunchAgent agent("com.example.job", "/usr/bin/true");
    control().setURLFor(agent);
    EXPECT_FALSE(agent.url);
    agent.url = "/kept/as/it/was.plist";
    control().setURLFor(agent);
    EXPECT_EQ(agent.url, "/kept/as/it/was.plist");
}

TEST(LaunchControl, SetURLForTheLastMatchInNameOrderWins) {
    LaunchControlTestHome home;
    home.home().write("Library/LaunchAgents/b.plist", jobFileText("com.example.job"));
    home.home().write("Library/LaunchAgents/a.plist", jobFileText("com.example.job"));
    home.home().write("Library/LaunchAgents/c.plist", jobFileText("com.example.other"));
    LaunchAgent agent("com.example.job", "/usr/bin/true");
    control().setURLFor(agent);
    EXPECT_EQ(agent.url, home.agentFile("b.plist"));
}

TEST(LaunchControl, SetURLForComparesLabelsExactly) {
    LaunchControlTestHome home;
    home.home().write("Library/LaunchAgents/upper.plist", jobFileText("COM.EXAMPLE.JOB"));
    home.home().write("Library/LaunchAgents/longer.plist", jobFileText("com.example.job2"));
    home.home().write("Library/LaunchAgents/.hidden.plist", jobFileText("com.example.job"));
    LaunchAgent agent("com.example.job", "/usr/bin/true");
    control().setURLFor(agent);
    EXPECT_FALSE(agent.url);
}

TEST(LaunchControl, SetURLForAMissingFolderIsTheListingError) {
    LaunchControlTestHome home;
    std::filesystem::remove(home.agentsFolder());
    LaunchAgent agent("com.example.job", "/usr/bin/true");
    EXPECT_THROW(control().setURLFor(agent), vornix::platform::FileError);
}

TEST(LaunchControl, LoadOfAnAgentNeverReadWrittenOrLocatedThrowsUrlNotSet) {
    LaunchControlTestHome home;
    LaunchAgent agent("com.example.job", "/usr/bin/true");
    try {
        control().load(agent);
        FAIL() << "no URL, no load";
    } catch (const LaunchControlError& error) {
        EXPECT_EQ(error.kind(), LaunchControlError::Kind::urlNotSet);
        EXPECT_EQ(error.label(), "com.example.job");
        EXPECT_EQ(error.localizedDescription(), "The URL is not set for agent com.example.job");
        EXPECT_STREQ(error.what(), "The URL is not set for agent com.example.job");
    }
    EXPECT_THROW(control().unload(agent), LaunchControlError);
    EXPECT_TRUE(home.processes.launches().empty());
}

TEST(LaunchControl, LoadAndUnloadStartLaunchctlWithTheJobFilePath) {
    LaunchControlTestHome home;
    LaunchAgent agent("com.example.job", "/usr/bin/true");
    control().write(agent);
    control().load(agent);
    control().unload(agent);
    const std::string path = home.agentFile("com.example.job.plist").string();
    EXPECT_EQ(home.processes.launches(), (std::vector<Invocation>{{"/bin/launchctl", {"load", path}},
                                                                  {"/bin/launchctl", {"unload", path}}}));
}

TEST(LaunchControl, LoadUsesALocatedURL) {
    LaunchControlTestHome home;
    home.home().write("Library/LaunchAgents/by-hand.plist", jobFileText("com.example.job"));
    LaunchAgent agent("com.example.job", "/usr/bin/true");
    control().setURLFor(agent);
    control().load(agent);
    EXPECT_EQ(home.processes.launches(),
              (std::vector<Invocation>{{"/bin/launchctl", {"load", home.agentFile("by-hand.plist").string()}}}));
}

TEST(LaunchControl, StartAndStopStartLaunchctlWithTheLabel) {
    LaunchControlTestHome home;
    LaunchAgent agent("com.example.job", "/usr/bin/true");
    control().start(agent);
    control().stop(agent);
    EXPECT_EQ(home.processes.launches(), (std::vector<Invocation>{{"/bin/launchctl", {"start", "com.example.job"}},
                                                                  {"/bin/launchctl", {"stop", "com.example.job"}}}));
}

TEST(LaunchControl, ALaunchctlThatCannotBeStartedGoesUnnoticed) {
    LaunchControlTestHome home;
    home.processes.treatAsMissing("/bin/launchctl");
    LaunchAgent agent("com.example.job", "/usr/bin/true");
    control().write(agent);
    EXPECT_NO_THROW(control().load(agent));
    EXPECT_NO_THROW(control().unload(agent));
    EXPECT_NO_THROW(control().start(agent));
    EXPECT_NO_THROW(control().stop(agent));
    EXPECT_TRUE(home.processes.launches().empty());
}

TEST(LaunchControl, StatusRunsListThroughGrepForTheLabelAndCut) {
    LaunchControlTestHome home;
    LaunchAgent agent("com.example.job", "/usr/bin/true");
    control().status(agent);
    EXPECT_EQ(home.processes.pipelines(),
              (std::vector<std::vector<Invocation>>{{{"/bin/launchctl", {"list"}},
                                                     {"/usr/bin/grep", {"com.example.job"}},
                                                     {"/usr/bin/cut", {"-f1"}}}}));
    EXPECT_TRUE(home.processes.launches().empty());
}

AgentStatus statusFor(const std::string& output) {
    LaunchControlTestHome home;
    home.processes.answerPipelinesWith(output);
    return control().status(LaunchAgent("com.example.job", "/usr/bin/true"));
}

TEST(LaunchControl, StatusOfADashAndANewlineIsLoaded) { EXPECT_EQ(statusFor("-\n"), AgentStatus::loaded()); }

TEST(LaunchControl, StatusOfEmptyOutputIsUnloaded) { EXPECT_EQ(statusFor(""), AgentStatus::unloaded()); }

TEST(LaunchControl, StatusOfANumberAndANewlineIsRunningWithThatPid) {
    EXPECT_EQ(statusFor("4242\n"), AgentStatus::running(4242));
}

TEST(LaunchControl, StatusTrimsOnlyLineEndsAtEitherEnd) {
    EXPECT_EQ(statusFor("\n\r\n-\r\n\n"), AgentStatus::loaded());
    EXPECT_EQ(statusFor("\n\n"), AgentStatus::unloaded());
    EXPECT_EQ(statusFor("\xE2\x80\xA8" "77\xC2\x85"), AgentStatus::running(77));
}

TEST(LaunchControl, StatusOfOutputThatIsNotUtf8ReadsAsEmptyAndSoUnloaded) {
    EXPECT_EQ(statusFor("4242\xff\n"), AgentStatus::unloaded());
    EXPECT_EQ(statusFor("\xC0\xAF"), AgentStatus::unloaded());  // an overlong "/"
}

TEST(LaunchControl, StatusReadsASignedDecimalPid) {
    EXPECT_EQ(statusFor("+7\n"), AgentStatus::running(7));
    EXPECT_EQ(statusFor("0\n"), AgentStatus::running(0));
    EXPECT_EQ(statusFor("9223372036854775807\n"), AgentStatus::running(9223372036854775807));
}

class LaunchControlDeathTest : public ::testing::Test {
protected:
    void SetUp() override { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

TEST_F(LaunchControlDeathTest, StatusOfTwoMatchingLinesStopsTheProcess) {
    EXPECT_DEATH(statusFor("123\n-\n"), "Fatal error: .*com\\.example\\.job");
}

TEST_F(LaunchControlDeathTest, StatusOfTextThatIsNoNumberStopsTheProcess) {
    EXPECT_DEATH(statusFor("PID\n"), "Fatal error: ");
    EXPECT_DEATH(statusFor(" -\n"), "Fatal error: ");
    EXPECT_DEATH(statusFor("\t4242\n"), "Fatal error: ");
    EXPECT_DEATH(statusFor("42 \n"), "Fatal error: ");
    EXPECT_DEATH(statusFor("+-1\n"), "Fatal error: ");
    EXPECT_DEATH(statusFor("0x10\n"), "Fatal error: ");
    EXPECT_DEATH(statusFor("9223372036854775808\n"), "Fatal error: ");
}

}  // namespace
