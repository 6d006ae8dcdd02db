#import "app/macos/VornixAppDelegate.h"

#include <memory>
#include <optional>

#import "app/macos/MainFlutterWindow.h"
#include "host/AppDelegate.hpp"
#include "host/WebEndpoints.hpp"
#include "platform/PosixProcesses.hpp"
#include "platform/macos/AppKitAlerts.hpp"
#include "platform/macos/AppKitAppleEventManager.hpp"
#include "platform/macos/AppKitApplication.hpp"
#include "platform/macos/AppKitApplicationWindows.hpp"
#include "platform/macos/AppKitPopovers.hpp"
#include "platform/macos/AppKitWorkspace.hpp"
#include "platform/macos/DispatchMainQueue.hpp"
#include "platform/macos/FlutterMacOSEmbedding.hpp"
#include "platform/macos/FoundationDirectories.hpp"
#include "platform/macos/SparkleUpdater.hpp"

namespace {

namespace platform = vornix::platform;
namespace macos = vornix::platform::macos;

// Every port the core runs on, installed while they live, which is as long as the application.
struct Services {
    macos::DispatchMainQueue mainQueue;
    macos::AppKitApplication application;
    macos::AppKitStatusBar statusBar;
    macos::AppKitPopovers popovers;
    macos::AppKitAlerts alerts;
    macos::AppKitWorkspace workspace;
    macos::AppKitAppleEventManager appleEvents;
    macos::AppKitApplicationWindows windows;
    macos::FoundationDirectories directories;
    platform::PosixProcesses processes;
    macos::FlutterMacOSEmbedding embedding;
    std::unique_ptr<macos::SparkleUpdater> updater = macos::SparkleUpdater::shared();
    platform::ScopedPort<platform::MainQueue> mainQueuePort{&mainQueue};
    platform::ScopedPort<platform::Application> applicationPort{&application};
    platform::ScopedPort<platform::StatusBar> statusBarPort{&statusBar};
    platform::ScopedPort<platform::Popovers> popoversPort{&popovers};
    platform::ScopedPort<platform::Alerts> alertsPort{&alerts};
    platform::ScopedPort<platform::Workspace> workspacePort{&workspace};
    platform::ScopedPort<platform::AppleEventManager> appleEventsPort{&appleEvents};
    platform::ScopedPort<platform::ApplicationWindows> windowsPort{&windows};
    platform::ScopedPort<platform::Directories> directoriesPort{&directories};
    platform::ScopedPort<platform::Processes> processesPort{&processes};
    platform::ScopedPort<vornix::engine::Embedding> embeddingPort{&embedding};
    // Missing when Sparkle gives no shared updater, which the core allows for.
    platform::ScopedPort<platform::Updater> updaterPort{updater.get()};
};

// NSApp holds its delegate weakly: the one delegate is kept here.
VornixAppDelegate* applicationDelegate = nil;

}  // namespace

@implementation VornixAppDelegate {
    std::unique_ptr<Services> _services;
    std::unique_ptr<vornix::host::AppDelegate> _delegate;
    MainFlutterWindow* _mainWindow;
}

// There is no interface file: the delegate is made from code as the application starts launching,
// before AppKit sends it any application event. It is not told of that notification itself, which
// is already being delivered when it becomes the delegate, so it starts from here.
+ (void)load {
    [NSNotificationCenter.defaultCenter addObserverForName:NSApplicationWillFinishLaunchingNotification
                                                    object:nil
                                                     queue:nil
                                                usingBlock:^(NSNotification* notification) {
                                                  (void)notification;
                                                  applicationDelegate = [[VornixAppDelegate alloc] init];
                                                  NSApp.delegate = applicationDelegate;
                                                  [applicationDelegate loadMainWindow];
                                                }];
}

// The main window wakes where the interface file would have loaded it, before the application
// has finished launching: the engine's view, the plug-ins in their order, the host's channels.
- (void)loadMainWindow {
    _services = std::make_unique<Services>();
    _mainWindow = [MainFlutterWindow loadMainFlutterWindow];
    [_mainWindow makeKeyAndOrderFront:nil];
}

- (void)applicationDidFinishLaunching:(NSNotification*)notification {
    (void)notification;
    _delegate = std::make_unique<vornix::host::AppDelegate>(vornix::host::WebEndpoints{});
    _delegate->applicationDidFinishLaunching();
}

- (void)applicationWillTerminate:(NSNotification*)notification {
    (void)notification;
    _delegate->applicationWillTerminate();
}

- (BOOL)applicationShouldTerminateAfterLastWindowClosed:(NSApplication*)sender {
    (void)sender;
    return _delegate->applicationShouldTerminateAfterLastWindowClosed();
}

- (void)performStatusItemAction:(id)sender {
    _services->statusBar.performAction(sender);
}

@end
