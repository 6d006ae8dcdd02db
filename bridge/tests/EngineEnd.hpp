#pragma once

#include <vector>

#include "bridge/EngineBridge.hpp"
#include "bridge/FrameReader.hpp"

namespace vornix::bridge::testing {

// Plays the engine's end of a connection in tests: collects what the host wrote, as frames.
struct EngineEnd {
    FrameReader reader;
    std::vector<Frame> frames;

    EngineBridge::Writer writer() {
        return [this](Bytes bytes) {
            reader.feed(bytes);
            while (auto frame = reader.next()) {
                frames.push_back(std::move(*frame));
            }
        };
    }
};

}  // namespace vornix::bridge::testing
