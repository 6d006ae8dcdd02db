#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "engine/MethodChannel.hpp"
#include "engine/Plugin.hpp"
#include "engine/PluginRegistrar.hpp"
#include "host/ContentView.hpp"

namespace vornix::host {

// The plug-in through which the engine tells the host who is signed in ("auth_state"), and the
// channel the popover's buttons send their requests to the engine on.
class UIInteractions : public engine::Plugin {
public:
    static constexpr std::string_view channelName = "com.vornix.os/ui_interactions";

    // The one instance, made on first use; it holds a copy of the shared popover view.
    static const std::shared_ptr<UIInteractions>& shared();
    // The channel, empty until registerWith has built it.
    static std::optional<engine::MethodChannel>& channel();

    // Builds the channel on the registrar's messenger and makes `shared()` answer its calls; without
    // a registrar there is no channel, which is reported on standard output.
    static void registerWith(engine::PluginRegistrar* registrar);

    // "auth_state" with "signedIn" (boolean), "email", "appVersion" and "port" (strings) updates the
    // popover and answers true; a missing or mistyped argument stops the process. Any other method,
    // also one differing only in letter case, is not implemented.
    void handle(const engine::MethodCall& call, engine::MethodResult result) override;

    const ContentView& view() const { return view_; }

private:
    UIInteractions();

    ContentView view_;
};

}  // namespace vornix::host
