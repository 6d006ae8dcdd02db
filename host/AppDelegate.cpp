#include "host/AppDelegate.hpp"

#include "base/Diagnostics.hpp"
#include "base/FatalError.hpp"
#include "host/ContentView.hpp"
#include "host/CustomURLSchemes.hpp"
#include "host/MenuBarSupport.hpp"
#include "platform/AppleEventManager.hpp"
#include "platform/Application.hpp"
#include "platform/Workspace.hpp"
#include "url/URL.hpp"

namespace vornix::host {

namespace {

constexpr platform::Size popoverContentSize{200.0, 200.0};
constexpr const char* statusItemImageName = "TrayIcon";

}  // namespace

AppDelegate::AppDelegate(WebEndpoints endpoints) : endpoints_(std::move(endpoints)) {}

void AppDelegate::applicationDidFinishLaunching() {
    base::printLine("finished launching");

    platform::Updater::current().setDelegate(this);

    platform::AppleEventManager::current().setEventHandler(
        [handler = CustomURLSchemeHandler::shared()](const platform::AppleEvent& event,
                                                     platform::AppleEvent& replyEvent) {
            handler->handleAppleEvent(event, replyEvent);
        },
        platform::internetEventClass, platform::getURLEventID);

    if (const auto& channel = CustomURLSchemeHandler::channel()) {
        channel->invokeMethod("hello");
    }

    // Older systems run without a menu-bar icon, by choice.
    if (!systemSupportsMenuBar()) {
        return;
    }

    popover_ = platform::Popovers::current().makePopover();
    popover_->setContentSize(popoverContentSize);
    popover_->setBehavior(platform::PopoverBehavior::transient);
    popoverContent_ = std::make_unique<HostingController>(ContentView::sharedInstance(), popover_->contentView());

    statusBarItem_ = platform::StatusBar::current().statusItem(platform::StatusBar::variableLength);
    if (!statusBarItem_) {
        base::fatalError("the status bar gave no status item");
    }
    if (platform::StatusBarButton* button = statusBarItem_->button()) {
        button->setImage(statusItemImageName);
        button->setAction([this] { togglePopover(); });
    }
    // Where the panel draws a menu of its own for the item, the menu holds the popover's rows.
    if (platform::MenuView* menu = statusBarItem_->menu()) {
        popoverContent_->showAlsoIn(*menu);
    }
}

void AppDelegate::applicationWillTerminate() {
    // The handler that was installed exists by now; make sure of it, as start-up would.
    CustomURLSchemeHandler::shared();
    platform::AppleEventManager::current().removeEventHandler(platform::internetEventClass, platform::getURLEventID);
}

void AppDelegate::windowDidClose() {
    auto& application = platform::Application::current();
    if (application.windowCount() == 0 && applicationShouldTerminateAfterLastWindowClosed()) {
        application.terminate();
    }
}

void AppDelegate::togglePopover() {
    if (!statusBarItem_) {
        base::fatalError("the popover was toggled without a status item");
    }
    platform::StatusBarButton* button = statusBarItem_->button();
    if (button == nullptr) {
        return;
    }
    if (!popover_) {
        base::fatalError("the popover was toggled without a popover");
    }
    if (popover_->isShown()) {
        popover_->performClose();
        return;
    }
    popover_->show(button->bounds(), *button, platform::RectEdge::minY);
    // Take keyboard focus at once, when the content is already in a window.
    if (platform::PopoverWindow* window = popover_->contentWindow()) {
        window->makeKey();
    }
}

void AppDelegate::updaterDidRelaunchApplication(platform::Updater&) {
    if (auto site = url::URL::parse(endpoints_.releaseNotesSite)) {
        platform::Workspace::current().open(*site);
    } else {
        base::printLine("There was an error launching the release notes URL");
    }
}

}  // namespace vornix::host
