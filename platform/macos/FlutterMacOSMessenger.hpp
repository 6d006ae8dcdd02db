#pragma once

#import <FlutterMacOS/FlutterMacOS.h>

#include "engine/BinaryMessenger.hpp"

namespace vornix::platform::macos {

// The engine's binary messenger on macOS. It carries the bytes of the core's own codec, so the
// same C++ channels run on every platform; only the container changes (NSData).
class FlutterMacOSMessenger final : public engine::BinaryMessenger {
public:
    explicit FlutterMacOSMessenger(id<FlutterBinaryMessenger> messenger) : messenger_(messenger) {}

    void send(std::string_view channel, std::span<const std::uint8_t> message) override;
    void setMessageHandler(std::string_view channel, BinaryMessageHandler handler) override;

private:
    id<FlutterBinaryMessenger> messenger_;
};

}  // namespace vornix::platform::macos
