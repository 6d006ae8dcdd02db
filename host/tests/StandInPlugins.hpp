#pragma once

#include <vector>

#include "engine/Plugin.hpp"
#include "engine/PluginRegistrar.hpp"
#include "host/GeneratedPluginRegistrant.hpp"

namespace vornix::host::testing {

// A registration a stand-in plug-in received: which plug-in of the table (1 to 10) and the
// registrar it was given.
struct StandInRegistration {
    int plugin;
    engine::PluginRegistrar* registrar;

    friend bool operator==(const StandInRegistration&, const StandInRegistration&) = default;
};

// Every stand-in registration so far, in order; tests clear it before they start.
std::vector<StandInRegistration>& standInRegistrations();

// A stand-in for plug-in `Number` of the table, for plug-ins this build does not have: it only
// records that it was registered, and with which registrar.
template <int Number>
class StandInPlugin : public engine::Plugin {
public:
    static void registerWith(engine::PluginRegistrar* registrar) { standInRegistrations().push_back({Number, registrar}); }
    void handle(const engine::MethodCall&, engine::MethodResult result) override { result.notImplemented(); }
};

// All ten plug-ins as stand-ins.
LinkedPlugins everyPluginAsStandIn();
// A build that links every plug-in: the window library's own and stand-ins for the nine others.
LinkedPlugins fullBuild();

}  // namespace vornix::host::testing
