#include "platform/macos/FlutterMacOSMessenger.hpp"

#include "platform/macos/Conversions.hpp"

namespace vornix::platform::macos {

namespace {

// The engine's messenger reads a nil reply as "not implemented", which the core writes as zero bytes.
NSData* toReply(std::span<const std::uint8_t> reply) { return reply.empty() ? nil : toNSData(reply); }

}  // namespace

void FlutterMacOSMessenger::send(std::string_view channel, std::span<const std::uint8_t> message) {
    [messenger_ sendOnChannel:toNSString(channel) message:toNSData(message)];
}

// An empty handler is nil for the engine, which removes the channel's handler.
void FlutterMacOSMessenger::setMessageHandler(std::string_view channel, BinaryMessageHandler handler) {
    FlutterBinaryMessageHandler block = nil;
    if (handler) {
        block = ^(NSData* message, FlutterBinaryReply reply) {
          handler(bytesOf(message), [reply](std::span<const std::uint8_t> bytes) { reply(toReply(bytes)); });
        };
    }
    [messenger_ setMessageHandlerOnChannel:toNSString(channel) binaryMessageHandler:block];
}

}  // namespace vornix::platform::macos
