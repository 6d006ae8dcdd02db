#include "bridge/BridgeMessenger.hpp"

namespace vornix::bridge {

void BridgeMessenger::send(std::string_view channel, std::span<const std::uint8_t> message) {
    bridge_.send(std::string(channel), Bytes(message.begin(), message.end()));
}

void BridgeMessenger::setMessageHandler(std::string_view channel, BinaryMessageHandler handler) {
    if (!handler) {
        bridge_.setMessageHandler(std::string(channel), {});
        return;
    }
    bridge_.setMessageHandler(std::string(channel),
                              [handler = std::move(handler)](const Bytes& message, EngineBridge::Reply reply) {
                                  handler(message, [reply = std::move(reply)](std::span<const std::uint8_t> answer) {
                                      reply(Bytes(answer.begin(), answer.end()));
                                  });
                              });
}

}  // namespace vornix::bridge
