#include "launch_agent/XdgAutostartJobManager.hpp"

#include <chrono>
#include <filesystem>
#include <string>
#include <thread>

#include <gtest/gtest.h>

#include "launch_agent/AutostartEntry.hpp"
#include "launch_agent/LaunchControl.hpp"
#include "launch_agent/StartAtLogin.hpp"
#include "launch_agent/tests/LaunchControlTestHome.hpp"
#include "platform/Files.hpp"
#include "plist/PropertyList.hpp"

namespace {

using namespace std::chrono_literals;
using vornix::launch_agent::AgentStatus;
using vornix::launch_agent::JobManager;
using vornix::launch_agent::LaunchAgent;
using vornix::launch_agent::LaunchControl;
using vornix::launch_agent::StartAtLogin;
using vornix::launch_agent::XdgAutostartJobManager;
using vornix::launch_agent::testing::LaunchControlTestHome;
using vornix::platform::readWholeFile;
using vornix::platform::writeWholeFile;
namespace fs = std::filesystem;

// A test home with the autostart job manager installed over <home>/config/autostart.
class AutostartHome : public LaunchControlTestHome {
public:
    fs::path autostartFolder() const { return home().path() / "config" / "autostart"; }
    fs::path entry(const std::string& label) const { return autostartFolder() / (label + ".desktop"); }

    // Writes `agent` as a job file and returns its path.
    fs::path jobFile(LaunchAgent& agent) {
        LaunchControl::shared().write(agent);
        return *agent.url;
    }

    fs::path configFolder = home().path() / "config";
    XdgAutostartJobManager manager{[this] { return configFolder / "autostart"; }};

private:
    vornix::platform::ScopedPort<JobManager> port_{&manager};
};

std::string printedBy(auto&& operation) {
    testing::internal::CaptureStdout();
    operation();
    return testing::internal::GetCapturedStdout();
}

bool becomes(auto&& condition, std::chrono::seconds within = 10s) {
    const auto deadline = std::chrono::steady_clock::now() + within;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) {
            return false;
        }
        std::this_thread::sleep_for(2ms);
    }
    return true;
}

TEST(XdgAutostartJobManager, LoadingAJobThatRunsAtLoadWritesItsEntryMakingTheFolder) {
    AutostartHome home;
    LaunchAgent agent("com.example.job", "/usr/bin/tool", "a b");
    agent.runAtLoad = true;
    home.manager.load(home.jobFile(agent));
    EXPECT_EQ(readWholeFile(home.entry("com.example.job")), vornix::launch_agent::autostartEntryFor(agent).text);
    EXPECT_EQ(vornix::platform::visibleEntries(home.autostartFolder()).size(), 1u);
    EXPECT_EQ(fs::directory_iterator(home.autostartFolder())->path(), home.entry("com.example.job"));
}

TEST(XdgAutostartJobManager, LoadingAJobThatDoesNotRunAtLoadOrIsDisabledRemovesItsEntry) {
    AutostartHome home;
    LaunchAgent agent("com.example.job", "/usr/bin/tool");
    agent.runAtLoad = true;
    home.manager.load(home.jobFile(agent));
    agent.runAtLoad = false;
    home.manager.load(home.jobFile(agent));
    EXPECT_FALSE(fs::exists(home.entry("com.example.job")));

    agent.runAtLoad = true;
    home.manager.load(home.jobFile(agent));
    agent.disabled = true;
    home.manager.load(home.jobFile(agent));
    EXPECT_FALSE(fs::exists(home.entry("com.example.job")));

    agent.runAtLoad.reset();
    agent.disabled.reset();
    home.manager.load(home.jobFile(agent));
    EXPECT_FALSE(fs::exists(home.entry("com.example.job")));
}

TEST(XdgAutostartJobManager, UnloadingRemovesTheEntryAndAnEntryAlreadyGoneIsFine) {
    AutostartHome home;
    LaunchAgent agent("com.example.job", "/usr/bin/tool");
    agent.runAtLoad = true;
    const fs::path file = home.jobFile(agent);
    home.manager.load(file);
    home.manager.unload(file);
    EXPECT_FALSE(fs::exists(home.entry("com.example.job")));
    EXPECT_NO_THROW(home.manager.unload(file));
}

TEST(XdgAutostartJobManager, AJobFileThatCannotBeReadIsTheReadError) {
    AutostartHome home;
    EXPECT_THROW(home.manager.load(home.agentFile("missing.plist")), vornix::platform::FileError);
    writeWholeFile(home.agentFile("bad.plist"), "not a property list");
    EXPECT_THROW(home.manager.load(home.agentFile("bad.plist")), vornix::plist::DecodingError);
}

