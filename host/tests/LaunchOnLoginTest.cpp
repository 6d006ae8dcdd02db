#include <gtest/gtest.h>

#include <atomic>
#include <thread>
#include <vector>

#include "host/ContentView.hpp"
#include "host/HostingController.hpp"
#include "launch_agent/XdgAutostartJobManager.hpp"
#include "launch_agent/tests/LaunchControlTestHome.hpp"
#include "platform/doubles/FakePopovers.hpp"
#include "platform/doubles/FixedDirectories.hpp"
#include "platform/doubles/ManualMainQueue.hpp"

namespace {

using namespace vornix;
using host::ContentView;
using host::HostingController;
using platform::Invocation;
using platform::ScopedPort;

constexpr const char* failurePrefix = "Something went wrong checking the launch agent file:  ";

std::string jobFile(const char* runAtLoad) {
    std::string file =
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" \"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n"
        "<plist version=\"1.0\">\n<dict>\n"
        "\t<key>Label</key>\n\t<string>com.vornix.os.launch</string>\n"
        "\t<key>ProgramArguments</key>\n\t<array>\n\t\t<string>/usr/bin/open</string>\n\t\t<string>-W</string>\n"
        "\t\t<string>/Applications/Vornix OS.app</string>\n\t</array>\n";
    if (runAtLoad != nullptr) {
        file += std::string("\t<key>RunAtLoad</key>\n\t<") + runAtLoad + "/>\n";
    }
    return file + "</dict>\n</plist>\n";
}

class LaunchOnLoginTest : public testing::Test {
protected:
    void writeJobFile(const std::string& contents) {
        home.home().write("Library/LaunchAgents/com.vornix.os.launch.plist", contents);
    }

    // A new view, and what making it wrote to standard output.
    std::pair<ContentView, std::string> makeView() {
        testing::internal::CaptureStdout();
        ContentView view;
        return {view, testing::internal::GetCapturedStdout()};
    }

