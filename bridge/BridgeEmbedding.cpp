#include "bridge/BridgeEmbedding.hpp"

namespace vornix::bridge {

engine::PluginRegistrar* BridgeViewController::registrarForPlugin(std::string_view key) {
    auto found = registrars_.find(key);
    if (found == registrars_.end()) {
        found = registrars_.emplace(std::string(key), std::make_unique<Registrar>(messenger_)).first;
    }
    return found->second.get();
}

std::shared_ptr<engine::FlutterViewController> BridgeEmbedding::makeViewController() {
    return std::make_shared<BridgeViewController>(bridge_);
}

}  // namespace vornix::bridge
