#include "launch_agent/StartAtLogin.hpp"

#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "launch_agent/LaunchControl.hpp"
#include "launch_agent/tests/LaunchControlTestHome.hpp"
#include "platform/Files.hpp"
#include "plist/PropertyList.hpp"

namespace {

using vornix::launch_agent::LaunchAgent;
using vornix::launch_agent::LaunchControl;
using vornix::launch_agent::StartAtLogin;
using vornix::launch_agent::testing::LaunchControlTestHome;
using vornix::platform::Invocation;
using vornix::platform::readWholeFile;
using vornix::platform::writeWholeFile;

const std::vector<std::string> defaultProgram{"/usr/bin/open", "-W", "/Applications/Vornix OS.app"};

std::filesystem::path jobFile(const LaunchControlTestHome& home) { return home.agentFile("com.vornix.os.launch.plist"); }

vornix::plist::Dictionary fileDictionary(const std::filesystem::path& file) {
    return *vornix::plist::decode<vornix::plist::Value>(readWholeFile(file)).get<vornix::plist::Dictionary>();
}

std::string printedBy(auto&& operation) {
    testing::internal::CaptureStdout();
    operation();
    return testing::internal::GetCapturedStdout();
}

TEST(StartAtLogin, SharedIsOneInstance) { EXPECT_EQ(&StartAtLogin::shared(), &StartAtLogin::shared()); }

TEST(StartAtLogin, TheBuiltInJobOpensTheApplicationAndLeavesEverythingElseAbsent) {
    const StartAtLogin startAtLogin;
    const LaunchAgent& agent = *startAtLogin.launchAgent;
    EXPECT_EQ(agent.label, "com.vornix.os.launch");
    EXPECT_EQ(agent.programArguments, defaultProgram);
    EXPECT_FALSE(agent.program);
    EXPECT_FALSE(agent.runAtLoad);
    EXPECT_FALSE(agent.keepAlive);
    EXPECT_FALSE(agent.url);
}

TEST(StartAtLogin, FirstUseOnACleanAccountWritesTheDefaultJobWithRunAtLoadThenLoadsIt) {
    LaunchControlTestHome home;
    StartAtLogin startAtLogin;
    EXPECT_EQ(printedBy([&] { startAtLogin.loadLaunchAgent(); }), "");

    const auto file = jobFile(home);
    const vornix::plist::Dictionary written = fileDictionary(file);
    EXPECT_EQ(written, vornix::plist::Dictionary::fromEntries({
                           {"Label", "com.vornix.os.launch"},
                           {"ProgramArguments", vornix::plist::Array{"/usr/bin/open", "-W", "/Applications/Vornix OS.app"}},
                           {"RunAtLoad", true},
                       }));
    EXPECT_EQ(home.processes.launches(), (std::vector<Invocation>{{"/bin/launchctl", {"load", file.string()}}}));
    EXPECT_EQ(startAtLogin.launchAgent->url, file);
}

TEST(StartAtLogin, UnloadAfterLoadUnloadsTheSamePathAndLeavesTheFileWithRunAtLoadFalse) {
    LaunchControlTestHome home;
    StartAtLogin startAtLogin;
    startAtLogin.loadLaunchAgent();
    EXPECT_EQ(printedBy([&] { startAtLogin.unloadLaunchAgent(); }), "");

    const auto file = jobFile(home);
    EXPECT_EQ(home.processes.launches(), (std::vector<Invocation>{{"/bin/launchctl", {"load", file.string()}},
                                                                  {"/bin/launchctl", {"unload", file.string()}}}));
    const vornix::plist::Dictionary written = fileDictionary(file);
    const vornix::plist::Value* runAtLoad = written.find("RunAtLoad");
    ASSERT_NE(runAtLoad, nullptr);
    EXPECT_EQ(*runAtLoad, vornix::plist::Value(false));
    EXPECT_EQ(LaunchControl::shared().readFrom(file)->programArguments, defaultProgram);
}

TEST(StartAtLogin, UnloadWithNoJobFilePrintsTheReadErrorAndWritesNothing) {
    LaunchControlTestHome home;
    StartAtLogin startAtLogin;
    const std::string printed = printedBy([&] { startAtLogin.unloadLaunchAgent(); });

    std::string readError;
    try {
        readWholeFile(jobFile(home));
    } catch (const vornix::platform::FileError& error) {
        readError = error.what();
    }
    EXPECT_EQ(printed, "Unable to unload LaunchAgent: " + readError + "\n");
    EXPECT_FALSE(std::filesystem::exists(jobFile(home)));
    EXPECT_TRUE(std::filesystem::is_empty(home.agentsFolder()));
    EXPECT_TRUE(home.processes.launches().empty());
}

TEST(StartAtLogin, AHandEditedJobFileSurvivesALaterLoadWithOnlyRunAtLoadChanged) {
    LaunchControlTestHome home;
    writeWholeFile(jobFile(home), R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<dict>
	<key>Label</key>
	<string>com.vornix.os.launch</string>
	<key>ProgramArguments</key>
	<array>
		<string>/usr/bin/open</string>
		<string>-W</string>
		<string>/Applications/Vornix OS.app</string>
	</array>
	<key>EnvironmentVariables</key>
	<dict>
		<key>VORNIX_PORT</key>
		<string>7777</string>
	</dict>
	<key>RunAtLoad</key>
	<false/>
	<key>AddedByHand</key>
	<string>not a launchd key the record knows</string>
</dict>
</plist>
)");
    StartAtLogin startAtLogin;
    startAtLogin.loadLaunchAgent();

    EXPECT_EQ(fileDictionary(jobFile(home)),
              vornix::plist::Dictionary::fromEntries({
                  {"Label", "com.vornix.os.launch"},
                  {"ProgramArguments", vornix::plist::Array{"/usr/bin/open", "-W", "/Applications/Vornix OS.app"}},
                  {"EnvironmentVariables", vornix::plist::Dictionary::fromEntries({{"VORNIX_PORT", "7777"}})},
                  {"RunAtLoad", true},
              }));
    ASSERT_TRUE(startAtLogin.launchAgent->environmentVariables);
    EXPECT_EQ(startAtLogin.launchAgent->environmentVariables->at("VORNIX_PORT"), "7777");
}

TEST(StartAtLogin, TheJobFileReplacesTheBuiltInJobForGood) {
    LaunchControlTestHome home;
    LaunchAgent edited("com.vornix.os.launch", "/opt/vornix/bin/start");
    edited.keepAlive = true;
    writeWholeFile(jobFile(home), vornix::plist::encode(edited));
    StartAtLogin startAtLogin;
    startAtLogin.loadLaunchAgent();
    std::filesystem::remove(jobFile(home));
    startAtLogin.loadLaunchAgent();

    const auto reloaded = LaunchControl::shared().readFrom(jobFile(home));
    EXPECT_EQ(reloaded->program, "/opt/vornix/bin/start");
    EXPECT_EQ(reloaded->keepAlive, true);
    EXPECT_EQ(reloaded->runAtLoad, true);
}

TEST(StartAtLogin, ACorruptJobFileIsOverwrittenByLoadWithTheBuiltInJob) {
    LaunchControlTestHome home;
    writeWholeFile(jobFile(home), "<plist><dict><key>Label</key>");
    StartAtLogin startAtLogin;
    EXPECT_EQ(printedBy([&] { startAtLogin.loadLaunchAgent(); }), "");

    EXPECT_EQ(fileDictionary(jobFile(home)),
              vornix::plist::Dictionary::fromEntries({
                  {"Label", "com.vornix.os.launch"},
                  {"ProgramArguments", vornix::plist::Array{"/usr/bin/open", "-W", "/Applications/Vornix OS.app"}},
                  {"RunAtLoad", true},
              }));
    EXPECT_EQ(home.processes.launches(),
              (std::vector<Invocation>{{"/bin/launchctl", {"load", jobFile(home).string()}}}));
}

TEST(StartAtLogin, ACorruptJobFileMakesUnloadPrintTheDecodeError) {
    LaunchControlTestHome home;
    const std::string corrupt = "<plist><dict><key>Label</key>";
    writeWholeFile(jobFile(home), corrupt);
    StartAtLogin startAtLogin;
    const std::string printed = printedBy([&] { startAtLogin.unloadLaunchAgent(); });

    std::string decodeError;
    try {
        LaunchControl::shared().decoder.decode(corrupt);
    } catch (const vornix::plist::DecodingError& error) {
        decodeError = error.what();
    }
    ASSERT_FALSE(decodeError.empty());
    EXPECT_EQ(printed, "Unable to unload LaunchAgent: " + decodeError + "\n");
    EXPECT_EQ(readWholeFile(jobFile(home)), corrupt);
    EXPECT_TRUE(home.processes.launches().empty());
}

TEST(StartAtLogin, AFailedWritePrintsUnableToLoadAndLoadsNothing) {
    LaunchControlTestHome home;
    std::filesystem::remove(home.agentsFolder());
    StartAtLogin startAtLogin;
    const std::string printed = printedBy([&] { startAtLogin.loadLaunchAgent(); });
    EXPECT_TRUE(printed.starts_with("Unable to load LaunchAgent: ")) << printed;
    EXPECT_NE(printed.find("No such file or directory"), std::string::npos) << printed;
    EXPECT_EQ(printed.find('\n'), printed.size() - 1) << printed;
    EXPECT_TRUE(home.processes.launches().empty());
    EXPECT_EQ(startAtLogin.launchAgent->runAtLoad, true);
    EXPECT_FALSE(startAtLogin.launchAgent->url);
}

TEST(StartAtLogin, AJobManagerThatCannotBeStartedGoesUnnoticedAndTheFileIsWritten) {
    LaunchControlTestHome home;
    home.processes.treatAsMissing("/bin/launchctl");
    StartAtLogin startAtLogin;
    const std::string printed = printedBy([&] { startAtLogin.loadLaunchAgent(); });
    EXPECT_EQ(printed, "");
    EXPECT_TRUE(std::filesystem::exists(jobFile(home)));
}

// Looks at the job file at the moment "/bin/launchctl" is started, to tell the orders apart.
class FileWatchingProcesses : public vornix::platform::doubles::RecordingProcesses {
public:
    explicit FileWatchingProcesses(std::filesystem::path file) : file_(std::move(file)) {}
    void launch(const Invocation& invocation) override {
        fileAtLaunch.push_back(std::filesystem::exists(file_) ? readWholeFile(file_) : std::string("(none)"));
        RecordingProcesses::launch(invocation);
    }
    std::vector<std::string> fileAtLaunch;

private:
    std::filesystem::path file_;
};

TEST(StartAtLogin, LoadWritesBeforeItLoadsAndUnloadUnloadsBeforeItWrites) {
    LaunchControlTestHome home;
    FileWatchingProcesses processes(jobFile(home));
    vornix::platform::ScopedPort<vornix::platform::Processes> port(&processes);
    StartAtLogin startAtLogin;
    startAtLogin.loadLaunchAgent();
    const std::string loaded = readWholeFile(jobFile(home));
    startAtLogin.unloadLaunchAgent();

    ASSERT_EQ(processes.fileAtLaunch.size(), 2u);
    EXPECT_EQ(processes.fileAtLaunch[0], loaded);  // written, with RunAtLoad true, before "load"
    EXPECT_EQ(processes.fileAtLaunch[1], loaded);  // still so when "unload" starts
    EXPECT_NE(readWholeFile(jobFile(home)), loaded);
}

TEST(StartAtLogin, ReplacingTheBuiltInProgramChangesTheJobAndAJobFileThatStillNamesIt) {
    LaunchControlTestHome home;
    StartAtLogin startAtLogin;
    startAtLogin.loadLaunchAgent();
    LaunchAgent edited = *LaunchControl::shared().readAgent("com.vornix.os.launch.plist");
    edited.environmentVariables = std::map<std::string, std::string>{{"KEPT", "yes"}};
    LaunchControl::shared().write(edited);

    StartAtLogin later;
    later.replaceBuiltInProgram("/usr/local/bin/vornix-host");
    EXPECT_EQ(later.launchAgent->program, "/usr/local/bin/vornix-host");
    EXPECT_FALSE(later.launchAgent->programArguments);
    const auto file = LaunchControl::shared().readAgent("com.vornix.os.launch.plist");
    EXPECT_EQ(file->program, "/usr/local/bin/vornix-host");
    EXPECT_FALSE(file->programArguments);
    EXPECT_EQ(file->runAtLoad, true);
    EXPECT_EQ(file->environmentVariables->at("KEPT"), "yes");
}

TEST(StartAtLogin, AJobFileWithAProgramOfItsOwnKeepsItWhenTheBuiltInOneIsReplaced) {
    LaunchControlTestHome home;
    LaunchAgent own("com.vornix.os.launch", "/opt/custom/start", "--quiet");
    LaunchControl::shared().write(own);
    const std::string before = readWholeFile(jobFile(home));
    StartAtLogin().replaceBuiltInProgram("/usr/bin/vornix-host");
    EXPECT_EQ(readWholeFile(jobFile(home)), before);
}

TEST(StartAtLogin, ReplacingTheBuiltInProgramWithoutAJobFileWritesNothing) {
    LaunchControlTestHome home;
    StartAtLogin().replaceBuiltInProgram("/usr/bin/vornix-host");
    EXPECT_FALSE(std::filesystem::exists(jobFile(home)));
}

}  // namespace
