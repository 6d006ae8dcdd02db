#include "platform/macos/FlutterMacOSViewController.hpp"

#include "platform/macos/Conversions.hpp"

namespace vornix::platform::macos {

engine::PluginRegistrar* FlutterMacOSViewController::registrarForPlugin(std::string_view key) {
    auto [entry, made] = registrars_.try_emplace(std::string(key));
    if (made) {
        entry->second = std::make_unique<FlutterMacOSRegistrar>([controller_ registrarForPlugin:toNSString(key)]);
    }
    return entry->second.get();
}

}  // namespace vornix::platform::macos
