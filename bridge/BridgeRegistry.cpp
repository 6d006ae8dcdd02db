#include "bridge/BridgeRegistry.hpp"

namespace vornix::bridge {

engine::PluginRegistrar* BridgeRegistry::registrarForPlugin(std::string_view key) {
    auto found = registrars_.find(key);
    if (found == registrars_.end()) {
        found = registrars_.emplace(std::string(key), std::make_unique<Registrar>(messenger_)).first;
    }
    return found->second.get();
}

}  // namespace vornix::bridge
