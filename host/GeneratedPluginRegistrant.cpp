#include "host/GeneratedPluginRegistrant.hpp"

namespace vornix::host {

void registerLinkedPlugins(engine::PluginRegistry& registry, const LinkedPlugins& plugins) {
    for (const GeneratedPlugin& plugin : generatedPlugins) {
        if (const PluginRegistration registerWith = plugins.*plugin.registration) {
            registerWith(registry.registrarForPlugin(plugin.registrarKey));
        }
    }
}

void RegisterGeneratedPlugins(engine::PluginRegistry& registry) { registerLinkedPlugins(registry, linkedPlugins()); }

}  // namespace vornix::host
