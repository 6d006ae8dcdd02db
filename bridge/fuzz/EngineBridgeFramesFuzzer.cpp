// Feeds untrusted bytes to the bridge as an engine would send them, in pieces, and checks that
// the host either handles them or refuses them with a FrameError, never anything worse, and
// that every frame it accepts writes back to the same bytes.
//
// Not reached by design in bridge/Frame.cpp: the refusal of a channel name longer than 65535
// bytes, since a frame that was read names at most that many.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <span>

#include "bridge/EngineBridge.hpp"
#include "bridge/FrameError.hpp"
#include "bridge/FrameReader.hpp"

using namespace vornix::bridge;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) {
        return 0;
    }
    // The first byte says where the stream after it is cut in two, so that frames arrive in
    // pieces, and a piece may end right after a frame.
    const std::span<const std::uint8_t> stream(data + 1, size - 1);
    const std::size_t split = data[0] % (stream.size() + 1);
    FrameReader reader;
    try {
        for (auto piece : {stream.first(split), stream.subspan(split)}) {
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
        // Once a frame was malformed, the reader must not read on from the middle of it.
        try {
            reader.next();
            std::abort();
        } catch (const FrameError&) {
        }
    }

    EngineBridge bridge;
    bridge.setMessageHandler("c", [](const Bytes& message, EngineBridge::Reply reply) { reply(message); });
    std::size_t written = 0;
    bridge.connect([&](Bytes bytes) { written += bytes.size(); });
    bridge.send("c", {1});
    try {
        bridge.receive(stream);
    } catch (const FrameError&) {
        bridge.disconnect();
    }
    return 0;
}
