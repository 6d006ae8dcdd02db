#include "engine/StandardMessageCodec.hpp"

#include "engine/ValueReader.hpp"
#include "engine/ValueWriter.hpp"

namespace vornix::engine {

Bytes StandardMessageCodec::encodeMessage(const EncodableValue& value) {
    Bytes bytes;
    ValueWriter(bytes).writeValue(value);
    return bytes;
}

EncodableValue StandardMessageCodec::decodeMessage(std::span<const std::uint8_t> message) {
    if (message.empty()) {
        return EncodableValue();
    }
    ValueReader reader(message);
    EncodableValue value = reader.readValue();
    reader.expectEnd("message");
    return value;
}

}  // namespace vornix::engine
