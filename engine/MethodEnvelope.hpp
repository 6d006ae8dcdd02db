#pragma once

#include <optional>
#include <string>
#include <variant>

#include "engine/EncodableValue.hpp"

namespace vornix::engine {

// The three answers to a method call, as they travel back in a reply.
struct MethodSuccess {
    EncodableValue result;
    friend bool operator==(const MethodSuccess&, const MethodSuccess&) = default;
};

struct MethodError {
    std::string code;
    std::optional<std::string> message;
    EncodableValue details;
    friend bool operator==(const MethodError&, const MethodError&) = default;
};

// The method is unknown to the handler; on the wire, a reply of zero bytes.
struct MethodNotImplemented {
    friend bool operator==(const MethodNotImplemented&, const MethodNotImplemented&) = default;
};

using MethodEnvelope = std::variant<MethodSuccess, MethodError, MethodNotImplemented>;

}  // namespace vornix::engine
