#pragma once

#include <concepts>

#include "engine/MethodCall.hpp"
#include "engine/MethodResult.hpp"

namespace vornix::engine {

class PluginRegistrar;

// The method-call delegate role of an engine plug-in: it answers the calls that arrive on the
// channel it was added to, once each, through `result`.
class Plugin {
public:
    virtual ~Plugin() = default;
    virtual void handle(const MethodCall& call, MethodResult result) = 0;
};

// A plug-in class: a Plugin with a class operation `registerWith(registrar)` that builds its
// channel on the registrar's messenger and adds a delegate for it. The registrar may be null
// when the registry had none to give; the plug-in then reports that it could not register.
template <class T>
concept PluginClass = std::derived_from<T, Plugin> && requires(PluginRegistrar* registrar) {
    { T::registerWith(registrar) } -> std::same_as<void>;
};

}  // namespace vornix::engine
