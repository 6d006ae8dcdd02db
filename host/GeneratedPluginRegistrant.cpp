#include "host/GeneratedPluginRegistrant.hpp"

#include "bitsdojo_window_macos/macos/Classes/BitsdojoWindowPlugin.hpp"

namespace vornix::host {

void RegisterGeneratedPlugins(engine::PluginRegistry& registry) {
    bitsdojo_window::BitsdojoWindowPlugin::registerWith(registry.registrarForPlugin("BitsdojoWindowPlugin"));
}

}  // namespace vornix::host
