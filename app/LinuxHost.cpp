#include "app/LinuxHost.hpp"

#include "app/DeferredUpdater.hpp"

#include <iostream>
#include <optional>

#include "bridge/BridgeEmbedding.hpp"
#include "bridge/EngineBridge.hpp"
#include "host/AppDelegate.hpp"
#include "host/MainFlutterWindow.hpp"
#include "launch_agent/StartAtLogin.hpp"
#include "launch_agent/XdgAutostartJobManager.hpp"
#include "platform/Files.hpp"
#include "platform/Paths.hpp"
#include "platform/PosixProcesses.hpp"
#include "platform/XdgDirectories.hpp"
#include "platform/linux/EngineSocketServer.hpp"
#include "platform/linux/GioWorkspace.hpp"
#include "platform/linux/GlibMainQueue.hpp"
#include "platform/linux/GtkAlerts.hpp"
#include "platform/linux/GtkNativeWindow.hpp"
#include "platform/linux/GdkMonitorScreen.hpp"
#include "platform/linux/HostApplication.hpp"
#include "platform/linux/LinuxApplication.hpp"
#include "platform/linux/Resources.hpp"
#include "platform/linux/TrayPopovers.hpp"
#include "platform/linux/TrayStatusBar.hpp"
#include "platform/linux/UrlEventManager.hpp"

namespace vornix::app {

namespace gtk = platform::linux;

using MainWindow = host::MainFlutterWindow<gtk::GtkNativeWindow>;

// Everything the primary instance runs on, made when it launches and kept until the process
// ends. Ports are installed while they live.
struct LinuxHost::Services {
    explicit Services(gtk::HostApplication& host) : application(host) {}

    gtk::GlibMainQueue mainQueue;
    gtk::LinuxApplication application;
    gtk::TrayStatusBar statusBar;
    gtk::TrayPopovers popovers;
    gtk::GtkAlerts alerts;
    gtk::GioWorkspace workspace;
    gtk::UrlEventManager urlEvents;
    gtk::GtkApplicationWindows windows;
    platform::XdgDirectories directories;
    platform::PosixProcesses processes;
    launch_agent::XdgAutostartJobManager jobManager{
        [] { return platform::joinPath(platform::userConfigFolder(), "autostart"); }};
    platform::ScopedPort<platform::MainQueue> mainQueuePort{&mainQueue};
    platform::ScopedPort<platform::Application> applicationPort{&application};
    platform::ScopedPort<platform::StatusBar> statusBarPort{&statusBar};
    platform::ScopedPort<platform::Popovers> popoversPort{&popovers};
    platform::ScopedPort<platform::Alerts> alertsPort{&alerts};
    platform::ScopedPort<platform::Workspace> workspacePort{&workspace};
    platform::ScopedPort<platform::AppleEventManager> urlEventsPort{&urlEvents};
    platform::ScopedPort<platform::ApplicationWindows> windowsPort{&windows};
    platform::ScopedPort<platform::Directories> directoriesPort{&directories};
    platform::ScopedPort<platform::Processes> processesPort{&processes};
    platform::ScopedPort<launch_agent::JobManager> jobManagerPort{&jobManager};
    std::unique_ptr<DeferredUpdater> updater;
    std::optional<platform::ScopedPort<platform::Updater>> updaterPort;

    // The engine: whoever connects to the bridge's socket, or nobody.
    bridge::EngineBridge engineBridge;
    bridge::BridgeEmbedding embedding{engineBridge};
    platform::ScopedPort<engine::Embedding> embeddingPort{&embedding};
    std::unique_ptr<gtk::EngineSocketServer> engineSocket;

