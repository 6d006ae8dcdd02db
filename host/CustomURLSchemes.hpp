#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "engine/MethodChannel.hpp"
#include "engine/Plugin.hpp"
#include "engine/PluginRegistrar.hpp"
#include "platform/AppleEvent.hpp"

namespace vornix::host {

// Receives the application's custom-scheme URLs, which the system delivers as get-URL Apple
// Events, and turns each into a background update check ("update"), nothing ("launch"), or
// a "urlParams" message to the engine with "user", "asset" and "share". It is also the
// delegate of its channel, where it answers the engine's "open".
class CustomURLSchemeHandler : public engine::Plugin {
public:
    static constexpr std::string_view channelName = "com.vornix.os/custom_url_scheme";

    // The one instance, made on first use (thread-safe) and never destroyed.
    static const std::shared_ptr<CustomURLSchemeHandler>& shared();
    // The channel to the engine; empty until registerWith has built it.
    static std::optional<engine::MethodChannel>& channel();

    // Builds the channel on the registrar's messenger and makes `shared()` its delegate.
    static void registerWith(engine::PluginRegistrar* registrar);

    void handle(const engine::MethodCall& call, engine::MethodResult result) override;

    // The get-URL event handler. Malformed URLs are defects of the sender and stop the process.
    void handleAppleEvent(const platform::AppleEvent& event, platform::AppleEvent& replyEvent);

private:
    CustomURLSchemeHandler() = default;
};

}  // namespace vornix::host
