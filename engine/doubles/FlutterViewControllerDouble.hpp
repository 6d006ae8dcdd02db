#pragma once

#include <string_view>

#include "engine/FlutterViewController.hpp"
#include "engine/doubles/InMemoryRegistry.hpp"
#include "platform/doubles/EventLog.hpp"

namespace vornix::engine::doubles {

// An engine view controller for tests: its registry is an InMemoryRegistry (one messenger, the
// keys asked for in order, registrars that can be withheld), and each request for a registrar is
// also written to the shared event log as "viewController.registrarForPlugin <key>".
class FlutterViewControllerDouble : public FlutterViewController {
public:
    explicit FlutterViewControllerDouble(platform::doubles::EventLog* log = nullptr) : log_(log) {}

    PluginRegistrar* registrarForPlugin(std::string_view key) override;

    InMemoryRegistry& registry() { return registry_; }
    InMemoryMessenger& messenger() { return registry_.messenger(); }

private:
    platform::doubles::EventLog* log_;
    InMemoryRegistry registry_;
};

}  // namespace vornix::engine::doubles
