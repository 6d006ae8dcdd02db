#include "engine/MethodChannel.hpp"

#include <utility>

#include "base/FatalError.hpp"
#include "engine/CodecError.hpp"
#include "engine/StandardMethodCodec.hpp"

namespace vornix::engine {

MethodChannel::MethodChannel(std::string name, BinaryMessenger& messenger)
    : name_(std::move(name)), messenger_(&messenger) {}

void MethodChannel::invokeMethod(std::string_view method, const EncodableValue& arguments) const {
    const Bytes message = StandardMethodCodec::encodeMethodCall(MethodCall{std::string(method), arguments});
    messenger_->send(name_, message);
}

void MethodChannel::setMethodCallHandler(MethodCallHandler handler) const {
    if (!handler) {
        messenger_->setMessageHandler(name_, nullptr);
        return;
    }
    messenger_->setMessageHandler(
        name_, [name = name_, handler = std::move(handler)](std::span<const std::uint8_t> message,
                                                            BinaryMessenger::BinaryReply reply) {
            MethodCall call;
            try {
                call = StandardMethodCodec::decodeMethodCall(message);
            } catch (const CodecError& error) {
                base::fatalError("malformed method call on channel \"" + name + "\": " + error.what());
            }
            handler(call, MethodResult([reply = std::move(reply)](const Bytes& envelope) { reply(envelope); }));
        });
}

}  // namespace vornix::engine
