#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "engine/Embedding.hpp"
#include "engine/doubles/FlutterViewControllerDouble.hpp"
#include "platform/doubles/EventLog.hpp"

namespace vornix::engine::doubles {

// An engine embedding for tests: it makes FlutterViewControllerDoubles that share its event log,
// keeps each one it made, and writes "embedding.makeViewController" for each. It can make them
// withhold the registrars of chosen keys, to play an engine that has none to give.
class EmbeddingDouble : public Embedding {
public:
    explicit EmbeddingDouble(platform::doubles::EventLog* log = nullptr) : log_(log) {}

    std::shared_ptr<FlutterViewController> makeViewController() override;

    // The controllers made from now on give no registrar for `key`.
    void withhold(std::string_view key) { withheld_.emplace_back(key); }
    const std::vector<std::shared_ptr<FlutterViewControllerDouble>>& made() const { return made_; }

    bool hasEngine() const override { return hasEngine_; }
    // Plays an embedding with no engine behind it (a host started without one).
    void setHasEngine(bool hasEngine) { hasEngine_ = hasEngine; }

private:
    bool hasEngine_ = true;
    platform::doubles::EventLog* log_;
    std::vector<std::string> withheld_;
    std::vector<std::shared_ptr<FlutterViewControllerDouble>> made_;
};

}  // namespace vornix::engine::doubles