    launch_agent::testing::LaunchControlTestHome home;
    platform::doubles::ManualMainQueue queue;
    ScopedPort<platform::MainQueue> mainQueue{&queue};
};

TEST_F(LaunchOnLoginTest, WithNoLaunchAgentFileTheSwitchStartsOffAndOneFailureLineIsWritten) {
    auto [view, output] = makeView();
    EXPECT_FALSE(view.runAtLoad.wrappedValue());
    ASSERT_TRUE(output.starts_with(failurePrefix)) << output;
    EXPECT_GT(output.size(), std::string(failurePrefix).size() + 1) << "the error follows";
    EXPECT_EQ(std::count(output.begin(), output.end(), '\n'), 1);
    EXPECT_TRUE(output.ends_with("\n"));
}

TEST_F(LaunchOnLoginTest, WithRunAtLoadAbsentTheSwitchStartsOff) {
    writeJobFile(jobFile(nullptr));
    auto [view, output] = makeView();
    EXPECT_FALSE(view.runAtLoad.wrappedValue());
    EXPECT_EQ(output, "");
}

TEST_F(LaunchOnLoginTest, WithRunAtLoadTrueTheSwitchStartsOn) {
    writeJobFile(jobFile("true"));
    auto [view, output] = makeView();
    EXPECT_TRUE(view.runAtLoad.wrappedValue());
    EXPECT_TRUE(view.body()[1].isOn);
    EXPECT_EQ(output, "");
}

TEST_F(LaunchOnLoginTest, WithRunAtLoadFalseTheSwitchStartsOff) {
    writeJobFile(jobFile("false"));
    auto [view, output] = makeView();
    EXPECT_FALSE(view.runAtLoad.wrappedValue());
    EXPECT_EQ(output, "");
}

TEST_F(LaunchOnLoginTest, WithAnAutostartJobManagerTheSwitchStartsOnOnlyWhileTheEntryIsThereAndEnabled) {
    launch_agent::XdgAutostartJobManager manager([this] { return home.home().path() / "autostart"; });
    ScopedPort<launch_agent::JobManager> port(&manager);
    writeJobFile(jobFile("true"));
    EXPECT_FALSE(makeView().first.runAtLoad.wrappedValue()) << "no entry: nothing starts at login";

    const auto entry = home.home().write("autostart/com.vornix.os.launch.desktop",
                                         "[Desktop Entry]\nType=Application\nName=x\nExec=/usr/bin/true\n"
                                         "X-GNOME-Autostart-enabled=true\n");
    EXPECT_TRUE(makeView().first.runAtLoad.wrappedValue());

    home.home().write("autostart/com.vornix.os.launch.desktop",
                      "[Desktop Entry]\nType=Application\nName=x\nExec=/usr/bin/true\n"
                      "X-GNOME-Autostart-enabled=false\n");
    EXPECT_FALSE(makeView().first.runAtLoad.wrappedValue()) << "switched off in the desktop's settings";
    std::filesystem::remove(entry);
}

TEST_F(LaunchOnLoginTest, AJobFileThatDoesNotDecodeStartsTheSwitchOffWithTheFailureLine) {
    writeJobFile("<plist version=\"1.0\"><dict><key>RunAtLoad</key><true/></dict></plist>");
    auto [view, output] = makeView();
    EXPECT_FALSE(view.runAtLoad.wrappedValue());
    EXPECT_TRUE(output.starts_with(failurePrefix)) << output;
}

TEST_F(LaunchOnLoginTest, WithoutALibraryFolderTheSwitchStartsOffWithTheFailureLine) {
    platform::doubles::FixedDirectories none;
    ScopedPort<platform::Directories> noLibrary(&none);
    auto [view, output] = makeView();
    EXPECT_FALSE(view.runAtLoad.wrappedValue());
    EXPECT_TRUE(output.starts_with(failurePrefix)) << output;
}

TEST_F(LaunchOnLoginTest, TheFileIsReadOnlyWhenTheViewIsMade) {
    auto [view, output] = makeView();
    writeJobFile(jobFile("true"));
    EXPECT_FALSE(view.runAtLoad.wrappedValue());
    EXPECT_FALSE(view.body()[1].isOn);
}

TEST_F(LaunchOnLoginTest, TurningTheSwitchOnLoadsTheLaunchAgentAndShowsItOn) {
    auto [root, output] = makeView();
    platform::doubles::FakePopoverView view;
    HostingController controller(root, view);
    view.toggle(true);
    EXPECT_TRUE(view.row("Launch on Login").isOn);
    const auto file = home.agentFile("com.vornix.os.launch.plist");
    EXPECT_EQ(home.processes.launches(), (std::vector<Invocation>{{"/bin/launchctl", {"load", file.string()}}}));
}

TEST_F(LaunchOnLoginTest, TurningTheSwitchOffUnloadsTheLaunchAgent) {
    writeJobFile(jobFile("true"));
    auto [root, output] = makeView();
    platform::doubles::FakePopoverView view;
    HostingController controller(root, view);
    view.toggle(false);
    EXPECT_FALSE(view.row("Launch on Login").isOn);
    const auto file = home.agentFile("com.vornix.os.launch.plist");
    EXPECT_EQ(home.processes.launches(), (std::vector<Invocation>{{"/bin/launchctl", {"unload", file.string()}}}));
}

TEST_F(LaunchOnLoginTest, TheSwitchKeepsTheNewValueWhenLoadingFails) {
    auto [root, output] = makeView();
    std::filesystem::remove_all(home.agentsFolder());
    platform::doubles::FakePopoverView view;
    HostingController controller(root, view);
    testing::internal::CaptureStdout();
    view.toggle(true);
    EXPECT_TRUE(testing::internal::GetCapturedStdout().starts_with("Unable to load LaunchAgent: "));
    EXPECT_TRUE(view.row("Launch on Login").isOn);
    EXPECT_TRUE(controller.rootView().runAtLoad.wrappedValue());
}

TEST_F(LaunchOnLoginTest, TheSwitchKeepsTheNewValueWhenUnloadingFails) {
    writeJobFile(jobFile("true"));
    auto [root, output] = makeView();
    std::filesystem::remove(home.agentFile("com.vornix.os.launch.plist"));
    platform::doubles::FakePopoverView view;
    HostingController controller(root, view);
    testing::internal::CaptureStdout();
    view.toggle(false);
    EXPECT_TRUE(testing::internal::GetCapturedStdout().starts_with("Unable to unload LaunchAgent: "));
    EXPECT_FALSE(view.row("Launch on Login").isOn);
}

// A Library folder lookup that counts how often it is asked.
class CountingDirectories : public platform::doubles::FixedDirectories {
public:
    using FixedDirectories::FixedDirectories;
    std::string userLibraryFolder() const override {
        ++asked;
        return FixedDirectories::userLibraryFolder();
    }
    mutable std::atomic<int> asked{0};
};

TEST(ContentViewSharedInstanceDeathTest, IsMadeOnceEvenWhenThreadsRaceForIt) {
    // In a fresh process of its own, so that the shared view is not made yet.
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            launch_agent::testing::LaunchControlTestHome home;
            home.home().write("Library/LaunchAgents/com.vornix.os.launch.plist", jobFile("true"));
            CountingDirectories directories(home.home().path() / "Library");
            ScopedPort<platform::Directories> port(&directories);
            std::vector<const ContentView*> seen(8);
            std::vector<std::thread> threads;
            for (auto& slot : seen) {
                threads.emplace_back([&slot] { slot = &ContentView::sharedInstance(); });
            }
            for (auto& thread : threads) {
                thread.join();
            }
            bool same = std::all_of(seen.begin(), seen.end(), [&](const ContentView* view) { return view == seen[0]; });
            bool readOnce = directories.asked == 1;
            bool madeFromTheFile = seen[0]->runAtLoad.wrappedValue();
            std::exit(same && readOnce && madeFromTheFile ? 0 : 1);
        },
        testing::ExitedWithCode(0), "");
}

}  // namespace
