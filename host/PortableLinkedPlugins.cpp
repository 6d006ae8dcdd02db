#include "bitsdojo_window_macos/macos/Classes/BitsdojoWindowPlugin.hpp"
#include "host/GeneratedPluginRegistrant.hpp"

namespace vornix::host {

// The portable build has none of the engine ecosystem's packages, only the window library.
const LinkedPlugins& linkedPlugins() {
    static constexpr LinkedPlugins plugins{.bitsdojoWindowPlugin = &bitsdojo_window::BitsdojoWindowPlugin::registerWith};
    return plugins;
}

}  // namespace vornix::host
