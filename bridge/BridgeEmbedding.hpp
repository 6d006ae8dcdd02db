#pragma once

#include <map>
#include <memory>
#include <string>

#include "bridge/BridgeMessenger.hpp"
#include "engine/Embedding.hpp"
#include "engine/FlutterViewController.hpp"

namespace vornix::bridge {

// The engine's view controller when the engine is whatever connects to the development engine
// bridge: the plug-in registry, with every plug-in's registrar on the one messenger of the
// bridge, as an engine has one messenger for all its plug-ins. It draws nothing itself: the
// engine behind the bridge runs in a process of its own.
class BridgeViewController : public engine::FlutterViewController {
public:
    explicit BridgeViewController(EngineBridge& bridge) : messenger_(bridge) {}

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

// The engine embedding of the development engine bridge: its view controllers all speak over
// the one bridge.
class BridgeEmbedding : public engine::Embedding {
public:
    explicit BridgeEmbedding(EngineBridge& bridge) : bridge_(bridge) {}

    std::shared_ptr<engine::FlutterViewController> makeViewController() override;

    // An engine comes only through a socket the host was told to open; without one nobody ever
    // connects to the bridge.
    bool hasEngine() const override { return hasEngine_; }
    void setHasEngine(bool hasEngine) { hasEngine_ = hasEngine; }

private:
    EngineBridge& bridge_;
    bool hasEngine_ = false;
};

}  // namespace vornix::bridge
