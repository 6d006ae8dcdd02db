#pragma once

#include <concepts>
#include <cstdint>
#include <memory>
#include <utility>

#include "bitsdojo_window_macos/macos/Classes/BitsdojoWindow.hpp"
#include "bitsdojo_window_macos/macos/Classes/bitsdojo_window_api.hpp"
#include "engine/FlutterViewController.hpp"
#include "platform/Window.hpp"

namespace vornix::host {

// What the main window needs of the platform's window class beyond platform::Window: the two
// NSWindow operations of a window that is loaded from the interface file to host the engine.
template <class PlatformWindow>
concept EngineHostingWindow =
    std::derived_from<PlatformWindow, platform::Window> &&
    requires(PlatformWindow& window, std::shared_ptr<engine::FlutterViewController> controller) {
        // contentViewController: the controller's view becomes the window's whole content. As in
        // AppKit, the window may take the size of that view.
        { window.setContentViewController(controller) } -> std::same_as<void>;
        // Called once by the platform when the interface file has been loaded.
        { window.awakeFromNib() } -> std::same_as<void>;
    };

// The main window draws its own frame and stays hidden until the engine side lets it be shown.
inline constexpr std::uintptr_t mainFlutterWindowFlags = BDW_CUSTOM_FRAME | BDW_HIDE_ON_STARTUP;

// Registers the engine's plug-ins with the view controller, then the custom URL scheme channel
// under "CustomURLSchemeHandler", then, from macOS 10.15 on only, the UI interactions channel
// under "UIInteractions". Registrars are passed on as the controller gives them.
void registerPluginsAndChannels(engine::FlutterViewController& flutterViewController);

// The application's one main window: the frameless window over the platform's window class,
// hosting the engine's view as its whole content. It keeps no state of its own: the view
// controller lives on as the window's content view controller.
template <EngineHostingWindow PlatformWindow>
class MainFlutterWindow : public bitsdojo_window::BitsdojoWindow<PlatformWindow> {
    using Base = bitsdojo_window::BitsdojoWindow<PlatformWindow>;

public:
    using Base::Base;

    std::uintptr_t bitsdojo_window_configure() const override { return mainFlutterWindowFlags; }

    // Installing a content view controller may resize the window to the controller's view, so the
    // frame the interface file gave is kept and put back (with display) before anything else runs.
    void awakeFromNib() override {
        const std::shared_ptr<engine::FlutterViewController> flutterViewController = engine::FlutterViewController::make();
        const platform::Rect windowFrame = this->frame();
        this->setContentViewController(flutterViewController);
        this->setFrame(windowFrame, true);
        registerPluginsAndChannels(*flutterViewController);
        Base::awakeFromNib();
    }
};

// Loads the main window as the interface file does: made with the platform class's initialiser
// (`arguments` passed on unchanged), owned by a shared_ptr as every window is, then woken once.
template <EngineHostingWindow PlatformWindow, class... Arguments>
std::shared_ptr<MainFlutterWindow<PlatformWindow>> loadMainFlutterWindow(Arguments&&... arguments) {
    auto window = std::make_shared<MainFlutterWindow<PlatformWindow>>(std::forward<Arguments>(arguments)...);
    window->awakeFromNib();
    return window;
}

}  // namespace vornix::host
