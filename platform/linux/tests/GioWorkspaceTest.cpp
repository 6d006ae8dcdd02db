#include "platform/linux/GioWorkspace.hpp"

#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

namespace vornix::platform::linux {
namespace {

namespace fs = std::filesystem;

// A private data folder with one desktop entry handling a test scheme; GIO reads XDG_DATA_HOME
// and XDG_DATA_DIRS when it first looks, so each test runs the lookups in a child process.
class GioWorkspaceTest : public ::testing::Test {
protected:
    GioWorkspaceTest() {
        char pattern[] = "/tmp/vornix-workspace-XXXXXX";
        root_ = mkdtemp(pattern);
        fs::create_directories(root_ / "data" / "applications");
        fs::create_directories(root_ / "config");
    }
    ~GioWorkspaceTest() override { fs::remove_all(root_); }

    void isolate() {
        setenv("XDG_DATA_HOME", (root_ / "data").c_str(), 1);
        setenv("XDG_DATA_DIRS", (root_ / "none").c_str(), 1);
        setenv("XDG_CONFIG_HOME", (root_ / "config").c_str(), 1);
        setenv("XDG_CONFIG_DIRS", (root_ / "none").c_str(), 1);
    }

    fs::path writeEntry(const std::string& name, const std::string& exec) {
        const fs::path entry = root_ / "data" / "applications" / name;
        std::ofstream(entry) << "[Desktop Entry]\nType=Application\nName=Companion\nExec=" << exec
                             << "\nMimeType=x-scheme-handler/vornix-test-companion;\n";
        std::ofstream(root_ / "config" / "mimeapps.list")
            << "[Default Applications]\nx-scheme-handler/vornix-test-companion=" << name << "\n";
        return entry;
    }

    fs::path root_;
};

TEST_F(GioWorkspaceTest, ASchemeWithoutAnyHandlerHasNoApplication) {
    EXPECT_EXIT(
        {
            isolate();
            GioWorkspace workspace;
            std::exit(workspace.urlForApplication(*url::URL::parse("vornix-test-nobody://")) ? 1 : 0);
        },
        ::testing::ExitedWithCode(0), "");
}

TEST_F(GioWorkspaceTest, TheApplicationForASchemeIsTheFileUrlOfItsDesktopEntry) {
    const fs::path entry = writeEntry("companion.desktop", "/bin/true %u");
    EXPECT_EXIT(
        {
            isolate();
            GioWorkspace workspace;
            const auto location = workspace.urlForApplication(*url::URL::parse("vornix-test-companion://"));
            std::exit(location && location->absoluteString() == "file://" + entry.string() ? 0 : 1);
        },
        ::testing::ExitedWithCode(0), "");
}

TEST_F(GioWorkspaceTest, OpeningAnApplicationsLocationStartsTheApplication) {
    const fs::path started = root_ / "started";
    const fs::path entry = writeEntry("companion.desktop", "/bin/touch " + started.string());
    EXPECT_EXIT(
        {
            isolate();
            GioWorkspace workspace;
            std::exit(workspace.open(*url::URL::parse("file://" + entry.string())) ? 0 : 1);
        },
        ::testing::ExitedWithCode(0), "");
    for (int i = 0; i < 500 && !fs::exists(started); ++i) {
        usleep(10000);
    }
    EXPECT_TRUE(fs::exists(started));
}

}  // namespace
}  // namespace vornix::platform::linux
