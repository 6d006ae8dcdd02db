#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "bitsdojo_window_macos/macos/Classes/bitsdojo_window.hpp"
#include "engine/Embedding.hpp"
#include "engine/doubles/EmbeddingDouble.hpp"
#include "host/ContentView.hpp"
#include "host/CustomURLSchemes.hpp"
#include "host/MainFlutterWindow.hpp"
#include "host/UIInteractions.hpp"
#include "host/tests/MainWindowDouble.hpp"
#include "platform/Application.hpp"
#include "platform/Directories.hpp"
#include "platform/MainQueue.hpp"
#include "platform/doubles/EventLog.hpp"
#include "platform/doubles/FakeApplication.hpp"
#include "platform/doubles/FixedDirectories.hpp"
#include "platform/doubles/ManualMainQueue.hpp"

namespace vornix::host::testing {

using MainWindow = MainFlutterWindow<MainWindowDouble>;

// The frame the interface file gives the main window.
inline constexpr platform::Rect designedFrame{335, 390, 800, 600};

// What the main window meets when it is loaded: an engine embedding, an application on a chosen
// system version, a main queue turned by hand, all writing to one event log. The host's channels
// and the window library start and end empty.
class MainWindowTest : public ::testing::Test {
protected:
    void SetUp() override {
        // The popover's shared view is made on first use, when the UI interactions channel first
        // registers, and may write a line of its own: make it before the sequences under test.
        platform::doubles::FixedDirectories noLibraryFolder;
        platform::ScopedPort<platform::Directories> directories(&noLibraryFolder);
        ::testing::internal::CaptureStdout();
        ContentView::sharedInstance();
        ::testing::internal::GetCapturedStdout();
        startOver();
    }
    void TearDown() override { startOver(); }

    static void startOver() {
        CustomURLSchemeHandler::channel().reset();
        UIInteractions::channel().reset();
        bitsdojo_window::_appWindow.reset();
        bitsdojo_window::_windowCanBeShown = false;
    }

    // Loads the main window, as the interface file does, on a system of `version`.
    std::shared_ptr<MainWindow> load(platform::OperatingSystemVersion version = {13, 0, 0}) {
        application = platform::doubles::FakeApplication(version);
        std::shared_ptr<MainWindow> window;
        log.captureOutput([&] { window = loadMainFlutterWindow<MainWindowDouble>(log, designedFrame); });
        return window;
    }

    // The engine view controller the window made.
    engine::doubles::FlutterViewControllerDouble& controller() {
        EXPECT_EQ(embedding.made().size(), 1u);
        return *embedding.made().at(0);
    }

    platform::doubles::EventLog log;
    platform::doubles::FakeApplication application;
    platform::ScopedPort<platform::Application> applicationPort{&application};
    engine::doubles::EmbeddingDouble embedding{&log};
    platform::ScopedPort<engine::Embedding> embeddingPort{&embedding};
    platform::doubles::ManualMainQueue queue;
    platform::ScopedPort<platform::MainQueue> mainQueue{&queue};
};

}  // namespace vornix::host::testing
