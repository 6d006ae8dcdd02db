#pragma once

#include <string_view>

#include "engine/Plugin.hpp"
#include "engine/PluginRegistrar.hpp"

namespace vornix::bitsdojo_window {

// The window library's engine plug-in. It claims the channel "bitsdojo/window" so that the
// library registers like every other plug-in; the engine side does the real work through the
// exported function table, so the channel carries no operations.
class BitsdojoWindowPlugin : public engine::Plugin {
public:
    static constexpr std::string_view channelName = "bitsdojo/window";

    // Builds the channel on the registrar's messenger with a new plug-in as its delegate. Without
    // a registrar there is nothing to register with, and nothing is registered.
    static void registerWith(engine::PluginRegistrar* registrar);

    // Answers every call, whatever its method, with "not implemented".
    void handle(const engine::MethodCall& call, engine::MethodResult result) override;
};

}  // namespace vornix::bitsdojo_window
