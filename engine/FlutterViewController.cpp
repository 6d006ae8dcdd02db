#include "engine/FlutterViewController.hpp"

#include "base/FatalError.hpp"
#include "engine/Embedding.hpp"

namespace vornix::engine {

std::shared_ptr<FlutterViewController> FlutterViewController::make() {
    std::shared_ptr<FlutterViewController> controller = Embedding::current().makeViewController();
    if (!controller) {
        base::fatalError("the engine embedding made no view controller");
    }
    return controller;
}

}  // namespace vornix::engine
