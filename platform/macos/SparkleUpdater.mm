#include "platform/macos/SparkleUpdater.hpp"

#import <Sparkle/SUUpdater.h>

// SUUpdater and SUUpdaterDelegate are Sparkle's classic interface, deprecated in Sparkle 2 but
// shipped and working; the host uses them on purpose, as the only updater interface it needs.
#pragma clang diagnostic push
#pragma clang diagnostic ignored "-Wdeprecated-declarations"

// Implements only the relaunch callback and hands it to the core's delegate.
@interface VXUpdaterDelegate : NSObject <SUUpdaterDelegate>
- (instancetype)initWithUpdater:(vornix::platform::macos::SparkleUpdater*)updater;
@end

@implementation VXUpdaterDelegate {
    vornix::platform::macos::SparkleUpdater* _updater;
}

- (instancetype)initWithUpdater:(vornix::platform::macos::SparkleUpdater*)updater {
    if ((self = [super init])) {
        _updater = updater;
    }
    return self;
}

- (void)updaterDidRelaunchApplication:(SUUpdater*)updater {
    (void)updater;
    _updater->delegate()->updaterDidRelaunchApplication(*_updater);
}

@end

namespace vornix::platform::macos {

std::unique_ptr<SparkleUpdater> SparkleUpdater::shared() {
    SUUpdater* updater = [SUUpdater sharedUpdater];
    return updater != nil ? std::make_unique<SparkleUpdater>(updater) : nullptr;
}

SparkleUpdater::SparkleUpdater(SUUpdater* updater)
    : updater_(updater), bridge_([[VXUpdaterDelegate alloc] initWithUpdater:this]) {}

SparkleUpdater::~SparkleUpdater() { updater_.delegate = nil; }

// Without a core delegate SUUpdater has none either, so the bridge never forwards to nothing.
void SparkleUpdater::setDelegate(UpdaterDelegate* delegate) {
    delegate_ = delegate;
    updater_.delegate = delegate != nullptr ? bridge_ : nil;
}

void SparkleUpdater::checkForUpdates() { [updater_ checkForUpdates:nil]; }

void SparkleUpdater::checkForUpdatesInBackground() { [updater_ checkForUpdatesInBackground]; }

}  // namespace vornix::platform::macos

#pragma clang diagnostic pop
