// Feeds untrusted bytes to the bridge as an engine would send them, in pieces, and checks that
// the host either handles them or refuses them with a FrameError, never anything worse, and
// that every frame it accepts writes back to the same bytes.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "bridge/EngineBridge.hpp"
#include "bridge/FrameError.hpp"
#include "bridge/FrameReader.hpp"

using namespace vornix::bridge;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FrameReader reader;
    const std::size_t split = size == 0 ? 0 : data[0] % (size + 1);
    try {
        for (auto piece : {std::span(data, split), std::span(data + split, size - split)}) {
            reader.feed(piece);
            while (auto frame = reader.next()) {
                FrameReader check;
                check.feed(encodeFrame(*frame));
                if (check.next() != frame) {
                    std::abort();
                }
            }
        }
    } catch (const FrameError&) {
    }

    EngineBridge bridge;
    bridge.setMessageHandler("c", [](const Bytes& message, EngineBridge::Reply reply) { reply(message); });
    std::size_t written = 0;
    bridge.connect([&](Bytes bytes) { written += bytes.size(); });
    bridge.send("c", {1});
    try {
        bridge.receive(std::span(data, size));
    } catch (const FrameError&) {
        bridge.disconnect();
    }
    return 0;
}
