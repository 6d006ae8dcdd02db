#include "bitsdojo_window_macos/macos/Classes/BitsdojoWindow.hpp"

namespace vornix::bitsdojo_window {

const _BDWAPI& bdwAPI() {
    static const _BDWAPI copy = copyOfTable(bitsdojo_window_api(), "the window function table");
    return copy;
}

const _BDWPrivateAPI& bdwPrivateAPI() {
    static const _BDWPrivateAPI copy = copyOfTable(bdwAPI().privateAPI, "the private window function table");
    return copy;
}

void applyCustomFrame(platform::Window& window) {
    window.setStyleMask(window.styleMask() | platform::windowStyle::fullSizeContentView);
    window.setTitlebarAppearsTransparent(true);
    window.setTitleVisibility(platform::TitleVisibility::hidden);
    window.setOpaque(false);
    window.setMovable(false);
}

bool registerOrderedWindow(platform::Window& window) {
    const _BDWPrivateAPI& table = bdwPrivateAPI();
    const bool canBeShown = table.windowCanBeShown();
    table.setAppWindow(handleOf(&window));
    return canBeShown;
}

}  // namespace vornix::bitsdojo_window
