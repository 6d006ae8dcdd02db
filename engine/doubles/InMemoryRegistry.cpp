#include "engine/doubles/InMemoryRegistry.hpp"

namespace vornix::engine::doubles {

PluginRegistrar* InMemoryRegistry::registrarForPlugin(std::string_view key) {
    requestedKeys_.emplace_back(key);
    if (withheld_.contains(key)) {
        return nullptr;
    }
    auto found = registrars_.find(key);
    if (found == registrars_.end()) {
        found = registrars_.emplace(std::string(key), std::make_unique<InMemoryRegistrar>(messenger_)).first;
    }
    return found->second.get();
}

}  // namespace vornix::engine::doubles