TEST(XdgAutostartJobManager, KeysTheEntryCannotExpressAreNamedInOneLineAndTheJobStillStartsAtLogin) {
    AutostartHome home;
    LaunchAgent agent("com.example.job", "/usr/bin/tool");
    agent.runAtLoad = true;
    agent.keepAlive = true;
    agent.startInterval = 300;
    const fs::path file = home.jobFile(agent);
    EXPECT_EQ(printedBy([&] { home.manager.load(file); }),
              "The autostart entry of com.example.job starts it at login and ignores: StartInterval KeepAlive\n");
    EXPECT_TRUE(fs::exists(home.entry("com.example.job")));
}

TEST(XdgAutostartJobManager, AFolderThatCannotBeMadeIsAFileSystemError) {
    AutostartHome home;
    writeWholeFile(home.home().path() / "plain-file", "");
    home.configFolder = home.home().path() / "plain-file";
    LaunchAgent agent("com.example.job", "/usr/bin/tool");
    agent.runAtLoad = true;
    EXPECT_THROW(home.manager.load(home.jobFile(agent)), vornix::platform::FileError);
}

TEST(XdgAutostartJobManager, AnEntryThatCannotBeReplacedLeavesWhatWasThereAndNoStrayFile) {
    AutostartHome home;
    // A folder where the entry goes: nothing can be renamed over it.
    fs::create_directories(home.entry("com.example.job") / "kept");
    LaunchAgent agent("com.example.job", "/usr/bin/tool");
    agent.runAtLoad = true;
    EXPECT_THROW(home.manager.load(home.jobFile(agent)), vornix::platform::FileError);
    EXPECT_TRUE(fs::exists(home.entry("com.example.job") / "kept"));
    EXPECT_EQ(std::distance(fs::directory_iterator(home.autostartFolder()), fs::directory_iterator()), 1);
}

TEST(XdgAutostartJobManager, StatusIsUnloadedWithoutEntryLoadedWithOne) {
    AutostartHome home;
    LaunchAgent agent("com.example.job", "/usr/bin/tool");
    EXPECT_EQ(home.manager.status(agent), AgentStatus::unloaded());
    agent.runAtLoad = true;
    home.manager.load(home.jobFile(agent));
    EXPECT_EQ(home.manager.status(agent), AgentStatus::loaded());
}

TEST(XdgAutostartJobManager, StartRunsTheProgramWhichIsRunningUntilStopEndsIt) {
    AutostartHome home;
    const LaunchAgent agent("com.example.sleeper", "/bin/sleep", "60");
    home.manager.start(agent);
    const AgentStatus running = home.manager.status(agent);
    ASSERT_EQ(running.kind(), AgentStatus::Case::running);
    // A second start while it runs starts nothing new.
    home.manager.start(agent);
    EXPECT_EQ(home.manager.status(agent), running);
    home.manager.stop(agent);
    EXPECT_TRUE(becomes([&] { return home.manager.status(agent) == AgentStatus::unloaded(); }));
}

TEST(XdgAutostartJobManager, StartGivesTheProgramItsWorkingDirectoryAndEnvironment) {
    AutostartHome home;
    const fs::path output = home.home().path() / "seen";
    LaunchAgent agent("com.example.writer", "/bin/sh", "-c",
                      "pwd -P > \"$OUT.part\"; echo \"$GREETING\" >> \"$OUT.part\"; mv \"$OUT.part\" \"$OUT\"");
    agent.workingDirectory = home.agentsFolder().string();
    agent.environmentVariables =
        std::map<std::string, std::string>{{"OUT", output.string()}, {"GREETING", "hello there"}};
    home.manager.start(agent);
    ASSERT_TRUE(becomes([&] { return fs::exists(output); }));
    EXPECT_EQ(readWholeFile(output), fs::canonical(home.agentsFolder()).string() + "\nhello there\n");
}

TEST(XdgAutostartJobManager, AProgramThatCannotStartGoesUnnoticed) {
    AutostartHome home;
    const LaunchAgent agent("com.example.none", "/nonexistent/tool");
    EXPECT_NO_THROW(home.manager.start(agent));
    EXPECT_EQ(home.manager.status(agent), AgentStatus::unloaded());
    EXPECT_NO_THROW(home.manager.stop(agent));
}

