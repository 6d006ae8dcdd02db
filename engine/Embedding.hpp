#pragma once

#include <memory>
#include <string_view>

#include "platform/Port.hpp"

namespace vornix::engine {

class FlutterViewController;

// The platform's embedding of the engine (FlutterMacOS on macOS), which makes view controllers.
class Embedding : public platform::Port<Embedding> {
public:
    static constexpr std::string_view portName = "engine embedding";

    virtual ~Embedding() = default;

    // [[FlutterViewController alloc] init]
    virtual std::shared_ptr<FlutterViewController> makeViewController() = 0;

    // Whether an engine runs behind the embedding to carry out what the host sends it. On macOS
    // the engine is part of the application, so it always does.
    virtual bool hasEngine() const { return true; }
};

}  // namespace vornix::engine
