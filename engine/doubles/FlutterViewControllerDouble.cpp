#include "engine/doubles/FlutterViewControllerDouble.hpp"

#include <string>

namespace vornix::engine::doubles {

PluginRegistrar* FlutterViewControllerDouble::registrarForPlugin(std::string_view key) {
    if (log_ != nullptr) {
        log_->record("viewController.registrarForPlugin " + std::string(key));
    }
    return registry_.registrarForPlugin(key);
}

}  // namespace vornix::engine::doubles