TEST(XdgAutostartJobManager, StartsAtLoginOnlyWithRunAtLoadAndAnEnabledEntry) {
    AutostartHome home;
    LaunchAgent agent("com.example.job", "/usr/bin/tool");
    agent.runAtLoad = true;
    EXPECT_FALSE(home.manager.startsAtLogin(agent));
    home.manager.load(home.jobFile(agent));
    EXPECT_TRUE(home.manager.startsAtLogin(agent));

    LaunchAgent off = agent;
    off.runAtLoad = false;
    EXPECT_FALSE(home.manager.startsAtLogin(off));
    off.runAtLoad = true;
    off.disabled = true;
    EXPECT_FALSE(home.manager.startsAtLogin(off));

    const std::string text = readWholeFile(home.entry("com.example.job"));
    writeWholeFile(home.entry("com.example.job"), text + "Hidden=true\n");
    EXPECT_FALSE(home.manager.startsAtLogin(agent));
    std::string switchedOff = text;
    switchedOff.replace(switchedOff.find("X-GNOME-Autostart-enabled=true"), 30, "X-GNOME-Autostart-enabled=false");
    writeWholeFile(home.entry("com.example.job"), switchedOff);
    EXPECT_FALSE(home.manager.startsAtLogin(agent));
    fs::remove(home.entry("com.example.job"));
    EXPECT_FALSE(home.manager.startsAtLogin(agent));
}

TEST(XdgAutostartJobManager, TheSwitchTurnsTheEntryOnAndOffThroughStartAtLogin) {
    AutostartHome home;
    StartAtLogin startAtLogin;
    startAtLogin.launchAgent = std::make_shared<LaunchAgent>("com.vornix.os.launch", "/usr/bin/vornix-host");
    EXPECT_EQ(printedBy([&] { startAtLogin.loadLaunchAgent(); }), "");
    const std::string entry = readWholeFile(home.entry("com.vornix.os.launch"));
    EXPECT_NE(entry.find("\nExec=/usr/bin/vornix-host\n"), std::string::npos);
    EXPECT_TRUE(LaunchControl::shared().startsAtLogin(*startAtLogin.launchAgent));

    EXPECT_EQ(printedBy([&] { startAtLogin.unloadLaunchAgent(); }), "");
    EXPECT_FALSE(fs::exists(home.entry("com.vornix.os.launch")));

    // Removed by hand, then on again: the entry is back.
    startAtLogin.loadLaunchAgent();
    fs::remove(home.entry("com.vornix.os.launch"));
    const auto onDisk = LaunchControl::shared().readAgent("com.vornix.os.launch.plist");
    EXPECT_FALSE(LaunchControl::shared().startsAtLogin(*onDisk));
    startAtLogin.loadLaunchAgent();
    EXPECT_TRUE(fs::exists(home.entry("com.vornix.os.launch")));
}

TEST(XdgAutostartJobManager, AnEntrySwitchedOffInTheDesktopsSettingsIsWrittenAfreshWhenTurnedOnAgain) {
    AutostartHome home;
    StartAtLogin startAtLogin;
    startAtLogin.launchAgent = std::make_shared<LaunchAgent>("com.vornix.os.launch", "/usr/bin/vornix-host");
    startAtLogin.loadLaunchAgent();
    const std::string written = readWholeFile(home.entry("com.vornix.os.launch"));
    std::string gnomeOff = written;
    gnomeOff.replace(gnomeOff.find("X-GNOME-Autostart-enabled=true"), 30, "X-GNOME-Autostart-enabled=false");
    for (const std::string& switchedOff : {written + "Hidden=true\n", gnomeOff}) {
        writeWholeFile(home.entry("com.vornix.os.launch"), switchedOff);
        const auto onDisk = LaunchControl::shared().readAgent("com.vornix.os.launch.plist");
        EXPECT_FALSE(LaunchControl::shared().startsAtLogin(*onDisk));
        startAtLogin.loadLaunchAgent();
        EXPECT_EQ(readWholeFile(home.entry("com.vornix.os.launch")), written);
        EXPECT_TRUE(LaunchControl::shared().startsAtLogin(*onDisk));
    }
}

TEST(XdgAutostartJobManager, AnAutostartFolderThatCannotBeWrittenIsTheOneLineDiagnosticAndKeepsTheJobFile) {
    AutostartHome home;
    writeWholeFile(home.home().path() / "plain-file", "");
    home.configFolder = home.home().path() / "plain-file";
    StartAtLogin startAtLogin;
    startAtLogin.launchAgent = std::make_shared<LaunchAgent>("com.vornix.os.launch", "/usr/bin/vornix-host");
    const std::string printed = printedBy([&] { startAtLogin.loadLaunchAgent(); });
    EXPECT_TRUE(printed.starts_with("Unable to load LaunchAgent: ")) << printed;
    EXPECT_EQ(std::count(printed.begin(), printed.end(), '\n'), 1);
    EXPECT_TRUE(LaunchControl::shared().readAgent("com.vornix.os.launch.plist")->runAtLoad.value_or(false));
}

}  // namespace
