#include "host/MainFlutterWindow.hpp"

#include <gtest/gtest.h>

#include "engine/doubles/InMemoryRegistry.hpp"
#include "platform/doubles/FakeApplication.hpp"
#include "platform/doubles/FixedDirectories.hpp"
#include "platform/doubles/ManualMainQueue.hpp"
#include "platform/doubles/WindowDouble.hpp"

namespace vornix::host {
namespace {

using Window = MainFlutterWindow<platform::doubles::WindowDouble>;

// The UI interactions handler reads the popover's switch from the user's job file when first
// made: a Library folder with no job file in it, and a main queue for the view.
class MainFlutterWindowWaking : public ::testing::Test {
protected:
    platform::doubles::FixedDirectories directories{"/nonexistent/vornix-library"};
    platform::ScopedPort<platform::Directories> directoriesPort{&directories};
    platform::doubles::ManualMainQueue mainQueue;
    platform::ScopedPort<platform::MainQueue> mainQueuePort{&mainQueue};
    engine::doubles::InMemoryRegistry registry;
};

TEST(MainFlutterWindowTest, ConfigureAnswersExactlyThree) {
    Window window;
    EXPECT_EQ(window.bitsdojo_window_configure(), 3u);
}

TEST_F(MainFlutterWindowWaking, RegistersTheWindowPluginThenBothChannelsInOrder) {
    platform::doubles::FakeApplication application({10, 15, 0});
    platform::ScopedPort<platform::Application> applicationPort(&application);
    Window window;
    window.awakeFromNib(registry, [] {});
    EXPECT_EQ(registry.requestedKeys(),
              (std::vector<std::string>{"BitsdojoWindowPlugin", "CustomURLSchemeHandler", "UIInteractions"}));
}

TEST_F(MainFlutterWindowWaking, OnMacOS1014TheCustomUrlSchemeChannelIsRegisteredAndTheUiInteractionsChannelIsNot) {
    platform::doubles::FakeApplication application({10, 14, 6});
    platform::ScopedPort<platform::Application> applicationPort(&application);
    Window window;
    window.awakeFromNib(registry, [] {});
    EXPECT_EQ(registry.requestedKeys(), (std::vector<std::string>{"BitsdojoWindowPlugin", "CustomURLSchemeHandler"}));
}

TEST_F(MainFlutterWindowWaking, TheFrameAfterWakingEqualsTheFrameBeforeTheEngineViewWasInstalled) {
    platform::doubles::FakeApplication application({10, 15, 0});
    platform::ScopedPort<platform::Application> applicationPort(&application);
    Window window(platform::Rect{100, 100, 800, 600});
    window.awakeFromNib(registry, [&] { window.state.frame = {0, 0, 1, 1}; });
    EXPECT_EQ(window.frame(), (platform::Rect{100, 100, 800, 600}));
}

}  // namespace
}  // namespace vornix::host
