#pragma once

#include <map>
#include <memory>
#include <string>

#include "bridge/BridgeMessenger.hpp"
#include "engine/PluginRegistry.hpp"

namespace vornix::bridge {

// The plug-in registry of the engine behind the bridge: every plug-in gets a registrar on the
// one messenger, as an engine has one messenger for all its plug-ins.
class BridgeRegistry : public engine::PluginRegistry {
public:
    explicit BridgeRegistry(EngineBridge& bridge) : messenger_(bridge) {}

    engine::PluginRegistrar* registrarForPlugin(std::string_view key) override;
    BridgeMessenger& messenger() { return messenger_; }

private:
    class Registrar : public engine::PluginRegistrar {
    public:
        explicit Registrar(BridgeMessenger& messenger) : messenger_(messenger) {}
        engine::BinaryMessenger& messenger() override { return messenger_; }

    private:
        BridgeMessenger& messenger_;
    };

    BridgeMessenger messenger_;
    std::map<std::string, std::unique_ptr<Registrar>, std::less<>> registrars_;
};

}  // namespace vornix::bridge
