#include "platform/macos/AppKitAlerts.hpp"

#import <AppKit/AppKit.h>

#include "platform/macos/AppKitApplication.hpp"
#include "platform/macos/Conversions.hpp"

namespace vornix::platform::macos {

ModalResponse AppKitAlerts::runModal(const Alert& alert) {
    NSAlert* panel = [[NSAlert alloc] init];
    panel.messageText = toNSString(alert.messageText);
    panel.informativeText = toNSString(alert.informativeText);
    panel.alertStyle = static_cast<NSAlertStyle>(alert.alertStyle);
    for (const std::string& title : alert.buttons) {
        [panel addButtonWithTitle:toNSString(title)];
    }
    // In front of other applications' windows, where the user sees it.
    activateApplication();
    return [panel runModal];
}

}  // namespace vornix::platform::macos
