#pragma once

#include <memory>
#include <optional>
#include <string>

#include "engine/BinaryMessenger.hpp"
#include "engine/MethodChannel.hpp"
#include "engine/Plugin.hpp"

namespace vornix::engine {

// What the engine gives one plug-in at registration: its messenger, and a place to hang the
// plug-in's method-call delegate.
class PluginRegistrar {
public:
    virtual ~PluginRegistrar() = default;

    virtual BinaryMessenger& messenger() = 0;

    // Makes `plugin` answer every call on `channel`. The channel's handler holds the plug-in,
    // so it lives as long as the channel's handler does.
    void addMethodCallDelegate(std::shared_ptr<Plugin> plugin, const MethodChannel& channel);
};

// The channel named `name` on the registrar's messenger, or nothing when there is no registrar.
std::optional<MethodChannel> methodChannelOn(PluginRegistrar* registrar, std::string name);

}  // namespace vornix::engine
