#pragma once

#include <cstdint>
#include <span>

#include "engine/Bytes.hpp"
#include "engine/EncodableValue.hpp"

namespace vornix::engine {

// The engine's standard message codec: one value per message, byte for byte as the engine's
// side writes and reads it.
class StandardMessageCodec {
public:
    static Bytes encodeMessage(const EncodableValue& value);
    // Zero bytes are no message at all and decode as null, as on the engine's side. Anything
    // else must be exactly one value; otherwise CodecError.
    static EncodableValue decodeMessage(std::span<const std::uint8_t> message);
};

}  // namespace vornix::engine
