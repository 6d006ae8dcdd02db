#include "bitsdojo_window_macos/macos/Classes/BitsdojoWindowPlugin.hpp"

#include <memory>
#include <string>

namespace vornix::bitsdojo_window {

void BitsdojoWindowPlugin::registerWith(engine::PluginRegistrar* registrar) {
    if (auto channel = engine::methodChannelOn(registrar, std::string(channelName))) {
        registrar->addMethodCallDelegate(std::make_shared<BitsdojoWindowPlugin>(), *channel);
    }
}

void BitsdojoWindowPlugin::handle(const engine::MethodCall&, engine::MethodResult result) { result.notImplemented(); }

}  // namespace vornix::bitsdojo_window