    std::shared_ptr<MainWindow> mainWindow;
    std::unique_ptr<host::AppDelegate> delegate;
};

namespace {

// On macOS the user's LaunchAgents folder is always there; in a Linux home the folder that
// stands for it is not, so the host makes it, for the job file that "Launch on Login" writes.
void makeLaunchAgentsFolder(const platform::Directories& directories) {
    try {
        platform::makeFolders(platform::joinPath(directories.userLibraryFolder(), "LaunchAgents"));
    } catch (const platform::FileError&) {
        // No home to put it in, or no folder can be made there: turning "Launch on Login" on
        // reports the failure then.
    }
}

// A login starts the application by running the installed host itself, not macOS's
// "/usr/bin/open" on an application bundle.
void startInstalledHostAtLogin() {
    launch_agent::StartAtLogin::shared().replaceBuiltInProgram(gtk::hostExecutable().string());
}

// The main window as the interface file would make it: titled and resizable, 1024 x 720 points
// in the middle of the primary monitor's work area.
std::shared_ptr<MainWindow> loadMainWindow(gtk::HostApplication& host) {
    constexpr double width = 1024;
    constexpr double height = 720;
    GdkDisplay* display = gdk_display_get_default();
    GdkMonitor* monitor = gdk_display_get_primary_monitor(display);
    const platform::Rect visible =
        monitor ? gtk::GdkMonitorScreen(monitor).visibleFrame() : platform::Rect{0, 0, width, height};
    const platform::StyleMask style = platform::windowStyle::titled | platform::windowStyle::resizable;
    auto window = host::loadMainFlutterWindow<gtk::GtkNativeWindow>(
        platform::Rect{visible.x + (visible.width - width) / 2, visible.y + (visible.height - height) / 2, width, height},
        style);
    window->setTitle("Vornix OS");
    gtk_window_set_application(window->gtkWindow(), host.gtkApplication());
    return window;
}

// The application's id: its D-Bus name, its desktop entry's name and what its windows announce.
constexpr const char* applicationId = "com.vornix.os";

HostOptions optionsOf(const std::vector<std::string>& arguments) {
    try {
        return parseCommandLine(arguments);
    } catch (const CommandLineError& error) {
        std::cerr << "vornix-host: " << error.what() << std::endl;
        return {};
    }
}

}  // namespace

LinuxHost::LinuxHost() = default;

LinuxHost::~LinuxHost() = default;

int LinuxHost::run(int argc, char** argv) {
    gtk::HostApplication application(applicationId, {
                                                          [this](const auto& arguments) { launched(arguments); },
                                                          [this](const auto& arguments) { relaunched(arguments); },
                                                          [this] { terminating(); },
                                                          [this] { windowClosed(); },
                                                      });
    host_ = &application;
    const int status = application.run(argc, argv);
    services_.reset();
    host_ = nullptr;
    return status != 0 ? status : exitStatus_;
}

void LinuxHost::launched(const std::vector<std::string>& arguments) {
    const HostOptions options = optionsOf(arguments);
    services_ = std::make_unique<Services>(*host_);
    Services& services = *services_;
    GDBusConnection* sessionBus = g_application_get_dbus_connection(G_APPLICATION(host_->gtkApplication()));
    const host::WebEndpoints endpoints;
    services.updater = std::make_unique<DeferredUpdater>(endpoints, sessionBus);
    services.updaterPort.emplace(services.updater.get());

    makeLaunchAgentsFolder(services.directories);
    startInstalledHostAtLogin();

    // Without a socket for it, no engine ever comes: the popover's commands go by that.
    services.embedding.setHasEngine(options.engineSocket.has_value());
    if (options.engineSocket) {
        try {
            services.engineSocket =
                std::make_unique<gtk::EngineSocketServer>(services.engineBridge, *options.engineSocket);
        } catch (const std::runtime_error& error) {
            std::cerr << "vornix-host: " << error.what() << std::endl;
            exitStatus_ = 1;
            host_->quit();
            return;
        }
    }

    // The main window wakes first: the engine's view, the engine's plug-ins in their order,
    // the host's two channels; then it is ordered front, where it stays hidden until the
    // engine allows it to be shown.
    services.mainWindow = loadMainWindow(*host_);
    services.windows.add(services.mainWindow);
    services.mainWindow->makeKeyAndOrderFront();

    // Then the application has finished launching.
    services.delegate = std::make_unique<host::AppDelegate>(endpoints);
    services.delegate->applicationDidFinishLaunching();

    for (const auto& url : options.urls) {
        services.urlEvents.openURL(url);
    }
}

void LinuxHost::relaunched(const std::vector<std::string>& arguments) {
    if (!services_) {
        return;
    }
    const HostOptions options = optionsOf(arguments);
    if (options.engineSocket) {
        std::cerr << "vornix-host: already running; --engine-socket applies to the first launch only" << std::endl;
    }
    if (!options.urls.empty()) {
        // Delivered from the main loop, as the system's events are, so that the launch that
        // brought the URL is done with while the URL's alert, if any, waits for the person.
        for (const auto& url : options.urls) {
            services_->mainQueue.async([this, url] { services_->urlEvents.openURL(url); });
        }
        return;
    }
    // Launched again with nothing to open: the person wants the host, so it shows itself as a
    // click on its icon would, also where there is no tray to click.
    if (auto item = services_->statusBar.item()) {
        item->trayButton().click(std::nullopt);
    }
}

void LinuxHost::windowClosed() {
    if (services_ && services_->delegate) {
        services_->delegate->windowDidClose();
    }
}

void LinuxHost::terminating() {
    if (!services_) {
        return;
    }
    if (services_->delegate) {
        services_->delegate->applicationWillTerminate();
    }
    // The engine's socket file goes with the process.
    services_->engineSocket.reset();
}

}  // namespace vornix::app
