#include "engine/PluginRegistrar.hpp"

#include <utility>

namespace vornix::engine {

void PluginRegistrar::addMethodCallDelegate(std::shared_ptr<Plugin> plugin, const MethodChannel& channel) {
    channel.setMethodCallHandler([plugin = std::move(plugin)](const MethodCall& call, MethodResult result) {
        plugin->handle(call, std::move(result));
    });
}

std::optional<MethodChannel> methodChannelOn(PluginRegistrar* registrar, std::string name) {
    if (registrar == nullptr) {
        return std::nullopt;
    }
    return MethodChannel(std::move(name), registrar->messenger());
}

}  // namespace vornix::engine
