#include "engine/doubles/EmbeddingDouble.hpp"

namespace vornix::engine::doubles {

std::shared_ptr<FlutterViewController> EmbeddingDouble::makeViewController() {
    if (log_ != nullptr) {
        log_->record("embedding.makeViewController");
    }
    auto controller = std::make_shared<FlutterViewControllerDouble>(log_);
    for (const std::string& key : withheld_) {
        controller->registry().withhold(key);
    }
    made_.push_back(controller);
    return controller;
}

}  // namespace vornix::engine::doubles
