#pragma once

#include "bridge/EngineBridge.hpp"
#include "engine/BinaryMessenger.hpp"

namespace vornix::bridge {

// The engine's binary messenger over the development engine bridge: what the host sends goes
// out as message frames (kept for the engine while none is connected), and the engine's
// messages reach the channel handlers with a reply that goes back under the same id.
class BridgeMessenger : public engine::BinaryMessenger {
public:
    explicit BridgeMessenger(EngineBridge& bridge) : bridge_(bridge) {}

    void send(std::string_view channel, std::span<const std::uint8_t> message) override;
    void setMessageHandler(std::string_view channel, BinaryMessageHandler handler) override;

private:
    EngineBridge& bridge_;
};

}  // namespace vornix::bridge
