#pragma once

#include "engine/Embedding.hpp"

namespace vornix::platform::macos {

// The engine's macOS embedding (FlutterMacOS): makes view controllers with an engine of their own.
class FlutterMacOSEmbedding final : public engine::Embedding {
public:
    std::shared_ptr<engine::FlutterViewController> makeViewController() override;
};

}  // namespace vornix::platform::macos
