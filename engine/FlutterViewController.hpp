#pragma once

#include <memory>

#include "engine/PluginRegistry.hpp"

namespace vornix::engine {

// The engine's view controller: it runs an engine, shows the engine's view as the content of a
// window, and is the registry the engine's plug-ins register with. The platform's engine
// embedding (the Embedding port) makes it; a window that takes it as its content view controller
// knows its own platform's kind.
class FlutterViewController : public PluginRegistry {
public:
    // The plain initialiser: a new controller with an engine of its own, made by the installed
    // embedding. Without an embedding, or when it makes none, the host cannot run: a fatal error.
    static std::shared_ptr<FlutterViewController> make();
};

}  // namespace vornix::engine
