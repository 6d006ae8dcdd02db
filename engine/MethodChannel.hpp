#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "engine/BinaryMessenger.hpp"
#include "engine/EncodableValue.hpp"
#include "engine/MethodCall.hpp"
#include "engine/MethodResult.hpp"

namespace vornix::engine {

// A named, two-way link to the engine over a binary messenger, in the standard method codec.
// Copies name the same link. The messenger must outlive every copy.
class MethodChannel {
public:
    using MethodCallHandler = std::function<void(const MethodCall& call, MethodResult result)>;

    MethodChannel(std::string name, BinaryMessenger& messenger);

    const std::string& name() const { return name_; }
    BinaryMessenger& messenger() const { return *messenger_; }

    // Sends a call to the engine; no answer is awaited.
    void invokeMethod(std::string_view method, const EncodableValue& arguments = EncodableValue()) const;

    // Makes `handler` the receiver of the engine's calls on this channel; an empty handler
    // removes it. A call that does not decode is a defect of the engine's side and stops the process.
    void setMethodCallHandler(MethodCallHandler handler) const;

private:
    std::string name_;
    BinaryMessenger* messenger_;
};

}  // namespace vornix::engine
