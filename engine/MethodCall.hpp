#pragma once

#include <string>

#include "engine/EncodableValue.hpp"

namespace vornix::engine {

// A call on a method channel: the method's name and its arguments (null when there are none).
struct MethodCall {
    std::string method;
    EncodableValue arguments;

    friend bool operator==(const MethodCall&, const MethodCall&) = default;
};

}  // namespace vornix::engine
