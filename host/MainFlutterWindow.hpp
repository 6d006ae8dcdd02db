#pragma once

#include <cstdint>
#include <functional>

#include "bitsdojo_window_macos/macos/Classes/BitsdojoWindow.hpp"
#include "engine/PluginRegistry.hpp"
#include "host/CustomURLSchemes.hpp"
#include "host/GeneratedPluginRegistrant.hpp"
#include "host/MenuBarSupport.hpp"
#include "host/UIInteractions.hpp"

namespace vornix::host {

// The application's one main window: it hosts the engine's view, registers the engine's
// plug-ins and the host's two channels, draws its own frame and stays hidden until the engine
// allows it to be shown. A class template over the platform's window class, as the frameless
// window it derives from.
template <std::derived_from<platform::Window> PlatformWindow>
class MainFlutterWindow : public bitsdojo_window::BitsdojoWindow<PlatformWindow> {
public:
    using bitsdojo_window::BitsdojoWindow<PlatformWindow>::BitsdojoWindow;

    std::uintptr_t bitsdojo_window_configure() const override { return BDW_CUSTOM_FRAME | BDW_HIDE_ON_STARTUP; }

    // Once, when the window has been made: the engine's view becomes its content
    // (`installEngineView`), keeping the frame the window had; then the plug-ins in their
    // order, the custom URL scheme channel and, where the menu-bar interface exists, the UI
    // interactions channel.
    void awakeFromNib(engine::PluginRegistry& registry, const std::function<void()>& installEngineView) {
        const platform::Rect windowFrame = this->frame();
        installEngineView();
        this->setFrame(windowFrame, true);
        RegisterGeneratedPlugins(registry);
        CustomURLSchemeHandler::registerWith(registry.registrarForPlugin("CustomURLSchemeHandler"));
        if (systemSupportsMenuBar()) {
            UIInteractions::registerWith(registry.registrarForPlugin("UIInteractions"));
        }
    }
};

}  // namespace vornix::host
