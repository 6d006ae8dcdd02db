#pragma once

#include <string_view>

#include "engine/PluginRegistrar.hpp"

namespace vornix::engine {

// The engine's registry of plug-ins (its view controller, on macOS): one registrar per
// plug-in key. The registry owns its registrars.
class PluginRegistry {
public:
    virtual ~PluginRegistry() = default;

    // The registrar for the plug-in `key`, or null when the registry gives none; it is passed
    // on as it is, and the plug-in reports its own failure.
    virtual PluginRegistrar* registrarForPlugin(std::string_view key) = 0;
};

}  // namespace vornix::engine
